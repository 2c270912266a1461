// Reading the grammar of keys.
#include "data/key_strokes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "data/failure.h"
#include "data/text.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr std::int32_t kMostPresses = 32767;
constexpr std::int32_t kFunctionKeys = 16;

struct KeyName {
    std::u16string_view name;
    StrokeKey key;
};

constexpr std::array kKeyNames = std::to_array<KeyName>({
    {u"BACKSPACE", StrokeKey::kBackspace},
    {u"BS", StrokeKey::kBackspace},
    {u"BKSP", StrokeKey::kBackspace},
    {u"BREAK", StrokeKey::kBreak},
    {u"CAPSLOCK", StrokeKey::kCapsLock},
    {u"DELETE", StrokeKey::kDelete},
    {u"DEL", StrokeKey::kDelete},
    {u"DOWN", StrokeKey::kDown},
    {u"END", StrokeKey::kEnd},
    {u"ENTER", StrokeKey::kEnter},
    {u"ESC", StrokeKey::kEscape},
    {u"ESCAPE", StrokeKey::kEscape},
    {u"HELP", StrokeKey::kHelp},
    {u"HOME", StrokeKey::kHome},
    {u"INSERT", StrokeKey::kInsert},
    {u"INS", StrokeKey::kInsert},
    {u"LEFT", StrokeKey::kLeft},
    {u"NUMLOCK", StrokeKey::kNumLock},
    {u"PGDN", StrokeKey::kPageDown},
    {u"PGUP", StrokeKey::kPageUp},
    {u"PRTSC", StrokeKey::kPrintScreen},
    {u"RIGHT", StrokeKey::kRight},
    {u"SCROLLLOCK", StrokeKey::kScrollLock},
    {u"TAB", StrokeKey::kTab},
    {u"UP", StrokeKey::kUp},
});

[[noreturn]] void FailGrammar() { throw Failure(failure::kBadCall); }

// A number of at most nine digits; nothing for any other text.
std::optional<std::int32_t> Digits(std::u16string_view text) {
    constexpr std::size_t kMostDigits = 9;
    if (text.empty() || text.size() > kMostDigits) return std::nullopt;
    std::int32_t number = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        number = number * 10 + (unit - u'0');
    }
    return number;
}

std::optional<StrokeKey> KeyOfName(std::u16string_view name) {
    const std::u16string upper = ToUpper(name);
    for (const KeyName& row : kKeyNames) {
        if (row.name == upper) return row.key;
    }
    if (upper[0] != u'F') return std::nullopt;
    const auto number = Digits(std::u16string_view(upper).substr(1));
    if (!number || *number < 1 || *number > kFunctionKeys) return std::nullopt;
    return static_cast<StrokeKey>(static_cast<std::int32_t>(StrokeKey::kF1) + *number - 1);
}

// The character at a place, which is moved behind it.
char32_t TakeCharacter(std::u16string_view text, std::size_t& at) {
    const char16_t unit = text[at++];
    const bool isHigh = (unit & 0xFC00) == 0xD800;
    if (!isHigh || at == text.size() || (text[at] & 0xFC00) != 0xDC00) return unit;
    return 0x10000 + ((static_cast<char32_t>(unit) & 0x3FF) << 10) + (text[at++] & 0x3FFu);
}

// The stroke of a character without a meaning in the grammar; CR LF is one character.
KeyStroke TakeStroke(std::u16string_view text, std::size_t& at) {
    const char32_t character = TakeCharacter(text, at);
    if (character == U'\r' && at < text.size() && text[at] == u'\n') ++at;
    if (character == U'\r' || character == U'\n') return {.key = StrokeKey::kEnter};
    if (character == U'\t') return {.key = StrokeKey::kTab};
    return {.character = character};
}

char32_t WithoutCase(char32_t character, std::int32_t modifiers) {
    const bool isCommand = (modifiers & (stroke::kControl | stroke::kAlt)) != 0;
    const bool isCapital = character >= U'A' && character <= U'Z';
    return isCommand && isCapital ? character - U'A' + U'a' : character;
}

class Parser {
  public:
    explicit Parser(std::u16string_view text) : text_(text) {}

    std::vector<KeyStroke> Parse() {
        while (at_ < text_.size()) Step();
        if (pending_ != 0 || !groups_.empty()) FailGrammar();
        return std::move(strokes_);
    }

  private:
    std::u16string_view text_;
    std::size_t at_ = 0;
    std::int32_t pending_ = 0;          // modifiers for what comes next
    std::vector<std::int32_t> groups_;  // the modifiers of the open groups, the outer ones included
    std::vector<KeyStroke> strokes_;

    void Step() {
        switch (text_[at_]) {
            case u'+': Hold(stroke::kShift); break;
            case u'^': Hold(stroke::kControl); break;
            case u'%': Hold(stroke::kAlt); break;
            case u'(': Open(); break;
            case u')': Close(); break;
            case u'}': FailGrammar();
            case u'{': AddBraced(); break;
            case u'~':
                ++at_;
                Add({.key = StrokeKey::kEnter});
                break;
            default: Add(TakeStroke(text_, at_));
        }
    }

    void Hold(std::int32_t modifier) {
        pending_ |= modifier;
        ++at_;
    }

    void Open() {
        groups_.push_back(Held());
        pending_ = 0;
        ++at_;
    }

    void Close() {
        if (groups_.empty() || pending_ != 0) FailGrammar();
        groups_.pop_back();
        ++at_;
    }

    std::int32_t Held() const { return pending_ | (groups_.empty() ? 0 : groups_.back()); }

    void Add(KeyStroke added) {
        added.modifiers = Held();
        added.character = WithoutCase(added.character, added.modifiers);
        pending_ = 0;
        strokes_.push_back(added);
    }

    // {NAME} or {NAME 4}; the name may be a brace itself.
    void AddBraced() {
        if (at_ + 2 >= text_.size()) FailGrammar();
        const std::size_t close = text_.find(u'}', at_ + 2);
        if (close == kNotFound) FailGrammar();
        std::u16string_view inner = text_.substr(at_ + 1, close - at_ - 1);
        at_ = close + 1;
        std::int32_t count = 1;
        const std::size_t blank = inner.rfind(u' ');
        if (blank != kNotFound && blank != 0) {
            const auto number = Digits(Trim(inner.substr(blank)));
            if (!number) FailGrammar();
            if (*number > kMostPresses) throw Failure(failure::kOverflow);
            count = *number;
            inner = TrimRight(inner.substr(0, blank));
        }
        KeyStroke added = NamedStroke(inner);
        added.count = count;
        Add(added);
    }

    static KeyStroke NamedStroke(std::u16string_view name) {
        if (name.empty()) FailGrammar();
        if (const auto key = KeyOfName(name)) return {.key = *key};
        std::size_t end = 0;
        const KeyStroke one = TakeStroke(name, end);
        if (end != name.size()) FailGrammar();
        return one;
    }
};

}  // namespace

std::vector<KeyStroke> ParseKeyStrokes(std::u16string_view text) { return Parser(text).Parse(); }

std::vector<KeyStroke> PlainKeyStrokes(std::u16string_view text) {
    std::vector<KeyStroke> strokes;
    for (std::size_t at = 0; at < text.size();) strokes.push_back(TakeStroke(text, at));
    return strokes;
}

}  // namespace velm
