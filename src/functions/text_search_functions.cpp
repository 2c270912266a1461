// Functions from text to number. None copies the text that it looks at.
#include "functions/text_search_functions.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/arguments.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/text.h"
#include "data/value.h"

namespace velm {

namespace {

Value OfSize(std::size_t size) { return Value::OfInteger(static_cast<std::int64_t>(size)); }

// The position of an offset from 0, or 0 for "not found".
Value PositionOf(std::size_t offset) {
    return offset == kNotFound ? OfSize(0) : OfSize(offset + 1);
}

// The code of a unit in the code page; "?" stands for what it doesn't have.
int CodeOf(char16_t unit) {
    const int code = EncodeUnit932(unit);
    return code < 0 ? u'?' : code;
}

}  // namespace

// Kept: the code of a double-byte character is given as a signed 16-bit number, and so is negative.
void FnCharacterCode(Value& result, Arguments& arguments) {
    Value text;
    arguments.Split(text);
    if (text.IsEmpty()) throw Failure(failure::kBadCall);
    result = Value::OfInteger(static_cast<std::int16_t>(CodeOf(text.Text().front())));
}

void FnCountOf(Value& result, Arguments& arguments) {
    Value text;
    Value mark;
    arguments.Split(text, mark);
    result = OfSize(CountOf(text.Text(), mark.Text()));
}

// The value keeps the places of its lines, so that asking again doesn't cut the text again.
void FnLineCount(Value& result, Arguments& arguments) {
    Value text;
    arguments.Split(text);
    result = OfSize(text.RowCount());
}

void FnLength(Value& result, Arguments& arguments) {
    Value text;
    arguments.Split(text);
    result = OfSize(text.Text().size());
}

void FnByteLength(Value& result, Arguments& arguments) {
    Value text;
    arguments.Split(text);
    std::size_t bytes = 0;
    for (const char16_t unit : text.Text()) bytes += CodeOf(unit) > 0xFF ? 2U : 1U;
    result = OfSize(bytes);
}

// An empty text to look for is found where the search starts.
void FnFind(Value& result, Arguments& arguments) {
    std::int32_t start = 0;
    Value text;
    Value find;
    arguments.Split(start, text, find);
    if (start < 1) throw Failure(failure::kBadCall);
    if (find.IsEmpty()) {
        result = Value::OfInteger(start);
        return;
    }
    result = PositionOf(FindText(text.Text(), find.Text(), static_cast<std::size_t>(start) - 1));
}

void FnFindLast(Value& result, Arguments& arguments) {
    Value text;
    Value find;
    std::int32_t start = 0;
    arguments.Split(text, find, start);
    if (start < 0) throw Failure(failure::kBadCall);
    std::u16string_view searched = text.Text();
    if (start > 0) searched = searched.substr(0, static_cast<std::size_t>(start));
    result = find.IsEmpty() ? OfSize(searched.size()) : PositionOf(searched.rfind(find.Text()));
}

}  // namespace velm
