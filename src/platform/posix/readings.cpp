// Readings by MeCab with the IPA dictionary in UTF-8, both from the system's packages. The library is
// loaded at first use: most scripts never ask for a reading, and their start must not pay for it.
// The environment variable VELM_MECAB_DICTIONARY may name another folder of the dictionary.
#include "platform/readings.h"

#include <mecab.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "data/failure.h"
#include "data/utf.h"
#include "data/width.h"
#include "platform/posix/late_library.h"

namespace velm {

namespace {

constexpr const char* kDictionaryVariable = "VELM_MECAB_DICTIONARY";
constexpr const char* kDictionary = "/var/lib/mecab/dic/ipadic-utf8";

// The library counts the bytes of a word in 16 bits, and joins unknown characters to long words; its
// memory grows with the piece that it is given.
constexpr std::size_t kLongestPiece = 4000;

// The place of the reading among the comma-separated features of a word.
constexpr int kReadingFeature = 7;

// The functions of the library that are used.
struct Library {
    LateLibrary file{"libmecab.so.2", u"MeCab"};
    decltype(&mecab_new) create = file["mecab_new"];
    decltype(&mecab_destroy) destroy = file["mecab_destroy"];
    decltype(&mecab_sparse_tonode2) analyse = file["mecab_sparse_tonode2"];
    decltype(&mecab_dictionary_info) info = file["mecab_dictionary_info"];
};

const Library& LoadedLibrary() {
    static const Library library;
    return library;
}

std::string DictionaryFolder() {
    const char* named = std::getenv(kDictionaryVariable);
    return named != nullptr && *named != '\0' ? named : kDictionary;
}

using Analyser = std::unique_ptr<mecab_t, decltype(&mecab_destroy)>;

bool IsUtf8(const mecab_dictionary_info_t* dictionary) {
    if (dictionary == nullptr || dictionary->charset == nullptr) return false;
    const std::string_view charset = dictionary->charset;
    return charset == "UTF-8" || charset == "utf-8" || charset == "utf8" || charset == "UTF8";
}

// Reads no settings file: one of the user's could change the dictionary or the output.
Analyser OpenAnalyser(const Library& library, const std::string& folder) {
    std::array<std::string, 5> words = {"velm", "-r", "/dev/null", "-d", folder};
    std::array<char*, 5> pointers = {};
    std::transform(words.begin(), words.end(), pointers.begin(),
                   [](std::string& word) { return word.data(); });
    Analyser analyser(library.create(static_cast<int>(pointers.size()), pointers.data()),
                      library.destroy);
    if (!analyser || !IsUtf8(library.info(analyser.get()))) {
        throw Failure(failure::kFileNotFound, u"MeCab の辞書が見つかりません。");
    }
    return analyser;
}

// The analyser of the dictionary folder in force, kept for the next call.
mecab_t* TheAnalyser(const Library& library) {
    static Analyser analyser(nullptr, library.destroy);
    static std::string openFolder;
    const std::string folder = DictionaryFolder();
    if (!analyser || folder != openFolder) {
        analyser = OpenAnalyser(library, folder);
        openFolder = folder;
    }
    return analyser.get();
}

bool Between(char16_t unit, char16_t first, char16_t last) { return unit >= first && unit <= last; }

bool IsReadable(char16_t unit) {
    const bool katakana = Between(unit, u'ァ', u'ヺ');
    const bool kanji = Between(unit, u'\u3400', u'\u9FFF') || Between(unit, u'\uF900', u'\uFAFF');
    return katakana || kanji || unit == u'々' || unit == u'〆';
}

// One of the features; empty when there are fewer.
std::string_view FeatureAt(std::string_view features, int index) {
    for (; index > 0; --index) {
        const std::size_t comma = features.find(',');
        if (comma == std::string_view::npos) return {};
        features.remove_prefix(comma + 1);
    }
    return features.substr(0, features.find(','));
}

bool HasReading(std::u16string_view text) {
    return std::any_of(text.begin(), text.end(), IsReadable);
}

std::u16string ReadingOf(const mecab_node_t& node) {
    const std::u16string surface = Utf8ToUtf16({node.surface, node.length});
    if (!HasReading(surface)) return surface;
    const std::string_view reading = FeatureAt(node.feature, kReadingFeature);
    return ToHiragana(reading.empty() ? surface : Utf8ToUtf16(reading));
}

// Blanks between words, and behind the last, belong to no word and are copied.
void AppendPiece(const Library& library, mecab_t* analyser, std::u16string_view piece,
                 std::u16string& out) {
    const std::string bytes = Utf16ToUtf8(piece);
    const char* end = bytes.data() + bytes.size();
    const char* at = bytes.data();
    const mecab_node_t* node = library.analyse(analyser, at, bytes.size());
    for (; node != nullptr; node = node->next) {
        if (node->stat != MECAB_NOR_NODE && node->stat != MECAB_UNK_NODE) continue;
        out.append(Utf8ToUtf16({at, static_cast<std::size_t>(node->surface - at)}));
        out.append(ReadingOf(*node));
        at = node->surface + node->length;
    }
    out.append(Utf8ToUtf16({at, static_cast<std::size_t>(end - at)}));
}

bool IsFirstHalf(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

// The length of the first piece of a text that is analysed for itself: up to the end of a sentence.
std::size_t PieceLength(std::u16string_view text) {
    std::size_t length = 0;
    while (length < text.size() && length < kLongestPiece && text[length] >= u' ') {
        if (text[length++] == u'。') return length;
    }
    return length == kLongestPiece && IsFirstHalf(text[length - 1]) ? length - 1 : length;
}

}  // namespace

std::u16string KanaReading(std::u16string_view text) {
    const Library& library = LoadedLibrary();
    mecab_t* analyser = TheAnalyser(library);
    std::u16string out;
    while (!text.empty()) {
        const std::size_t length = std::max<std::size_t>(PieceLength(text), 1);
        const std::u16string_view piece = text.substr(0, length);
        // The library takes its time, and most of it over long rows of letters.
        if (HasReading(piece)) {
            AppendPiece(library, analyser, piece, out);
        } else {
            out.append(piece);
        }
        text.remove_prefix(length);
    }
    return out;
}

}  // namespace velm
