// The companion library loaded for real, by its file name, as the program does.
#include "about/helper_library.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "display/rtf_escape.h"
#include "platform/env.h"
#include "session/options.h"
#include "support/install_layout.h"
#include "support/paths.h"
#include "testing/temp_dir.h"
#ifndef _WIN32
#include <sys/stat.h>

#include "testing/processes.h"
#endif

namespace ferrow {
namespace {

Env& env() { return *Env::Default(); }

const std::string kLibrary = FERROW_HELPER_LIBRARY;

TEST(HelperLibrary, AllSevenFunctionsAnswer) {
  HelperLibrary library = HelperLibrary::BindFile(env(), kLibrary);
  ASSERT_TRUE(library.loaded());
  EXPECT_GE(library.DLLVersion().value_or(0), 103);
  for (const std::string line : {"plain", "C:\\dir\\{x}", "}{\\", ""}) {
    EXPECT_EQ(library.RTFFilter(line), RTFEscape(line)) << line;
    EXPECT_EQ(library.RTFFilterNoSlash(line), EscapeBraces(line)) << line;
  }
  std::string own_path = library.GetDLLFileName().value_or("");
  EXPECT_EQ(FileNamePart(own_path), HelperLibraryFileName());
  EXPECT_TRUE(env().FileLength(own_path).has_value());
  EXPECT_FALSE(library.GetProfileDir(0).value_or("").empty());
  EXPECT_EQ(library.GetProfileDir(7), "");

  testing::TempDir dir;
  const std::string target = dir.File("web server.log"), link = dir.File("web server.log.lnk");
  testing::WriteBytes(target, "GET /\r\n");
  EXPECT_NE(library.CreateShortcut(target, link, "", "", "", 1, -1).value_or(0), 0);
  EXPECT_EQ(library.GetLinkTarget(link), target);
  EXPECT_EQ(library.GetLinkTarget(target), "");  // not a shortcut
  EXPECT_EQ(library.GetLinkTarget(dir.File("missing.lnk")), "");
  EXPECT_EQ(library.CreateShortcut(target, dir.File("no") + NativeSeparator() + "x.lnk", "", "",
                                   "", 1, -1),
            0);
}

TEST(HelperLibrary, TextHoldingNulBytesComesBackWholeAsTheBuiltInEscapingGivesIt) {
  HelperLibrary library = HelperLibrary::BindFile(env(), kLibrary);
  ASSERT_TRUE(library.loaded());
  using namespace std::string_literals;
  for (const std::string& text : {"abc\0def\r\nghi\r\n"s, "\0{x}\0\0C:\\y\0"s, "\0"s}) {
    EXPECT_EQ(library.RTFFilterNoSlash(text), EscapeBraces(text));
    EXPECT_EQ(library.RTFFilter(text), RTFEscape(text));
  }
}

#ifndef _WIN32
TEST(HelperLibrary, ShortcutThatIsAFifoOrADeviceAnswersEmptyWithoutBlocking) {
  HelperLibrary library = HelperLibrary::BindFile(env(), kLibrary);
  ASSERT_TRUE(library.loaded());
  testing::TempDir dir;
  const std::string fifo = dir.File("x.lnk");
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  std::optional<std::string> target;
  EXPECT_TRUE(testing::FinishesWithoutAWriter(fifo, [&] { target = library.GetLinkTarget(fifo); }));
  EXPECT_EQ(target, "");
  EXPECT_EQ(library.GetLinkTarget("/dev/zero"), "");
}
#endif

TEST(HelperLibrary, FoundBesideTheProgramByItsPlainName) {
  class BesideEnv : public EnvWrapper {
   public:
    BesideEnv() : EnvWrapper(Env::Default()) {}
    std::string ProgramPath() override { return JoinPath(FolderPart(kLibrary), "Ferrow.exe"); }
  } beside;
  HelperLibrary library = HelperLibrary::Bind(beside);
  EXPECT_TRUE(library.loaded());
  Options options;
  CheckHelperLibrary(options, library);
  EXPECT_GE(options.HelperLibraryVersion, 103);
  EXPECT_TRUE(options.HelperLibraryInUse);
}

#ifndef _WIN32
TEST(HelperLibrary, InstalledProgramFindsItInTheInstalledLibraryFolder) {
  testing::TempDir dir;
  class InstalledEnv : public EnvWrapper {
   public:
    explicit InstalledEnv(std::string root) : EnvWrapper(Env::Default()), root_(std::move(root)) {}
    std::string ProgramPath() override { return root_ + "/usr/bin/ferrow"; }
    std::string root_;
  } installed(dir.path());
  installed.CreateFolders(dir.File("usr/bin"));
  EXPECT_FALSE(HelperLibrary::Bind(installed).loaded());

  const std::string folder = InstalledLibraryFolder(installed);
  ASSERT_TRUE(installed.CreateFolders(folder));
  ASSERT_TRUE(installed.CopyWholeFile(kLibrary, JoinPath(folder, HelperLibraryFileName())));
  HelperLibrary library = HelperLibrary::Bind(installed);
  ASSERT_TRUE(library.loaded());
  const std::string below_lib = folder.substr((dir.path() + "/usr/bin/../lib").size());
  EXPECT_EQ(library.GetDLLFileName(), dir.path() + "/usr/lib" + below_lib + "/" + HelperLibraryFileName());
}
#endif

TEST(HelperLibrary, MissingLibraryAnswersNothing) {
  HelperLibrary library = HelperLibrary::None(env());
  EXPECT_FALSE(library.DLLVersion());
  EXPECT_FALSE(library.RTFFilter("x"));
  EXPECT_FALSE(library.GetLinkTarget("x.lnk"));
  EXPECT_FALSE(library.CreateShortcut("a", "b", "", "", "", 1, -1));
  Options options;
  options.HelperLibraryVersion = 5;
  CheckHelperLibrary(options, library);
  EXPECT_EQ(options.HelperLibraryVersion, 0);
  EXPECT_FALSE(options.HelperLibraryInUse);
  EXPECT_FALSE(HelperLibrary::BindFile(env(), kLibrary + ".missing").loaded());
}

#ifndef _WIN32
TEST(HelperLibrary, DesktopIsTheXdgDesktopFolder) {
  testing::TempDir dir;
  const char* old_home = std::getenv("HOME");
  const char* old_config = std::getenv("XDG_CONFIG_HOME");
  std::string saved_home = old_home ? old_home : "", saved_config = old_config ? old_config : "";
  setenv("HOME", dir.path().c_str(), 1);
  setenv("XDG_CONFIG_HOME", dir.File("config").c_str(), 1);
  HelperLibrary library = HelperLibrary::BindFile(env(), kLibrary);
  EXPECT_EQ(library.GetProfileDir(0), dir.path() + "/Desktop");  // the fallback
  env().CreateFolders(dir.File("config"));
  testing::WriteBytes(dir.File("config") + "/user-dirs.dirs",
                      "# written by xdg-user-dirs-update\nXDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n");
  EXPECT_EQ(library.GetProfileDir(0), dir.path() + "/Schreibtisch");
  old_home ? setenv("HOME", saved_home.c_str(), 1) : unsetenv("HOME");
  old_config ? setenv("XDG_CONFIG_HOME", saved_config.c_str(), 1) : unsetenv("XDG_CONFIG_HOME");
}
#endif

}  // namespace
}  // namespace ferrow
