// Text of data files in the forms that scripts name: the system code page, EUC, JIS, UTF-8, or the bytes
// as a list of numbers. The function 開け, the command 保存 and everything else that reads or writes
// text files go through here. Not here: the encodings themselves (data/encodings.h), the file system
// (platform/files.h), and script sources, which are read by rules of their own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velm {

// The encodings of ReadEncodedFile and WriteEncodedFile.
enum class EncodedKind : std::uint8_t { kEuc = 0, kJis = 1, kUtf8 = 2 };

// What a script names behind で when it reads or writes a file.
enum class EncodingWord : std::uint8_t { kNone, kEuc, kJis, kUtf8, kBinary, kOther };

// The encoding that an evaluated word names. Width and letter case don't matter: euc, EUC and ＥＵＣ
// are one word. An empty word is kNone, one that names no encoding is kOther.
EncodingWord ReadEncodingWord(std::u16string_view word);

// The text of bytes in an encoding, and the bytes of a text.
std::u16string DecodeText(std::string_view bytes, EncodedKind kind);
std::string EncodeText(std::u16string_view text, EncodedKind kind);

// The numbers of the bytes, joined by ",".
std::u16string ByteList(std::string_view bytes);

// Appends to bytes what a list of numbers stands for; an empty list is no byte. Throws Failure(13) at an
// item that is no number and Failure(6) at one outside 0 to 255; the items before are then appended.
void AppendBytesOfList(std::u16string_view list, std::string& bytes);

// The text of a file in the system code page. Throws Failure: 53 where no file has the name (a folder is
// none), or the number of what else went wrong.
std::u16string ReadTextFile(std::u16string_view path);

// The text of a file in an encoding. A failure is reported to the user, and the text is then empty.
// Kept: a missing EUC file gets the message with the hint about 「 」, whatever its name.
std::u16string ReadEncodedFile(std::u16string_view path, EncodedKind kind);

// Writes a text in an encoding over the beginning of a file, which is made when it is missing. Throws
// Failure. Kept: what a longer old file holds behind the text stays.
void WriteEncodedFile(std::u16string_view path, EncodedKind kind, std::u16string_view text);

// The function 開け: the text of a file by an encoding word. Without a word, or with one that names no
// encoding, a name that ends in .csv turns the text into list form. Failures are reported.
std::u16string LoadFile(std::u16string_view path, std::u16string_view encodingWord);

// The Base64 text of a file's bytes. A missing file is reported (201), and the text is then empty.
// Throws Failure when the file can't be read.
std::u16string EncodeBase64File(std::u16string_view path);

// Replaces a file by the bytes of a Base64 text. Events run meanwhile. Whether it could be written; the
// failure is not reported.
bool RestoreBase64File(std::u16string_view path, std::u16string_view text);

// What a path gives that was written without 「 」: its backslashes divided.
inline constexpr std::u16string_view kPathWithoutQuotes = u"0";

// Reports what kept a file from being read, by the number of the failure: message 201 or, with the hint
// about 「 」, 204 where the file is missing, 210 for anything else.
void ReportReadFailure(int number, std::u16string_view path, bool hint);

// Whether a name ends in .csv, in any letter case: such files change between the file form and the list
// form of their text.
bool IsCsvName(std::u16string_view path);

}  // namespace velm
