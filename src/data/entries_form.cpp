// Dictionary lines and the index of their keys.
#include "data/entries_form.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "data/lists.h"
#include "data/text.h"

namespace velm {

namespace {

// Lines left empty by updates are swept out when they are more than half, above this number.
constexpr std::size_t kSweepFrom = 64;

constexpr std::size_t kLeastPlaces = 16;

std::uint64_t Mix(std::uint64_t hash, std::uint64_t part) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
    hash = (hash ^ part) * kFactor;
    return hash ^ hash >> 29;
}

// Four units a step; keys are short.
std::uint32_t HashOf(std::u16string_view key) {
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
    std::uint64_t hash = Mix(key.size(), 0);
    std::uint64_t part = 0;
    for (; key.size() >= kStep; key.remove_prefix(kStep)) {
        std::memcpy(&part, key.data(), sizeof part);
        hash = Mix(hash, part);
    }
    part = 0;
    for (const char16_t unit : key) part = part << 16 | unit;
    return static_cast<std::uint32_t>(Mix(hash, part) >> 32);
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
        lines_.push_back({std::u16string(line), Value(), 0, false, false});
        return;
    }
    const std::u16string_view key = line.substr(0, equals);
    const std::uint32_t hash = HashOf(key);
    if (!index_.empty() && index_[PlaceOf(key, hash)] != kFree) usable_ = false;
    AddEntry({std::u16string(key), Value(line.substr(equals + 1)), hash, true, false});
}

// The place of a key in the index, or the free one where it belongs.
std::size_t EntriesForm::PlaceOf(std::u16string_view key, std::uint32_t hash) const {
    const std::size_t mask = index_.size() - 1;
    std::size_t place = hash & mask;
    while (index_[place] != kFree) {
        const Line& line = lines_[index_[place]];
        if (line.hash == hash && line.key == key) break;
        place = (place + 1) & mask;
    }
    return place;
}

// Adds a line at the end. The index then knows its key there.
void EntriesForm::AddEntry(Line line) {
    if ((entryCount_ + 1) * 2 > index_.size()) {
        BuildIndex(std::max(kLeastPlaces, index_.size() * 2));
    }
    std::uint32_t& at = index_[PlaceOf(line.key, line.hash)];
    if (at == kFree) ++entryCount_;
    at = static_cast<std::uint32_t>(lines_.size());
    lines_.push_back(std::move(line));
}

void EntriesForm::BuildIndex(std::size_t places) {
    index_.assign(places, kFree);
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const Line& line = lines_[i];
        if (!line.entry || line.gone) continue;
        index_[PlaceOf(line.key, line.hash)] = static_cast<std::uint32_t>(i);
    }
}

void EntriesForm::Sweep() {
    if (goneCount_ < kSweepFrom || goneCount_ * 2 < lines_.size()) return;
    std::erase_if(lines_, [](const Line& line) { return line.gone; });
    goneCount_ = 0;
    BuildIndex(index_.size());
}

bool EntriesForm::IsPlainKey(std::u16string_view key) {
    return std::none_of(key.begin(), key.end(), [](char16_t unit) {
        return unit == u'=' || unit == u'\r' || unit == u'\n';
    });
}

Value EntriesForm::At(std::u16string_view key) const {
    if (index_.empty()) return Value();
    const std::uint32_t number = index_[PlaceOf(key, HashOf(key))];
    if (number == kFree) return Value();
    const Value& value = lines_[number].value;
    double plain = 0;
    if (value.IsPlainNumber(plain) || !Contains(value.Text(), u"{/n}")) return value;
    return Value(UnescapeLineBreaks(value.Text()));
}

bool EntriesForm::TryNumber(std::u16string_view key, double& number) const {
    if (index_.empty()) return false;
    const std::uint32_t line = index_[PlaceOf(key, HashOf(key))];
    return line != kFree && lines_[line].value.IsPlainNumber(number);
}

void EntriesForm::Store(std::u16string_view key, const Value& value) {
    if (index_.empty()) BuildIndex(kLeastPlaces);
    const std::uint32_t hash = HashOf(key);
    std::uint32_t& at = index_[PlaceOf(key, hash)];
    const bool known = at != kFree;
    Line stored;
    if (known) {
        Line& line = lines_[at];
        // With one other line it may be that nothing is left before this one.
        if (LinesLeft() != 2 && at + 1 == lines_.size()) {
            line.value = WithLineBreaksEscaped(value);
            return;
        }
        stored = std::exchange(line, Line{{}, Value(), 0, true, true});
        ++goneCount_;
    } else {
        stored = {std::u16string(key), Value(), hash, true, false};
    }
    stored.value = WithLineBreaksEscaped(value);
    if (JoinsToNothing()) {
        Clear();
        AddEntry(std::move(stored));
    } else if (known) {
        at = static_cast<std::uint32_t>(lines_.size());
        lines_.push_back(std::move(stored));
        Sweep();
    } else {
        AddEntry(std::move(stored));
    }
}

void EntriesForm::Clear() {
    lines_.clear();
    goneCount_ = 0;
    entryCount_ = 0;
    BuildIndex(kLeastPlaces);
}

void EntriesForm::Join(std::u16string& text) const {
    bool first = true;
    for (const Line& line : lines_) {
        if (line.gone) continue;
        if (!first) text.append(kCrLf);
        first = false;
        text.append(line.key);
        if (!line.entry) continue;
        text += u'=';
        line.value.AppendTo(text);
    }
}

bool EntriesForm::JoinsToNothing() const {
    if (LinesLeft() > 1) return false;
    return std::all_of(lines_.begin(), lines_.end(), [](const Line& line) {
        return line.gone || (!line.entry && line.key.empty());
    });
}

}  // namespace velm
