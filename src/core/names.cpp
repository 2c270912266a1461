// Interned names and the name tables.
#include "core/names.h"

#include <algorithm>
#include <utility>

#include "data/text.h"
#include "data/width.h"

namespace velm {

namespace process_table {
ProcessTable commands(TableKind::kCommands);
ProcessTable functions(TableKind::kFunctions);
ProcessTable settingWords(TableKind::kSettingWords);
ProcessTable procedures(TableKind::kProcedures);
ProcessTable globals(TableKind::kGlobals);
}  // namespace process_table

namespace {

// The commands and functions take a little less than half of it.
constexpr std::size_t kFirstPlaces = 1024;

// Symbols by folded name: open addressing, at most half full. Symbols are never taken out.
class SymbolTable {
  public:
    Symbol* Find(std::u16string_view key, std::size_t hash) const { return *Place(key, hash); }
    // The key must not be there.
    Symbol* Add(std::u16string key, std::size_t hash) {
        if (2 * (symbols_.size() + 1) > places_.size()) Grow();
        Symbol& symbol = symbols_.emplace_back();
        symbol.key = std::move(key);
        symbol.hash = hash;
        *Place(symbol.key, hash) = &symbol;
        return &symbol;
    }

  private:
    std::deque<Symbol> symbols_;  // a symbol never moves
    std::vector<Symbol*> places_ = std::vector<Symbol*>(kFirstPlaces);

    // Where a key stands, or the free place where it would.
    Symbol* const* Place(std::u16string_view key, std::size_t hash) const {
        const std::size_t mask = places_.size() - 1;
        std::size_t at = hash & mask;
        while (places_[at] != nullptr && (places_[at]->hash != hash || places_[at]->key != key)) {
            at = (at + 1) & mask;
        }
        return &places_[at];
    }
    Symbol** Place(std::u16string_view key, std::size_t hash) {
        return const_cast<Symbol**>(std::as_const(*this).Place(key, hash));
    }
    void Grow() {
        places_.assign(2 * places_.size(), nullptr);
        for (Symbol& symbol : symbols_) *Place(symbol.key, symbol.hash) = &symbol;
    }
};

// Never freed, as the tables.
SymbolTable& Symbols() {
    static SymbolTable& table = *new SymbolTable;
    return table;
}

std::size_t HashOf(std::u16string_view key) { return std::hash<std::u16string_view>()(key); }

}  // namespace

Symbol* FindSymbol(std::u16string_view name) {
    const std::u16string key = FoldName(name);
    return Symbols().Find(key, HashOf(key));
}

Symbol* Intern(std::u16string_view name) {
    SymbolTable& table = Symbols();
    std::u16string key = FoldName(name);
    const std::size_t hash = HashOf(key);
    Symbol* const known = table.Find(key, hash);
    return known != nullptr ? known : table.Add(std::move(key), hash);
}

xxCmdData* NameTable::Add(Symbol* key, xxCmdData entry) {
    xxCmdData* const place = Add(key);
    if (place != nullptr) *place = std::move(entry);
    return place;
}

xxCmdData* NameTable::Add(Symbol* key) {
    xxCmdData*& place = key->entries[static_cast<std::size_t>(kind_)];
    if (place != nullptr) return nullptr;
    place = &entries_.emplace_back();
    keys_.push_back(key);
    order_.push_back(place);
    ++generation_;
    return place;
}

void NameTable::Remove(Symbol* key) {
    xxCmdData*& place = key->entries[static_cast<std::size_t>(kind_)];
    if (place == nullptr) return;
    const auto at = std::find(order_.begin(), order_.end(), place) - order_.begin();
    order_.erase(order_.begin() + at);
    keys_.erase(keys_.begin() + at);
    // A script that runs texts over and over enters its procedures anew each time.
    if (place->running == 0) place->Code.reset();
    place = nullptr;
    ++generation_;
}

void NameTable::Clear() {
    for (Symbol* key : keys_) key->entries[static_cast<std::size_t>(kind_)] = nullptr;
    entries_.clear();
    keys_.clear();
    order_.clear();
    ++generation_;
}

void RegisterEntries(NameTable& table, xxCmdData::Pointer handler, std::u16string_view names,
                     std::int32_t argumentCount, std::u16string_view particles) {
    JoshiList joshi;
    if (!particles.empty()) {
        if (argumentCount == 0) argumentCount = static_cast<std::int32_t>(CountOf(particles, u","));
        for (const std::u16string_view particle : Split(particles, u",")) {
            joshi.emplace_back(particle);
        }
    }
    for (std::size_t from = 0; from <= names.size();) {
        const std::size_t end = std::min(names.find(u',', from), names.size());
        const std::u16string_view name = names.substr(from, end - from);
        from = end + 1;
        xxCmdData* const entry = table.Add(Intern(name));
        if (entry == nullptr) continue;
        entry->Name = name;
        entry->Flags = argumentCount;
        entry->FuncPnt = handler;
        entry->Joshi = joshi;
    }
}

}  // namespace velm
