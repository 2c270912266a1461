// Keys of numbers and texts, and a radix sort of them.
#include "data/sort_keys.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

#include "data/numbers.h"

namespace velm {

namespace {

// Fewer items are sorted by comparing.
constexpr std::size_t kWorthCounting = 512;

constexpr unsigned kKeyBits = 64;
constexpr unsigned kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;

// One step of the radix sort: by one digit, stable.
void SortByDigit(std::span<const KeyedPlace> from, std::span<KeyedPlace> to, unsigned shift) {
    std::array<std::uint32_t, kDigits> next{};
    const auto digitOf = [&](const KeyedPlace& item) { return item.key >> shift & (kDigits - 1); };
    for (const KeyedPlace& item : from) ++next[digitOf(item)];
    std::uint32_t begin = 0;
    for (std::uint32_t& at : next) begin += std::exchange(at, begin);
    for (const KeyedPlace& item : from) to[next[digitOf(item)]++] = item;
}

// Sorts by the keys, which have so many bits. Places of one key keep their order, which is ascending.
void SortByKey(std::span<KeyedPlace> items, std::span<KeyedPlace> spare, unsigned bits) {
    if (items.size() < kWorthCounting) {
        std::sort(items.begin(), items.end(), [](const KeyedPlace& a, const KeyedPlace& b) {
            return a.key != b.key ? a.key < b.key : a.place < b.place;
        });
        return;
    }
    std::span<KeyedPlace> from = items;
    std::span<KeyedPlace> to = spare.first(items.size());
    for (unsigned shift = 0; shift < bits; shift += kDigitBits) {
        SortByDigit(from, to, shift);
        std::swap(from, to);
    }
    if (from.data() != items.data()) std::copy(from.begin(), from.end(), items.begin());
}

// The bits of a double as an integer in the same order. +0.0: -0 is 0.
std::uint64_t OrderedBits(double number) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << (kKeyBits - 1);
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// How the units at one place of some texts become a part of their keys.
struct UnitPart {
    std::uint32_t least = std::numeric_limits<char16_t>::max();
    std::uint32_t greatest = 0;
    std::size_t count = 0;  // of the texts that are so long
    unsigned bits = 0;

    void Note(char16_t unit) {
        least = std::min<std::uint32_t>(least, unit);
        greatest = std::max<std::uint32_t>(greatest, unit);
        ++count;
    }
    // 0 is the end of a text, where there is one.
    std::uint32_t Of(char16_t unit, bool ends) const { return unit - least + (ends ? 1 : 0); }
};

// Texts that are alike before some place, and what they are behind it put into 64 bits: as many units as
// there is room for, each with just the bits that tell the units at its place apart.
class TextPacking {
  public:
    TextPacking(std::span<const KeyedPlace> items, const std::vector<std::u16string_view>& texts,
                std::size_t from)
        : from_(from), total_(items.size()) {
        for (const KeyedPlace& item : items) {
            const std::u16string_view rest = texts[item.place].substr(from);
            const std::size_t count = std::min(rest.size(), parts_.size());
            for (std::size_t i = 0; i < count; ++i) parts_[i].Note(rest[i]);
        }
        for (; used_ < parts_.size() && parts_[used_].count != 0; ++used_) {
            UnitPart& part = parts_[used_];
            part.bits = static_cast<unsigned>(
                std::bit_width(part.Of(static_cast<char16_t>(part.greatest), Ends(part))));
            if (bits_ + part.bits > kKeyBits) break;
            bits_ += part.bits;
        }
    }

    unsigned Bits() const { return bits_; }
    // Behind the units that the keys tell.
    std::size_t End() const { return from_ + used_; }
    std::uint64_t KeyOf(std::u16string_view text) const {
        std::uint64_t key = 0;
        for (std::size_t i = 0; i < used_; ++i) {
            const UnitPart& part = parts_[i];
            const bool there = from_ + i < text.size();
            key = key << part.bits | (there ? part.Of(text[from_ + i], Ends(part)) : 0);
        }
        return key;
    }

  private:
    static constexpr std::size_t kMostParts = 16;

    std::size_t from_;
    std::size_t total_;
    std::size_t used_ = 0;
    unsigned bits_ = 0;
    std::array<UnitPart, kMostParts> parts_;

    bool Ends(const UnitPart& part) const { return part.count != total_; }
};

class TextSorter {
  public:
    explicit TextSorter(const std::vector<std::u16string_view>& texts)
        : texts_(texts), items_(texts.size()), spare_(texts.size()) {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            items_[i].place = static_cast<std::uint32_t>(i);
        }
    }

    std::vector<std::uint32_t> Run() {
        left_.push_back({0, items_.size(), 0});
        while (!left_.empty()) {
            const Group group = left_.back();
            left_.pop_back();
            SortGroup(group);
        }
        std::vector<std::uint32_t> order;
        order.reserve(items_.size());
        for (const KeyedPlace& item : items_) order.push_back(item.place);
        return order;
    }

  private:
    // Items whose texts are alike before a place.
    struct Group {
        std::size_t begin;
        std::size_t end;
        std::size_t from;
    };

    const std::vector<std::u16string_view>& texts_;
    KeyedPlaces items_;
    KeyedPlaces spare_;
    std::vector<Group> left_;

    // How many units from the place on the texts have in common.
    std::size_t CommonUnits(std::span<const KeyedPlace> items, std::size_t from) const {
        const std::u16string_view first = texts_[items.front().place].substr(from);
        std::size_t count = first.size();
        for (const KeyedPlace& item : items) {
            const std::u16string_view rest = texts_[item.place].substr(from);
            count = std::min(count, rest.size());
            std::size_t same = 0;
            while (same < count && rest[same] == first[same]) ++same;
            count = same;
        }
        return count;
    }

    void SortGroup(const Group& group) {
        const std::span<KeyedPlace> items(items_.data() + group.begin, group.end - group.begin);
        if (items.size() < 2) return;
        const std::size_t from = group.from + CommonUnits(items, group.from);
        const TextPacking packing(items, texts_, from);
        if (packing.End() == from) return;  // they are equal
        for (KeyedPlace& item : items) item.key = packing.KeyOf(texts_[item.place]);
        SortByKey(items, spare_, packing.Bits());
        for (std::size_t begin = 0; begin < items.size();) {
            std::size_t end = begin + 1;
            while (end < items.size() && items[end].key == items[begin].key) ++end;
            // Where one of them ends before that place, all of them do.
            const bool alike = end - begin > 1;
            if (alike && HasLonger(items.subspan(begin, end - begin), packing.End())) {
                left_.push_back({group.begin + begin, group.begin + end, packing.End()});
            }
            begin = end;
        }
    }

    bool HasLonger(std::span<const KeyedPlace> items, std::size_t size) const {
        return std::any_of(items.begin(), items.end(), [&](const KeyedPlace& item) {
            return texts_[item.place].size() > size;
        });
    }
};

}  // namespace

KeyedPlaces SortNumbers(const std::vector<double>& numbers) {
    const bool whole = std::all_of(numbers.begin(), numbers.end(), IsShortInteger);
    const auto keyOf = [&](double number) {
        return whole ? static_cast<std::uint64_t>(static_cast<std::int64_t>(number)) ^
                           std::uint64_t{1} << (kKeyBits - 1)
                     : OrderedBits(number);
    };
    KeyedPlaces items;
    items.reserve(numbers.size());
    std::uint64_t least = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t greatest = 0;
    for (const double number : numbers) {
        const std::uint64_t key = keyOf(number);
        least = std::min(least, key);
        greatest = std::max(greatest, key);
        items.push_back({key, static_cast<std::uint32_t>(items.size())});
    }
    if (items.empty()) return items;
    for (KeyedPlace& item : items) item.key -= least;
    KeyedPlaces spare(items.size());
    SortByKey(items, spare, static_cast<unsigned>(std::bit_width(greatest - least)));
    return items;
}

std::vector<std::uint32_t> SortTexts(const std::vector<std::u16string_view>& texts) {
    return TextSorter(texts).Run();
}

}  // namespace velm
