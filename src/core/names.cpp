// Interned names and the name tables.
#include "core/names.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "data/text.h"
#include "data/width.h"

namespace velm {

NameTable Commands(TableKind::kCommands);
NameTable Functions(TableKind::kFunctions);
NameTable SettingWords(TableKind::kSettingWords);
NameTable Procedures(TableKind::kProcedures);
NameTable Globals(TableKind::kGlobals);

namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const {
        return std::hash<std::u16string_view>()(text);
    }
};

// Symbols by folded name. A deque, so that a symbol never moves.
struct SymbolTable {
    std::deque<Symbol> symbols;
    std::unordered_map<std::u16string_view, Symbol*, TextHash, std::equal_to<>> byKey;
};

SymbolTable& Symbols() {
    static SymbolTable table;
    return table;
}

}  // namespace

Symbol* FindSymbol(std::u16string_view name) {
    const SymbolTable& table = Symbols();
    const auto found = table.byKey.find(FoldName(name));
    return found == table.byKey.end() ? nullptr : found->second;
}

Symbol* Intern(std::u16string_view name) {
    SymbolTable& table = Symbols();
    std::u16string key = FoldName(name);
    const auto found = table.byKey.find(key);
    if (found != table.byKey.end()) return found->second;
    Symbol& symbol = table.symbols.emplace_back();
    symbol.key = std::move(key);
    table.byKey.emplace(symbol.key, &symbol);
    return &symbol;
}

xxCmdData* NameTable::Add(Symbol* key, xxCmdData entry) {
    xxCmdData*& place = key->entries[static_cast<std::size_t>(kind_)];
    if (place != nullptr) return nullptr;
    slots_.push_back({key, std::make_unique<xxCmdData>(std::move(entry))});
    place = slots_.back().entry.get();
    order_.push_back(place);
    ++generation_;
    return place;
}

void NameTable::Remove(Symbol* key) {
    xxCmdData*& place = key->entries[static_cast<std::size_t>(kind_)];
    if (place == nullptr) return;
    order_.erase(std::find(order_.begin(), order_.end(), place));
    const auto slot = std::find_if(slots_.begin(), slots_.end(),
                                   [key](const Slot& each) { return each.key == key; });
    removed_.push_back(std::move(slot->entry));
    slots_.erase(slot);
    place = nullptr;
    ++generation_;
}

void NameTable::Clear() {
    for (const Slot& slot : slots_) slot.key->entries[static_cast<std::size_t>(kind_)] = nullptr;
    slots_.clear();
    order_.clear();
    removed_.clear();
    ++generation_;
}

void RegisterEntries(NameTable& table, xxCmdData::Pointer handler, std::u16string_view names,
                     std::int32_t argumentCount, std::u16string_view particles) {
    xxCmdData entry;
    entry.FuncPnt = handler;
    entry.Flags = argumentCount;
    if (!particles.empty()) {
        if (argumentCount == 0) entry.Flags = static_cast<std::int32_t>(CountOf(particles, u","));
        for (const std::u16string_view particle : Split(particles, u",")) {
            entry.Joshi.emplace_back(particle);
        }
    }
    for (const std::u16string_view name : Split(names, u",")) {
        entry.Name = name;
        table.Add(Intern(name), entry);
    }
}

}  // namespace velm
