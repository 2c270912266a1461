// Sorting places by keys of 64 bits in linear time: what data/sort_order.cpp turns numbers and texts into.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace velm {

struct KeyedPlace {
    std::uint64_t key;
    std::uint32_t place;
};

using KeyedPlaces = std::vector<KeyedPlace>;

// The places of numbers, of which none is a NaN, in ascending order of their keys: equal keys are equal
// numbers, and their places stand in ascending order.
KeyedPlaces SortNumbers(const std::vector<double>& numbers);

// The places of texts in the order of their UTF-16 units; places of equal texts stand in ascending order.
std::vector<std::uint32_t> SortTexts(const std::vector<std::u16string_view>& texts);

}  // namespace velm
