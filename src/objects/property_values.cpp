// The forms that values of properties have in sentences.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/eval.h"
#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"
#include "objects/properties.h"

namespace velm {

namespace {

// The parts between the commas outside brackets.
std::vector<std::u16string_view> PartsOf(std::u16string_view text) {
    std::vector<std::u16string_view> parts;
    std::size_t from = 0;
    std::size_t comma = NextComma(text, 1, true);
    while (comma != 0) {
        parts.push_back(text.substr(from, comma - 1 - from));
        from = comma;
        comma = NextComma(text, comma, true);
    }
    parts.push_back(text.substr(from));
    return parts;
}

}  // namespace

std::int32_t EnumIndexOf(const Value& text, std::span<const std::u16string_view> names) {
    const auto found = std::find(names.begin(), names.end(), text.Text());
    if (found != names.end()) return static_cast<std::int32_t>(found - names.begin());
    return ToInt32(TextToNumber(text.Text()));
}

std::int32_t EnumIndexOf(const PropertyRecord& record, std::span<const std::u16string_view> names) {
    const bool isName = std::find(names.begin(), names.end(), record.Text.Text()) != names.end();
    const auto written = std::find(names.begin(), names.end(), Trim(record.Value.Text()));
    if (isName || written == names.end()) return EnumIndexOf(record.Text, names);
    return static_cast<std::int32_t>(written - names.begin());
}

Value EnumNameOf(std::int32_t number, std::span<const std::u16string_view> names) {
    const bool hasName = number >= 0 && static_cast<std::size_t>(number) < names.size();
    return hasName ? Value(names[static_cast<std::size_t>(number)]) : Value::OfInteger(number);
}

std::vector<Value> SplitValues(const PropertyRecord& record) {
    const bool isWritten = NextComma(record.Value, 1, true) != 0;
    const Value whole = isWritten ? Value(record.Value.Text()) : record.Text;
    std::vector<Value> values;
    for (const std::u16string_view part : PartsOf(whole.Text())) {
        values.push_back(isWritten ? EvalText(part) : Value(Trim(part)));
    }
    return values;
}

std::size_t SplitCoordinates(const PropertyRecord& record, std::span<double> outputs) {
    const std::vector<Value> values = SplitValues(record);
    const std::size_t count = std::min(values.size(), outputs.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (const std::optional<double> number = values[i].Number()) outputs[i] = *number;
    }
    return count;
}

}  // namespace velm
