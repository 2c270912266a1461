// Failure numbers, their Japanese descriptions and the pending failure.
#include "data/failure.h"

#include <new>
#include <stdexcept>

namespace velm {

PendingFailure pendingFailure;

namespace {

struct Description {
    int number;
    const char16_t* text;
};

constexpr Description kDescriptions[] = {
    {failure::kBadCall, u"呼び出し方か、渡した値が正しくありません。"},
    {failure::kOverflow, u"数が大きすぎて扱えません。"},
    {failure::kOutOfMemory, u"メモリが足りません。"},
    {failure::kSubscript, u"番号が範囲の外です。"},
    {failure::kDivisionByZero, u"0で割ろうとしました。"},
    {failure::kTypeMismatch, u"値の種類が合いません。"},
    {failure::kOutOfStack, u"呼び出しが深すぎて、スタックが足りません。"},
    {failure::kBadFileName, u"ファイル名が正しくありません。"},
    {failure::kFileNotFound, u"ファイルがありません。"},
    {failure::kFileOpen, u"ファイルはもう開かれています。"},
    {failure::kIoError, u"読み書きの途中で装置のエラーが起きました。"},
    {failure::kFileExists, u"同じ名前のファイルがあります。"},
    {failure::kDiskFull, u"ディスクに空きがありません。"},
    {failure::kPastEnd, u"ファイルの終わりを越えて読もうとしました。"},
    {failure::kTooManyFiles, u"開いているファイルが多すぎます。"},
    {failure::kDeviceUnavailable, u"装置の準備ができていません。"},
    {failure::kPermissionDenied, u"書き込みが許されていません。"},
    {failure::kPathFileAccess, u"パスへのアクセスに失敗しました。"},
    {failure::kPathNotFound, u"パスがありません。"},
    {failure::kNothingThere, u"対象になるものがありません。"},
    {failure::kNoSuchElement, u"その番号の部品はありません。"},
    {failure::kNoSuchMember, u"その名前の設定や働きはありません。"},
};

}  // namespace

std::u16string FailureDescription(int number) {
    for (const Description& row : kDescriptions) {
        if (row.number == number) return row.text;
    }
    return u"システムのエラーです。";
}

std::u16string Failure::Description() const {
    return description_.empty() ? FailureDescription(number_) : description_;
}

void StoreCurrentFailure() {
    try {
        throw;
    } catch (const Failure& failed) {
        pendingFailure.Store(failed);
    } catch (const std::bad_alloc&) {
        pendingFailure.Store(Failure(failure::kOutOfMemory));
    } catch (const std::length_error&) {
        pendingFailure.Store(Failure(failure::kOutOfMemory));
    }
}

}  // namespace velm
