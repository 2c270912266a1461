// File associations of the desktop, as files of the user's folders.
#include "platform/associations.h"

#include <gtest/gtest.h>

#include <string>

#include "temporary_folder.h"

namespace velm {
namespace {

constexpr const char* kEntry = "data/applications/velmscript-abc.desktop";
constexpr const char* kPackage = "data/mime/packages/velmscript-abc.xml";
constexpr const char* kDefaults = "config/mimeapps.list";

class Associations : public testing::Test {
  protected:
    Associations() {
        folder_.Set("XDG_CONFIG_HOME", folder_.Path() + "/config");
        folder_.Set("XDG_DATA_DIRS", folder_.Path() + "/system");
        folder_.Set("PATH", folder_.Path() + "/bin");
        folder_.Write("bin/show me", "#!/bin/sh\n");
        std::filesystem::permissions("bin/show me", std::filesystem::perms::owner_all);
        folder_.Write("bin/plain", "no program\n");
    }
    std::string EntryLine(const std::string& name) {
        const std::string text = folder_.Read(kEntry);
        const std::size_t at = text.find("\n" + name + "=");
        if (at == std::string::npos) return "(none)";
        const std::size_t from = at + name.size() + 2;
        return text.substr(from, text.find('\n', from) - from);
    }

    TemporaryFolder folder_;
};

TEST_F(Associations, AProgramBecomesTheDefaultOfAnOwnType) {
    AssociateOnDesktop({u"ABC", u"\"bin\\show me\" /p \"%1\"", u"表 & <計>", u""});
    EXPECT_EQ(EntryLine("Exec"), "\"" + folder_.Path() + "/bin/show me\" \"/p\" %f");
    EXPECT_EQ(EntryLine("MimeType"), "application/x-velmscript-abc;");
    EXPECT_EQ(EntryLine("Icon"), "(none)");
    EXPECT_NE(folder_.Read(kPackage).find("<comment>表 &amp; &lt;計&gt;</comment>"),
              std::string::npos);
    EXPECT_NE(folder_.Read(kPackage).find("<glob pattern=\"*.abc\"/>"), std::string::npos);
    EXPECT_EQ(folder_.Read(kDefaults),
              "[Default Applications]\napplication/x-velmscript-abc=velmscript-abc.desktop\n");
}

TEST_F(Associations, ATypeThatTheSystemKnowsIsTaken) {
    folder_.Write("system/mime/globs2", "# types\n50:text/x-wrong:*.xabc\n50:text/x-abc:*.abc\n");
    folder_.Write("shown.png", "");
    AssociateOnDesktop({u"abc", u"\"show me\"", u"", u"shown.png"});
    EXPECT_EQ(EntryLine("MimeType"), "text/x-abc;");
    EXPECT_EQ(EntryLine("Exec"), "\"" + folder_.Path() + "/bin/show me\" %f");
    EXPECT_FALSE(folder_.Has(kPackage));
}

TEST_F(Associations, OtherDefaultsStay) {
    folder_.Write(kDefaults, "# mine\n[Default Applications]\ntext/plain=editor.desktop\n\n[x]\n");
    AssociateOnDesktop({u"abc", u"\"show me\"", u"", u""});
    EXPECT_EQ(folder_.Read(kDefaults),
              "# mine\n[Default Applications]\ntext/plain=editor.desktop\n"
              "application/x-velmscript-abc=velmscript-abc.desktop\n\n[x]\n");
    EndDesktopAssociation(u"ABC");
    EXPECT_EQ(folder_.Read(kDefaults),
              "# mine\n[Default Applications]\ntext/plain=editor.desktop\n\n[x]\n");
    EXPECT_FALSE(folder_.Has(kEntry));
    EXPECT_FALSE(folder_.Has(kPackage));
}

TEST_F(Associations, ADefaultThatSomebodyElseTookStays) {
    AssociateOnDesktop({u"abc", u"\"show me\"", u"", u""});
    const std::string other =
        "[Default Applications]\napplication/x-velmscript-abc=editor.desktop\n";
    folder_.Write(kDefaults, other);
    EndDesktopAssociation(u"abc");
    EXPECT_EQ(folder_.Read(kDefaults), other);
}

TEST_F(Associations, WhatIsNotTrueIsNotWritten) {
    AssociateOnDesktop({u"abc", u"C:\\Program Files\\none.exe %1", u"", u""});
    AssociateOnDesktop({u"abc", u"bin\\plain", u"", u""});
    AssociateOnDesktop({u"abc", u"", u"", u""});
    AssociateOnDesktop({u"", u"\"show me\"", u"", u""});
    AssociateOnDesktop({u"../abc", u"\"show me\"", u"", u""});
    AssociateOnDesktop({u"表", u"\"show me\"", u"", u""});
    EXPECT_FALSE(folder_.Has("data"));
    EXPECT_FALSE(folder_.Has("config"));
}

TEST_F(Associations, EndingWhatWasNeverMadeDoesNothing) {
    EndDesktopAssociation(u"abc");
    EndDesktopAssociation(u"");
    EXPECT_FALSE(folder_.Has("data"));
}

TEST_F(Associations, WordsOfTheCommandAreQuotedForTheDesktop) {
    AssociateOnDesktop({u"abc", u"\"show me\" a\"b $x 50% c\\d", u"", u""});
    EXPECT_EQ(EntryLine("Exec"), "\"" + folder_.Path() +
                                     "/bin/show me\" \"a\\\\\"b\" \"\\\\$x\" \"50%%\" "
                                     "\"c\\\\\\\\d\" %f");
}

}  // namespace
}  // namespace velm
