// Dictionary lines and the index of their keys.
#include "data/entries_form.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "data/failure.h"
#include "data/lists.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::size_t kLeastPlaces = 16;

// What a line can tell the length of.
constexpr std::uint32_t kLongestKeys = INT32_MAX;

std::uint64_t Mix(std::uint64_t hash, std::uint64_t part) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
    hash = (hash ^ part) * kFactor;
    return hash ^ hash >> 32;
}

constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);

std::uint64_t FourUnits(const char16_t* at) {
    std::uint64_t units = 0;
    std::memcpy(&units, at, sizeof units);
    return units;
}

// Four units a step; the last step takes the last four, some of them for the second time. Every unit
// counts for the upper bits, which choose the place.
std::uint32_t HashOf(std::u16string_view key) {
    std::uint64_t hash = Mix(key.size(), 0);
    if (key.size() >= kStep) {
        const std::size_t last = key.size() - kStep;
        for (std::size_t at = 0; at < last; at += kStep) {
            hash = Mix(hash, FourUnits(key.data() + at));
        }
        hash = Mix(hash, FourUnits(key.data() + last));
    } else if (!key.empty()) {
        const std::uint64_t ends = std::uint64_t{key.front()} << 32 | key.back();
        hash = Mix(hash, ends | std::uint64_t{key[key.size() / 2]} << 16);
    }
    return static_cast<std::uint32_t>(hash >> 32);
}

// Makes room for some more. A large store grows by four, as room that nobody has touched yet
// costs less than a copy.
template <class Store>
void GrowFor(Store& store, std::size_t more) {
    constexpr std::size_t kLarge = 1024;
    const std::size_t size = store.size() + more;
    if (size <= store.capacity()) return;
    store.reserve(std::max(size, store.capacity() * (size > kLarge ? 4 : 2)));
}

bool SameUnits(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

Value WithLineBreaksEscaped(const Value& value) {
    double number = 0;
    if (value.IsPlainNumber(number) || !Contains(value.Text(), kCrLf)) return value;
    return Value(EscapeLineBreaks(value.Text()));
}

}  // namespace

EntriesForm::EntriesForm(std::u16string_view text) {
    if (text.empty()) return;
    for (const std::u16string_view line : SplitLines(text)) AddLine(line);
}

void EntriesForm::AddLine(std::u16string_view line) {
    const std::size_t equals = line.find(u'=');
    if (equals == kNotFound) {
        PutLast(line, false, Value());
        return;
    }
    const std::u16string_view key = line.substr(0, equals);
    const std::uint32_t hash = HashOf(key);
    if (!index_.empty() && index_[PlaceOf(key, hash)].line != kNone) usable_ = false;
    AddEntry(key, hash, Value(line.substr(equals + 1)));
}

// The place of a key in the index, or the free one where it belongs.
std::size_t EntriesForm::PlaceOf(std::u16string_view key, std::uint32_t hash) const {
    std::size_t at = FirstPlace(hash);
    while (index_[at].line != kNone) {
        if (index_[at].hash == hash && SameUnits(KeyOf(lines_[index_[at].line]), key)) break;
        at = NextPlace(at);
    }
    return at;
}

const EntriesForm::Line* EntriesForm::Find(std::u16string_view key) const {
    if (index_.empty()) return nullptr;
    const std::uint32_t number = index_[PlaceOf(key, HashOf(key))].line;
    return number == kNone ? nullptr : &lines_[number];
}

// Adds a line at the end. The index then knows its key there.
void EntriesForm::AddEntry(std::u16string_view key, std::uint32_t hash, Value value) {
    if ((entryCount_ + 1) * 2 > index_.size()) MakeRoom();
    const auto number = static_cast<std::uint32_t>(lines_.size());
    PutLast(key, true, std::move(value));
    Place& place = index_[PlaceOf(key, hash)];
    if (place.line == kNone) ++entryCount_;
    place = {hash, number};
}

void EntriesForm::PutLast(std::u16string_view key, bool entry, Value value) {
    if (keys_.size() + key.size() > kLongestKeys) throw Failure(failure::kOutOfMemory);
    const auto number = static_cast<std::uint32_t>(lines_.size());
    Line line{std::move(value), static_cast<std::uint32_t>(keys_.size()), 0, entry, last_, kNone};
    line.keyLength = static_cast<std::uint32_t>(key.size()) & kLongestKeys;
    GrowFor(lines_, 1);
    GrowFor(keys_, key.size());
    lines_.push_back(std::move(line));
    keys_.append(key);
    (last_ == kNone ? first_ : lines_[last_].after) = number;
    last_ = number;
}

void EntriesForm::MoveToEnd(std::uint32_t number) {
    if (number == last_) return;
    Line& line = lines_[number];
    (line.before == kNone ? first_ : lines_[line.before].after) = line.after;
    lines_[line.after].before = line.before;
    line.before = last_;
    line.after = kNone;
    lines_[last_].after = number;
    last_ = number;
}

// Doubles the index.
void EntriesForm::MakeRoom() {
    const std::vector<Place> old = std::exchange(index_, {});
    index_.assign(std::max(kLeastPlaces, old.size() * 2), Place{0, kNone});
    shift_ = kHashBits - static_cast<unsigned>(std::bit_width(index_.size() - 1));
    for (const Place& place : old) {
        if (place.line == kNone) continue;
        std::size_t at = FirstPlace(place.hash);
        while (index_[at].line != kNone) at = NextPlace(at);
        index_[at] = place;
    }
}

bool EntriesForm::IsPlainKey(std::u16string_view key) {
    constexpr std::uint64_t kBreaking =
        std::uint64_t{1} << u'=' | std::uint64_t{1} << u'\r' | std::uint64_t{1} << u'\n';
    return std::none_of(key.begin(), key.end(),
                        [](char16_t unit) { return unit < 64 && (kBreaking >> unit & 1) != 0; });
}

Value EntriesForm::At(std::u16string_view key) const {
    const Line* line = Find(key);
    if (line == nullptr) return Value();
    double plain = 0;
    if (line->value.IsPlainNumber(plain) || !Contains(line->value.Text(), u"{/n}")) {
        return line->value;
    }
    return Value(UnescapeLineBreaks(line->value.Text()));
}

bool EntriesForm::TryNumber(std::u16string_view key, double& number) const {
    const Line* line = Find(key);
    return line != nullptr && line->value.IsPlainNumber(number);
}

void EntriesForm::Store(std::u16string_view key, const Value& value) {
    if (index_.empty()) MakeRoom();
    const std::uint32_t hash = HashOf(key);
    StoreAt(index_[PlaceOf(key, hash)].line, key, hash, WithLineBreaksEscaped(value));
}

// A key that the index knows is plain, as it was cut off a line at its "=".
bool EntriesForm::TryStore(std::u16string_view key, const Value& value) {
    if (index_.empty()) MakeRoom();
    const std::uint32_t hash = HashOf(key);
    const std::uint32_t number = index_[PlaceOf(key, hash)].line;
    if (number == kNone && !IsPlainKey(key)) return false;
    StoreAt(number, key, hash, WithLineBreaksEscaped(value));
    return true;
}

void EntriesForm::StoreAt(std::uint32_t number, std::u16string_view key, std::uint32_t hash,
                          Value value) {
    if (number == kNone) {
        if (JoinsToNothing()) Clear();
        AddEntry(key, hash, std::move(value));
    } else if (lines_.size() == 2 && IsBlank(lines_[1 - number])) {
        // Nothing is left before it.
        Clear();
        AddEntry(key, hash, std::move(value));
    } else {
        lines_[number].value = std::move(value);
        MoveToEnd(number);
    }
}

void EntriesForm::Clear() {
    keys_.clear();
    lines_.clear();
    first_ = kNone;
    last_ = kNone;
    std::fill(index_.begin(), index_.end(), Place{0, kNone});
    entryCount_ = 0;
}

void EntriesForm::Join(std::u16string& text) const {
    text.reserve(keys_.size() + lines_.size() * 4);
    for (std::uint32_t number = first_; number != kNone; number = lines_[number].after) {
        const Line& line = lines_[number];
        if (number != first_) text.append(kCrLf);
        text.append(KeyOf(line));
        if (!line.entry) continue;
        text += u'=';
        line.value.AppendTo(text);
    }
}

bool EntriesForm::JoinsToNothing() const {
    return lines_.empty() || (lines_.size() == 1 && IsBlank(lines_.front()));
}

}  // namespace velm
