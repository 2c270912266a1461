// The parts of the file system service that its own files share: native paths, system errors, opened
// files. Only for platform/posix/.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <utility>

namespace velm::native {

// An open file, closed with the object.
class File {
  public:
    explicit File(int descriptor) : descriptor_(descriptor) {}
    File(File&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    File& operator=(File&&) = delete;
    ~File();
    int Descriptor() const { return descriptor_; }
    // Closes it now; false when the system then tells of a failed write.
    bool Close();

  private:
    int descriptor_;
};

// What was being done when the system refused; decides between the numbers 70 and 75.
enum class Deed { kRead, kWrite };

// Throws the Failure for a system error at a native path.
[[noreturn]] void Fail(int error, const std::string& path, Deed deed);
// Opens or throws.
File Open(const std::string& path, int flags, mode_t mode = 0666);
// Writes all bytes at the descriptor's position; 0 or the system's error.
int WriteAll(int descriptor, std::string_view bytes);

// The file that a path leads to through all its links; the path itself where that is open.
std::string FollowLinks(const std::string& path);
// The folder of a native path, "." when it has none, and the name behind it.
std::string Folder(const std::string& path);
std::string Name(const std::string& path);
std::string Join(const std::string& folder, const std::string& name);
// A name for a new entry in the folder of a path, with which no other writer meets.
std::string TemporaryName(const std::string& path);

// The bytes of one name as text, and the text of one name as bytes; see ScriptPath.
std::u16string NameToText(std::string_view name);
std::string NameToBytes(std::u16string_view text);

// The attributes that only an extended attribute keeps; 0 when there is none.
int ExtraAttributes(const std::string& path);
// Copies times, permissions, owner where allowed, and extended attributes to an open file.
void CopyTraits(int from, int to, const struct stat& info);
// Whether a copy may take the place of a file that is read-only.
enum class ReadOnlyTarget { kKeep, kReplace };
// Copies a file's content and traits to a path, replacing a file there in one step.
void CopyContent(const std::string& from, const std::string& to, ReadOnlyTarget readOnly);

}  // namespace velm::native
