// Working out the orders of 並び替え.
#include "data/sort_order.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "data/sort_keys.h"

namespace velm {

namespace {

// The ranks of the keys at the places, which are in order.
template <class SameKey>
KeyRanks RanksOf(SortOrder sorted, SameKey&& same) {
    KeyRanks out;
    out.ranks.resize(sorted.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        if (i != 0 && same(i - 1, i)) {
            out.distinct = false;
        } else if (i != 0) {
            ++rank;
        }
        out.ranks[sorted[i]] = rank;
    }
    out.sorted = std::move(sorted);
    return out;
}

// A selection sort in n log n. The places that hold one rank are a heap with the least place on top. A
// step takes the top of the present rank; the key that has to make room stands at the step's own place,
// which is the least of all that are left, hence the top of its rank's heap too: there it is replaced by
// the place to which it moves.
class Selection {
  public:
    explicit Selection(const KeyRanks& keys)
        : keys_(keys),
          heaps_(keys.sorted),
          begin_(keys.ranks.size() + 1),
          order_(UnsortedOrder(keys.ranks.size())) {
        // In ascending order the places of a rank are a heap already.
        for (const std::uint32_t rank : keys.ranks) ++begin_[rank + 1];
        std::partial_sum(begin_.begin(), begin_.end(), begin_.begin());
        for (std::size_t rank = 0; rank + 1 < begin_.size(); ++rank) {
            size_.push_back(begin_[rank + 1] - begin_[rank]);
        }
    }

    SortOrder Run() {
        const auto count = static_cast<std::uint32_t>(order_.size());
        for (std::uint32_t place = 0; place < count; ++place) {
            const std::uint32_t rank = keys_.ranks[keys_.sorted[place]];
            const std::uint32_t found = heaps_[begin_[rank]];
            DropTop(rank);
            if (found == place) continue;
            ReplaceTop(keys_.ranks[order_[place]], found);
            std::swap(order_[place], order_[found]);
        }
        return std::move(order_);
    }

  private:
    const KeyRanks& keys_;
    std::vector<std::uint32_t> heaps_;
    std::vector<std::uint32_t> begin_;  // where the heap of each rank begins
    std::vector<std::uint32_t> size_;
    SortOrder order_;

    void DropTop(std::uint32_t rank) {
        const std::uint32_t last = heaps_[begin_[rank] + --size_[rank]];
        if (size_[rank] != 0) ReplaceTop(rank, last);
    }
    void ReplaceTop(std::uint32_t rank, std::uint32_t place) {
        std::uint32_t* heap = heaps_.data() + begin_[rank];
        const std::uint32_t size = size_[rank];
        std::uint32_t at = 0;
        for (std::uint32_t child = 1; child < size; child = 2 * at + 1) {
            if (child + 1 < size && heap[child + 1] < heap[child]) ++child;
            if (place <= heap[child]) break;
            heap[at] = heap[child];
            at = child;
        }
        heap[at] = place;
    }
};

// A third, rounded to the nearest: 13, 4, 1, 0.
std::size_t NextGap(std::size_t gap) { return (gap + 1) / 3; }

}  // namespace

KeyRanks RankNumbers(const std::vector<double>& keys) {
    const KeyedPlaces items = SortNumbers(keys);
    SortOrder sorted;
    sorted.reserve(items.size());
    for (const KeyedPlace& item : items) sorted.push_back(item.place);
    return RanksOf(std::move(sorted),
                   [&](std::size_t a, std::size_t b) { return items[a].key == items[b].key; });
}

KeyRanks RankTexts(const std::vector<std::u16string_view>& keys) {
    SortOrder sorted = SortTexts(keys);
    const SortOrder& order = sorted;
    return RanksOf(sorted,
                   [&](std::size_t a, std::size_t b) { return keys[order[a]] == keys[order[b]]; });
}

KeyRanks Reversed(const KeyRanks& keys) {
    KeyRanks out;
    out.distinct = keys.distinct;
    out.ranks = keys.ranks;
    if (keys.sorted.empty()) return out;
    const std::uint32_t last = keys.ranks[keys.sorted.back()];
    for (std::uint32_t& rank : out.ranks) rank = last - rank;
    out.sorted.reserve(keys.sorted.size());
    // The ranks run backward, the places within one rank forward.
    auto end = keys.sorted.end();
    while (end != keys.sorted.begin()) {
        auto begin = end - 1;
        while (begin != keys.sorted.begin() && keys.ranks[*(begin - 1)] == keys.ranks[*begin]) {
            --begin;
        }
        out.sorted.insert(out.sorted.end(), begin, end);
        end = begin;
    }
    return out;
}

SortOrder UnsortedOrder(std::size_t count) {
    SortOrder order(count);
    std::iota(order.begin(), order.end(), 0U);
    return order;
}

SortOrder SelectionOrder(const KeyRanks& keys) {
    if (keys.distinct) return keys.sorted;
    return Selection(keys).Run();
}

SortOrder ShellOrder(const KeyRanks& keys) {
    if (keys.distinct) return keys.sorted;
    const std::vector<std::uint32_t>& ranks = keys.ranks;
    SortOrder order = UnsortedOrder(ranks.size());
    std::size_t gap = 1;
    while (gap < order.size()) gap = gap * 3 + 1;
    for (gap = NextGap(gap); gap != 0; gap = NextGap(gap)) {
        for (std::size_t i = gap; i < order.size(); ++i) {
            const std::uint32_t held = order[i];
            std::size_t j = i;
            for (; j >= gap && ranks[order[j - gap]] > ranks[held]; j -= gap) {
                order[j] = order[j - gap];
            }
            order[j] = held;
        }
    }
    return order;
}

}  // namespace velm
