// Fields of a text as 情報 counts them: cut at the commas outside brackets, with a rule of their own for
// what separates two of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velm {

// A field past this number doesn't exist.
inline constexpr std::size_t kLastField = 255;

// The n-th field, from 1 to kLastField; empty when there are fewer.
std::u16string_view FieldOf(std::u16string_view text, std::size_t n);

// Where each field begins, up to the one behind the last; the units before each but the first are its
// separator.
std::vector<std::uint32_t> FindFields(std::u16string_view text);

// The n-th field of a text whose fields were found.
std::u16string_view FieldAt(std::u16string_view text, const std::vector<std::uint32_t>& starts,
                            std::size_t n);

}  // namespace velm
