// CSV text, read and written in one pass.
#include "data/csv.h"

#include <cstddef>

#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/unit_scan.h"

namespace velm {

namespace {

bool IsLineEnd(std::u16string_view text, std::size_t place) {
    return text[place] == u'\r' && place + 1 < text.size() && text[place + 1] == u'\n';
}

bool IsQuoted(std::u16string_view field) {
    return field.size() >= 2 && field.front() == u'"' && field.back() == u'"';
}

// What of the text stays as it is is copied in runs, as late as can be. A field is what stands between
// two separators; a quote that is open joins the pieces of a field again, with the escape of "," between.
class CsvReader {
  public:
    explicit CsvReader(std::u16string_view text) : text_(text) { out_.reserve(text.size()); }

    std::u16string Run() {
        VisitUnits<u',', u'"', u'、', u'，', u'\r'>(text_, 0, [&](std::size_t place) {
            switch (text_[place]) {
                case u',': EndPiece(place); break;
                case u'"': ++quotes_; break;
                case u'\r':
                    if (IsLineEnd(text_, place)) EndLine(place);
                    break;
                default: wide_ = true; break;
            }
        });
        EndLine(text_.size());
        CopyUpTo(text_.size());
        return std::move(out_);
    }

  private:
    std::u16string_view text_;
    std::u16string out_;
    std::size_t copied_ = 0;  // the text before it was dealt with
    std::size_t piece_ = 0;   // where the present piece begins
    std::size_t quotes_ = 0;  // in it
    bool wide_ = false;       // it has a wide comma
    bool inQuote_ = false;
    bool joining_ = false;   // it goes on with a field, which stands in what was made
    std::size_t field_ = 0;  // from here on

    void CopyUpTo(std::size_t place) {
        out_.append(text_.substr(copied_, place - copied_));
        copied_ = place;
    }

    void BeginPiece(std::size_t place) {
        piece_ = place;
        quotes_ = 0;
        wide_ = false;
    }

    // A field of one piece that needs no escapes.
    void EndPlainField(std::size_t end) {
        if (!IsQuoted(text_.substr(piece_, end - piece_))) return;
        CopyUpTo(piece_);
        ++copied_;
        CopyUpTo(end - 1);
        copied_ = end;
    }

    // A field that was put together.
    void EndMadeField() {
        joining_ = false;
        if (!IsQuoted(std::u16string_view(out_).substr(field_))) return;
        out_.pop_back();
        out_.erase(field_, 1);
    }

    void EndPiece(std::size_t comma) {
        if (quotes_ == 1) inQuote_ = !inQuote_;
        if (inQuote_ || wide_ || joining_) {
            CopyUpTo(piece_);
            if (!joining_) field_ = out_.size();
            AppendEscaped(out_, text_.substr(piece_, comma - piece_));
            joining_ = inQuote_;
            copied_ = inQuote_ ? comma + 1 : comma;
            if (inQuote_) {
                AppendEscaped(out_, u",");
            } else {
                EndMadeField();
            }
        } else {
            EndPlainField(comma);
        }
        BeginPiece(comma + 1);
    }

    // Kept: the last piece of a line isn't escaped.
    void EndLine(std::size_t end) {
        if (quotes_ == 1) inQuote_ = !inQuote_;
        if (joining_) {
            CopyUpTo(end);
            EndMadeField();
        } else {
            EndPlainField(end);
        }
        BeginPiece(end + kCrLf.size());
    }
};

void AppendQuoted(std::u16string& out, std::u16string_view item) {
    out += u'"';
    out.append(item);
    out += u'"';
}

void AppendCsvItem(std::u16string& out, std::u16string_view item) {
    if (BeginsAsWord(item) || !IsNumeric(item)) {
        AppendQuoted(out, item);
    } else {
        out.append(item);
    }
}

// An item with something that may be an escape.
void AppendEscapedItem(std::u16string& out, std::u16string_view item) {
    const std::u16string plain = UnescapeItem(item);
    if (UnescapeItem(plain) == plain && IsNumeric(plain)) {
        out.append(plain);
    } else {
        AppendQuoted(out, plain);
    }
}

}  // namespace

std::u16string CsvToList(std::u16string_view text) { return CsvReader(text).Run(); }

std::u16string ListToCsv(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size() + text.size() / 4);
    std::size_t from = 0;
    bool escapes = false;
    const auto endItem = [&](std::size_t end) {
        (escapes ? AppendEscapedItem : AppendCsvItem)(out, text.substr(from, end - from));
        escapes = false;
    };
    VisitUnits<u',', u'、', u'，', u'{', u'\r'>(text, 0, [&](std::size_t place) {
        if (text[place] == u'{') {
            escapes = true;
        } else if (IsLineEnd(text, place)) {
            endItem(place);
            out.append(kCrLf);
            from = place + kCrLf.size();
        } else if (text[place] != u'\r') {
            endItem(place);
            out += u',';
            from = place + 1;
        }
    });
    endItem(text.size());
    return out;
}

}  // namespace velm
