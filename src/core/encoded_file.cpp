// Reading and writing data files in the encodings that scripts name.
#include "core/encoded_file.h"

#include <cmath>
#include <optional>

#include "core/diagnostics.h"
#include "core/hooks.h"
#include "data/code_page_932.h"
#include "data/csv.h"
#include "data/encodings.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/width.h"
#include "platform/desktop.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr int kMissingFile = 201;
constexpr int kMissingFileOrQuotes = 204;
constexpr int kUnreadableFile = 210;

constexpr std::u16string_view kCsvEnding = u".csv";
constexpr double kLargestByte = 255;

char ByteOfItem(std::u16string_view item) {
    const std::optional<double> number = ParseNumber(item);
    if (!number) throw Failure(failure::kTypeMismatch);
    const double rounded = std::nearbyint(*number);
    if (rounded < 0 || rounded > kLargestByte) throw Failure(failure::kOverflow);
    return static_cast<char>(static_cast<unsigned char>(rounded));
}

// Whether the path is a file that can be read to its end: no folder, pipe or device.
bool HasContents(std::u16string_view path) {
    const std::optional<FileInfo> info = StatFile(path);
    return info && info->kind == EntryKind::kFile;
}

// The bytes of a file. A pipe or a device is no file: reading it might never end.
std::string ReadContents(std::u16string_view path) {
    if (StatFileOrFail(path).kind == EntryKind::kOther) throw Failure(failure::kPathFileAccess);
    return ReadFileBytes(path);
}

// Runs the reading of a file and reports its failure.
template <class Step>
void ReadOrReport(std::u16string_view path, bool hint, Step&& step) {
    if (!Attempt(step)) ReportReadFailure(pendingFailure.number, path, hint);
    pendingFailure.Clear();
}

}  // namespace

EncodingWord ReadEncodingWord(std::u16string_view word) {
    if (word.empty()) return EncodingWord::kNone;
    const std::u16string wide = ToFullWidth(ToUpper(word));
    if (wide == u"ＥＵＣ") return EncodingWord::kEuc;
    if (wide == u"ＪＩＳ") return EncodingWord::kJis;
    if (wide == u"ＵＴＦ８") return EncodingWord::kUtf8;
    return wide == u"バイナリ" ? EncodingWord::kBinary : EncodingWord::kOther;
}

std::u16string DecodeText(std::string_view bytes, EncodedKind kind) {
    switch (kind) {
        case EncodedKind::kEuc: return EucToText(bytes);
        case EncodedKind::kJis: return JisToText(bytes);
        case EncodedKind::kUtf8: break;
    }
    return Utf8ToText(bytes);
}

std::string EncodeText(std::u16string_view text, EncodedKind kind) {
    switch (kind) {
        case EncodedKind::kEuc: return TextToEuc(EncodeCodePage932(text));
        case EncodedKind::kJis: return TextToJis(text);
        case EncodedKind::kUtf8: break;
    }
    return TextToUtf8(text);
}

std::u16string ByteList(std::string_view bytes) {
    std::u16string list;
    for (const char byte : bytes) {
        if (!list.empty()) list += u',';
        AppendNumber(list, static_cast<unsigned char>(byte));
    }
    return list;
}

void AppendBytesOfList(std::u16string_view list, std::string& bytes) {
    if (list.empty()) return;
    for (const std::u16string& item : ParseList(list)) bytes += ByteOfItem(item);
}

std::u16string ReadTextFile(std::u16string_view path) {
    if (!HasContents(path)) throw Failure(failure::kFileNotFound);
    return DecodeCodePage932(ReadFileBytes(path));
}

std::u16string ReadEncodedFile(std::u16string_view path, EncodedKind kind) {
    std::u16string text;
    ReadOrReport(path, kind == EncodedKind::kEuc,
                 [&] { text = DecodeText(ReadContents(path), kind); });
    return text;
}

void WriteEncodedFile(std::u16string_view path, EncodedKind kind, std::u16string_view text) {
    WriteFileBytes(path, EncodeText(text, kind), WriteMode::kKeepTail);
}

std::u16string LoadFile(std::u16string_view path, std::u16string_view encodingWord) {
    const EncodingWord encoding = ReadEncodingWord(encodingWord);
    if (encoding == EncodingWord::kEuc) return ReadEncodedFile(path, EncodedKind::kEuc);
    if (encoding == EncodingWord::kJis) return ReadEncodedFile(path, EncodedKind::kJis);
    if (encoding == EncodingWord::kUtf8) return ReadEncodedFile(path, EncodedKind::kUtf8);
    std::u16string text;
    ReadOrReport(path, path == kPathWithoutQuotes, [&] {
        if (encoding == EncodingWord::kBinary) {
            text = ByteList(ReadContents(path));
        } else {
            text = ReadTextFile(path);
            if (IsCsvName(path)) text = CsvToList(text);
        }
    });
    return text;
}

std::u16string EncodeBase64File(std::u16string_view path) {
    if (!HasContents(path)) {
        RaiseError(kMissingFile, kIconStop, path, u"", -1);
        return {};
    }
    const WaitPointer wait;
    return EncodeBase64(ReadFileBytes(path));
}

bool RestoreBase64File(std::u16string_view path, std::u16string_view text) {
    const std::string bytes = DecodeBase64(text, PumpEvents);
    const bool done = Attempt([&] { WriteFileBytes(path, bytes); });
    pendingFailure.Clear();
    return done;
}

void ReportReadFailure(int number, std::u16string_view path, bool hint) {
    const bool missing = number == failure::kBadFileName || number == failure::kFileNotFound;
    const int whenMissing = hint ? kMissingFileOrQuotes : kMissingFile;
    RaiseError(missing ? whenMissing : kUnreadableFile, kIconStop, path, u"", -1);
}

bool IsCsvName(std::u16string_view path) {
    if (path.size() < kCsvEnding.size()) return false;
    return ToLower(path.substr(path.size() - kCsvEnding.size())) == kCsvEnding;
}

}  // namespace velm
