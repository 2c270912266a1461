// The tables of commands, functions and settings words. That their rows are 197, 176 and 19 is asserted
// where they stand.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/names.h"
#include "core/velm.h"
#include "data/text.h"
#include "data/utf.h"

namespace velm {
namespace {

class TablesTest : public testing::Test {
  protected:
    void SetUp() override { TheEngine(); }

    static std::string Name(std::u16string_view name) { return Utf16ToUtf8(name); }
};

TEST_F(TablesTest, EveryKeywordStandsOnce) {
    // A keyword that stood twice would be missing from the count.
    EXPECT_EQ(Commands.InOrder().size(), 226U);
    EXPECT_EQ(Functions.InOrder().size(), 196U);
    EXPECT_EQ(SettingWords.InOrder().size(), 28U);
}

TEST_F(TablesTest, EverySettingHasASetter) {
    for (const xxCmdData* entry : SettingWords.InOrder()) {
        EXPECT_NE(entry->FuncPnt.command, nullptr) << Name(entry->Name);
        EXPECT_EQ(entry->Flags, 0) << Name(entry->Name);
        EXPECT_TRUE(entry->Joshi.empty()) << Name(entry->Name);
    }
}

TEST_F(TablesTest, TheLanguagesOwnCommandsAndFunctionsHaveHandlers) {
    for (const std::u16string_view name :
         {u"表示", u"繰り返", u"抜ける",   u"飛べ",     u"分岐",       u"入れ", u"終了",
          u"待て", u"休憩",   u"待機",     u"命令",     u"日本語処理", u"実行", u"参照",
          u"報告", u"再起動", u"ログオフ", u"強制終了", u"スタンバイ", u"起動", u"起動して待"}) {
        ASSERT_NE(Commands.Find(name), nullptr) << Name(name);
        EXPECT_NE(Commands.Find(name)->FuncPnt.command, nullptr) << Name(name);
    }
    EXPECT_NE(Functions.Find(u"それ")->FuncPnt.function, nullptr);
    EXPECT_EQ(Functions.Find(u"それ")->FuncPnt.function, Functions.Find(u"応答")->FuncPnt.function);
}

struct Spelling {
    std::u16string_view kana;
    std::u16string_view kanji;
};

constexpr Spelling kSpellings[] = {
    {u"ひょうじ", u"表示"},
    {u"くりかえ", u"繰り返"},
    {u"つく", u"作"},
    {u"きどう", u"起動"},
    {u"きどうしてまて", u"起動して待"},
    {u"まて", u"待て"},
    {u"きゅうけい", u"休憩"},
    {u"かえ", u"変え"},
    {u"つかう", u"使う"},
    {u"しゅうりょう", u"終了"},
    {u"たいき", u"待機"},
    {u"とべ", u"飛べ"},
    {u"とび", u"飛"},
    {u"ついかほぞん", u"追加保存"},
    {u"ほぞん", u"保存"},
    {u"せんたく", u"選択"},
    {u"ひらけ", u"開け"},
    {u"ひら", u"開"},
    {u"ついか", u"追加"},
    {u"とじる", u"閉じる"},
    {u"とじ", u"閉じ"},
    {u"にゅうりょく", u"入力"},
    {u"いんさつ", u"印刷"},
    {u"けせ", u"消せ"},
    {u"けいさん", u"計算"},
    {u"たせ", u"足せ"},
    {u"ひけ", u"引け"},
    {u"めいれい", u"命令"},
    {u"とじない", u"閉じない"},
    {u"せってい", u"設定"},
    {u"じしょほぞん", u"辞書保存"},
    {u"にほんごしょり", u"日本語処理"},
    {u"せんげん", u"宣言"},
    {u"じっこう", u"実行"},
    {u"さんしょう", u"参照"},
    {u"すす", u"進"},
    {u"いれ", u"入れ"},
    {u"みぎへ", u"右へ"},
    {u"ひだりへ", u"左へ"},
    {u"まえへ", u"前へ"},
    {u"うしろへ", u"後ろへ"},
    {u"えだ", u"枝"},
    {u"えん", u"円"},
    {u"せん", u"線"},
    {u"しかっけい", u"四角形"},
    {u"かけ", u"書け"},
    {u"かき", u"書"},
    {u"おおきくスタンプ", u"大きくスタンプ"},
    {u"てん", u"点"},
    {u"ぬれ", u"塗れ"},
    {u"ぬり", u"塗"},
    {u"でて", u"出て"},
    {u"かくれろ", u"隠れ"},
    {u"あげろ", u"上げ"},
    {u"さげろ", u"下げ"},
    {u"おろせ", u"下ろ"},
    {u"しょうてん", u"焦点"},
    {u"さいぜんめん", u"最前面"},
    {u"さいはいめん", u"最背面"},
    {u"さいびょうが", u"再描画"},
    {u"いどうかいし", u"移動開始"},
    {u"そうにゅう", u"挿入"},
    {u"てまえ", u"手前"},
    {u"さいきどう", u"再起動"},
    {u"きょうせいしゅうりょう", u"強制終了"},
    {u"かんれんづけ", u"関連づけ"},
    {u"いどう", u"移動"},
    {u"さくじょ", u"削除"},
    {u"へんこう", u"変更"},
    {u"あっしゅく", u"圧縮"},
    {u"かいとう", u"解凍"},
    {u"さいせい", u"再生"},
    {u"リピートさいせい", u"リピート再生"},
    {u"いちじていし", u"一時停止"},
    {u"ていし", u"停止"},
    {u"えんそう", u"演奏"},
};

TEST_F(TablesTest, AKanaRowIsBoundLikeItsKanjiRow) {
    for (const Spelling& spelling : kSpellings) {
        const xxCmdData* kana = Commands.Find(spelling.kana);
        const xxCmdData* kanji = Commands.Find(spelling.kanji);
        ASSERT_NE(kana, nullptr) << Name(spelling.kana);
        ASSERT_NE(kanji, nullptr) << Name(spelling.kanji);
        EXPECT_EQ(kana->FuncPnt.command, kanji->FuncPnt.command) << Name(spelling.kana);
        const bool withParticles = spelling.kana == u"せん" || spelling.kana == u"しかっけい";
        EXPECT_EQ(kana->Joshi, withParticles ? kanji->Joshi : JoshiList()) << Name(spelling.kana);
    }
}

TEST_F(TablesTest, TheRowsWithCountsAndParticles) {
    const struct {
        std::u16string_view name;
        std::int32_t count;
        JoshiList particles;
    } rows[] = {
        {u"画像コピー", 2, {u"で"}},
        {u"使う", 1, {u"として"}},
        {u"使", 1, {u"として"}},
        {u"円", 2, {u"で", u"から", u"して"}},
        {u"えん", 0, {}},
        {u"線", 1, {u"で", u"から"}},
        {u"せん", 1, {u"で", u"から"}},
        {u"四角形", 2, {u"で", u"から", u"して"}},
        {u"しかっけい", 2, {u"で", u"から", u"して"}},
        {u"保存", 2, {}},
        {u"追加保存", 2, {}},
        {u"並び替え", 2, {}},
        {u"圧縮", 2, {}},
        {u"解凍", 2, {}},
        {u"表示", 0, {}},
    };
    std::size_t withParticles = 0;
    for (const xxCmdData* entry : Commands.InOrder())
        withParticles += entry->Joshi.empty() ? 0U : 1U;
    EXPECT_EQ(withParticles, 8U);
    for (const auto& row : rows) {
        const xxCmdData* entry = Commands.Find(row.name);
        ASSERT_NE(entry, nullptr) << Name(row.name);
        EXPECT_EQ(entry->Flags, row.count) << Name(row.name);
        EXPECT_EQ(entry->Joshi, row.particles) << Name(row.name);
    }
}

TEST_F(TablesTest, FunctionsWithParticles) {
    const struct {
        std::u16string_view name;
        std::int32_t count;
        JoshiList particles;
    } rows[] = {
        {u"質問", 2, {u"を", u"で", u"として"}},
        {u"入力", 1, {u"を", u"で", u"として"}},
        {u"左", 2, {u"を", u"文字だけ"}},
        {u"右", 2, {u"を", u"文字だけ"}},
        {u"真ん中", 2, {u"を", u"から", u"文字だけ"}},
        {u"後ろから左", 2, {u"から", u"文字だけ"}},
        {u"置き換え", 3, {u"を", u"から", u"へ"}},
        {u"取り出せ", 4, {u"番目", u"を", u"から", u"まで"}},
        {u"情報", 2, {u"から", u"番目"}},
        {u"一行だけ", 2, {u"から", u"行目"}},
        {u"繰り返せ", 2, {u"回", u"を"}},
        {u"探せ", 2, {u"から", u"を", u"で"}},
        {u"後ろから探せ", 2, {u"を", u"で", u"から"}},
        {u"書式", 2, {u"を", u"で"}},
        {u"パターン置き換え", 3, {u"を", u"から", u"に"}},
        {u"判別", 3, {u"について", u"と", u"で"}},
        {u"配列検索", 2, {u"から", u"を", u"列目"}},
        {u"配列取り出し", 2, {u"から", u"を", u"列目", u"もの"}},
        {u"配列判別", 2, {u"を", u"で", u"列目"}},
        {u"切り捨て", 1, {u"から", u"位"}},
        {u"四捨五入", 1, {u"から", u"位"}},
        {u"サイン", 1, {u"度"}},
        {u"乱数", 1, {u"まで"}},
        {u"平均", 1, {u"から", u"列目"}},
        {u"ＵＲＬ形式", 1, {u"から", u"で"}},
        {u"ＨＴＴＰでダウンロード", 1, {u"を", u"で", u"として"}},
        {u"ファイル属性", 2, {u"の", u"について"}},
        {u"設定", 1, {u"を", u"で"}},
        {u"配列挿入", 3, {}},
        {u"日付差", 3, {}},
        {u"ＲＧＢ", 3, {}},
    };
    for (const auto& row : rows) {
        const xxCmdData* entry = Functions.Find(row.name);
        ASSERT_NE(entry, nullptr) << Name(row.name);
        EXPECT_EQ(entry->Flags, row.count) << Name(row.name);
        EXPECT_EQ(entry->Joshi, row.particles) << Name(row.name);
    }
}

std::vector<std::string> ListedPairs() {
    const auto path =
        std::filesystem::path(__FILE__).parent_path() / "../../data/contained_keywords.txt";
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with('#')) lines.push_back(line);
    }
    return lines;
}

// Pinned, not improved: the order of the table decides which of two keywords a verb is bound to.
TEST_F(TablesTest, KeywordsWithinKeywordsAreThoseOfTheList) {
    std::vector<std::string> pairs;
    const std::vector<xxCmdData*>& all = Commands.InOrder();
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = 0; j < all.size(); ++j) {
            if (i == j || !Contains(all[j]->Name, all[i]->Name)) continue;
            const std::u16string& first = all[std::min(i, j)]->Name;
            pairs.push_back(Name(all[i]->Name) + " " + Name(all[j]->Name) + " " + Name(first));
        }
    }
    EXPECT_EQ(pairs, ListedPairs());
}

}  // namespace
}  // namespace velm
