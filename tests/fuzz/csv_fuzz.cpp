// Any text as CSV and as a list: the forms agree with one another, and what is escaped comes back.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data/csv.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/table_column.h"
#include "data/text.h"
#include "fuzz_input.h"

namespace {

using velm::fuzz::Require;

void CheckItem(const std::u16string& text) {
    const std::u16string escaped = velm::EscapeItem(text);
    Require(escaped.find_first_of(u"、,，") == velm::kNotFound);
    Require(!velm::Contains(escaped, velm::kCrLf));
    if (text.find(u'{') == velm::kNotFound) Require(velm::UnescapeItem(escaped) == text);
}

void CheckList(const std::u16string& text) {
    const std::vector<std::u16string> items = velm::ParseList(text);
    const velm::TableColumn raw(text, 0);
    Require(items.size() == (text.empty() ? 1 : raw.Count()));
    std::u16string joined;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i != 0) joined += u',';
        velm::AppendItem(joined, items[i]);
    }
    Require(joined == velm::JoinList(items, u","));
    const velm::TableColumn column(text, 2);
    Require(text.empty() || column.Count() == velm::CountOf(text, velm::kCrLf) + 1);
}

void CheckCsv(const std::u16string& text) {
    const std::size_t lines = velm::CountOf(text, velm::kCrLf);
    Require(velm::CountOf(velm::CsvToList(text), velm::kCrLf) == lines);
    Require(velm::CountOf(velm::ListToCsv(text), velm::kCrLf) >= lines);
}

void Check(const std::u16string& text) {
    CheckItem(text);
    CheckList(text);
    CheckCsv(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Check(velm::fuzz::Units(velm::fuzz::Bytes(data, size)));
    Check(std::u16string(data, data + size));
    return 0;
}
