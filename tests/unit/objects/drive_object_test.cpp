// Drives as objects.
#include "objects/drive_object.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/failure.h"
#include "unit/platform/fails_with.h"

namespace velm {
namespace {

TEST(DriveObject, TellsOfTheRoot) {
    const std::unique_ptr<MemberSurface> drive = MakeDrive(u"C");
    const std::filesystem::space_info space = std::filesystem::space("/");
    EXPECT_EQ(MemberToNumber(drive->Get(u"TotalSize", {})), static_cast<double>(space.capacity));
    // Other programs write meanwhile.
    constexpr double kTolerance = 1 << 28;
    EXPECT_NEAR(MemberToNumber(drive->Get(u"freespace", {})), static_cast<double>(space.available),
                kTolerance);
    EXPECT_EQ(MemberToText(drive->Get(u"DriveLetter", {})), u"C");
    EXPECT_TRUE(MemberToBool(drive->Get(u"IsReady", {})));
    EXPECT_FALSE(MemberToText(drive->Get(u"FileSystem", {})).empty());
    const double kind = MemberToNumber(drive->Get(u"DriveType", {}));
    EXPECT_GE(kind, 1);
    EXPECT_LE(kind, 5);
    EXPECT_NO_THROW(drive->Get(u"VolumeName", {}));
}

TEST(DriveObject, TakesTheLetterInAnyForm) {
    for (const std::u16string_view letter : {u"C", u"c", u"Ｃ", u"ｃ：", u"C:\\", u" C: "}) {
        EXPECT_EQ(MemberToText(MakeDrive(letter)->Get(u"DriveLetter", {})), u"C");
    }
}

TEST(DriveObject, OtherDrivesAreNotThere) {
    for (const std::u16string_view letter : {u"", u"D", u"1", u"CD", u"C:\\a", u"あ"}) {
        EXPECT_EQ(FailureOf([&] { MakeDrive(letter); }), failure::kDeviceUnavailable);
    }
}

TEST(DriveObject, NothingElseIsKnownNorCanBeSet) {
    const std::unique_ptr<MemberSurface> drive = MakeDrive(u"C");
    EXPECT_EQ(FailureOf([&] { drive->Get(u"Path", {}); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { drive->Set(u"VolumeName", 1.0, {}); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { drive->Call(u"Format", {}); }), failure::kNoSuchMember);
}

}  // namespace
}  // namespace velm
