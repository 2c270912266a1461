// Checking and rewriting regular expressions. Every unit of the pattern is read by the rules of
// ECMA-262, third edition, chapter 15.10, with the leniency that scripts rely on (a brace that is no
// quantifier is itself, an unknown escape is its letter), and written in a form that leaves the library
// nothing to interpret in its own way: class escapes as ranges, word edges as assertions, any sign that
// is not a letter or digit by its number.
#include "data/pattern_syntax.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "data/text.h"

namespace velm {

namespace {

// The library repeats an item at most this often.
constexpr std::uint32_t kMostRepeats = 65535;

constexpr std::u16string_view kDigits = u"0-9";
constexpr std::u16string_view kNoDigits = u"\\x{0}-\\x{2f}\\x{3a}-\\x{ffff}";
constexpr std::u16string_view kWordUnits = u"0-9A-Z_a-z";
// Without ſ and the Kelvin sign: the library takes them for case forms of s and k.
constexpr std::u16string_view kNoWordUnits =
    u"\\x{0}-\\x{2f}\\x{3a}-\\x{40}\\x{5b}-\\x{5e}\\x{60}\\x{7b}-\\x{17e}\\x{180}-\\x{2129}"
    u"\\x{212b}-\\x{ffff}";
constexpr std::u16string_view kBlanks = u"\\x{9}-\\x{d}\\x{20}";
constexpr std::u16string_view kNoBlanks = u"\\x{0}-\\x{8}\\x{e}-\\x{1f}\\x{21}-\\x{ffff}";
constexpr std::u16string_view kAnyUnit = u"\\x{0}-\\x{ffff}";

constexpr std::u16string_view kWordEdge =
    u"(?:(?<=[0-9A-Z_a-z])(?![0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?=[0-9A-Z_a-z]))";
constexpr std::u16string_view kNoWordEdge =
    u"(?:(?<=[0-9A-Z_a-z])(?=[0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?![0-9A-Z_a-z]))";
constexpr std::u16string_view kNothing = u"(?:(?!))";

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsOctal(char16_t unit) { return unit >= u'0' && unit <= u'7'; }
bool IsLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

int HexValue(char16_t unit) {
    if (IsDigit(unit)) return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return -1;
}

void AppendHex(std::u16string& out, std::uint32_t number) {
    if (number >= 16) AppendHex(out, number / 16);
    out += u"0123456789abcdef"[number % 16];
}

void AppendUnit(std::u16string& out, char16_t unit) {
    if (IsDigit(unit) || IsLetter(unit) || unit >= 0x80) {
        out += unit;
        return;
    }
    out.append(u"\\x{");
    AppendHex(out, unit);
    out += u'}';
}

void AppendDecimal(std::u16string& out, std::uint32_t number) {
    if (number >= 10) AppendDecimal(out, number / 10);
    out += static_cast<char16_t>(u'0' + number % 10);
}

// The set that a class escape stands for; empty for any other letter.
std::u16string_view SetOfEscape(char16_t letter) {
    switch (letter) {
        case u'd': return kDigits;
        case u'D': return kNoDigits;
        case u'w': return kWordUnits;
        case u'W': return kNoWordUnits;
        case u's': return kBlanks;
        case u'S': return kNoBlanks;
        default: return {};
    }
}

// The number of capturing groups, which decides whether \12 is a group or a character.
std::uint32_t CountGroups(std::u16string_view pattern) {
    std::uint32_t count = 0;
    bool inClass = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char16_t unit = pattern[i];
        if (unit == u'\\') {
            ++i;
        } else if (inClass) {
            inClass = unit != u']';
        } else if (unit == u'[') {
            inClass = true;
        } else if (unit == u'(' && !pattern.substr(i + 1).starts_with(u'?')) {
            ++count;
        }
    }
    return count;
}

class Rewriter {
  public:
    explicit Rewriter(std::u16string_view pattern)
        : pattern_(pattern), groups_(CountGroups(pattern)) {}

    std::u16string Run() {
        while (!AtEnd()) RewriteTerm();
        if (open_ != 0) throw PatternFailure(pattern_error::kOpenGroup);
        return std::move(out_);
    }

  private:
    // A member of a class: one unit, or a set.
    struct ClassAtom {
        char16_t unit = 0;
        std::u16string_view set;
    };
    struct Repeats {
        std::uint32_t least = 0;
        std::uint32_t most = 0;
        bool bounded = true;
        std::size_t end = 0;
    };

    bool AtEnd() const { return at_ == pattern_.size(); }
    bool Sees(char16_t unit) const { return !AtEnd() && pattern_[at_] == unit; }
    bool Take(char16_t unit) {
        if (!Sees(unit)) return false;
        ++at_;
        return true;
    }

    void RewriteTerm();
    void RewriteGroup();
    void RewriteGroupEnd();
    void RewriteEscape();
    void RewriteClass();
    void RewriteClassRange(std::u16string& members);
    void RewriteBrace();
    void RewriteQuantifier(std::u16string_view quantifier);
    void AppendMark(char16_t mark);
    void AppendAtom(std::u16string_view text);
    void AppendLiteral(char16_t unit);
    bool TakeGroupNumber();
    char16_t TakeEscapedUnit();
    char16_t TakeOctal();
    std::optional<char16_t> TakeHex(std::size_t digits);
    ClassAtom TakeClassAtom();
    std::optional<std::uint32_t> ReadCount(std::size_t& at) const;
    std::optional<Repeats> ReadRepeats() const;

    std::u16string_view pattern_;
    std::uint32_t groups_;
    std::size_t at_ = 0;
    std::size_t open_ = 0;
    bool repeatable_ = false;  // a quantifier may follow
    std::u16string out_;
};

// An alternative or an assertion: nothing that could be repeated.
void Rewriter::AppendMark(char16_t mark) {
    out_ += mark;
    repeatable_ = false;
}

void Rewriter::AppendAtom(std::u16string_view text) {
    out_.append(text);
    repeatable_ = true;
}

void Rewriter::AppendLiteral(char16_t unit) {
    AppendUnit(out_, unit);
    repeatable_ = true;
}

void Rewriter::RewriteTerm() {
    const char16_t unit = pattern_[at_++];
    switch (unit) {
        case u'(': RewriteGroup(); break;
        case u')': RewriteGroupEnd(); break;
        case u'[': RewriteClass(); break;
        case u'\\': RewriteEscape(); break;
        case u'{': RewriteBrace(); break;
        case u'*': RewriteQuantifier(u"*"); break;
        case u'+': RewriteQuantifier(u"+"); break;
        case u'?': RewriteQuantifier(u"?"); break;
        case u'.': AppendAtom(u"."); break;
        case u'|':
        case u'^':
        case u'$': AppendMark(unit); break;
        default: AppendLiteral(unit); break;
    }
}

void Rewriter::RewriteGroup() {
    ++open_;
    AppendMark(u'(');
    if (!Take(u'?')) return;
    if (!Sees(u':') && !Sees(u'=') && !Sees(u'!')) {
        throw PatternFailure(pattern_error::kQuantifier);
    }
    out_ += u'?';
    out_ += pattern_[at_++];
}

void Rewriter::RewriteGroupEnd() {
    if (open_ == 0) throw PatternFailure(pattern_error::kSyntax);
    --open_;
    AppendAtom(u")");
}

void Rewriter::RewriteQuantifier(std::u16string_view quantifier) {
    if (!repeatable_) throw PatternFailure(pattern_error::kQuantifier);
    out_.append(quantifier);
    if (Take(u'?')) out_ += u'?';
    repeatable_ = false;
}

std::optional<std::uint32_t> Rewriter::ReadCount(std::size_t& at) const {
    const std::size_t from = at;
    std::uint32_t number = 0;
    for (; at < pattern_.size() && IsDigit(pattern_[at]); ++at) {
        const std::uint32_t digit = pattern_[at] - u'0';
        number = number > kMostRepeats ? number : number * 10 + digit;
    }
    if (at == from) return std::nullopt;
    return number;
}

// {n}, {n,} or {n,m} behind its opening brace; anything else is no quantifier.
std::optional<Rewriter::Repeats> Rewriter::ReadRepeats() const {
    Repeats repeats;
    std::size_t at = at_;
    const std::optional<std::uint32_t> least = ReadCount(at);
    if (!least) return std::nullopt;
    repeats.least = repeats.most = *least;
    if (at < pattern_.size() && pattern_[at] == u',') {
        const std::optional<std::uint32_t> most = ReadCount(++at);
        repeats.bounded = most.has_value();
        repeats.most = most.value_or(0);
    }
    if (at >= pattern_.size() || pattern_[at] != u'}') return std::nullopt;
    repeats.end = at + 1;
    return repeats;
}

void Rewriter::RewriteBrace() {
    const std::optional<Repeats> repeats = ReadRepeats();
    if (!repeats) {
        AppendLiteral(u'{');
        return;
    }
    const bool backward = repeats->bounded && repeats->most < repeats->least;
    if (backward || repeats->least > kMostRepeats) {
        throw PatternFailure(pattern_error::kQuantifier);
    }
    at_ = repeats->end;
    std::u16string quantifier = u"{";
    AppendDecimal(quantifier, repeats->least);
    quantifier += u',';
    if (repeats->bounded && repeats->most <= kMostRepeats) {
        AppendDecimal(quantifier, repeats->most);
    }
    RewriteQuantifier(quantifier + u"}");
}

std::optional<char16_t> Rewriter::TakeHex(std::size_t digits) {
    if (pattern_.size() - at_ < digits) return std::nullopt;
    int number = 0;
    for (const char16_t unit : pattern_.substr(at_, digits)) {
        const int value = HexValue(unit);
        if (value < 0) return std::nullopt;
        number = number * 16 + value;
    }
    at_ += digits;
    return static_cast<char16_t>(number);
}

// Up to three octal digits, at most \377; the first is known to be there.
char16_t Rewriter::TakeOctal() {
    std::uint32_t number = 0;
    for (int i = 0; i < 3 && !AtEnd() && IsOctal(pattern_[at_]); ++i) {
        const std::uint32_t longer = number * 8 + (pattern_[at_] - u'0');
        if (longer > 0xFF) break;
        number = longer;
        ++at_;
    }
    return static_cast<char16_t>(number);
}

// The unit that an escape stands for, behind its backslash.
char16_t Rewriter::TakeEscapedUnit() {
    const char16_t letter = pattern_[at_];
    if (IsOctal(letter)) return TakeOctal();
    ++at_;
    switch (letter) {
        case u'f': return u'\f';
        case u'n': return u'\n';
        case u'r': return u'\r';
        case u't': return u'\t';
        case u'v': return u'\v';
        case u'x': return TakeHex(2).value_or(letter);
        case u'u': return TakeHex(4).value_or(letter);
        case u'c':
            if (AtEnd() || !IsLetter(pattern_[at_])) return letter;
            return pattern_[at_++] % 32;
        default: return letter;
    }
}

// A number that the pattern has a group for refers back to it.
bool Rewriter::TakeGroupNumber() {
    if (pattern_[at_] == u'0') return false;
    std::size_t at = at_;
    const std::optional<std::uint32_t> number = ReadCount(at);
    if (!number || *number > groups_) return false;
    at_ = at;
    out_.append(u"\\g{");
    AppendDecimal(out_, *number);
    AppendAtom(u"}");
    return true;
}

void Rewriter::RewriteEscape() {
    if (AtEnd()) throw PatternFailure(pattern_error::kSyntax);
    const char16_t letter = pattern_[at_];
    if (letter == u'b' || letter == u'B') {
        ++at_;
        out_.append(letter == u'b' ? kWordEdge : kNoWordEdge);
        repeatable_ = false;
        return;
    }
    const std::u16string_view set = SetOfEscape(letter);
    if (!set.empty()) {
        ++at_;
        out_ += u'[';
        out_.append(set);
        AppendAtom(u"]");
    } else if (!TakeGroupNumber()) {
        AppendLiteral(TakeEscapedUnit());
    }
}

Rewriter::ClassAtom Rewriter::TakeClassAtom() {
    if (!Take(u'\\')) return {pattern_[at_++], {}};
    if (AtEnd()) throw PatternFailure(pattern_error::kOpenClass);
    if (Take(u'b')) return {u'\b', {}};
    const std::u16string_view set = SetOfEscape(pattern_[at_]);
    if (set.empty()) return {TakeEscapedUnit(), {}};
    ++at_;
    return {0, set};
}

// One member, or two with a hyphen between them; beside a set the hyphen stands for itself.
void Rewriter::RewriteClassRange(std::u16string& members) {
    const auto append = [&](const ClassAtom& atom) {
        if (atom.set.empty()) {
            AppendUnit(members, atom.unit);
        } else {
            members.append(atom.set);
        }
    };
    const ClassAtom first = TakeClassAtom();
    append(first);
    const bool range = Sees(u'-') && at_ + 1 < pattern_.size() && pattern_[at_ + 1] != u']';
    if (!range) return;
    ++at_;
    const ClassAtom last = TakeClassAtom();
    if (!first.set.empty() || !last.set.empty()) {
        AppendUnit(members, u'-');
    } else if (first.unit > last.unit) {
        throw PatternFailure(pattern_error::kRange);
    } else {
        members += u'-';
    }
    append(last);
}

void Rewriter::RewriteClass() {
    const bool negated = Take(u'^');
    std::u16string members;
    while (!Sees(u']')) {
        if (AtEnd()) throw PatternFailure(pattern_error::kOpenClass);
        RewriteClassRange(members);
    }
    ++at_;
    if (members.empty() && !negated) {
        AppendAtom(kNothing);
        return;
    }
    out_.append(negated && !members.empty() ? u"[^" : u"[");
    out_.append(members.empty() ? kAnyUnit : members);
    AppendAtom(u"]");
}

// The group that a replacement text names behind a dollar sign: two digits where the pattern has that
// many groups, else one. length is that of the number; 0 when it names none.
std::size_t GroupOfReplacement(std::u16string_view digits, const RegexMatch& match,
                               std::size_t& length) {
    length = 0;
    std::size_t group = 0;
    std::size_t number = 0;
    for (std::size_t i = 0; i < 2 && i < digits.size() && IsDigit(digits[i]); ++i) {
        number = number * 10 + static_cast<std::size_t>(digits[i] - u'0');
        if (number == 0 || number >= match.size()) continue;
        group = number;
        length = i + 1;
    }
    return group;
}

std::u16string_view DescriptionOf(int number) {
    switch (number) {
        case pattern_error::kQuantifier: return u"繰り返しの記号の前に、繰り返すものがありません。";
        case pattern_error::kOpenClass: return u"正規表現の「]」がありません。";
        case pattern_error::kOpenGroup: return u"正規表現の「)」がありません。";
        case pattern_error::kRange: return u"文字の範囲の順序が逆です。";
        default: return u"正規表現の書き方が正しくありません。";
    }
}

}  // namespace

Failure PatternFailure(int number) {
    return Failure(number, std::u16string(DescriptionOf(number)));
}

std::u16string RewritePattern(std::u16string_view pattern) { return Rewriter(pattern).Run(); }

void AppendReplacement(std::u16string& out, std::u16string_view replacement,
                       std::u16string_view text, const RegexMatch& match) {
    std::size_t at = 0;
    while (at < replacement.size()) {
        // A few $& make a text of gigabytes out of one of megabytes.
        CheckMadeLength(out.size());
        const std::size_t dollar = replacement.find(u'$', at);
        out.append(replacement.substr(at, dollar - at));
        if (dollar == kNotFound) return;
        const std::u16string_view rest = replacement.substr(dollar + 1);
        std::size_t length = 1;
        if (rest.starts_with(u'$')) {
            out += u'$';
        } else if (rest.starts_with(u'&')) {
            out.append(match[0].Of(text));
        } else if (rest.starts_with(u'`')) {
            out.append(text.substr(0, match[0].from));
        } else if (rest.starts_with(u'\'')) {
            out.append(text.substr(match[0].to));
        } else {
            const std::size_t group = GroupOfReplacement(rest, match, length);
            if (length == 0) out += u'$';
            if (length != 0) out.append(match[group].Of(text));
        }
        at = dollar + 1 + length;
    }
}

}  // namespace velm
