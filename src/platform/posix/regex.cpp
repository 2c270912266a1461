// Regular expressions by PCRE2 on 16-bit units. Patterns come rewritten (data/pattern_syntax.h). Texts
// are matched unit by unit, so that a lone half of a surrogate pair is as good as any other unit.
#include "platform/regex.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

#include "data/failure.h"
#include "data/pattern_syntax.h"
#include "platform/posix/late_library.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

namespace velm {

namespace {

// A search is cut off when it takes more steps than this from one place of the text, or more memory.
constexpr std::uint32_t kMatchLimit = 100'000'000;
constexpr std::uint32_t kHeapLimitKiB = 256 * 1024;
constexpr std::size_t kFirstStack = 32 * 1024;
constexpr std::size_t kLargestStack = 64 * 1024 * 1024;
constexpr std::size_t kMostKept = 48;

// From many places together a search may take this long. The clock is looked at after a stretch of
// places; stretches grow as long as they are quick.
constexpr std::chrono::seconds kTimeLimit{3};
constexpr std::chrono::milliseconds kQuick{2};
constexpr std::size_t kFirstStretch = 64;
constexpr std::size_t kGrowth = 8;

constexpr std::u16string_view kCutOff = u"照合に手間がかかりすぎるので、打ち切りました。";

// The functions of the library that are used.
struct Pcre2 {
    LateLibrary file{"libpcre2-16.so.0", u"PCRE2"};
    decltype(&pcre2_code_free) codeFree = file["pcre2_code_free_16"];
    decltype(&pcre2_compile) compile = file["pcre2_compile_16"];
    decltype(&pcre2_compile_context_create) compileContextCreate =
        file["pcre2_compile_context_create_16"];
    decltype(&pcre2_compile_context_free) compileContextFree =
        file["pcre2_compile_context_free_16"];
    decltype(&pcre2_get_ovector_count) getOvectorCount = file["pcre2_get_ovector_count_16"];
    decltype(&pcre2_get_ovector_pointer) getOvectorPointer = file["pcre2_get_ovector_pointer_16"];
    decltype(&pcre2_jit_compile) jitCompile = file["pcre2_jit_compile_16"];
    decltype(&pcre2_jit_stack_assign) jitStackAssign = file["pcre2_jit_stack_assign_16"];
    decltype(&pcre2_jit_stack_create) jitStackCreate = file["pcre2_jit_stack_create_16"];
    decltype(&pcre2_jit_stack_free) jitStackFree = file["pcre2_jit_stack_free_16"];
    decltype(&pcre2_match) match = file["pcre2_match_16"];
    decltype(&pcre2_match_context_create) matchContextCreate =
        file["pcre2_match_context_create_16"];
    decltype(&pcre2_match_context_free) matchContextFree = file["pcre2_match_context_free_16"];
    decltype(&pcre2_match_data_create_from_pattern) matchDataCreateFromPattern =
        file["pcre2_match_data_create_from_pattern_16"];
    decltype(&pcre2_match_data_free) matchDataFree = file["pcre2_match_data_free_16"];
    decltype(&pcre2_set_depth_limit) setDepthLimit = file["pcre2_set_depth_limit_16"];
    decltype(&pcre2_set_heap_limit) setHeapLimit = file["pcre2_set_heap_limit_16"];
    decltype(&pcre2_set_match_limit) setMatchLimit = file["pcre2_set_match_limit_16"];
    decltype(&pcre2_set_newline) setNewline = file["pcre2_set_newline_16"];
    decltype(&pcre2_set_offset_limit) setOffsetLimit = file["pcre2_set_offset_limit_16"];
};

const Pcre2& Pcre() {
    static const Pcre2 library;
    return library;
}

template <auto Free>
struct FreeWith {
    template <class T>
    void operator()(T* object) const {
        (Pcre().*Free)(object);
    }
};

using Code = std::unique_ptr<pcre2_code, FreeWith<&Pcre2::codeFree>>;
using MatchData = std::unique_ptr<pcre2_match_data, FreeWith<&Pcre2::matchDataFree>>;
using MatchContext = std::unique_ptr<pcre2_match_context, FreeWith<&Pcre2::matchContextFree>>;
using CompileContext = std::unique_ptr<pcre2_compile_context, FreeWith<&Pcre2::compileContextFree>>;
using JitStack = std::unique_ptr<pcre2_jit_stack, FreeWith<&Pcre2::jitStackFree>>;

PCRE2_SPTR Units(std::u16string_view text) { return reinterpret_cast<PCRE2_SPTR>(text.data()); }

template <class T>
T Made(T object) {
    if (!object) throw Failure(failure::kOutOfMemory);
    return object;
}

// The limits of a search, and the stack that compiled patterns run on.
struct Limits {
    JitStack stack{Pcre().jitStackCreate(kFirstStack, kLargestStack, nullptr)};
    MatchContext context = Made(MatchContext(Pcre().matchContextCreate(nullptr)));

    Limits() {
        Pcre().setMatchLimit(context.get(), kMatchLimit);
        Pcre().setDepthLimit(context.get(), kMatchLimit);
        Pcre().setHeapLimit(context.get(), kHeapLimitKiB);
        if (stack) Pcre().jitStackAssign(context.get(), nullptr, stack.get());
    }
};

pcre2_match_context* SearchLimits() {
    static const Limits limits;
    return limits.context.get();
}

Code Compile(std::u16string_view pattern, RegexCase letterCase) {
    const CompileContext context = Made(CompileContext(Pcre().compileContextCreate(nullptr)));
    Pcre().setNewline(context.get(), PCRE2_NEWLINE_LF);
    std::uint32_t options = PCRE2_USE_OFFSET_LIMIT | PCRE2_UCP | PCRE2_NEVER_UTF |
                            PCRE2_DOLLAR_ENDONLY | PCRE2_MATCH_UNSET_BACKREF;
    if (letterCase == RegexCase::kIgnore) options |= PCRE2_CASELESS;
    const std::u16string rewritten = RewritePattern(pattern);
    int number = 0;
    PCRE2_SIZE place = 0;
    Code code(Pcre().compile(Units(rewritten), rewritten.size(), options, &number, &place,
                             context.get()));
    if (!code) throw PatternFailure(pattern_error::kSyntax);
    // Without machine code for this processor the interpreter takes its place.
    Pcre().jitCompile(code.get(), PCRE2_JIT_COMPLETE);
    return code;
}

class PosixRegex : public Regex {
  public:
    PosixRegex(std::u16string_view pattern, RegexCase letterCase)
        : code_(Compile(pattern, letterCase)), data_(NewMatchData()) {}

    bool Search(std::u16string_view text, std::size_t from, RegexMatch& match) const override {
        int count = Run(text, from, 0, data_.get());
        if (count == PCRE2_ERROR_JIT_STACKLIMIT) return SearchSlowly(text, from, match);
        return Note(count, data_.get(), match);
    }

  private:
    Code code_;
    MatchData data_;

    MatchData NewMatchData() const {
        return Made(MatchData(Pcre().matchDataCreateFromPattern(code_.get(), nullptr)));
    }
    int Run(std::u16string_view text, std::size_t from, std::uint32_t options,
            pcre2_match_data* data) const {
        const auto begin = std::chrono::steady_clock::now();
        auto before = begin;
        for (std::size_t stretch = kFirstStretch;;) {
            const std::size_t last = std::min(from + stretch, text.size());
            Pcre().setOffsetLimit(SearchLimits(), last);
            const int count = Pcre().match(code_.get(), Units(text), text.size(), from, options,
                                           data, SearchLimits());
            if (count != PCRE2_ERROR_NOMATCH || last == text.size()) return count;
            const auto now = std::chrono::steady_clock::now();
            if (now - begin > kTimeLimit) return PCRE2_ERROR_MATCHLIMIT;
            if (now - before < kQuick) stretch *= kGrowth;
            before = now;
            from = last + 1;
        }
    }
    // The interpreter, which may take more memory than the machine code's stack has. What it took is
    // kept with the match data, so that this one is given up at once.
    bool SearchSlowly(std::u16string_view text, std::size_t from, RegexMatch& match) const {
        const MatchData data = NewMatchData();
        return Note(Run(text, from, PCRE2_NO_JIT, data.get()), data.get(), match);
    }
    static bool Note(int count, pcre2_match_data* data, RegexMatch& match) {
        match.clear();
        if (count == PCRE2_ERROR_NOMATCH) return false;
        if (count < 0) throw Failure(failure::kOutOfStack, std::u16string(kCutOff));
        const PCRE2_SIZE* offsets = Pcre().getOvectorPointer(data);
        match.resize(Pcre().getOvectorCount(data));
        for (std::size_t i = 0; i < match.size(); ++i) {
            if (offsets[2 * i] != PCRE2_UNSET) match[i] = {offsets[2 * i], offsets[2 * i + 1]};
        }
        return true;
    }
};

struct KeptRegex {
    std::u16string pattern;
    RegexCase letterCase;
    std::shared_ptr<const Regex> regex;
};

}  // namespace

std::shared_ptr<const Regex> CompileRegex(std::u16string_view pattern, RegexCase letterCase) {
    static std::vector<KeptRegex> kept;  // the one used last stands first
    auto place = std::find_if(kept.begin(), kept.end(), [&](const KeptRegex& entry) {
        return entry.letterCase == letterCase && entry.pattern == pattern;
    });
    if (place == kept.end()) {
        auto regex = std::make_shared<PosixRegex>(pattern, letterCase);
        if (kept.size() == kMostKept) kept.pop_back();
        kept.push_back({std::u16string(pattern), letterCase, std::move(regex)});
        place = kept.end() - 1;
    }
    std::rotate(kept.begin(), place, place + 1);
    return kept.front().regex;
}

bool RegexTest(std::u16string_view pattern, std::u16string_view text) {
    RegexMatch match;
    return CompileRegex(pattern, RegexCase::kIgnore)->Search(text, 0, match);
}

}  // namespace velm
