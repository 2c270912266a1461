// Finding libraries, calling them, and the numbers that stand for addresses.
#include "platform/dynamic_library.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "data/utf.h"
#include "fails_with.h"
#include "temporary_folder.h"

namespace velm {
namespace {

std::int64_t Call(std::u16string_view library, std::u16string_view function,
                  const std::vector<std::int64_t>& words) {
    const std::optional<DynamicLibrary> open = DynamicLibrary::Open(library);
    if (!open) throw Failure(failure::kFileNotFound);
    void* address = open->Find(function);
    if (address == nullptr) throw Failure(failure::kNothingThere);
    return CallForeign(address, words);
}

std::int64_t AddressOf(const void* pointer) {
    return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(pointer));
}

TEST(DynamicLibrary, NamesAreCompleted) {
    for (const char16_t* name :
         {u"libc.so.6", u"c", u"libc", u"libc.so", u"m", u"z", u"libz.so.1"}) {
        EXPECT_TRUE(DynamicLibrary::Open(name)) << Utf16ToUtf8(name);
    }
}

TEST(DynamicLibrary, WhatIsNoLibraryIsNotFound) {
    const TemporaryFolder folder;
    folder.Write("text.so", "no library");
    for (const char16_t* name : {u"", u"no_such_library", u"text.so", u"C:\\none\\x.so",
                                 u"Q:\\x.so", u".\\text.so", u"sub\\none"}) {
        EXPECT_FALSE(DynamicLibrary::Open(name)) << Utf16ToUtf8(name);
    }
    EXPECT_FALSE(DynamicLibrary::Open(std::u16string_view(u"c\0d", 3)));
}

TEST(DynamicLibrary, ANameWithAFolderIsAScriptPath) {
    const TemporaryFolder folder;
    folder.Link("/lib/x86_64-linux-gnu/libz.so.1", "own.so");
    EXPECT_TRUE(DynamicLibrary::Open(u".\\own.so"));
    EXPECT_TRUE(DynamicLibrary::Open(u"C:\\lib\\x86_64-linux-gnu\\libz.so.1"));
}

TEST(DynamicLibrary, FunctionsAreFoundByTheirExactName) {
    const std::optional<DynamicLibrary> library = DynamicLibrary::Open(u"c");
    ASSERT_TRUE(library);
    EXPECT_NE(library->Find(u"abs"), nullptr);
    EXPECT_EQ(library->Find(u"Abs"), nullptr);
    EXPECT_EQ(library->Find(u""), nullptr);
}

TEST(DynamicLibrary, WordsArriveInOrder) {
    EXPECT_EQ(static_cast<std::int32_t>(Call(u"c", u"abs", {-7})), 7);
    EXPECT_EQ(Call(u"c", u"labs", {-5'000'000'000}), 5'000'000'000);
    const char text[] = "0123456789";
    char out[64] = {};
    // More words than registers: the last ones go over the stack.
    Call(u"c", u"snprintf",
         {AddressOf(out), 64, AddressOf("%d %d %d %d %d %s"), 1, 2, 3, 4, 5, AddressOf(text)});
    EXPECT_STREQ(out, "1 2 3 4 5 0123456789");
}

TEST(DynamicLibrary, MemoryLiesWhereANumberReaches) {
    BeginLibraryCall();
    std::byte* block = LibraryMemory(100);
    EXPECT_LT(AddressOf(block), std::int64_t{1} << 31);
    EXPECT_GT(AddressOf(block), 0);
    for (std::size_t i = 0; i < 100 + kRoomBehindBlock; ++i) EXPECT_EQ(block[i], std::byte{0});
}

TEST(DynamicLibrary, BlocksOfOneCallStayApartAndTooManyFail) {
    constexpr std::size_t size = 1'000'000;
    BeginLibraryCall();
    std::vector<std::byte*> blocks;
    const int failed = FailureOf([&] {
        for (int i = 0; i < 1000; ++i) {
            blocks.push_back(LibraryMemory(size));
            std::memset(blocks.back(), i, size);
        }
    });
    EXPECT_EQ(failed, failure::kOutOfMemory);
    ASSERT_GT(blocks.size(), 20U);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_EQ(blocks[i][0], static_cast<std::byte>(i));
        EXPECT_EQ(blocks[i][size - 1], static_cast<std::byte>(i));
    }
}

TEST(DynamicLibrary, ManyCallsTakeNoMoreMemory) {
    for (int i = 0; i < 100'000; ++i) {
        BeginLibraryCall();
        LibraryMemory(4000)[0] = std::byte{1};
    }
    BeginLibraryCall();
    EXPECT_EQ(LibraryMemory(4000)[0], std::byte{0});
}

TEST(DynamicLibrary, LargeBlocksEndSomewhere) {
    BeginLibraryCall();
    EXPECT_NE(LibraryMemory(std::size_t{8} << 20), nullptr);
    EXPECT_EQ(FailureOf([] { LibraryMemory(std::size_t{600} << 20); }), failure::kOutOfMemory);
}

TEST(DynamicLibrary, NumbersOfThirtyTwoBitsAreThemselves) {
    for (const std::int32_t number : {0, 1, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(ToScriptNumber(number), number);
        EXPECT_EQ(ToMachineWord(number), number);
    }
}

TEST(DynamicLibrary, AnAddressBeyondGoesAsAHandleAndComesBack) {
    const int onStack = 0;
    const std::int32_t handle = ToScriptNumber(AddressOf(&onStack));
    EXPECT_GE(handle, 0x7E000000);
    EXPECT_EQ(ToScriptNumber(AddressOf(&onStack)), handle);
    EXPECT_EQ(ToMachineWord(handle), AddressOf(&onStack));
    EXPECT_EQ(ToMachineWord(0x7EFFFFFF), 0x7EFFFFFF);
}

TEST(DynamicLibrary, AWordThatIsNoAddressGivesItsLowHalf) {
    EXPECT_EQ(ToScriptNumber(0x7FFF'0000'0000'0005), 5);
    EXPECT_EQ(ToScriptNumber(-5'000'000'000), -705032704);
    EXPECT_EQ(ToScriptNumber(0xFFFF'FFFF), -1);
}

}  // namespace
}  // namespace velm
