// The hidden form of a text that is a dictionary: its lines with an index of their keys. Only data/value.cpp
// uses it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/value.h"

namespace velm {

// The lines of key=value. A line that was updated moves to the end, so the old place is left empty.
// Only texts whose keys are all different are held in this form.
class EntriesForm {
  public:
    explicit EntriesForm(std::u16string_view text);

    // False: a key stands twice, and the plain search answers.
    bool IsUsable() const { return usable_; }
    // Whether a key can be found through the index: it holds no "=" and no line break.
    static bool IsPlainKey(std::u16string_view key);

    // The value of a plain key, empty if absent, and storing one.
    Value At(std::u16string_view key) const;
    // At for a value that is held as a number: false when there is no such one.
    bool TryNumber(std::u16string_view key, double& number) const;
    void Store(std::u16string_view key, const Value& value);

    void Join(std::u16string& text) const;
    // Whether that would be the empty text.
    bool JoinsToNothing() const;

  private:
    struct Line {
        std::u16string key;  // the whole line when it has no "="
        Value value;         // with its line breaks escaped
        std::uint32_t hash = 0;
        bool entry = false;  // it has an "="
        bool gone = false;
    };

    std::vector<Line> lines_;
    // The index: a power of two of places for a line number each, found by the hash and the places
    // behind it. At most half of them are taken.
    std::vector<std::uint32_t> index_;
    std::size_t entryCount_ = 0;
    std::size_t goneCount_ = 0;
    bool usable_ = true;

    static constexpr std::uint32_t kFree = UINT32_MAX;

    std::size_t PlaceOf(std::u16string_view key, std::uint32_t hash) const;
    void AddLine(std::u16string_view line);
    void AddEntry(Line line);
    void BuildIndex(std::size_t places);
    void Sweep();
    void Clear();
    std::size_t LinesLeft() const { return lines_.size() - goneCount_; }
};

}  // namespace velm
