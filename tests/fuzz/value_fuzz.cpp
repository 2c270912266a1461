// Any sequence of operations on a value against the plain meaning of each on a text: nobody must be
// able to tell the hidden forms.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/brackets.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/value.h"
#include "fuzz_input.h"

namespace {

using velm::Value;
using velm::fuzz::Require;

constexpr std::size_t kMostSteps = 200;
constexpr std::size_t kLongest = 20000;

constexpr std::u16string_view kTexts[] = {
    u"",    u"1",    u"01",   u"1.5", u"-0",  u"１２",  u"1E+20", u"あ",
    u"a b", u"{**}", u"{/n}", u"{",   u" 7 ", u"1,000", u"(5)",   u"=",
};
constexpr std::u16string_view kWholes[] = {
    u"1,2,3", u"、，,",   u"a=1\r\nb=2", u"a=1\r\na=2", u"1,2\r\n3,4\r\n", u"\r\n",
    u"x",     u"=1\r\nb", u"12",         u"a=b=c",      u"\r\n=\r\n",      u"A=1\r\nＡ=2\r\na=3",
};
constexpr std::u16string_view kKeys[] = {u"a", u"A", u"Ａ", u"b", u"", u"a=b", u"あ", u"1"};

// Reads the steps.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool HasMore() const { return at_ < size_; }
    std::size_t Below(std::size_t limit) { return at_ < size_ ? data_[at_++] % limit : 0; }
    template <std::size_t n>
    std::u16string_view One(const std::u16string_view (&texts)[n]) {
        return texts[Below(n)];
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

std::vector<std::u16string> CutAt(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string> parts(1);
    for (std::size_t i = 0; i < text.size();) {
        if (text.substr(i).starts_with(separator)) {
            parts.emplace_back();
            i += separator.size();
        } else {
            parts.back() += text[i++];
        }
    }
    return parts;
}

std::vector<std::u16string> CellsOf(std::u16string_view text) {
    return CutAt(velm::NormaliseCommas(text), u",");
}

std::u16string At(const std::vector<std::u16string>& parts, std::size_t index) {
    return index < parts.size() ? parts[index] : std::u16string();
}

std::u16string WithPart(std::vector<std::u16string> parts, std::size_t index,
                        std::u16string_view part, std::u16string_view separator) {
    if (index >= parts.size()) parts.resize(index + 1);
    parts[index] = part;
    return velm::Join(parts, separator);
}

// A value beside the text that it must be.
struct Pair {
    Value value;
    std::u16string text;
};

void Read(const Pair& pair, Input& input) {
    const std::size_t row = input.Below(5);
    const std::size_t column = input.Below(5);
    const std::u16string line = At(CutAt(pair.text, velm::kCrLf), row);
    switch (input.Below(7)) {
        case 0: Require(pair.value.Cell(column).Text() == At(CellsOf(pair.text), column)); break;
        case 1: Require(pair.value.Row(row).Text() == line); break;
        case 2: Require(pair.value.RowCell(row, column).Text() == At(CellsOf(line), column)); break;
        case 3: {
            const std::u16string_view key = input.One(kKeys);
            Require(pair.value.Entry(key).Text() == velm::GetKey(pair.text, key));
            break;
        }
        case 4: Require(pair.value.Number() == velm::ParseNumber(pair.text)); break;
        case 5: Require(pair.value.IsEmpty() == pair.text.empty()); break;
        default: Require(pair.value.Text() == pair.text); break;
    }
}

void Assign(Pair& pair, Input& input) {
    if (input.Below(2) == 0) {
        pair.text = input.One(kWholes);
        pair.value = Value(pair.text);
    } else {
        const double number = (static_cast<double>(input.Below(256)) - 128) / 8;
        pair.value = Value::OfNumber(number);
        pair.text = velm::FormatNumber(number);
    }
}

// Stores a cell, once of the whole and once of a row.
void StoreCell(Pair& pair, Input& input) {
    const std::size_t row = input.Below(5);
    const std::size_t column = input.Below(5);
    const std::u16string item = velm::EscapeItem(input.One(kTexts));
    const Value stored = velm::IsNumeric(item) ? Value(item) : Value(velm::EscapeItem(item));
    if (velm::Contains(velm::NormaliseCommas(stored.Text()), u",")) return;
    if (input.Below(2) == 0) {
        pair.value.SetCell(column, stored);
        pair.text = WithPart(CellsOf(pair.text), column, stored.Text(), u",");
    } else {
        const std::vector<std::u16string> rows = CutAt(pair.text, velm::kCrLf);
        const std::u16string line = WithPart(CellsOf(At(rows, row)), column, stored.Text(), u",");
        pair.value.SetRowCell(row, column, stored);
        pair.text = WithPart(rows, row, line, velm::kCrLf);
    }
}

void StoreRow(Pair& pair, Input& input) {
    const std::size_t row = input.Below(5);
    const std::u16string_view line = input.Below(2) == 0 ? input.One(kTexts) : input.One(kWholes);
    pair.value.SetRow(row, Value(line));
    pair.text = WithPart(CutAt(pair.text, velm::kCrLf), row, line, velm::kCrLf);
}

void StoreEntry(Pair& pair, Input& input) {
    const std::u16string_view key = input.One(kKeys);
    const std::u16string_view text = input.Below(2) == 0 ? input.One(kTexts) : input.One(kWholes);
    pair.value.SetEntry(key, Value(text));
    pair.text = velm::SetKey(pair.text, key, text);
}

void Append(Pair& pair, const Pair& other, Input& input) {
    if (input.Below(4) == 0) {
        pair.value.Append(other.value);
        pair.text += std::u16string(other.text);
    } else {
        const std::u16string_view tail = input.One(kTexts);
        pair.value.Append(Value(tail));
        pair.text.append(tail);
    }
}

void Step(Pair& pair, Pair& other, Input& input) {
    switch (input.Below(8)) {
        case 0: Assign(pair, input); break;
        case 1: StoreCell(pair, input); break;
        case 2: StoreRow(pair, input); break;
        case 3: StoreEntry(pair, input); break;
        case 4: Append(pair, other, input); break;
        case 5: pair = other; break;
        default: Read(pair, input); break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Pair pairs[3];
    for (std::size_t step = 0; step < kMostSteps && input.HasMore(); ++step) {
        Pair& pair = pairs[input.Below(3)];
        Step(pair, pairs[input.Below(3)], input);
        if (pair.text.size() > kLongest) break;
    }
    for (const Pair& pair : pairs) {
        Require(pair.value.Text() == pair.text);
        Require(pair.value.Number() == velm::ParseNumber(pair.text));
        Require(pair.value.CellCount() == CellsOf(pair.text).size());
        Require(pair.value.RowCount() == CutAt(pair.text, velm::kCrLf).size());
    }
    return 0;
}
