// The arguments of a function call: one text of raw argument words joined by commas, cut into words
// once. Handlers read them with Split, which evaluates, or SplitRaw, which doesn't.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/number_node.h"
#include "core/word.h"
#include "data/value.h"

namespace velm {

class Arguments {
  public:
    explicit Arguments(std::u16string_view joined);

    // The argument words as written, joined by commas.
    const std::u16string& Text() const { return text_; }
    // The number of argument words; 0 for an empty text.
    std::size_t Count() const { return words_.size(); }
    const std::vector<Word>& Words() const { return words_; }

    // Reads the words in order, each evaluated and converted to the type of its target: Value, text,
    // int16, int32, float or double. A target without a word, or with an empty one, keeps its value.
    // Throws Failure for a word that can't be converted (13, or 6 for an overflow), and for more words
    // than targets (9); the targets before are then already set.
    template <class... Targets>
    void Split(Targets&... targets) const {
        std::size_t index = 0;
        (Read(index++, targets), ...);
        CheckCount(index);
    }
    // The same with the words as written.
    template <class... Targets>
    void SplitRaw(Targets&... targets) const {
        std::size_t index = 0;
        (ReadRaw(index++, targets), ...);
        CheckCount(index);
    }

  private:
    std::u16string text_;
    std::vector<Word> words_;
    // The words as compiled numbers, one each, made at the first asking for a number.
    mutable std::vector<std::shared_ptr<const NumberNode>> numbers_;

    void CheckCount(std::size_t targets) const;
    bool Has(std::size_t index) const { return index < words_.size() && !words_[index].IsEmpty(); }
    double NumberAt(std::size_t index) const;
    bool TryNumber(std::size_t index, double& number) const;
    void ReadRaw(std::size_t index, Word& target) const;
    void Read(std::size_t index, Value& target) const;
    void Read(std::size_t index, std::u16string& target) const;
    void Read(std::size_t index, std::int16_t& target) const;
    void Read(std::size_t index, std::int32_t& target) const;
    void Read(std::size_t index, float& target) const;
    void Read(std::size_t index, double& target) const;
};

// The plain conversion to a number, as assigning to a typed variable does it. Throws Failure(13) for a
// text that is no number.
double ToDouble(const Value& value);
// The same to a single. Throws Failure(6) for a number beyond it.
float ToFloat(double number);

}  // namespace velm
