// Coverage of the tables.
#include "core/coverage.h"

#include <cstdlib>
#include <string>

#include "core/names.h"
#include "core/velm.h"
#include "data/resources.h"
#include "data/utf.h"

namespace velm {

namespace {

void WriteTable(std::FILE* out, const char* kind, const NameTable& table, bool usedOnly) {
    for (const xxCmdData* entry : table.InOrder()) {
        const bool wanted = usedOnly ? entry->used : entry->FuncPnt.line != 0;
        if (!wanted) continue;
        std::fprintf(out, "%s %s\n", kind, Utf16ToUtf8(entry->Name).c_str());
    }
}

void WriteTables(std::FILE* out, bool usedOnly) {
    WriteTable(out, "command", Commands, usedOnly);
    WriteTable(out, "function", Functions, usedOnly);
    WriteTable(out, "setting", SettingWords, usedOnly);
}

}  // namespace

void ListRows(std::FILE* out) {
    WriteTables(out, false);
    for (const auto& [number, text] : ResourceEntries(kMessages)) {
        std::fprintf(out, "message %s\n", Utf16ToUtf8(number).c_str());
    }
}

void WriteCoverage() {
    const char* path = std::getenv("VELM_COVERAGE");
    if (path == nullptr) return;
    std::FILE* out = std::fopen(path, "a");
    if (out == nullptr) return;
    WriteTables(out, true);
    for (const std::int32_t number : UsedMessages()) std::fprintf(out, "message %d\n", number);
    std::fclose(out);
}

}  // namespace velm
