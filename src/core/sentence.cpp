// Sentence analysis and the search for words.
#include "core/sentence.h"

#include <algorithm>
#include <unordered_map>

#include "data/brackets.h"
#include "data/failure.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kProcedureHead = u"手順は\u3000";
constexpr std::u16string_view kEnd = u"終わり";
constexpr std::u16string_view kIf = u"もし";
constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kLoopStem = u"繰り返";
constexpr std::u16string_view kLoopStemKana = u"くりかえ";

LineMark MarkOf(std::u16string_view line) {
    if (line == u"もし終わり") return LineMark::kIfEnd;
    if (line == u"他なら" || line == u"でないなら") return LineMark::kElse;
    if (line.starts_with(u"他でもし")) return LineMark::kElseIf;
    if (line == u"分岐終わり") return LineMark::kCaseEnd;
    if (line == kEnd) return LineMark::kEnd;
    if (line == u"他の場合") return LineMark::kDefault;
    if (Contains(line, u"について分岐")) return LineMark::kCaseHead;
    if (FindOutsideBrackets(line, u"の場合") != 0) return LineMark::kCase;
    return LineMark::kNone;
}

bool IsBlank(char16_t unit) { return unit == u' ' || unit == kIdeographicBlank; }

// The kinds that a line shows by its ends alone.
bool ParseFixedForms(Statement& statement, std::u16string_view line) {
    if (line.starts_with(kProcedureHead)) {
        statement.Kind = StatementKind::kProcedureHead;
    } else if (line == kEnd) {
        statement.Kind = StatementKind::kProcedureEnd;
    } else if (line.ends_with(u'：')) {
        statement.Kind = StatementKind::kLabel;
    } else if (line.size() >= 3 && line.starts_with(kIf) &&
               (IsBlank(line[2]) || line[2] == u'、')) {
        statement.Kind = StatementKind::kIf;
        statement.Verb = kIf;
        statement.WoArg = line.substr(3);
    } else if (FindLastOutsideBrackets(line, u"。") != 0) {
        statement.Kind = StatementKind::kSentences;
    } else {
        return false;
    }
    return true;
}

// Where an assignment is cut: the end of its left side and the start of its right side.
struct AssignmentMark {
    std::size_t leftEnd = kNotFound;
    std::size_t rightStart = 0;

    bool Found() const { return leftEnd != kNotFound; }
};

AssignmentMark FindAssignment(std::u16string_view line) {
    AssignmentMark mark;
    BracketScanner scanner(line, kAllBrackets);
    for (std::size_t i = line.find(u'は'); i != kNotFound; i = line.find(u'は', i + 1)) {
        if (i + 1 >= line.size()) break;
        const char16_t next = line[i + 1];
        if ((next == u'、' || IsBlank(next)) && !scanner.IsInside(i)) {
            mark.leftEnd = i;
            mark.rightStart = i + 2;
            return mark;
        }
    }
    BracketScanner again(line, kAllBrackets);
    for (std::size_t i = line.find_first_of(u"＝="); i != kNotFound;
         i = line.find_first_of(u"＝=", i + 1)) {
        if (again.IsInside(i)) continue;
        mark.leftEnd = i;
        mark.rightStart = i + 1;
        return mark;
    }
    return mark;
}

bool ParseAssignment(Statement& statement, std::u16string_view line) {
    const AssignmentMark mark = FindAssignment(line);
    if (!mark.Found() || FindLastOutsideBrackets(line, u"を") != 0) return false;
    statement.Verb = Trim(line.substr(0, mark.leftEnd));
    statement.WoArg = Trim(line.substr(mark.rightStart));
    if (const xxCmdData* setting = SettingWords.Find(statement.Verb)) {
        statement.FuncPnt = setting->FuncPnt.command;
        statement.Kind = StatementKind::kSetting;
    } else if (Contains(statement.Verb, kOf)) {
        statement.Kind = StatementKind::kProperty;
    } else {
        statement.Kind = StatementKind::kAssignment;
    }
    return true;
}

// 表示　「こんにちは」: without any particle a blank parts the verb from its word. A loop head such as
// 3回 繰り返し stays whole.
void ParseVerbFirst(Statement& statement, std::u16string_view line) {
    std::size_t blank = line.find(kIdeographicBlank);
    if (blank == kNotFound) blank = line.find(u' ');
    if (blank == kNotFound) {
        statement.Verb = line;
        return;
    }
    const std::u16string_view right = Trim(line.substr(blank + 1));
    if (right.starts_with(kLoopStem) || right.starts_with(kLoopStemKana)) {
        statement.Verb = line;
        return;
    }
    statement.Verb = line.substr(0, blank);
    statement.WoArg = line.substr(blank + 1);
}

void ParseCommand(Statement& statement, std::u16string_view line) {
    Word words[3];
    const std::u16string_view particles[] = {u"を", u"へ", u"に"};
    const std::size_t parts = SplitByParticles(statement, particles, words);
    if (parts == 1) ParseVerbFirst(statement, line);
    const bool toForm = Contains(line, u"へ\u3000") || Contains(line, u"へ ");
    if (!statement.HeArg.IsEmpty() && toForm && parts == 3) {
        // 右へ　100: the へ belongs to the verb.
        const std::vector<std::u16string_view> pieces = Split(statement.Marked, {&kMarker, 1});
        std::u16string verb(pieces.front());
        verb += u'へ';
        std::u16string_view word = Trim(pieces.back());
        if (word.starts_with(kIdeographicBlank)) word = Trim(word.substr(1));
        statement.WoArg = word;
        statement.Verb = Word(verb);
    }
    statement.Verb = Trim(std::u16string(statement.Verb.Text()));
    // What the analysis fenced is where every later split starts from.
    statement.cache.reset();
    statement.fences = 0;
    statement.loopMark = LoopMark::kUnknown;
}

// Where a particle that isn't fenced yet is, as an offset; kNotFound if nowhere. The last one with a
// comma behind it comes before the last bare one.
std::size_t FindParticle(std::u16string_view text, std::u16string_view particle) {
    std::u16string withComma(particle);
    withComma += u'、';
    std::size_t hit = FindLastOutsideBrackets(text, withComma);
    if (hit == 0) hit = FindLastOutsideBrackets(text, particle);
    if (hit == 0 || (hit >= 2 && text[hit - 2] == kMarker)) return kNotFound;
    return hit - 1;
}

// The text with fences round the particle at the offset; a comma behind it is dropped.
std::u16string Fence(std::u16string_view text, std::size_t at, std::u16string_view particle) {
    std::size_t behind = at + particle.size();
    if (behind < text.size() && text[behind] == u'、') ++behind;
    std::u16string out(text.substr(0, at));
    out += kMarker;
    out.append(particle);
    out += kMarker;
    return out.append(text.substr(behind));
}

// に and へ are one particle.
std::u16string_view Unified(std::u16string_view particle) {
    return particle == u"に" ? std::u16string_view(u"へ") : particle;
}

// Sets the words that the parts between the fences give.
void TakeWords(SplitCache& split, const std::vector<std::u16string_view>& parts) {
    for (std::size_t k = 1; k < parts.size(); k += 2) {
        const std::u16string_view part = Unified(parts[k]);
        const Word word(Trim(parts[k - 1]));
        if (part == u"を") {
            split.wo = word;
            split.takesWo = true;
        } else if (part == u"へ") {
            split.he = word;
            split.takesHe = true;
        }
        for (std::size_t i = 0; i < split.particles.size(); ++i) {
            if (Unified(split.particles[i]) == part) split.found[i] = word;
        }
    }
}

bool SameParticles(const SplitCache& cached, std::span<const std::u16string_view> particles) {
    return std::equal(cached.particles.begin(), cached.particles.end(), particles.begin(),
                      particles.end());
}

// The same split done earlier, or nullptr.
const SplitCache* FindSplit(const Statement& statement,
                            std::span<const std::u16string_view> particles) {
    if (!statement.cache) return nullptr;
    for (const SplitCache& cached : statement.cache->splits) {
        if (cached.before == statement.fences && SameParticles(cached, particles)) return &cached;
    }
    return nullptr;
}

SplitCache MakeSplit(Statement& statement, std::span<const std::u16string_view> particles) {
    SplitCache split;
    split.before = split.after = statement.fences;
    split.particles.assign(particles.begin(), particles.end());
    split.found.resize(particles.size());
    std::u16string marked = statement.Marked.IsEmpty() ? statement.Source : statement.Marked.Text();
    for (const std::u16string_view particle : particles) {
        const std::size_t at = particle.empty() ? kNotFound : FindParticle(marked, particle);
        if (at == kNotFound) continue;
        marked = Fence(marked, at, particle);
        split.after = std::max(statement.Cache().lastFences, split.before) + 1;
    }
    statement.Cache().lastFences = std::max(statement.Cache().lastFences, split.after);
    const std::vector<std::u16string_view> parts = Split(marked, {&kMarker, 1});
    TakeWords(split, parts);
    split.parts = parts.size();
    split.verb = parts.back();
    split.marked = split.after == split.before ? statement.Marked : Word(marked);
    return split;
}

// Brings the statement into the state behind a split.
void ApplySplit(Statement& statement, const SplitCache& split, std::span<Word> found) {
    std::copy(split.found.begin(), split.found.end(), found.begin());
    if (split.takesWo) statement.WoArg = split.wo;
    if (split.takesHe) statement.HeArg = split.he;
    if (split.after != split.before) {
        statement.Marked = split.marked;
        statement.fences = split.after;
        statement.loopMark = LoopMark::kUnknown;
    }
    // Without any fence the verb stays as the analysis told it (表示　「こんにちは」).
    if (split.parts > 1) statement.Verb = split.verb;
}

}  // namespace

StatementPtr ParseStatement(std::u16string_view line) {
    static const StatementPtr empty(new Statement);
    if (line.empty()) return empty;
    StatementPtr made(new Statement);
    Statement& statement = *made;
    statement.Source = line;
    statement.mark = MarkOf(line);
    if (ParseFixedForms(statement, line) || ParseAssignment(statement, line)) return made;
    statement.Marked = line;
    ParseCommand(statement, line);
    return made;
}

std::size_t SplitByParticles(Statement& statement, std::span<const std::u16string_view> particles,
                             std::span<Word> found) {
    if (particles.size() > kMostParticles) throw Failure(failure::kSubscript);
    if (const SplitCache* cached = FindSplit(statement, particles)) {
        const std::size_t parts = cached->parts;
        ApplySplit(statement, *cached, found);
        return parts;
    }
    const SplitCache split = MakeSplit(statement, particles);
    ApplySplit(statement, split, found);
#ifndef VELM_NO_CACHES
    statement.Cache().splits.push_back(split);
#endif
    return split.parts;
}

const std::vector<Word>* SettledWords(const Statement& statement,
                                      std::span<const std::u16string_view> particles) {
    if (!statement.cache) return nullptr;
    for (const SplitCache& cached : statement.cache->splits) {
        const bool settled =
            statement.temporary ? cached.before == 0 : cached.before == cached.after;
        if (settled && cached.after == statement.fences && SameParticles(cached, particles)) {
            return &cached.found;
        }
    }
    return nullptr;
}

const std::vector<Word>& SplitArgs(Statement& statement, const JoshiList& particles) {
    const std::vector<std::u16string_view> list(particles.begin(), particles.end());
    std::vector<Word> found(list.size());
    SplitByParticles(statement, list, found);
    statement.Args = std::move(found);
    return statement.Args;
}

std::vector<Word> ReadWords(const Statement& statement,
                            std::span<const std::u16string_view> particles) {
    std::vector<Word> found(particles.size());
    const std::vector<std::u16string_view> parts = Split(statement.Marked, {&kMarker, 1});
    for (std::size_t k = 1; k < parts.size(); k += 2) {
        for (std::size_t i = 0; i < particles.size(); ++i) {
            if (Unified(particles[i]) == Unified(parts[k])) found[i] = Word(parts[k - 1]);
        }
    }
    return found;
}

namespace {

// The last occurrence of a needle outside brackets that no fence follows, as an offset.
std::size_t FindFree(std::u16string_view text, std::u16string_view needle) {
    std::ptrdiff_t start = -1;
    while (true) {
        const std::size_t hit = FindLastOutsideBrackets(text, needle, start);
        if (hit == 0) return kNotFound;
        const std::size_t behind = hit - 1 + needle.size();
        if (behind >= text.size() || text[behind] != kMarker) return hit - 1;
        if (hit == 1) return kNotFound;
        start = static_cast<std::ptrdiff_t>(hit) - 1;
    }
}

// The same for a particle and what follows it; に stands for へ and へ for に, the later one counts.
std::size_t FindFreeForm(std::u16string_view text, std::u16string_view particle,
                         std::u16string_view behind) {
    const std::size_t at = FindFree(text, std::u16string(particle).append(behind));
    if (Unified(particle) != u"へ") return at;
    const std::u16string_view other = particle == u"へ" ? u"に" : u"へ";
    const std::size_t otherAt = FindFree(text, std::u16string(other).append(behind));
    if (at == kNotFound || otherAt == kNotFound) return std::min(at, otherAt);
    return std::max(at, otherAt);
}

std::u16string FenceArguments(const xxCmdData& entry, std::u16string_view arguments) {
    std::u16string text(arguments);
    for (const std::u16string& particle : entry.Joshi) {
        if (particle.empty()) continue;
        std::size_t at = FindFreeForm(text, particle, u"、");
        if (at == kNotFound) at = FindFreeForm(text, particle, u"");
        if (at != kNotFound) text = Fence(text, at, text.substr(at, particle.size()));
    }
    return text;
}

}  // namespace

std::vector<std::u16string> SortByParticles(const xxCmdData& entry, std::u16string_view arguments) {
    constexpr std::u16string_view kMark(&kMarker, 1);
    std::u16string text = FenceArguments(entry, arguments);
    if (CountOf(text, kMark) < static_cast<std::size_t>(std::max(entry.Flags, 0))) {
        const std::u16string normalised = NormaliseCommas(arguments);
        const std::vector<std::u16string_view> pieces = CutAtCommas(normalised);
        return {pieces.begin(), pieces.end()};
    }
    text = ReplaceAll(text, u"、\x03", kMark);
    const std::vector<std::u16string_view> parts = Split(text, kMark);
    std::vector<std::u16string> words(entry.Joshi.size());
    for (std::size_t k = 1; k < parts.size(); k += 2) {
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (Unified(entry.Joshi[i]) == Unified(parts[k])) words[i] = Trim(parts[k - 1]);
        }
    }
    return words;
}

Word CachedWord(std::u16string_view text) {
    constexpr std::size_t kMostWords = 4096;
    constexpr std::size_t kLongestKept = 1024;
    static std::unordered_map<std::u16string, Word> words;
    if (text.empty()) return Word();
    if (text.size() > kLongestKept) return Word(text);
    std::u16string key(text);
    const auto found = words.find(key);
    if (found != words.end()) return found->second;
    if (words.size() >= kMostWords) words.clear();
    Word word(text);
    words.emplace(std::move(key), word);
    return word;
}

}  // namespace velm
