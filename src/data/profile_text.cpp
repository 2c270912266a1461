// See profile_text.h.
#include "data/profile_text.h"

#include <algorithm>

#include "data/code_page_932.h"
#include "data/text.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view TrimBytes(std::string_view bytes) {
    const std::size_t first = bytes.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return bytes.substr(first, bytes.find_last_not_of(kBlanks) - first + 1);
}

std::u16string_view TrimName(std::u16string_view name) {
    const std::size_t first = name.find_first_not_of(u" \t");
    if (first == kNotFound) return {};
    return name.substr(first, name.find_last_not_of(u" \t") - first + 1);
}

// A name as it is compared: as far as the code page can hold it, since that is what a file has of it.
std::u16string FoldedName(std::u16string_view name) {
    return ToUpper(DecodeCodePage932(EncodeCodePage932(TrimName(name))));
}

std::u16string FoldedName(std::string_view name) {
    return ToUpper(DecodeCodePage932(TrimBytes(name)));
}

// One line: where it begins, its text without the line end, and where the next begins.
struct Line {
    std::size_t begin = 0;
    std::string_view text;
    std::size_t next = 0;
};

Line LineAt(std::string_view file, std::size_t begin) {
    Line line;
    line.begin = begin;
    const std::size_t end = std::min(file.find('\n', begin), file.size());
    line.next = std::min(end + 1, file.size());
    line.text = file.substr(begin, end - begin);
    if (line.text.ends_with('\r')) line.text.remove_suffix(1);
    return line;
}

bool IsSectionHead(std::string_view text) { return TrimBytes(text).starts_with('['); }

// Whether a line is the head of a section. A "]" may be the second byte of a character, and part of a
// name: the name ends at the last one where that ends the line, else at the first one.
bool IsHeadOf(std::string_view text, const std::u16string& folded) {
    if (!IsSectionHead(text)) return false;
    const std::u16string head = DecodeCodePage932(TrimBytes(text).substr(1));
    if (head.ends_with(u']') && ToUpper(TrimName(TrimRight(head, 1))) == folded) return true;
    const std::size_t close = head.find(u']');
    return close != kNotFound && ToUpper(TrimName(head.substr(0, close))) == folded;
}

// The part of a file that a section takes: from its head line to the next head line.
struct Section {
    Line head;
    std::size_t end = 0;
};

std::optional<Section> FindSection(std::string_view file, std::u16string_view name) {
    const std::u16string folded = FoldedName(name);
    std::optional<Section> found;
    for (std::size_t at = 0; at < file.size();) {
        const Line line = LineAt(file, at);
        if (found && IsSectionHead(line.text)) break;
        if (!found && IsHeadOf(line.text, folded)) found = Section{line, 0};
        at = line.next;
        if (found) found->end = at;
    }
    return found;
}

std::optional<Line> FindKey(std::string_view file, const Section& section,
                            std::u16string_view key) {
    const std::u16string folded = FoldedName(key);
    for (std::size_t at = section.head.next; at < section.end;) {
        const Line line = LineAt(file, at);
        const std::size_t equals = line.text.find('=');
        const bool isEntry =
            equals != std::string_view::npos && !TrimBytes(line.text).starts_with(';');
        if (isEntry && FoldedName(line.text.substr(0, equals)) == folded) return line;
        at = line.next;
    }
    return std::nullopt;
}

std::string_view LineEndOf(std::string_view file) {
    const std::size_t end = file.find('\n');
    const bool bare = end != std::string_view::npos && (end == 0 || file[end - 1] != '\r');
    return bare ? "\n" : "\r\n";
}

// The position behind the last line of a section that holds something.
std::size_t EndOfEntries(std::string_view file, const Section& section) {
    std::size_t end = section.head.next;
    for (std::size_t at = end; at < section.end;) {
        const Line line = LineAt(file, at);
        at = line.next;
        if (!TrimBytes(line.text).empty()) end = at;
    }
    return end;
}

// The file with lines put in at a position that is the beginning of a line.
std::string InsertLines(std::string_view file, std::size_t at, std::string_view lines) {
    std::string out(file.substr(0, at));
    if (!out.empty() && !out.ends_with('\n')) out.append(LineEndOf(file));
    return out.append(lines).append(file.substr(at));
}

std::string Without(std::string_view file, std::size_t from, std::size_t to) {
    return std::string(file.substr(0, from)).append(file.substr(to));
}

// The line's text with another value; blanks that stand before the value stay, unless it brings its own.
std::string WithValue(std::string_view text, std::string_view value) {
    const std::size_t behind = text.find('=') + 1;
    const bool bringsBlanks = value.find_first_of(kBlanks) == 0;
    const std::size_t at = bringsBlanks ? behind : text.find_first_not_of(kBlanks, behind);
    return std::string(text.substr(0, at)).append(value);
}

bool HasLineBreak(std::u16string_view text) {
    return text.find_first_of(std::u16string_view(u"\r\n\0", 3)) != kNotFound;
}

}  // namespace

std::optional<std::u16string> ProfileValue(std::string_view file, std::u16string_view section,
                                           std::u16string_view key) {
    const std::optional<Section> found = FindSection(file, section);
    if (!found) return std::nullopt;
    const std::optional<Line> line = FindKey(file, *found, key);
    if (!line) return std::nullopt;
    std::string_view value = TrimBytes(line->text.substr(line->text.find('=') + 1));
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    if (quoted) value = value.substr(1, value.size() - 2);
    return DecodeCodePage932(value);
}

bool FitsProfile(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
    if (HasLineBreak(section) || HasLineBreak(key) || HasLineBreak(value)) return false;
    const std::u16string_view name = TrimName(key);
    return !name.empty() && !Contains(name, u"=") && name.front() != u';' && name.front() != u'[';
}

std::string SetProfileValue(std::string_view file, std::u16string_view section,
                            std::u16string_view key, std::u16string_view value) {
    const std::string bytes = EncodeCodePage932(value);
    const std::string_view lineEnd = LineEndOf(file);
    const std::string entry =
        EncodeCodePage932(TrimName(key)).append("=").append(bytes).append(lineEnd);
    const std::optional<Section> found = FindSection(file, section);
    if (!found) {
        const std::string head =
            std::string("[").append(EncodeCodePage932(TrimName(section))).append("]");
        return InsertLines(file, file.size(), head + std::string(lineEnd) + entry);
    }
    if (const std::optional<Line> line = FindKey(file, *found, key)) {
        const std::size_t textEnd = line->begin + line->text.size();
        return std::string(file.substr(0, line->begin))
            .append(WithValue(line->text, bytes))
            .append(file.substr(textEnd));
    }
    return InsertLines(file, EndOfEntries(file, *found), entry);
}

std::string RemoveProfileKey(std::string_view file, std::u16string_view section,
                             std::u16string_view key) {
    const std::optional<Section> found = FindSection(file, section);
    if (!found) return std::string(file);
    const std::optional<Line> line = FindKey(file, *found, key);
    return line ? Without(file, line->begin, line->next) : std::string(file);
}

std::string RemoveProfileSection(std::string_view file, std::u16string_view section) {
    const std::optional<Section> found = FindSection(file, section);
    return found ? Without(file, found->head.begin, found->end) : std::string(file);
}

}  // namespace velm
