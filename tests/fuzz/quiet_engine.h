// What the fuzzers of whole sentences and scripts share: an engine that says nothing, touches nothing
// outside itself, and always comes to an end. Commands and functions that start programs, write or
// delete files, wait, or depend on the clock or on earlier reports aren't disabled one by one: only
// those named here stay.
#pragma once

#include <sanitizer/allocator_interface.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "core/hooks.h"
#include "core/names.h"
#include "core/protection.h"
#include "core/run_state.h"
#include "core/stack_guard.h"
#include "core/velm.h"
#include "data/text.h"
#include "platform/dialogs.h"

namespace velm::fuzz {

inline constexpr std::u16string_view kSafeCommands =
    u"抜ける,ぬける,表示,繰り返,終了,飛べ,飛,辞書保存,計算,足せ,引け,命令,日本語処理,並び替え,報告,"
    u"パターン検索,パターンマッチ,パターンサブマッチ,検索,置き換え,置換,交換,入れ,分岐,ひょうじ,"
    u"くりかえ,しゅうりょう,とべ,とび,けいさん,たせ,ひけ,めいれい,じしょほぞん,にほんごしょり,いれ";

inline constexpr std::u16string_view kSafeFunctions =
    u"左,右,真ん中,後ろから左,置き換え,置換,取り出せ,情報,一行だけ,スペース削除,左のスペース削除,"
    u"右のスペース削除,アスキー,キャラクタ,大文字,小文字,いくつ,行数,何行,文字数,バイト文字数,探せ,"
    u"後ろから探せ,書式,パターン置き換え,パターン置換,改行,エンター,タブ,全角,半角,ひらがな,"
    u"カタカナ,"
    u"判別,配列数,配列検索,配列取り出し,配列削除,列取り出し,配列判別,配列挿入,配列処理,区切れ,"
    u"繋げろ,偏差値,平均,合計,辞書,辞書一覧,日付計算,日付差,日付形式,"
    u"時間形式,１０進数,１０進,１６進数,１６進,切り捨て,小数切り捨て,切り上げ,四捨五入,絶対値,"
    u"平方根,平方,べき乗,ログ,ＬＯＧ,サイン,ＳＩＮ,ラジアン,円周率,論理和,ＯＲ,論理積,排他的論理和,"
    u"ＸＯＲ,論理等価,論理包含,パーセント,通貨形式,ＲＧＢ,ＨＬＳ,名前だけ,拡張子だけ,符号化,"
    u"簡易符号化,"
    u"ＵＲＬ形式,タイトル,実行形式,コマンドライン,応答,それ,"
    u"質問,入力";

inline constexpr std::u16string_view kSafeSettings = u"タイトル,エラー,処理状況,ここだけの変数";

inline void KeepOnly(NameTable& table, std::u16string_view names) {
    std::set<const Symbol*> kept;
    for (const std::u16string_view name : Split(names, u",")) kept.insert(Intern(name));
    const std::vector<xxCmdData*> all = table.InOrder();
    for (const xxCmdData* entry : all) {
        Symbol* symbol = Intern(entry->Name);
        if (kept.count(symbol) == 0) table.Remove(symbol);
    }
}

// Hears everything; what it answers depends on the question alone.
class QuietDialogs : public Dialogs {
  public:
    // Everything that was heard in this run.
    std::u16string heard;

    void StartRun() {
        heard.clear();
        steps_ = 0;
        reports_ = 0;
        limited_ = false;
        baseline_ = __sanitizer_get_current_allocated_bytes();
    }
    // A run that was cut short by memory or time may end elsewhere the next time.
    bool WasLimited() const { return limited_; }

    void ShowText(const std::u16string& text, int, const std::u16string& title) override {
        Hear(u"T", text, title);
    }
    int Ask(const std::u16string& text, int style, const std::u16string& title) override {
        Hear(u"Q", text, title);
        return style % 2 == 0 ? box::kAnswerOk : box::kAnswerNo;
    }
    int Report(const std::u16string& text, int, const std::u16string& title) override {
        Hear(u"R", text, title);
        if (++reports_ >= kMostReports) run.StopFlag = true;
        return box::kAnswerOk;
    }
    std::optional<std::u16string> AskText(const std::u16string& prompt, const std::u16string&,
                                          const std::u16string& title) override {
        Hear(u"A", prompt, title);
        if (prompt.size() % 2 == 0) return std::nullopt;
        return u"１2";
    }

    // Counts one statement or one pump.
    void Step() {
        if (++steps_ > kMostSteps) run.StopFlag = true;
        if (__sanitizer_get_current_allocated_bytes() > baseline_ + kMostBytes) Limit();
    }
    // Ends the run for a cause that isn't the same in each run.
    void Limit() {
        limited_ = true;
        run.StopFlag = true;
    }

  private:
    static constexpr int kMostReports = 20;
    static constexpr int kMostSteps = 500;
    static constexpr std::size_t kMostBytes = std::size_t{4} << 20;

    int steps_ = 0;
    int reports_ = 0;
    std::size_t baseline_ = 0;
    std::atomic<bool> limited_ = false;

    void Hear(std::u16string_view kind, const std::u16string& text, const std::u16string& title) {
        if (heard.size() > kMostBytes) return;
        heard.append(kind).append(text).append(title);
        Step();
    }
};

inline QuietDialogs& TheQuietDialogs() {
    static QuietDialogs dialogs;
    return dialogs;
}

// Loops without a statement in them pass no hook: they are ended from outside after two seconds.
class Watchdog {
  public:
    Watchdog() : thread_([this] { Watch(); }) { thread_.detach(); }
    void StartRun() { ++started_; }

  private:
    std::atomic<unsigned> started_ = 0;
    std::thread thread_;

    void Watch() {
        unsigned seen = 0;
        while (true) {
            std::this_thread::sleep_for(std::chrono::seconds(2));
            const unsigned now = started_;
            if (now == seen) TheQuietDialogs().Limit();
            seen = now;
        }
    }
};

inline Watchdog& TheWatchdog() {
    static Watchdog* const watchdog = new Watchdog;
    return *watchdog;
}

// Makes the engine ready, once. Called first of all by each fuzzer.
inline void PrepareEngine() {
    static const bool prepared = [] {
        InitStackGuard();
        SetDialogs(&TheQuietDialogs());
        TheEngine();
        KeepOnly(Commands, kSafeCommands);
        KeepOnly(Functions, kSafeFunctions);
        KeepOnly(SettingWords, kSafeSettings);
        ReadUserSetting = [](std::u16string_view, std::u16string_view) { return std::u16string(); };
        hooks.PumpEvents = [] { TheQuietDialogs().Step(); };
        hooks.RestartRepeatedMedia = [] { TheQuietDialogs().Step(); };
        TheWatchdog();
        return true;
    }();
    static_cast<void>(prepared);
    TheWatchdog().StartRun();
    TheQuietDialogs().StartRun();
}

// A run with no script, for words and conditions by themselves.
inline void PrepareBareRun() {
    PrepareEngine();
    ResetRunState();
    Programs.assign(1, std::make_shared<Program>());
}

}  // namespace velm::fuzz
