// The members of objects that are no controls: the dialogs and the printer. A table of rows over one state.
#pragma once

#include <QFont>
#include <span>

#include "data/failure.h"
#include "data/width.h"
#include "platform/qt/qt_text.h"
#include "platform/toolkit.h"

namespace velm {

// One member; what it can't do is nullptr.
template <class State>
struct OutsideMember {
    std::u16string_view name;
    MemberValue (*get)(State& state) = nullptr;
    void (*set)(State& state, const MemberValue& value) = nullptr;
    MemberValue (*call)(State& state, const MemberArguments& arguments) = nullptr;
};

// The row of a name in a table, letter case ignored. Throws Failure(438) when there is none.
template <class State>
const OutsideMember<State>& FindMember(std::span<const OutsideMember<State>> table,
                                       std::u16string_view name) {
    for (const OutsideMember<State>& row : table) {
        if (SameName(row.name, name)) return row;
    }
    throw Failure(failure::kNoSuchMember);
}

// Members over a state. Base is MemberSurface, or a class derived from it.
template <class State, class Base = MemberSurface>
class OutsideSurface : public Base {
  public:
    OutsideSurface(State& state, std::span<const OutsideMember<State>> table)
        : state_(&state), table_(table) {}

    MemberValue Get(std::u16string_view member, const MemberArguments&) override {
        const auto& row = FindMember(table_, member);
        if (row.get == nullptr) throw Failure(failure::kNoSuchMember);
        return row.get(*state_);
    }
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments&) override {
        const auto& row = FindMember(table_, member);
        if (row.set == nullptr) throw Failure(failure::kNoSuchMember);
        row.set(*state_, value);
    }
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override {
        const auto& row = FindMember(table_, member);
        if (row.call == nullptr) throw Failure(failure::kNoSuchMember);
        return row.call(*state_, arguments);
    }

  private:
    State* state_;
    std::span<const OutsideMember<State>> table_;
};

// Rows of a font that the state keeps as its member `font`.
template <class State>
struct FontMembers {
    using Row = OutsideMember<State>;

    template <bool (QFont::*read)() const, void (QFont::*write)(bool)>
    static constexpr Row Flag(std::u16string_view name) {
        return {name, [](State& state) -> MemberValue { return (state.font.*read)(); },
                [](State& state, const MemberValue& value) {
                    (state.font.*write)(MemberToBool(value));
                }};
    }

    static MemberValue Name(State& state) { return FromQString(state.font.family()); }
    static void SetName(State& state, const MemberValue& value) {
        state.font.setFamilies({ToQString(MemberToText(value))});
    }
    static MemberValue Size(State& state) { return state.font.pointSizeF(); }
    static void SetSize(State& state, const MemberValue& value) {
        constexpr double kLargestFont = 2160;
        const double size = MemberToNumber(value);
        if (!(size > 0 && size <= kLargestFont)) throw Failure(failure::kBadCall);
        state.font.setPointSizeF(size);
    }

    static constexpr Row kName = {u"FontName", Name, SetName};
    static constexpr Row kSize = {u"FontSize", Size, SetSize};
    static constexpr Row kBold = Flag<&QFont::bold, &QFont::setBold>(u"FontBold");
    static constexpr Row kItalic = Flag<&QFont::italic, &QFont::setItalic>(u"FontItalic");
    static constexpr Row kUnderline =
        Flag<&QFont::underline, &QFont::setUnderline>(u"FontUnderline");
    static constexpr Row kStruck =
        Flag<&QFont::strikeOut, &QFont::setStrikeOut>(u"FontStrikethrough");
};

}  // namespace velm
