// Script sources from files, plain and packed.
#include "core/script_file.h"

#include <gtest/gtest.h>

#include "core/run_state.h"
#include "core/velm.h"
#include "data/code_page_932.h"
#include "unit/platform/fails_with.h"
#include "unit/platform/temporary_folder.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

// The packing that a file needs for UnpackBytes to give the bytes back: a group of four is filled with
// NUL, which reading deletes, and the byte in front of the last group is lost to the complement of 0.
std::string Pack(std::string bytes) {
    while (bytes.size() % 4 != 1) bytes += '\0';
    const std::size_t length = bytes.size() - 1;
    std::string packed(length + 1, '\0');
    for (std::size_t i = 0; i <= length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[length - i]);
        packed[i] = static_cast<char>(i % 2 == 0 ? 255 - byte : byte);
    }
    return packed;
}

TEST(ReadScriptFile, CodePageOrUtf8) {
    const TemporaryFolder folder;
    folder.Write("a.vlm", "\x8A\xBF\r\n1");
    folder.Write("u.vlm", "漢\n1");
    EXPECT_EQ(ReadScriptFile(u"A.vlm"), u"漢\r\n1");
    EXPECT_EQ(ReadScriptFile(u"u.vlm"), u"漢\r\n1");
    EXPECT_EQ(FailureOf([] { ReadScriptFile(u"none.vlm"); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { ReadScriptFile(u"."); }), failure::kFileNotFound);
}

// Four bytes 1 2 3 4: the fifth counts as 0 and, complemented, comes first; then 4 as it is, 3
// complemented, 2, and 1 complemented.
TEST(UnpackBytes, ReversedWithEvenPlacesComplemented) {
    EXPECT_EQ(UnpackBytes(std::string_view("\x01\x02\x03\x04", 4)), "\xFF\x04\xFC\x02\xFE");
    EXPECT_EQ(UnpackBytes("\x01\x02\x03\x04\x05"), "\xFA\x04\xFC\x02\xFE");
    // Bytes behind the last whole group but one are cut off.
    EXPECT_EQ(UnpackBytes("\x01\x02\x03\x04\x05\x06\x07"), "\xFA\x04\xFC\x02\xFE");
    EXPECT_EQ(UnpackBytes("\x01"), "\xFE");
    EXPECT_EQ(UnpackBytes(""), "\xFF");
}

TEST(ExpandPackedText, EachControlCharacterIsItsWord) {
    const std::pair<char16_t, const char16_t*> words[] = {
        {0x15, u"手順は"}, {0x14, u"終わり"}, {0x17, u"\u3000"}, {0x12, u"に"},       {0x13, u"の"},
        {0x19, u"を"},     {0x1A, u"し"},     {0x1B, u"変え"},   {0x05, u"メニュー"}, {0x18, u"「"},
        {0x1D, u"」"},     {0x0E, u"（"},     {0x0F, u"）"},
    };
    for (const auto& [unit, word] : words) {
        EXPECT_EQ(ExpandPackedText(std::u16string{u'b', unit, u'a'}),
                  std::u16string(u"a") + word + u"b");
    }
    EXPECT_EQ(ExpandPackedText(std::u16string{u'b', 0x06, 0x1C, u'a'}),
              (std::u16string{u'a', 0x1C, 0x06, u'b'}));
}

TEST(ExpandPackedText, LinesStandReversed) {
    EXPECT_EQ(ExpandPackedText(std::u16string(u"ba\0\x11\x11"
                                              u"dc",
                                              7)),
              u"ab\r\n\r\ncd");
    EXPECT_EQ(ExpandPackedText(u""), u"");
}

TEST(ReadPackedFile, GivesTheSourceAndConsumesTheFile) {
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    // 「漢」を表示, reversed, with the control characters of 「, 」 and を.
    std::string bytes = EncodeCodePage932(u"示表\x19\x1D漢\x18");
    bytes += '\x11';
    bytes += "1";
    folder.Write("p.vlx", Pack(bytes));
    EXPECT_EQ(ReadPackedFile(u"p.vlx"), u"「漢」を表示\r\n1");
    EXPECT_FALSE(folder.Has("p.vlx"));
    EXPECT_TRUE(dialogs.reported.empty());
}

TEST(ReadPackedFile, MissingFileIsReported) {
    const TemporaryFolder folder;
    TheEngine();
    ResetRunState();
    RecordedDialogs dialogs;
    EXPECT_EQ(ReadPackedFile(u"none.vlx"), u"");
    ASSERT_EQ(dialogs.reported.size(), 1U);
    EXPECT_TRUE(dialogs.reported[0].text.starts_with(u"none.vlxが見つかりません。"));
    EXPECT_EQ(run.ErrorNumber, 201);
    run.Status = RunStatus::kIdle;
}

}  // namespace
}  // namespace velm
