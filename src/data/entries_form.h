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

// The lines of key=value. They are chained in the order of the text, because a line that is updated moves
// to its end. Only texts whose keys are all different are held in this form.
class EntriesForm {
  public:
    explicit EntriesForm(std::u16string_view text);

    // False: a key stands twice, and the plain search answers.
    bool IsUsable() const { return usable_; }
    // Whether a key can be found through the index: it holds no "=" and no line break.
    static bool IsPlainKey(std::u16string_view key);

    // The value of a plain key, empty if absent, and storing one.
    Value At(std::u16string_view key) const;
    void Store(std::u16string_view key, const Value& value);
    // At for a value that is held as a number, and Store; the key may be any. False when there is no such
    // value, or for a key that isn't plain.
    bool TryNumber(std::u16string_view key, double& number) const;
    bool TryStore(std::u16string_view key, const Value& value);

    void Join(std::u16string& text) const;
    // Whether that would be the empty text.
    bool JoinsToNothing() const;

  private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    static constexpr unsigned kHashBits = 32;

    struct Line {
        Value value;        // with its line breaks escaped
        std::uint32_t key;  // where the key begins; it is the whole line when there is no "="
        std::uint32_t keyLength : 31;
        std::uint32_t entry : 1;  // it has an "="
        std::uint32_t before;
        std::uint32_t after;
    };
    struct Place {
        std::uint32_t hash;
        std::uint32_t line;
    };

    std::u16string keys_;  // all of them, one behind the other
    std::vector<Line> lines_;
    std::uint32_t first_ = kNone;
    std::uint32_t last_ = kNone;
    // A power of two of places, found by the upper bits of the hash and the places behind it. At most
    // half are taken.
    std::vector<Place> index_;
    unsigned shift_ = 0;
    std::size_t entryCount_ = 0;
    bool usable_ = true;

    std::u16string_view KeyOf(const Line& line) const {
        return {keys_.data() + line.key, line.keyLength};
    }
    std::size_t FirstPlace(std::uint32_t hash) const { return hash >> shift_; }
    std::size_t NextPlace(std::size_t place) const { return (place + 1) & (index_.size() - 1); }
    std::size_t PlaceOf(std::u16string_view key, std::uint32_t hash) const;
    const Line* Find(std::u16string_view key) const;
    void StoreAt(std::uint32_t number, std::u16string_view key, std::uint32_t hash, Value value);
    void AddLine(std::u16string_view line);
    void AddEntry(std::u16string_view key, std::uint32_t hash, Value value);
    void PutLast(std::u16string_view key, bool entry, Value value);
    void MoveToEnd(std::uint32_t number);
    void MakeRoom();
    void Clear();
    bool IsBlank(const Line& line) const { return !line.entry && line.keyLength == 0; }
};

}  // namespace velm
