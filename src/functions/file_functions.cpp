// Files, folders and paths as functions.
#include "functions/file_functions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "core/arguments.h"
#include "core/diagnostics.h"
#include "core/encoded_file.h"
#include "core/file_search.h"
#include "data/dates.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "data/value.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace velm {

namespace {

// The roots of all drives: the whole file system is one drive.
constexpr std::u16string_view kDrives[] = {u"C:\\"};

constexpr std::u16string_view kAttributeByNumber = u"0";
constexpr std::u16string_view kUnknownAttribute = u"取得したい属性を指定して下さい";
constexpr int kUnnumbered = 0;

// From this length on a number may not fit 32 bits.
constexpr std::size_t kLongNumber = 10;
constexpr double kBeyond64Bits = 9223372036854775808.0;

constexpr std::uint64_t kUnitStep = 1024;
constexpr std::uint64_t kShortestLargerUnit = 1000;
constexpr std::array<std::u16string_view, 6> kUnits = {u" KB", u" MB", u" GB",
                                                       u" TB", u" PB", u" EB"};
constexpr std::u16string_view kBytes = u" バイト";

std::u16string OneText(const Arguments& arguments) {
    std::u16string text;
    arguments.Split(text);
    return text;
}

// A mask without a name stands for every name in its folder.
std::u16string CompleteMask(std::u16string_view pattern) {
    std::u16string mask(pattern);
    if (!mask.empty() && FileNameOf(mask).empty()) mask += u'*';
    return mask;
}

// The number of the bits that a word stands for; nothing for a word that stands for none.
std::optional<std::int32_t> AttributeMask(std::u16string_view word) {
    if (word == kAttributeByNumber) return 0;
    const std::int32_t mask = ResourceNumber(kAttributeWords, word);
    return mask == -1 ? std::nullopt : std::optional(mask);
}

// Whether all bits that the word stands for are set on the file. What prevents that is reported.
bool FileHasAttribute(std::u16string_view file, std::u16string_view word) {
    const std::optional<std::int32_t> mask = AttributeMask(word);
    if (!mask) {
        RaiseMessage(kUnknownAttribute, kUnnumbered, kIconWarning, u"", word, -1);
        return false;
    }
    bool set = false;
    const bool read = Attempt([&] { set = (StatFileOrFail(file).attributes & *mask) == *mask; });
    if (!read) ReportReadFailure(pendingFailure.number, file, file == kPathWithoutQuotes);
    return set;
}

// The size that a number tells. A long number may need 64 bits.
std::int64_t SizeOfNumber(const Value& number) {
    if (number.Text().size() < kLongNumber) return ToInt32(ToDouble(number));
    const double rounded = std::nearbyint(ToDouble(number));
    if (std::abs(rounded) >= kBeyond64Bits) throw Failure(failure::kOverflow);
    return static_cast<std::int64_t>(rounded);
}

// Kept: the common beginning is one of letters, not of folders, so that a name that begins like the
// base's own loses what they share.
std::u16string RelativePath(std::u16string_view base, std::u16string_view target) {
    const auto different = std::mismatch(base.begin(), base.end(), target.begin(), target.end());
    const auto common = static_cast<std::size_t>(different.first - base.begin());
    const std::size_t depth = CountOf(base, u"\\");
    const std::size_t shared = CountOf(target.substr(0, common), u"\\");
    std::u16string path;
    for (std::size_t i = shared; i < depth; ++i) path += u"..\\";
    path += target.substr(common);
    return path;
}

void ListInto(Value& result, const Arguments& arguments, SearchFor wanted, SearchIn extent) {
    result = Value(ListOfNames(FindByPattern(OneText(arguments), wanted, extent)));
}

}  // namespace

std::u16string FileDateText(std::u16string_view path) {
    const std::int64_t seconds = StatFileOrFail(path).modified.seconds;
    const std::optional<LocalTime> time = LocalTimeOf(seconds);
    if (!time) throw Failure(failure::kBadCall);
    const CivilDay civil = {time->year, time->month, time->day};
    if (!IsCivilDay(civil)) throw Failure(failure::kBadCall);
    const std::int64_t second = (time->hour * 60 + time->minute) * 60 + time->second;
    const std::optional<double> date = DateOf({DayOfCivil(civil), second});
    if (!date) throw Failure(failure::kBadCall);
    return FormatDate(*date);
}

std::u16string SizeText(std::int64_t bytes) {
    const auto size = static_cast<std::uint64_t>(bytes);
    if (size < kUnitStep) return FormatNumber(static_cast<double>(size)).append(kBytes);
    std::size_t unit = 0;
    std::uint64_t unitSize = kUnitStep;
    while (unit + 1 < kUnits.size() && size / unitSize >= kShortestLargerUnit) {
        unitSize *= kUnitStep;
        ++unit;
    }
    const std::uint64_t whole = size / unitSize;
    std::u16string text = FormatNumber(static_cast<double>(whole));
    std::uint64_t rest = size % unitSize;
    const int places = whole >= 100 ? 0 : whole >= 10 ? 1 : 2;
    if (places > 0) text += u'.';
    for (int i = 0; i < places; ++i) {
        rest *= 10;
        text += static_cast<char16_t>(u'0' + rest / unitSize);
        rest %= unitSize;
    }
    return text.append(kUnits[unit]);
}

void FnFindFile(Value& result, Arguments& arguments) {
    for (const FolderEntry& entry : ListMatches(CompleteMask(OneText(arguments)))) {
        if (entry.info.kind == EntryKind::kFolder) continue;
        result = Value(entry.name);
        return;
    }
}

// The folder itself, under the name ".", is the first entry of every folder but the root: the result
// tells whether the folder is there.
void FnFindFolder(Value& result, Arguments& arguments) {
    const std::u16string folder = WithBackslash(OneText(arguments));
    if (!IsFolder(folder)) return;
    if (NativePath(folder) != "/") {
        result = Value(u".");
        return;
    }
    const std::vector<FolderEntry> matches = ListMatches(folder + u"*.");
    if (!matches.empty()) result = Value(matches.front().name);
}

void FnFindDrive(Value& result, Arguments& arguments) {
    std::int16_t number = 0;
    arguments.Split(number);
    const auto index = static_cast<std::size_t>(number);
    if (number >= 0 && index < std::size(kDrives)) result = Value(kDrives[index]);
}

void FnFileSize(Value& result, Arguments& arguments) {
    const FileInfo info = StatFileOrFail(OneText(arguments));
    if (info.kind == EntryKind::kFolder) throw Failure(failure::kFileNotFound);
    result = Value::OfInteger(ToInt32(static_cast<double>(info.size)));
}

void FnSizeText(Value& result, Arguments& arguments) {
    Value number = Value::OfInteger(0);
    arguments.Split(number);
    const std::int64_t size = SizeOfNumber(number);
    if (size < 0) throw Failure(failure::kBadCall);
    result = Value(SizeText(size));
}

void FnFileDate(Value& result, Arguments& arguments) {
    result = Value(FileDateText(OneText(arguments)));
}

void FnFileAttribute(Value& result, Arguments& arguments) {
    std::u16string file;
    std::u16string word;
    arguments.Split(file, word);
    result = Value::OfBool(FileHasAttribute(file, word));
}

void FnFolderPart(Value& result, Arguments& arguments) {
    const std::u16string path = OneText(arguments);
    result = Value(Contains(path, u"\\") ? FolderOf(path) : path);
}

// Kept: only a "\" ends the folder here, unlike in FileNameOf.
void FnNamePart(Value& result, Arguments& arguments) {
    const std::u16string path = OneText(arguments);
    result = Value(path.substr(FolderOf(path).size()));
}

void FnExtensionPart(Value& result, Arguments& arguments) {
    result = Value(ExtensionOf(OneText(arguments)));
}

void FnRelativePath(Value& result, Arguments& arguments) {
    std::u16string base;
    std::u16string target;
    arguments.Split(base, target);
    result = Value(RelativePath(base, target));
}

void FnFiles(Value& result, Arguments& arguments) {
    ListInto(result, arguments, SearchFor::kFiles, SearchIn::kFolder);
}

void FnFolders(Value& result, Arguments& arguments) {
    ListInto(result, arguments, SearchFor::kFolders, SearchIn::kFolder);
}

void FnAllFiles(Value& result, Arguments& arguments) {
    ListInto(result, arguments, SearchFor::kFiles, SearchIn::kTree);
}

void FnAllFolders(Value& result, Arguments& arguments) {
    ListInto(result, arguments, SearchFor::kFolders, SearchIn::kTree);
}

void FnDrives(Value& result, Arguments&) {
    result = Value(ListOfNames({std::begin(kDrives), std::end(kDrives)}));
}

void FnCurrentFolder(Value& result, Arguments&) { result = Value(WithBackslash(CurrentFolder())); }

}  // namespace velm
