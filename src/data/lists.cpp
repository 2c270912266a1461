// List, dictionary and CSV text.
#include "data/lists.h"

#include <algorithm>

#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kLineBreakEscape = u"{/n}";

struct Escape {
    std::u16string_view plain;
    std::u16string_view escaped;
};

constexpr Escape kEscapes[] = {
    {u"、", u"{//}"},
    {u",", u"{**}"},
    {u"，", u"{*/}"},
    {kCrLf, u"{*n}"},
};

// The offsets of a line that begins with key and "=": its start and its end, before the CR LF.
struct KeyLine {
    std::size_t start = kNotFound;
    std::size_t end = 0;

    bool Found() const { return start != kNotFound; }
};

KeyLine FindKeyLine(std::u16string_view text, std::u16string_view key) {
    std::u16string head(key);
    head += u'=';
    KeyLine line;
    for (std::size_t hit = text.find(head); hit != kNotFound; hit = text.find(head, hit + 1)) {
        if (hit != 0 && (hit < 2 || text.substr(hit - 2, 2) != kCrLf)) continue;
        line.start = hit;
        line.end = std::min(text.find(kCrLf, hit + head.size()), text.size());
        break;
    }
    return line;
}

std::u16string ValueOfLine(std::u16string_view text, std::u16string_view key) {
    const KeyLine line = FindKeyLine(text, key);
    if (!line.Found()) return {};
    const std::size_t from = line.start + key.size() + 1;
    return UnescapeLineBreaks(text.substr(from, line.end - from));
}

std::u16string LineOf(std::u16string_view key, std::u16string_view value) {
    std::u16string line(key);
    line += u'=';
    return line.append(EscapeLineBreaks(value));
}

}  // namespace

std::u16string EscapeItem(std::u16string_view text) {
    if (text.find_first_of(u"、,，\r") == kNotFound) return std::u16string(text);
    std::u16string out(text);
    for (const Escape& escape : kEscapes) out = ReplaceAll(out, escape.plain, escape.escaped);
    return out;
}

std::u16string UnescapeItem(std::u16string_view text) {
    if (text.find(u'{') == kNotFound) return std::u16string(text);
    std::u16string out(text);
    for (const Escape& escape : kEscapes) out = ReplaceAll(out, escape.escaped, escape.plain);
    return out;
}

void AppendItem(std::u16string& list, std::u16string_view item) {
    if (item.find_first_of(u"、,，\r") == kNotFound || IsNumeric(item)) {
        list.append(item);
    } else {
        list.append(EscapeItem(item));
    }
}

std::vector<std::u16string> ParseList(std::u16string_view text) {
    const std::u16string normalised = NormaliseCommas(text);
    std::vector<std::u16string> items;
    for (const std::u16string_view item : Split(normalised, u",")) {
        items.push_back(UnescapeItem(item));  // which leaves a numeric item as it is
    }
    return items;
}

std::u16string JoinList(const std::vector<std::u16string>& items, std::u16string_view separator) {
    std::u16string out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i != 0) out.append(separator);
        AppendItem(out, items[i]);
    }
    return out;
}

std::u16string ListOfNames(const std::vector<std::u16string>& names) {
    std::u16string out;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i != 0) out += u',';
        out.append(EscapeItem(names[i]));
    }
    return out;
}

std::u16string EscapeLineBreaks(std::u16string_view text) {
    return ReplaceAll(text, kCrLf, kLineBreakEscape);
}

std::u16string UnescapeLineBreaks(std::u16string_view text) {
    return ReplaceAll(text, kLineBreakEscape, kCrLf);
}

std::u16string SetDictValue(std::u16string_view text, std::u16string_view key,
                            std::u16string_view value) {
    const KeyLine line = FindKeyLine(text, key);
    std::u16string out;
    if (line.Found()) {
        out.append(text.substr(0, line.start)).append(LineOf(key, value));
        return out.append(text.substr(line.end));
    }
    out.append(text);
    if (!text.empty()) out.append(kCrLf);
    return out.append(LineOf(key, value));
}

std::u16string GetDictValue(std::u16string_view text, std::u16string_view key) {
    return ValueOfLine(text, key);
}

std::u16string SetKey(std::u16string_view text, std::u16string_view key,
                      std::u16string_view value) {
    if (key.empty()) key = text;
    const KeyLine line = FindKeyLine(text, key);
    std::u16string out;
    if (!line.Found()) {
        out.append(text);
    } else if (line.start == 0) {
        out.append(text.substr(std::min(line.end + kCrLf.size(), text.size())));
    } else {
        out.append(text.substr(0, line.start - kCrLf.size())).append(text.substr(line.end));
    }
    if (!out.empty()) out.append(kCrLf);
    return out.append(LineOf(key, value));
}

std::u16string GetKey(std::u16string_view text, std::u16string_view key) {
    return ValueOfLine(text, key);
}

namespace {

// Joins the pieces of a quoted field again: each item but the last is escaped and followed by ",",
// or by the escape of "," while a quote is open.
std::u16string MendQuotedCommas(std::u16string_view line, bool& inQuote) {
    const std::vector<std::u16string_view> items = Split(line, u",");
    std::u16string out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (CountOf(items[i], u"\"") == 1) inQuote = !inQuote;
        if (i + 1 == items.size()) {
            out.append(items[i]);
        } else {
            out.append(EscapeItem(items[i])).append(inQuote ? u"{**}" : u",");
        }
    }
    return out;
}

void AppendUnquoted(std::u16string& out, std::u16string_view line) {
    bool first = true;
    for (const std::u16string_view item : Split(line, u",")) {
        if (!first) out += u',';
        first = false;
        out.append(StripPair(item, u"\"", u"\""));
    }
}

void AppendCsvLine(std::u16string& out, std::u16string_view line) {
    bool first = true;
    for (const std::u16string& item : ParseList(line)) {
        if (!first) out += u',';
        first = false;
        const std::u16string decoded = UnescapeItem(item);
        const bool bare = IsNumeric(decoded) && decoded == item;
        if (!bare) out += u'"';
        out.append(item);
        if (!bare) out += u'"';
    }
}

}  // namespace

std::u16string CsvToList(std::u16string_view text) {
    std::u16string out;
    bool inQuote = false;
    bool first = true;
    for (const std::u16string_view line : SplitLines(text)) {
        if (!first) out.append(kCrLf);
        first = false;
        AppendUnquoted(out, MendQuotedCommas(line, inQuote));
    }
    return out;
}

std::u16string ListToCsv(std::u16string_view text) {
    std::u16string out;
    bool first = true;
    for (const std::u16string_view line : SplitLines(text)) {
        if (!first) out.append(kCrLf);
        first = false;
        AppendCsvLine(out, line);
    }
    return out;
}

}  // namespace velm
