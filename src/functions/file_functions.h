// The functions that read the file system and take paths apart. What reads the contents of files is in
// encoding_functions.h, the system's own folders are in system_functions.h. Bound by the function table.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velm {

class Arguments;
class Value;

// Single files and folders.
void FnFindFile(Value& result, Arguments& arguments);
void FnFindFolder(Value& result, Arguments& arguments);
void FnFindDrive(Value& result, Arguments& arguments);
void FnFileSize(Value& result, Arguments& arguments);
void FnSizeText(Value& result, Arguments& arguments);
void FnFileDate(Value& result, Arguments& arguments);
void FnFileAttribute(Value& result, Arguments& arguments);

// Paths as texts.
void FnFolderPart(Value& result, Arguments& arguments);
void FnNamePart(Value& result, Arguments& arguments);
void FnExtensionPart(Value& result, Arguments& arguments);
void FnRelativePath(Value& result, Arguments& arguments);

// Lists.
void FnFiles(Value& result, Arguments& arguments);
void FnFolders(Value& result, Arguments& arguments);
void FnAllFiles(Value& result, Arguments& arguments);
void FnAllFolders(Value& result, Arguments& arguments);
void FnDrives(Value& result, Arguments& arguments);
void FnCurrentFolder(Value& result, Arguments& arguments);

// The general text of the date at which a file was written last, in local time. Throws Failure.
std::u16string FileDateText(std::u16string_view path);

// The short text of a size in bytes: three digits, the rest cut off, with the unit in which the number
// stays below 1000; "1.30 KB". Below 1024 the bytes themselves. The size is not negative.
std::u16string SizeText(std::int64_t bytes);

}  // namespace velm
