#include "about/desktop_link.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "about/helper_library.h"
#include "about/shortcut_files.h"
#include "ferrow_helper.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

// A stand-in companion library: its functions are plain functions here.
struct FakeLibrary {
  static inline std::string desktop;
  static inline std::string last_target, last_link;
  static inline int16_t version = 110;
  static inline int16_t shortcut_result = 1;
  static inline bool writes_file = true;

  static char* Copy(const std::string& s) {
    char* p = static_cast<char*>(std::malloc(s.size() + 1));
    std::memcpy(p, s.c_str(), s.size() + 1);
    return p;
  }
  static int16_t FERROW_CALL Version() { return version; }
  static char* FERROW_CALL ProfileDir(int32_t) { return Copy(desktop); }
  static int16_t FERROW_CALL Shortcut(const char* target, const char* link, const char*,
                                      const char*, const char*, int32_t, int32_t) {
    last_target = target;
    last_link = link;
    if (writes_file && shortcut_result) testing::WriteBytes(link, "shortcut");
    return shortcut_result;
  }
};

class FakeLibraryEnv : public testing::CountingEnv {
 public:
  void* OpenLibrary(const std::string&) override { return this; }
  void* LibrarySymbol(void*, const char* name) override {
    if (!std::strcmp(name, "DLLVersion")) return reinterpret_cast<void*>(&FakeLibrary::Version);
    if (!std::strcmp(name, "GetProfileDir")) return reinterpret_cast<void*>(&FakeLibrary::ProfileDir);
    if (!std::strcmp(name, "CreateShortcut")) return reinterpret_cast<void*>(&FakeLibrary::Shortcut);
    return nullptr;
  }
  void FreeLibraryString(char* text) override { std::free(text); }
};

class DesktopLinkTest : public testing::SessionTest {
 protected:
  DesktopLinkTest() {
    FakeLibrary::desktop = dir.File("Desktop");
    FakeLibrary::version = 110;
    FakeLibrary::shortcut_result = 1;
    FakeLibrary::writes_file = true;
    FakeLibrary::last_link.clear();
    env.CreateFolders(dir.File("Desktop"));
  }
  void Link(const std::string& name) {
    Session s{fake, options, ui};
    CreateDesktopLink(s, library, name);
  }
  FakeLibraryEnv fake;
  HelperLibrary library = HelperLibrary::BindFile(fake, "ferrow");
};

TEST_F(DesktopLinkTest, ShortcutToAShortcutIsRefusedWhateverItsCase) {
  Link(dir.File("notes.Lnk"));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Can't create a shortcut to a shortcut (LNK) file"}));
}

TEST_F(DesktopLinkTest, MissingFileIsSaidSo) {
  Link(dir.File("missing.log"));
  EXPECT_EQ(ui.messages,
            (std::vector<std::string>{"|Could not create shortcut:  File does not exist"}));
}

TEST_F(DesktopLinkTest, EmptyNameGivesTheBareText) {
  Link("");
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Could not create shortcut: "}));
}

TEST_F(DesktopLinkTest, LinkIsNamedAfterTheFileOnTheDesktop) {
  testing::WriteBytes(dir.File("app.log"), "x");
  Link(dir.File("app.log"));
  EXPECT_EQ(FakeLibrary::last_target, dir.File("app.log"));
  EXPECT_EQ(FakeLibrary::last_link,
            JoinPath(dir.File("Desktop"), "app.log" + ShortcutFileExtension()));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Successfully created desktop link"}));
}

TEST_F(DesktopLinkTest, SuccessIsToldOnlyWhenTheShortcutIsThere) {
  testing::WriteBytes(dir.File("app.log"), "x");
  FakeLibrary::writes_file = false;
  Link(dir.File("app.log"));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Could not create shortcut:  Unknown error"}));
}

TEST_F(DesktopLinkTest, FailureOfTheLibraryIsAnUnknownError) {
  testing::WriteBytes(dir.File("app.log"), "x");
  FakeLibrary::shortcut_result = 0;
  Link(dir.File("app.log"));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Could not create shortcut:  Unknown error"}));
}

TEST_F(DesktopLinkTest, OldLibraryIsOutOfUseYetStillMakesTheLink) {
  testing::WriteBytes(dir.File("app.log"), "x");
  FakeLibrary::version = 102;
  CheckHelperLibrary(options, library);
  EXPECT_EQ(options.HelperLibraryVersion, 102);
  EXPECT_FALSE(options.HelperLibraryInUse);
  Link(dir.File("app.log"));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Successfully created desktop link"}));
}

TEST_F(DesktopLinkTest, WithoutTheLibraryTheCommandEndsInUnknownError) {
  testing::WriteBytes(dir.File("app.log"), "x");
  Session s{env, options, ui};
  CreateDesktopLink(s, HelperLibrary::None(env), dir.File("app.log"));
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Could not create shortcut:  Unknown error"}));
}

}  // namespace
}  // namespace ferrow
