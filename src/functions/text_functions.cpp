// Functions from text to text. Scripts call many of them a million times over, so that none copies
// a text which it only looks at: a target is a Value, and an unchanged text is given back as it is.
#include "functions/text_functions.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/text.h"
#include "data/value.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr int kNumberOutOfRange = 31;

// A count of characters; one below 0 is a bad call.
std::size_t ToCount(std::int32_t number) {
    if (number < 0) throw Failure(failure::kBadCall);
    return static_cast<std::size_t>(number);
}

// The part of a text; the text itself where that is all of it.
Value Part(const Value& text, std::u16string_view part) {
    return part.size() == text.Text().size() ? text : Value(part);
}

using TrimFunction = std::u16string_view (*)(std::u16string_view text);

void TrimWith(TrimFunction trim, Value& result, const Arguments& arguments) {
    Value text;
    arguments.Split(text);
    result = Part(text, trim(text.Text()));
}

// Where the content behind the n-th opener begins, from 0; kNotFound when there is none. An empty
// opener is found at the beginning.
std::size_t ContentBehind(std::u16string_view text, std::u16string_view open, std::int32_t n) {
    if (n < 1) return kNotFound;
    if (open.empty()) return 0;
    const std::size_t position = NthToken(text, open, static_cast<std::size_t>(n));
    return position == 0 ? kNotFound : position - 1 + open.size();
}

// The character of a single byte. The first byte of a pair is no character by itself.
char16_t SingleByteCharacter(std::uint8_t byte) {
    if (IsLeadByte932(byte)) throw Failure(failure::kBadCall);
    return DecodeByte932(byte);
}

// The character of a pair, which must have one.
char16_t PairCharacter(std::uint8_t lead, std::uint8_t trail) {
    constexpr char16_t kUnassigned = u'・';
    constexpr int kCodeOfMiddleDot = 0x8145;
    const char16_t unit = DecodePair932(lead, trail);
    if (unit == kUnassigned && lead * 0x100 + trail != kCodeOfMiddleDot) {
        throw Failure(failure::kBadCall);
    }
    return unit;
}

// Codes of pairs may be written as アスキー gives them, as negative numbers.
char16_t CharacterOf(std::int32_t code) {
    if (code < INT16_MIN || code > UINT16_MAX) throw Failure(failure::kBadCall);
    const int bytes = code < 0 ? code + 0x10000 : code;
    const auto low = static_cast<std::uint8_t>(bytes & 0xFF);
    return bytes > 0xFF ? PairCharacter(static_cast<std::uint8_t>(bytes >> 8), low)
                        : SingleByteCharacter(low);
}

// The text grows by itself up to a block, and then by such blocks, which the machine copies fastest.
void Repeat(std::u16string_view text, std::size_t times, Value& result) {
    constexpr std::size_t kBlock = 4096;
    CheckMadeLength(std::uint64_t{times} * text.size());
    const std::size_t size = times * text.size();
    if (size == 0) return;
    std::u16string& out = result.NewText(size);
    const std::size_t block = std::max<std::size_t>(kBlock / text.size(), 1) * text.size();
    out.append(text);
    while (out.size() < size) {
        out.append(out.data(), std::min({out.size(), block, size - out.size()}));
    }
}

using CaseFunction = void (*)(std::u16string& text);

void MapWith(CaseFunction map, Value& result, const Arguments& arguments) {
    Value text;
    arguments.Split(text);
    const std::u16string& from = text.Text();
    if (!from.empty()) map(result.NewText(from.size()).append(from));
}

}  // namespace

// Kept: a count below 0 fails in the cut, silently and with an empty result; 左 and 右 have no
// message for it.
void FnLeft(Value& result, Arguments& arguments) {
    Value text;
    std::int32_t count = 0;
    arguments.Split(text, count);
    result = Part(text, std::u16string_view(text.Text()).substr(0, ToCount(count)));
}

void FnRight(Value& result, Arguments& arguments) {
    Value text;
    std::int32_t count = 0;
    arguments.Split(text, count);
    const std::u16string_view all = text.Text();
    const std::size_t length = ToCount(count);
    result = length >= all.size() ? text : Value(all.substr(all.size() - length));
}

// Whether a count was given is told by the commas of the call, not by its value: with particles all
// three words are there, and a count that wasn't written is 0.
void FnMiddle(Value& result, Arguments& arguments) {
    if (arguments.Count() < 2) return;
    Value text;
    std::int32_t start = 0;
    std::int32_t count = INT32_MAX;
    if (arguments.Count() == 2) {
        arguments.Split(text, start);
    } else {
        count = 0;
        arguments.Split(text, start, count);
    }
    if (start < 1 || count < 0) {
        RaiseError(kNumberOutOfRange, kIconWarning, u"", u"", -1);
        return;
    }
    const std::u16string_view all = text.Text();
    const std::size_t offset = static_cast<std::size_t>(start) - 1;
    if (offset < all.size()) result = Part(text, all.substr(offset, ToCount(count)));
}

void FnWithoutLast(Value& result, Arguments& arguments) {
    Value text;
    std::int32_t count = 0;
    arguments.Split(text, count);
    const std::u16string_view all = text.Text();
    if (count > 0 && static_cast<std::size_t>(count) > all.size()) throw Failure(failure::kBadCall);
    result = count > 0 ? Value(TrimRight(all, static_cast<std::size_t>(count))) : text;
}

void FnReplace(Value& result, Arguments& arguments) {
    Value text;
    Value find;
    Value replacement;
    arguments.Split(text, find, replacement);
    const std::u16string& all = text.Text();
    const std::u16string& old = find.Text();
    const std::u16string& put = replacement.Text();
    const std::size_t count = CountOf(all, old);
    if (count == 0) {
        result = text;
        return;
    }
    const std::size_t size = all.size() - count * old.size() + count * put.size();
    // A replacement that is longer can make a text of millions of units out of thousands.
    if (put.size() > old.size()) CheckMadeLength(size);
    AppendReplaced(result.NewText(size), all, old, put);
}

void FnBetween(Value& result, Arguments& arguments) {
    std::int32_t n = 0;
    Value text;
    Value open;
    Value close;
    arguments.Split(n, text, open, close);
    const std::u16string_view all = text.Text();
    const std::size_t content = ContentBehind(all, open.Text(), n);
    if (content == kNotFound) return;
    // Kept: the first character of the content is never taken for the closer, so that the content of
    // []x] is ]x.
    const std::size_t end = all.find(close.Text(), content + 1);
    if (end != kNotFound) result = Value(all.substr(content, end - content));
}

void FnField(Value& result, Arguments& arguments) {
    Value text;
    std::int32_t n = 0;
    arguments.Split(text, n);
    if (n >= 1) result = text.Field(static_cast<std::size_t>(n));
}

// The value keeps the places of its lines, so that a loop over the lines of a long text cuts it once.
void FnLine(Value& result, Arguments& arguments) {
    Value text;
    std::int16_t n = 0;
    arguments.Split(text, n);
    if (n >= 1) result = text.Row(static_cast<std::size_t>(n) - 1);
}

void FnTrim(Value& result, Arguments& arguments) { TrimWith(Trim, result, arguments); }

void FnTrimLeft(Value& result, Arguments& arguments) { TrimWith(TrimLeft, result, arguments); }

void FnTrimRight(Value& result, Arguments& arguments) { TrimWith(TrimRight, result, arguments); }

void FnCharacter(Value& result, Arguments& arguments) {
    std::int32_t code = 0;
    arguments.Split(code);
    result.NewText(1) = CharacterOf(code);
}

void FnUpper(Value& result, Arguments& arguments) { MapWith(MakeUpper, result, arguments); }

void FnLower(Value& result, Arguments& arguments) { MapWith(MakeLower, result, arguments); }

void FnRepeat(Value& result, Arguments& arguments) {
    std::int32_t times = 0;
    Value text;
    arguments.Split(times, text);
    Repeat(text.Text(), ToCount(times), result);
}

void FnBlanks(Value& result, Arguments& arguments) {
    std::int32_t count = 0;
    arguments.Split(count);
    Repeat(u" ", ToCount(count), result);
}

void FnLineEnd(Value& result, Arguments&) { result = Value(kCrLf); }

void FnTab(Value& result, Arguments&) { result = Value(u"\t"); }

}  // namespace velm
