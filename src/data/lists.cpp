// List, dictionary and CSV text.
#include "data/lists.h"

#include <algorithm>

#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/unit_scan.h"

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

bool MayNeedEscape(std::u16string_view text) {
    return ContainsUnitOf<u',', u'、', u'，', u'\r'>(text);
}

// Where an escape begins.
std::size_t FindBrace(std::u16string_view text, std::size_t from = 0) {
    return FindUnitOf<u'{'>(text, from);
}

// The escape with which the text begins, if it does.
const Escape* EscapeAt(std::u16string_view text) {
    for (const Escape& escape : kEscapes) {
        if (text.starts_with(escape.escaped)) return &escape;
    }
    return nullptr;
}

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

// The text of an item in a list: no replacement holds what another one replaces, so that one pass
// does for all of them, here and back.
void AppendEscaped(std::u16string& out, std::u16string_view text) {
    std::size_t from = 0;
    VisitUnits<u',', u'、', u'，', u'\r'>(text, 0, [&](std::size_t at) {
        for (const Escape& escape : kEscapes) {
            if (text.substr(at, escape.plain.size()) != escape.plain) continue;
            out.append(text.substr(from, at - from)).append(escape.escaped);
            from = at + escape.plain.size();
        }
    });
    out.append(text.substr(from));
}

std::u16string EscapeItem(std::u16string_view text) {
    if (!MayNeedEscape(text)) return std::u16string(text);
    std::u16string out;
    AppendEscaped(out, text);
    return out;
}

std::u16string UnescapeItem(std::u16string_view text) {
    std::u16string out;
    std::size_t from = 0;
    for (std::size_t brace = FindBrace(text); brace < text.size(); brace = FindBrace(text, brace)) {
        const Escape* escape = EscapeAt(text.substr(brace));
        if (escape == nullptr) {
            ++brace;
            continue;
        }
        out.append(text.substr(from, brace - from)).append(escape->plain);
        brace += escape->escaped.size();
        from = brace;
    }
    return out.append(text.substr(from));
}

void AppendItem(std::u16string& list, std::u16string_view item) {
    if (!MayNeedEscape(item) || IsNumeric(item)) {
        list.append(item);
    } else {
        AppendEscaped(list, item);
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

}  // namespace velm
