// Data files in every encoding, and what happens to them when something is in the way.
#include "core/encoded_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "core/run_state.h"
#include "data/failure.h"
#include "platform/files.h"

namespace velm {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class EncodedFileTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "velm-encoded-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        native_ = pattern;
        file_ = ScriptPath((native_ / "a.txt").string());
        run.ErrorMode = ErrorModes::kReport;  // no box comes up
        run.ErrorNumber = 0;
    }
    void TearDown() override {
        fs::remove_all(native_);
        run.ErrorMode = ErrorModes::kShow;
        run.ErrorNumber = 0;
        run.ErrorText.clear();
    }

    fs::path native_;
    std::u16string file_;
};

TEST(EncodingWords, AreReadInAnyWidthAndCase) {
    EXPECT_EQ(ReadEncodingWord(u""), EncodingWord::kNone);
    EXPECT_EQ(ReadEncodingWord(u"euc"), EncodingWord::kEuc);
    EXPECT_EQ(ReadEncodingWord(u"Ｅuc"), EncodingWord::kEuc);
    EXPECT_EQ(ReadEncodingWord(u"ｊｉｓ"), EncodingWord::kJis);
    EXPECT_EQ(ReadEncodingWord(u"Utf8"), EncodingWord::kUtf8);
    EXPECT_EQ(ReadEncodingWord(u"ﾊﾞｲﾅﾘ"), EncodingWord::kBinary);
    EXPECT_EQ(ReadEncodingWord(u"バイナリ"), EncodingWord::kBinary);
    EXPECT_EQ(ReadEncodingWord(u"UTF-8"), EncodingWord::kOther);
    EXPECT_EQ(ReadEncodingWord(u" EUC"), EncodingWord::kOther);
    EXPECT_EQ(ReadEncodingWord(u"SJIS"), EncodingWord::kOther);
}

TEST(ByteLists, GoBothWays) {
    EXPECT_EQ(ByteList(""), u"");
    EXPECT_EQ(ByteList("\0A\xFF"s), u"0,65,255");
    std::string bytes = "<";
    AppendBytesOfList(u"", bytes);
    EXPECT_EQ(bytes, "<");
    AppendBytesOfList(u"0,65、255，１０", bytes);
    EXPECT_EQ(bytes, "<\0A\xFF\n"s);
}

TEST(ByteLists, RoundToTheNearestEvenNumber) {
    std::string bytes;
    AppendBytesOfList(u"64.5,65.5,-0.5,255.4", bytes);
    EXPECT_EQ(bytes, "@B\0\xFF"s);
}

int NumberOfListFailure(std::u16string_view list, std::string& bytes) {
    try {
        AppendBytesOfList(list, bytes);
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

TEST(ByteLists, KeepWhatStoodBeforeABadItem) {
    std::string bytes;
    EXPECT_EQ(NumberOfListFailure(u"65,66,甲,67", bytes), failure::kTypeMismatch);
    EXPECT_EQ(bytes, "AB");
    EXPECT_EQ(NumberOfListFailure(u"67,", bytes), failure::kTypeMismatch);
    EXPECT_EQ(bytes, "ABC");
    EXPECT_EQ(NumberOfListFailure(u"68,256", bytes), failure::kOverflow);
    EXPECT_EQ(NumberOfListFailure(u"-1", bytes), failure::kOverflow);
    EXPECT_EQ(bytes, "ABCD");
}

TEST(CsvNames, EndInCsvInAnyCase) {
    EXPECT_TRUE(IsCsvName(u"a.csv"));
    EXPECT_TRUE(IsCsvName(u"C:\\A.CsV"));
    EXPECT_TRUE(IsCsvName(u".csv"));
    EXPECT_FALSE(IsCsvName(u"a.csv "));
    EXPECT_FALSE(IsCsvName(u"csv"));
    EXPECT_FALSE(IsCsvName(u"a.csv.txt"));
}

TEST_F(EncodedFileTest, EachEncodingIsWrittenByteForByte) {
    WriteEncodedFile(file_, EncodedKind::kEuc, u"漢字");
    EXPECT_EQ(ReadFileBytes(file_), "\xB4\xC1\xBB\xFA");
    fs::remove(native_ / "a.txt");
    WriteEncodedFile(file_, EncodedKind::kJis, u"漢");
    EXPECT_EQ(ReadFileBytes(file_), "\x1B$B4A");
    fs::remove(native_ / "a.txt");
    WriteEncodedFile(file_, EncodedKind::kUtf8, u"漢");
    EXPECT_EQ(ReadFileBytes(file_), "\xE6\xBC\xA2");
}

TEST_F(EncodedFileTest, ALongerOldFileKeepsItsTail) {
    WriteFileBytes(file_, "0123456789");
    WriteEncodedFile(file_, EncodedKind::kUtf8, u"ab");
    EXPECT_EQ(ReadFileBytes(file_), "ab23456789");
    EXPECT_EQ(ReadEncodedFile(file_, EncodedKind::kUtf8), u"ab23456789");
}

TEST_F(EncodedFileTest, WritingIntoAMissingFolderFails) {
    const std::u16string file = ScriptPath((native_ / "none/a.txt").string());
    EXPECT_THROW(WriteEncodedFile(file, EncodedKind::kUtf8, u"a"), Failure);
    EXPECT_THROW(WriteEncodedFile(ScriptPath(native_.string()), EncodedKind::kEuc, u"a"), Failure);
}

TEST_F(EncodedFileTest, AMissingFileIsReportedByItsEncoding) {
    EXPECT_EQ(ReadEncodedFile(file_, EncodedKind::kEuc), u"");
    EXPECT_EQ(run.ErrorNumber, 204);
    EXPECT_EQ(ReadEncodedFile(file_, EncodedKind::kJis), u"");
    EXPECT_EQ(run.ErrorNumber, 201);
    EXPECT_EQ(LoadFile(file_, u""), u"");
    EXPECT_EQ(run.ErrorNumber, 201);
    EXPECT_EQ(LoadFile(ScriptPath(native_.string()), u"UTF8"), u"");
    EXPECT_EQ(run.ErrorNumber, 210);
    EXPECT_FALSE(pendingFailure.IsSet());
}

TEST_F(EncodedFileTest, NamesThatNoFileCanHave) {
    EXPECT_THROW(ReadTextFile(u""), Failure);
    EXPECT_EQ(LoadFile(std::u16string(u"a\0b", 3), u"EUC"), u"");
    EXPECT_EQ(run.ErrorNumber, 204);
    EXPECT_EQ(LoadFile(std::u16string(5000, u'a'), u""), u"");
    EXPECT_EQ(run.ErrorNumber, 201);
}

TEST_F(EncodedFileTest, PipesAndDevicesAreNotRead) {
    ASSERT_EQ(mkfifo((native_ / "pipe").c_str(), 0600), 0);
    for (const char* name : {"pipe", "/dev/zero"}) {
        const std::u16string path = ScriptPath((native_ / name).string());
        EXPECT_EQ(LoadFile(path, u""), u"");
        EXPECT_EQ(run.ErrorNumber, 201);
        EXPECT_EQ(LoadFile(path, u"バイナリ"), u"");
        EXPECT_EQ(run.ErrorNumber, 210);
        EXPECT_EQ(LoadFile(path, u"UTF8"), u"");
        EXPECT_EQ(run.ErrorNumber, 210);
        EXPECT_EQ(EncodeBase64File(path), u"");
        EXPECT_EQ(run.ErrorNumber, 201);
    }
}

TEST_F(EncodedFileTest, PlainTextIsCodePage932) {
    WriteFileBytes(file_, "\x8A\xBF\x8E\x9A\n\0x"s);
    EXPECT_EQ(ReadTextFile(file_), u"漢字\n\0x"s);
    EXPECT_EQ(LoadFile(file_, u"SJIS"), u"漢字\n\0x"s);
}

TEST_F(EncodedFileTest, Base64GoesToAFileAndBack) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(i * 7 % 256);
    WriteFileBytes(file_, bytes);
    const std::u16string text = EncodeBase64File(file_);
    const std::u16string copy = ScriptPath((native_ / "b.bin").string());
    WriteFileBytes(copy, std::string(5000, '-'));
    EXPECT_TRUE(RestoreBase64File(copy, text));
    EXPECT_EQ(ReadFileBytes(copy), bytes);
}

TEST_F(EncodedFileTest, Base64OfAMissingFileIsReported) {
    EXPECT_EQ(EncodeBase64File(file_), u"");
    EXPECT_EQ(run.ErrorNumber, 201);
    EXPECT_FALSE(RestoreBase64File(ScriptPath(native_.string()), u"QQ="));
    EXPECT_FALSE(pendingFailure.IsSet());
}

}  // namespace
}  // namespace velm
