// See protection.h.
#include "core/protection.h"

#include "core/diagnostics.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/stored_settings.h"
#include "data/text.h"
#include "platform/dialogs.h"

namespace velm {

std::array<bool, 5> ProtectionLevels = {};
std::u16string (*ReadUserSetting)(std::u16string_view section,
                                  std::u16string_view key) = UserSetting;

namespace {

constexpr int kRefused = 99;
constexpr int kCheckOffset = 5;
constexpr int kQuestionStyle = box::kYesNo | kIconWarning;

int DigitOf(char16_t unit) { return unit - u'0'; }

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// The digits name levels; the first and the last one only guard them.
bool SetLevels(std::u16string_view digits) {
    int sum = DigitOf(digits.back()) - kCheckOffset;
    bool allDigits = IsDigit(digits.front()) && IsDigit(digits.back());
    for (std::size_t i = 1; i + 1 < digits.size(); ++i) {
        if (!IsDigit(digits[i])) {
            allDigits = false;
            continue;
        }
        const auto level = static_cast<std::size_t>(DigitOf(digits[i]));
        if (level < ProtectionLevels.size()) ProtectionLevels[level] = true;
        sum += DigitOf(digits[i]);
    }
    return allDigits && sum % 2 == DigitOf(digits.front());
}

// The running sentence without the fences of its particles.
std::u16string SentenceText() {
    if (!run.CurrentStatement) return {};
    return ReplaceAll(run.CurrentStatement->Marked, std::u16string_view(&kMarker, 1), u"");
}

bool UserAgrees(const std::u16string& sentence) {
    std::u16string text = u"システムに影響を及ぼす可能性がある命令を実行しようとしています。";
    text.append(kCrLf).append(sentence).append(kCrLf).append(u"この命令を実行しますか？");
    return TheDialogs().Confirm(text, kQuestionStyle, run.ProgramTitle);
}

}  // namespace

void LoadProtection() {
    ProtectionLevels.fill(false);
    if (ReadUserSetting == nullptr) return;
    const std::u16string digits = ReadUserSetting(kSecuritySection, u"Key");
    if (digits.empty() || SetLevels(digits)) return;
    RaiseMessage(u"保護機能の設定が壊れています。", 0, kIconInformation, u"", u"", -1);
}

bool IsProtected(Protected what) {
    const auto level = static_cast<std::size_t>(what);
    if (what == Protected::kExternalCalls && ProtectionLevels[level - 1]) return true;
    return ProtectionLevels[level];
}

bool CheckProtection(Protected what) {
    const std::u16string sentence = SentenceText();
    bool refused = IsProtected(what);
    if (ProtectionLevels[kAskLevel] && !UserAgrees(sentence)) refused = true;
    if (refused) RaiseError(kRefused, kIconStop, sentence, u"", -1);
    return !refused;
}

}  // namespace velm
