// Calls into dynamic libraries: 宣言, 呼び出せ, and the structure dictionaries that they pass.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

// ライブラリのfunction を name（parameters） として 宣言 makes a procedure; command を name として 宣言
// gives a command a second keyword.
void CmdDeclare(Statement& statement, Context& context);

// ライブラリのfunction で parameters を 呼び出せ.
void CmdCallLibrary(Statement& statement, Context& context);

// 辞書 を definitions で 辞書初期化.
void CmdDefineStructure(Statement& statement, Context& context);

// value を 辞書の key へ 辞書保存.
void CmdStoreEntry(Statement& statement, Context& context);

}  // namespace velm
