// Names: every name that a script uses is folded once (letter case and width ignored) and interned
// as a Symbol. A symbol knows the entry of its name in each name table, so that a word that was
// bound to its symbol reaches its variable, function or procedure without a search. Symbols live as
// long as the process; the tables put their entries in and take them out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/value.h"

namespace velm {

class Arguments;
class KeptCode;
class WordPlan;
struct Context;
struct ParameterSpec;
struct Statement;

// A command or a settings word: what the sentence asks for is done, failures are passed over.
using CommandHandler = void (*)(Statement& statement, Context& context);
// A function: result arrives empty; what the handler leaves unset reads as the empty text.
using FunctionHandler = void (*)(Value& result, Arguments& arguments);

// The particles of a row, in its order.
using JoshiList = std::vector<std::u16string>;

// An entry of a name table.
//
//   Name     the keyword, the name of a variable, or of a procedure with a leading "!" if there is one
//   Num      procedures: the index of the Program
//   Flags    commands and functions: the argument count
//   FuncPnt  commands and functions: the handler; procedures: the index of the first body line
//   Value    procedures: the parameter list; variables: the value
//   Joshi    commands and functions: the particles
struct xxCmdData {
    std::u16string Name;
    std::int32_t Num = 0;
    std::int32_t Flags = 0;
    union Pointer {
        CommandHandler command;
        FunctionHandler function;
        std::intptr_t line;
    } FuncPnt = {nullptr};
    velm::Value Value;
    JoshiList Joshi;
    // Procedures: the parameter list as read from Value, made at the first call.
    std::shared_ptr<const ParameterSpec> Parameters;
    // Procedures: the code of the body (core/bytecode/bytecode.h).
    mutable std::shared_ptr<KeptCode> Code;
    mutable std::uint32_t running = 0;  // how many runs of the body there are
    // Whether a sentence or word has used the row in this process; kept for the tests' coverage.
    bool used = false;
};

enum class TableKind : std::uint8_t { kCommands, kFunctions, kSettingWords, kProcedures, kGlobals };
inline constexpr std::size_t kTableKinds = 5;

// An interned name.
struct Symbol {
    std::u16string key;  // the folded name
    std::size_t hash = 0;
    std::array<xxCmdData*, kTableKinds> entries = {};

    xxCmdData* Entry(TableKind kind) const { return entries[static_cast<std::size_t>(kind)]; }
};

// The symbol of a name, made if there is none yet.
Symbol* Intern(std::u16string_view name);
// The symbol of a name, or nullptr if nothing ever used that name.
Symbol* FindSymbol(std::u16string_view name);

// An ordered collection of entries keyed by name. Enumeration follows the order of insertion.
// A look-up of an absent key yields nullptr, and that is no error.
class NameTable {
  public:
    explicit NameTable(TableKind kind) : kind_(kind) {}
    NameTable(const NameTable&) = delete;
    NameTable& operator=(const NameTable&) = delete;

    xxCmdData* Find(const Symbol* symbol) const {
        return symbol == nullptr ? nullptr : symbol->Entry(kind_);
    }
    xxCmdData* Find(std::u16string_view name) const { return Find(FindSymbol(name)); }
    // Adds an entry under a key that the table doesn't hold; nullptr when it does.
    xxCmdData* Add(Symbol* key, xxCmdData entry);
    // The same with an empty entry, to be filled in its place.
    xxCmdData* Add(Symbol* key);
    void Remove(Symbol* key);
    void Clear();

    // The entries in order. An entry that was removed is left out; it lives on until Clear, since a
    // removed procedure may still be running.
    const std::vector<xxCmdData*>& InOrder() const { return order_; }
    // Grows with each change of the table's keys: what was bound by a search must be searched again.
    std::uint64_t Generation() const { return generation_; }

  private:
    TableKind kind_;
    std::deque<xxCmdData> entries_;
    std::vector<Symbol*> keys_;  // of the entries in order
    std::vector<xxCmdData*> order_;
    std::uint64_t generation_ = 1;
};

// A table of the process. At the end it goes with the process's memory: to free hundreds of entries one
// by one would cost a short run more than its own work.
union ProcessTable {
    explicit ProcessTable(TableKind kind) : table(kind) {}
    ProcessTable(const ProcessTable&) = delete;
    ProcessTable& operator=(const ProcessTable&) = delete;
    ~ProcessTable() {}  // NOLINT(modernize-use-equals-default): that would be deleted

    NameTable table;
};
namespace process_table {
extern ProcessTable commands;
extern ProcessTable functions;
extern ProcessTable settingWords;
extern ProcessTable procedures;
extern ProcessTable globals;
}  // namespace process_table

// The tables that live as long as the process, and those of a run.
inline constexpr NameTable& Commands = process_table::commands.table;
inline constexpr NameTable& Functions = process_table::functions.table;
inline constexpr NameTable& SettingWords = process_table::settingWords.table;
inline constexpr NameTable& Procedures = process_table::procedures.table;
inline constexpr NameTable& Globals = process_table::globals.table;

// Enters one row: names is cut at ",", every name becomes an entry of its own with the same values.
// When particles is not empty and argumentCount is 0, the count of commas of particles is taken.
void RegisterEntries(NameTable& table, xxCmdData::Pointer handler, std::u16string_view names,
                     std::int32_t argumentCount, std::u16string_view particles);

}  // namespace velm
