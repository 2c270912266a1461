// The functions that read files into text and turn text into other forms: encodings, Base64, the form of
// URLs, bytes as numbers. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnOpen(Value& result, Arguments& arguments);
void FnOpenEuc(Value& result, Arguments& arguments);
void FnOpenJis(Value& result, Arguments& arguments);
void FnConvertEncoding(Value& result, Arguments& arguments);
void FnEncodeBase64(Value& result, Arguments& arguments);
void FnScramble(Value& result, Arguments& arguments);
void FnUrlForm(Value& result, Arguments& arguments);
void FnRestore(Value& result, Arguments& arguments);
void FnByteList(Value& result, Arguments& arguments);

}  // namespace velm
