// The commands that move text between scripts and files: 保存 追加保存 開け バックアップ 復元. The function
// 開け is in functions/, the encodings of files in core/encoded_file.h. Bound by the command table.
#pragma once

namespace velm {

struct Context;
struct Statement;

void CmdSave(Statement& statement, Context& context);
void CmdAppend(Statement& statement, Context& context);
void CmdOpen(Statement& statement, Context& context);
void CmdBackUp(Statement& statement, Context& context);
void CmdRestore(Statement& statement, Context& context);

}  // namespace velm
