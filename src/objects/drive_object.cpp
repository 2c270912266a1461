// See drive_object.h.
#include "objects/drive_object.h"

#include <string>

#include "data/failure.h"
#include "data/text.h"
#include "data/width.h"
#include "platform/drives.h"

namespace velm {

namespace {

class Drive : public MemberSurface {
  public:
    explicit Drive(char16_t letter) : letter_(letter) {}

    MemberValue Get(std::u16string_view member, const MemberArguments& /*arguments*/) override {
        const std::u16string name = ToLower(member);
        if (name == u"driveletter") return std::u16string(1, letter_);
        const DriveInfo drive = ReadDrive(letter_);
        if (name == u"isready") return true;
        if (name == u"totalsize") return static_cast<double>(drive.totalBytes);
        if (name == u"freespace") return static_cast<double>(drive.freeBytes);
        if (name == u"volumename") return drive.label;
        if (name == u"filesystem") return drive.fileSystem;
        if (name == u"drivetype") return static_cast<double>(drive.kind);
        throw Failure(failure::kNoSuchMember);
    }
    void Set(std::u16string_view /*member*/, const MemberValue& /*value*/,
             const MemberArguments& /*arguments*/) override {
        throw Failure(failure::kNoSuchMember);
    }
    MemberValue Call(std::u16string_view /*member*/,
                     const MemberArguments& /*arguments*/) override {
        throw Failure(failure::kNoSuchMember);
    }

  private:
    char16_t letter_;
};

// The letter in capital and half width; 0 for what is no drive's name.
char16_t LetterOf(std::u16string_view text) {
    const std::u16string name = ToUpper(ToHalfWidth(Trim(text)));
    const bool isLetter = !name.empty() && name[0] >= u'A' && name[0] <= u'Z';
    const bool isAlone = name.size() == 1 || (name.size() <= 3 && name[1] == u':');
    return isLetter && isAlone ? name[0] : u'\0';
}

}  // namespace

std::unique_ptr<MemberSurface> MakeDrive(std::u16string_view letter) {
    const char16_t name = LetterOf(letter);
    ReadDrive(name);
    return std::make_unique<Drive>(name);
}

}  // namespace velm
