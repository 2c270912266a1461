// See structures.h.
#include "data/structures.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr std::u16string_view kKeys = u"__Keys";
constexpr std::u16string_view kSize = u"__Size";
constexpr std::u16string_view kType = u"__Type";
constexpr std::u16string_view kTotal = u"__Total";
constexpr std::size_t kIntegerBytes = 4;
constexpr std::size_t kLongBytes = 8;

struct TypeWord {
    std::u16string_view word;
    std::int32_t size;
    std::u16string_view type;
};

constexpr TypeWord kTypeWords[] = {
    {u"long", 4, u""},         {u"string", 4, u""},      {u"dword", 4, u""},
    {u"lparam", 4, u""},       {u"integer", 2, u""},     {u"int", 2, u""},
    {u"double", 8, u"Double"}, {u"float", 4, u"Single"}, {u"single", 4, u"Single"},
};

TypeWord ReadType(std::u16string_view text) {
    const std::u16string word = ToLower(Trim(text));
    for (const TypeWord& row : kTypeWords) {
        if (row.word == word) return row;
    }
    const std::optional<double> number = ParseNumber(word);
    return {{}, number ? ToInt32(*number) : 0, u""};
}

std::u16string Decimal(std::int64_t number) { return FormatNumber(static_cast<double>(number)); }

struct Field {
    std::u16string key;
    std::size_t offset = 0;
    std::size_t size = 0;

    char16_t Kind() const { return key.empty() ? u'\0' : key.front(); }
};

std::int64_t NumberOrZero(std::u16string_view text) {
    const std::optional<double> number = ParseNumber(text);
    return number ? std::int64_t{ToInt32(*number)} : 0;
}

// The fields with a key; slots without one take no memory, as none was defined for them.
std::vector<Field> FieldsOf(std::u16string_view dictionary) {
    const std::vector<std::u16string> keys = ParseList(GetDictValue(dictionary, kKeys));
    const std::vector<std::u16string> sizes = ParseList(GetDictValue(dictionary, kSize));
    std::vector<Field> fields;
    std::int64_t offset = 0;
    for (std::size_t i = 0; i < keys.size() && i < sizes.size(); ++i) {
        const std::int64_t size = std::max(NumberOrZero(sizes[i]), std::int64_t{0});
        if (offset + size > kLargestStructure) throw Failure(failure::kOverflow);
        if (!keys[i].empty()) {
            fields.push_back(
                {keys[i], static_cast<std::size_t>(offset), static_cast<std::size_t>(size)});
        }
        offset += size;
    }
    return fields;
}

std::size_t BlockSize(std::u16string_view dictionary, const std::vector<Field>& fields) {
    const std::int64_t total = NumberOrZero(GetDictValue(dictionary, kTotal));
    if (total > kLargestStructure) throw Failure(failure::kOverflow);
    const std::size_t behind = fields.empty() ? 0 : fields.back().offset + fields.back().size;
    return std::max(static_cast<std::size_t>(std::max(total, std::int64_t{0})), behind);
}

// A number for a field: empty is 0, and 0 is what a text that is no number fails to be.
double NumberFor(std::u16string_view text) {
    if (Trim(text).empty()) return 0;
    const std::optional<double> number = ParseNumber(text);
    if (!number) throw Failure(failure::kTypeMismatch);
    return *number;
}

std::string LowBytes(std::uint64_t number, std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < std::min(size, kLongBytes); ++i) {
        bytes[i] = static_cast<char>(number >> (8 * i));
    }
    return bytes;
}

std::uint64_t FromLowBytes(std::string_view bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = std::min(bytes.size(), kLongBytes); i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

std::uint64_t LongOf(double number) {
    constexpr double kBeyond = 9223372036854775808.0;
    const double whole = std::nearbyint(number);
    if (!(whole >= -kBeyond && whole < kBeyond)) throw Failure(failure::kOverflow);
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(whole));
}

// Fields of more than four bytes hold what a 64-bit machine calls long.
std::string IntegerBytes(std::u16string_view text, std::size_t size) {
    const double number = NumberFor(text);
    if (size > kIntegerBytes) return LowBytes(LongOf(number), size);
    const auto value = static_cast<std::uint32_t>(ToInt32(number));
    return LowBytes(value, size);
}

std::u16string IntegerText(std::string_view bytes) {
    const std::uint64_t number = FromLowBytes(bytes);
    if (bytes.size() == kIntegerBytes) return Decimal(static_cast<std::int32_t>(number));
    return Decimal(static_cast<std::int64_t>(number));
}

std::string ListBytes(std::u16string_view list) {
    std::string bytes;
    if (Trim(list).empty()) return bytes;
    for (const std::u16string& item : ParseList(list)) {
        const std::int32_t number = ToInt32(NumberFor(item));
        if (number < 0 || number > 255) throw Failure(failure::kOverflow);
        bytes += static_cast<char>(number);
    }
    return bytes;
}

std::u16string ByteListText(std::string_view bytes) {
    std::u16string list;
    for (const char byte : bytes) {
        if (!list.empty()) list += u',';
        list += Decimal(static_cast<unsigned char>(byte));
    }
    return list;
}

std::u16string FixedText(std::string_view bytes) {
    std::string text(bytes);
    std::replace(text.begin(), text.end(), '\0', ' ');
    return std::u16string(TrimRight(DecodeCodePage932(text)));
}

template <class Real>
std::string RealBytes(std::u16string_view text) {
    const auto number = static_cast<Real>(NumberFor(text));
    if (!std::isfinite(number)) throw Failure(failure::kOverflow);
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

// What is no number at all has no text.
template <class Real>
std::u16string RealText(std::string_view bytes) {
    Real number = 0;
    std::memcpy(&number, bytes.data(), std::min(bytes.size(), sizeof number));
    if (!std::isfinite(number)) return {};
    if constexpr (std::is_same_v<Real, float>) return FormatSingle(number);
    return FormatNumber(number);
}

std::string FieldBytes(const Field& field, const std::u16string& value) {
    switch (field.Kind()) {
        case u'@': return IsStructure(value) ? BuildBlock(value) : std::string();
        case u'$': return EncodeCodePage932(value);
        case u'#': return ListBytes(value);
        case u'!': return RealBytes<float>(value);
        case u'%': return RealBytes<double>(value);
        default: return IntegerBytes(value, field.size);
    }
}

std::u16string FieldText(const Field& field, std::u16string_view old, std::string_view bytes) {
    switch (field.Kind()) {
        case u'@': return IsStructure(old) ? ReadBlock(old, bytes) : std::u16string(old);
        case u'$': return FixedText(bytes);
        case u'#': return ByteListText(bytes);
        case u'!': return RealText<float>(bytes);
        case u'%': return RealText<double>(bytes);
        default: return IntegerText(bytes);
    }
}

// The list __Size with a nested structure's own size in the field's place.
std::u16string WithNestedSize(std::u16string_view dictionary, const std::u16string& key,
                              std::u16string_view nested) {
    const std::vector<std::u16string> keys = ParseList(GetDictValue(dictionary, kKeys));
    std::vector<std::u16string> sizes = ParseList(GetDictValue(dictionary, kSize));
    const auto place =
        static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin());
    if (place < sizes.size()) sizes[place] = GetDictValue(nested, kTotal);
    return JoinList(sizes, u",");
}

}  // namespace

std::u16string DefineStructure(std::u16string_view dictionary, std::u16string_view definitions) {
    std::u16string text(dictionary);
    std::vector<std::u16string> keys;
    std::vector<std::u16string> sizes;
    std::vector<std::u16string> types;
    std::int64_t total = 0;
    for (const std::u16string& definition : ParseList(definitions)) {
        std::u16string& key = keys.emplace_back();
        std::u16string& size = sizes.emplace_back();
        std::u16string& type = types.emplace_back();
        const std::size_t equals = definition.find(u'=');
        if (equals == kNotFound) continue;
        const TypeWord word = ReadType(std::u16string_view(definition).substr(equals + 1));
        key = Trim(std::u16string_view(definition).substr(0, equals));
        size = Decimal(word.size);
        type = word.type;
        total += word.size;
        text = SetDictValue(text, key, u"");
    }
    text = SetDictValue(text, kKeys, JoinList(keys, u","));
    text = SetDictValue(text, kSize, JoinList(sizes, u","));
    text = SetDictValue(text, kType, JoinList(types, u","));
    return SetDictValue(text, kTotal, Decimal(total));
}

bool IsStructure(std::u16string_view dictionary) {
    const std::optional<double> total = ParseNumber(GetDictValue(dictionary, kTotal));
    return total && *total > 0;
}

std::string BuildBlock(std::u16string_view dictionary) {
    const std::vector<Field> fields = FieldsOf(dictionary);
    std::string block(BlockSize(dictionary, fields), '\0');
    for (const Field& field : fields) {
        const std::string bytes = FieldBytes(field, GetDictValue(dictionary, field.key));
        std::memcpy(block.data() + field.offset, bytes.data(), std::min(bytes.size(), field.size));
    }
    return block;
}

std::u16string ReadBlock(std::u16string_view dictionary, std::string_view block) {
    std::u16string text(dictionary);
    for (const Field& field : FieldsOf(dictionary)) {
        if (field.offset + field.size > block.size()) break;
        const std::u16string old = GetDictValue(text, field.key);
        const std::u16string value = FieldText(field, old, block.substr(field.offset, field.size));
        text = SetDictValue(text, field.key, value);
        const bool nested = field.Kind() == u'@' && IsStructure(value);
        if (nested) text = SetDictValue(text, kSize, WithNestedSize(text, field.key, value));
    }
    return text;
}

}  // namespace velm
