// Whole scripts made of the language's pieces: a run ends, and a second run of the same script in the
// same process says the same. A byte below 0x80 is itself; any other one is a piece.
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "core/run_state.h"
#include "core/velm.h"
#include "data/text.h"
#include "fuzz_input.h"
#include "quiet_engine.h"

namespace {

using velm::fuzz::Require;

constexpr std::size_t kLongest = 600;

constexpr std::u16string_view kPieces[] = {
    u"\r\n",
    u"\r\n",
    u"を表示",
    u"「",
    u"」",
    u"（",
    u"）",
    u"［",
    u"］",
    u"＝",
    u"は、",
    u"＆",
    u"＋",
    u"－",
    u"×",
    u"÷",
    u"、",
    u"。",
    u"\u3000",
    u"を",
    u"に",
    u"へ",
    u"で",
    u"から",
    u"まで",
    u"もし、",
    u"なら\r\n",
    u"　なら",
    u"　でないなら",
    u"他なら\r\n",
    u"他でもし、",
    u"\r\nもし終わり\r\n",
    u"でないなら\r\n",
    u"　以上なら",
    u"　より下なら",
    u"のどれかなら",
    u"は、",
    u"が ",
    u"\"空\"",
    u"\"数字\"",
    u" または ",
    u"回、繰り返し\r\n",
    u"\r\n繰り返し終わり\r\n",
    u"永遠に繰り返し\r\n",
    u"まで繰り返し\r\n",
    u"回、「",
    u"」を繰り返せ\r\n",
    u"について分岐\r\n",
    u"の場合\r\n",
    u"の場合　",
    u"他の場合\r\n",
    u"\r\n分岐終わり\r\n",
    u"\r\n手順は　",
    u"甲",
    u"乙",
    u"！",
    u"（［ア］を、［イ］に）",
    u"（ア，イ）",
    u"\r\n終わり\r\n",
    u"繰り返しを抜ける\r\n",
    u"もしを抜ける\r\n",
    u"を抜ける\r\n",
    u"で抜ける\r\n",
    u"へ飛べ\r\n",
    u"：\r\n",
    u"印",
    u"それ",
    u"ア",
    u"イ",
    u"表",
    u"表（2，3）",
    u"表（キー）",
    u"ア＝ア＋1\r\n",
    u"ア＝ア＆イ\r\n",
    u"1,2,3",
    u"「1,2,3」",
    u"を日本語処理",
    u"を計算",
    u"を足せ",
    u"を引け",
    u"を入れ",
    u"と",
    u"を交換",
    u"を検索",
    u"を並び替え",
    u"を置き換え",
    u"辞書保存",
    u"文字数（",
    u"左（",
    u"真ん中（",
    u"置き換え（",
    u"配列検索（",
    u"判別（",
    u"書式（",
    u"配列処理（",
    u"繋げろ（",
    u"区切れ（",
    u"合計（",
    u"平均（",
    u"辞書（",
    u"切り捨て（",
    u"べき乗（",
    u"エラーは、無視\r\n",
    u"エラーは、表示\r\n",
    u"エラーは、甲\r\n",
    u"タイトルは、",
    u"ここだけの変数は、",
    u"処理状況は、",
    u"エラー番号",
    u"エラーメッセージ",
    u"番目",
    u"文字だけ",
    u"_\r\n",
    u"、\r\n",
    u"’",
    u"はい",
    u"質問（",
    u"入力（",
    u"の",
    u"1",
    u"10",
    u"－1",
    u"0.5",
    u"1E+15",
    u"終了\r\n",
};
static_assert(std::size(kPieces) <= 128);

std::u16string Script(std::string_view bytes) {
    std::u16string script;
    for (const char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        if (byte == '\n') {
            script.append(velm::kCrLf);
        } else if (byte < 0x80) {
            script += static_cast<char16_t>(byte);
        } else {
            script.append(kPieces[(byte - 0x80U) % std::size(kPieces)]);
        }
    }
    return script;
}

std::u16string Heard(const std::u16string& script) {
    velm::fuzz::PrepareEngine();
    velm::TheEngine().Run(script, u"", false);
    return velm::fuzz::TheQuietDialogs().heard;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongest) return 0;
    const std::u16string script = Script(velm::fuzz::Bytes(data, size));
    const std::u16string heard = Heard(script);
    Require(velm::run.Status != velm::RunStatus::kRunning);
    const bool limited = velm::fuzz::TheQuietDialogs().WasLimited();
    const std::u16string again = Heard(script);
    if (!limited && !velm::fuzz::TheQuietDialogs().WasLimited()) Require(again == heard);
    return 0;
}
