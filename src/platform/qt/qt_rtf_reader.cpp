// RTF read as rich text; see qt_rtf.h.
#include <QHash>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/code_page_932.h"
#include "platform/qt/qt_rich_formats.h"
#include "platform/qt/qt_rtf.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

constexpr double kTwipsPerPixel = 15;
constexpr std::u16string_view kStart = u"{\\rtf";
// No text nests deeper but a broken one.
constexpr std::size_t kDeepest = 1000;

// Where text of a group goes.
enum class Target : std::uint8_t { kText, kFonts, kColors, kNowhere };

struct GroupState {
    Target target = Target::kText;
    QTextCharFormat format;
    int unicodeSkip = 1;
};

struct ControlWord {
    std::u16string_view name;
    std::optional<int> number;

    bool IsOn() const { return number.value_or(1) != 0; }
};

class RtfReader {
  public:
    RtfReader(QTextDocument& document, std::u16string_view rtf) : cursor_(&document), rtf_(rtf) {}

    void Read() {
        cursor_.beginEditBlock();
        while (place_ < rtf_.size()) ReadNext();
        Flush();
        cursor_.endEditBlock();
    }

  private:
    QTextCursor cursor_;
    std::u16string_view rtf_;
    std::size_t place_ = 0;
    std::vector<GroupState> groups_{GroupState()};
    QString text_;
    std::string bytes_;  // of code page 932 that wait for their neighbours
    int skip_ = 0;       // units that stand in for one that Unicode told
    QHash<int, QString> fonts_;
    int font_ = 0;
    QString fontName_;
    std::vector<QColor> colors_;
    QColor color_;
    bool hasColor_ = false;

    GroupState& Group() { return groups_.back(); }

    void ReadNext() {
        const char16_t unit = rtf_[place_++];
        switch (unit) {
            case u'{': OpenGroup(); break;
            case u'}': CloseGroup(); break;
            case u'\\': ReadControl(); break;
            case u'\r':
            case u'\n':
            case u'\0': break;
            default: Put(unit); break;
        }
    }

    void OpenGroup() {
        Flush();
        skip_ = 0;
        if (groups_.size() < kDeepest) groups_.push_back(Group());
    }

    void CloseGroup() {
        Flush();
        skip_ = 0;
        if (groups_.size() > 1) groups_.pop_back();
    }

    void ReadControl() {
        if (place_ >= rtf_.size()) return;
        const char16_t unit = rtf_[place_];
        if ((unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z')) {
            Obey(ReadWord());
            return;
        }
        ++place_;
        switch (unit) {
            case u'\'': ReadByte(); break;
            case u'*': Group().target = Target::kNowhere; break;
            case u'~': Put(u'\u00A0'); break;
            case u'_': Put(u'\u2011'); break;
            case u'\r':
            case u'\n': EndParagraph(); break;
            case u'\\':
            case u'{':
            case u'}': Put(unit); break;
            default: break;
        }
    }

    ControlWord ReadWord() {
        const std::size_t start = place_;
        const auto at = [this] { return place_ < rtf_.size() ? rtf_[place_] : u'\0'; };
        const auto isLetter = [](char16_t c) {
            return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
        };
        while (isLetter(at())) ++place_;
        ControlWord word{rtf_.substr(start, place_ - start), std::nullopt};
        const bool isNegative = at() == u'-';
        if (isNegative) ++place_;
        while (at() >= u'0' && at() <= u'9') {
            word.number = std::min(word.number.value_or(0) * 10 + (at() - u'0'), 10'000'000);
            ++place_;
        }
        if (isNegative && word.number) word.number = -*word.number;
        if (at() == u' ') ++place_;
        return word;
    }

    void ReadByte() {
        const auto digit = [this]() -> int {
            if (place_ >= rtf_.size()) return 0;
            const char16_t c = rtf_[place_++];
            if (c >= u'0' && c <= u'9') return c - u'0';
            if (c >= u'a' && c <= u'f') return c - u'a' + 10;
            return c >= u'A' && c <= u'F' ? c - u'A' + 10 : 0;
        };
        const int high = digit();
        const int byte = high * 16 + digit();
        if (skip_ > 0) {
            --skip_;
        } else if (Group().target != Target::kNowhere) {
            bytes_ += static_cast<char>(byte);
        }
    }

    void Put(char16_t unit) {
        if (skip_ > 0) {
            --skip_;
            return;
        }
        // The second byte of a pair may stand there as the character that it is by itself.
        const bool endsPair = !bytes_.empty() && unit < 0x80 && IsHalfPair();
        if (endsPair) {
            bytes_ += static_cast<char>(unit);
            return;
        }
        TakeBytes();
        PutUnit(unit);
    }

    bool IsHalfPair() const {
        bool isHalf = false;
        for (const char byte : bytes_) {
            isHalf = !isHalf && IsLeadByte932(static_cast<std::uint8_t>(byte));
        }
        return isHalf;
    }

    void TakeBytes() {
        const std::u16string text = DecodeCodePage932(bytes_);
        bytes_.clear();
        for (const char16_t unit : text) PutUnit(unit);
    }

    void PutUnit(char16_t unit) {
        switch (Group().target) {
            case Target::kText: text_ += QChar(unit); break;
            case Target::kFonts: PutInFont(unit); break;
            case Target::kColors:
                if (unit == u';') EndColor();
                break;
            case Target::kNowhere: break;
        }
    }

    void PutInFont(char16_t unit) {
        if (unit != u';') {
            fontName_ += QChar(unit);
            return;
        }
        fonts_.insert(font_, fontName_.trimmed());
        fontName_.clear();
    }

    void EndColor() {
        colors_.push_back(hasColor_ ? color_ : QColor());
        color_ = QColor(0, 0, 0);
        hasColor_ = false;
    }

    void Flush() {
        if (!bytes_.empty()) TakeBytes();
        if (text_.isEmpty()) return;
        cursor_.insertText(text_, Group().format);
        text_.clear();
    }

    void EndParagraph() {
        Flush();
        cursor_.insertBlock(cursor_.blockFormat(), Group().format);
    }

    void Obey(const ControlWord& word) {
        if (word.name != u"u" && !bytes_.empty()) TakeBytes();
        if (word.name == u"u") {
            if (word.number) PutUnicode(*word.number);
        } else if (ObeyTable(word) || Group().target != Target::kText) {
            return;
        } else if (!ObeyText(word) && !ObeyParagraph(word)) {
            ObeyFormat(word);
        }
    }

    void PutUnicode(int number) {
        TakeBytes();
        PutUnit(static_cast<char16_t>(number));
        skip_ = Group().unicodeSkip;
    }

    // The tables in front, and what is skipped with its group.
    bool ObeyTable(const ControlWord& word) {
        static constexpr std::u16string_view kSkipped[] = {
            u"stylesheet", u"info", u"pict", u"header", u"footer", u"object", u"footnote"};
        if (word.name == u"fonttbl") {
            Group().target = Target::kFonts;
        } else if (word.name == u"colortbl") {
            Group().target = Target::kColors;
            color_ = QColor(0, 0, 0);
        } else if (std::find(std::begin(kSkipped), std::end(kSkipped), word.name) !=
                   std::end(kSkipped)) {
            Group().target = Target::kNowhere;
        } else if (Group().target == Target::kFonts && word.name == u"f") {
            font_ = word.number.value_or(0);
        } else if (Group().target == Target::kColors) {
            SetColorPart(word);
        } else {
            return false;
        }
        return true;
    }

    void SetColorPart(const ControlWord& word) {
        const int part = std::clamp(word.number.value_or(0), 0, 255);
        if (word.name == u"red") color_.setRed(part);
        if (word.name == u"green") color_.setGreen(part);
        if (word.name == u"blue") color_.setBlue(part);
        hasColor_ = true;
    }

    bool ObeyText(const ControlWord& word) {
        static const QHash<QString, char16_t> kCharacters = {
            {QStringLiteral("tab"), u'\t'},          {QStringLiteral("line"), u'\u2028'},
            {QStringLiteral("bullet"), u'\u2022'},   {QStringLiteral("endash"), u'\u2013'},
            {QStringLiteral("emdash"), u'\u2014'},   {QStringLiteral("lquote"), u'\u2018'},
            {QStringLiteral("rquote"), u'\u2019'},   {QStringLiteral("ldblquote"), u'\u201C'},
            {QStringLiteral("rdblquote"), u'\u201D'}};
        if (word.name == u"par") {
            EndParagraph();
            return true;
        }
        if (word.name == u"uc") {
            Group().unicodeSkip = std::max(word.number.value_or(1), 0);
            return true;
        }
        const auto character = kCharacters.find(ToQString(word.name));
        if (character == kCharacters.end()) return false;
        Put(*character);
        return true;
    }

    bool ObeyParagraph(const ControlWord& word) {
        QTextBlockFormat format = cursor_.blockFormat();
        const double pixels = word.number.value_or(0) / kTwipsPerPixel;
        if (word.name == u"pard") {
            format = QTextBlockFormat();
        } else if (word.name == u"ql") {
            format.setAlignment(Qt::AlignLeft);
        } else if (word.name == u"qr") {
            format.setAlignment(Qt::AlignRight);
        } else if (word.name == u"qc") {
            format.setAlignment(Qt::AlignHCenter);
        } else if (word.name == u"li") {
            format.setLeftMargin(pixels);
        } else if (word.name == u"ri") {
            format.setRightMargin(pixels);
        } else if (word.name == u"fi") {
            format.setTextIndent(pixels);
        } else {
            return false;
        }
        Flush();
        cursor_.setBlockFormat(format);
        return true;
    }

    void ObeyFormat(const ControlWord& word) {
        QTextCharFormat format = Group().format;
        if (word.name == u"plain") {
            format = QTextCharFormat();
        } else if (word.name == u"b") {
            format.setFontWeight(word.IsOn() ? QFont::Bold : QFont::Normal);
        } else if (word.name == u"i") {
            format.setFontItalic(word.IsOn());
        } else if (word.name == u"ul" || word.name == u"ulnone") {
            format.setFontUnderline(word.name == u"ul" && word.IsOn());
        } else if (word.name == u"strike") {
            format.setFontStrikeOut(word.IsOn());
        } else if (word.name == u"protect") {
            SetProtected(format, word.IsOn());
        } else if (word.name == u"f") {
            UseFont(format, word.number.value_or(0));
        } else if (word.name == u"fs") {
            if (word.number.value_or(0) > 0) SetPoints(format, std::min(*word.number, 3000) / 2.0);
        } else if (word.name == u"cf") {
            UseColor(format, word.number.value_or(0));
        } else {
            return;
        }
        Flush();
        Group().format = format;
    }

    void UseFont(QTextCharFormat& format, int number) {
        const QString family = fonts_.value(number);
        if (!family.isEmpty()) SetFormatFamily(format, family);
    }

    void UseColor(QTextCharFormat& format, int number) {
        const auto index = static_cast<std::size_t>(number);
        const bool isThere = number >= 0 && index < colors_.size() && colors_[index].isValid();
        if (isThere) {
            format.setForeground(colors_[index]);
        } else {
            format.clearForeground();
        }
    }
};

}  // namespace

bool IsRtf(std::u16string_view text) { return text.starts_with(kStart); }

void ReadRtf(QTextDocument& document, std::u16string_view rtf) {
    document.clear();
    // The end of the text closes what is open; text behind it belongs to nobody.
    RtfReader(document, rtf).Read();
}

}  // namespace velm
