// Files as text, and text in other forms.
#include "functions/encoding_functions.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/arguments.h"
#include "core/encoded_file.h"
#include "core/hooks.h"
#include "data/code_page_932.h"
#include "data/encodings.h"
#include "data/value.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr std::u16string_view kEuc = u"ＥＵＣ";
constexpr std::u16string_view kJis = u"ＪＩＳ";
constexpr std::u16string_view kBase64 = u"ＢＡＳＥ６４";

// The encoding of a word, for the conversions in bytes; nothing where the word stands for plain text.
std::optional<EncodedKind> KindOfWord(std::u16string_view word) {
    switch (ReadEncodingWord(word)) {
        case EncodingWord::kEuc: return EncodedKind::kEuc;
        case EncodingWord::kJis: return EncodedKind::kJis;
        case EncodingWord::kUtf8: return EncodedKind::kUtf8;
        default: return std::nullopt;
    }
}

std::string BytesOfList(std::u16string_view list) {
    std::string bytes;
    AppendBytesOfList(list, bytes);
    return bytes;
}

// The bytes that go into the form of a URL.
std::string BytesForUrl(std::u16string_view text, EncodingWord encoding) {
    switch (encoding) {
        case EncodingWord::kEuc: return TextToEuc(EncodeCodePage932(text));
        case EncodingWord::kJis: return TextToJis(text);
        case EncodingWord::kBinary: return BytesOfList(text);
        default: return EncodeCodePage932(text);
    }
}

std::u16string TextFromUrl(std::string_view bytes, EncodingWord encoding) {
    switch (encoding) {
        case EncodingWord::kEuc: return EucToText(bytes);
        case EncodingWord::kJis: return JisToText(bytes);
        case EncodingWord::kBinary: return ByteList(bytes);
        default: return DecodeCodePage932(bytes);
    }
}

void OpenAs(std::u16string_view encoding, Value& result, Arguments& arguments) {
    std::u16string path;
    arguments.Split(path);
    result = Value(LoadFile(path, encoding));
}

}  // namespace

void FnOpen(Value& result, Arguments& arguments) {
    std::u16string path;
    std::u16string encoding;
    arguments.Split(path, encoding);
    result = Value(LoadFile(path, encoding));
}

void FnOpenEuc(Value& result, Arguments& arguments) { OpenAs(kEuc, result, arguments); }
void FnOpenJis(Value& result, Arguments& arguments) { OpenAs(kJis, result, arguments); }

// Bytes are told as everywhere in the language, as a list of numbers; what isn't named as bytes is text.
void FnConvertEncoding(Value& result, Arguments& arguments) {
    std::u16string text;
    std::u16string from;
    std::u16string to;
    arguments.Split(text, from, to);
    if (const auto kind = KindOfWord(from)) text = DecodeText(BytesOfList(text), *kind);
    if (const auto kind = KindOfWord(to)) text = ByteList(EncodeText(text, *kind));
    result = Value(std::move(text));
}

void FnEncodeBase64(Value& result, Arguments& arguments) {
    std::u16string path;
    arguments.Split(path);
    result = Value(EncodeBase64File(path));
}

void FnScramble(Value& result, Arguments& arguments) {
    std::u16string text;
    std::int16_t key = 0;
    arguments.Split(text, key);
    result = Value(ScrambleText(text, key));
}

void FnUrlForm(Value& result, Arguments& arguments) {
    std::u16string text;
    std::u16string encoding;
    arguments.Split(text, encoding);
    result = Value(UrlEncode(BytesForUrl(text, ReadEncodingWord(encoding))));
}

void FnRestore(Value& result, Arguments& arguments) {
    std::u16string text;
    std::u16string encoding;
    arguments.Split(text, encoding);
    if (ToFullWidth(ToUpper(encoding)) == kBase64) {
        result = Value(DecodeCodePage932(DecodeBase64(text, PumpEvents)));
        return;
    }
    result = Value(TextFromUrl(UrlDecode(text), ReadEncodingWord(encoding)));
}

void FnByteList(Value& result, Arguments& arguments) {
    std::u16string text;
    arguments.Split(text);
    result = Value(ByteList(EncodeCodePage932(text)));
}

}  // namespace velm
