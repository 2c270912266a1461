// The lines of a block that stand on one level: the body of a procedure, of a loop, a branch of もし. The
// walkers over lines (execute.h) visit them one after the other, and look at each for what may end the block.
// A LineBlock is found once and runs them with fewer looks, as long as nothing unusual happens.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/run_state.h"
#include "core/statement.h"

namespace velm {

class LineBlock {
  public:
    // The lines from one on, up to the first that may end a block.
    LineBlock(const Program& program, std::int32_t first);

    // Whether this is what a new block from that line would be.
    bool IsOf(const Program& program, std::int32_t first) const {
        return version_ == program.version && first_ == first;
    }

    // Runs the lines. Returns the one at which the walk is to go on: that behind the block, or an earlier one
    // when a flag was set, a jump led elsewhere, or a line has become the end of a loop.
    std::int32_t Run() const;

    // Whether a line is the one behind the block, and ends a loop.
    bool EndsAtLoopEnd(std::int32_t line) const { return line == loopEnd_; }

  private:
    struct Line {
        StatementPtr statement;
        std::int32_t number;
        std::int32_t last;  // of the lines within it, when it heads a block
    };

    std::uint64_t version_;
    std::int32_t first_;
    std::int32_t behind_;
    std::int32_t loopEnd_ = -1;  // behind_, when that line ends a loop
    std::vector<Line> lines_;
};

// Where the block of a plan is kept. One that was found when the program was another may still be running, and
// is kept as well.
class KeptBlock {
  public:
    // The block of the lines from one on; nullptr where no short road is taken.
    const LineBlock* At(const Program& program, std::int32_t first) {
        if (last_ == nullptr || !last_->IsOf(program, first)) Find(program, first);
        return last_;
    }
    // Runs the lines from one on as a block, as far as that goes. Returns the line at which the walk is to go
    // on.
    std::int32_t Run(const Program& program, std::int32_t first) {
        const LineBlock* block = At(program, first);
        return block == nullptr ? first : block->Run();
    }

  private:
    const LineBlock* last_ = nullptr;
    std::vector<std::unique_ptr<const LineBlock>> all_;

    void Find(const Program& program, std::int32_t first);
};

}  // namespace velm
