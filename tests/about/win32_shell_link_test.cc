// Shortcuts made by the Windows shell (IShellLink, under Wine here) are read
// by our own reader. With FERROW_LNK_FIXTURE_OUT set, the shortcut is also
// saved there: tests/data/wine_made.lnk was made so.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>

#include "about/helper_library.h"
#include "lnk_format.h"
#include "platform/env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

TEST(Win32ShellLink, ShortcutMadeThroughTheShellIsReadBack) {
  Env& env = *Env::Default();
  HelperLibrary library = HelperLibrary::BindFile(env, FERROW_HELPER_LIBRARY);
  ASSERT_TRUE(library.loaded());
  const std::string folder = "C:\\ferrow-lnk-test", target = folder + "\\web server.log";
  env.CreateFolders(folder);
  testing::WriteBytes(target, "GET /\r\n");
  testing::TempDir dir;
  const std::string link = dir.File("web server.log.lnk");
  ASSERT_NE(library.CreateShortcut(target, link, "", "", "", 1, -1).value_or(0), 0);
  EXPECT_EQ(library.GetLinkTarget(link), target);
  EXPECT_EQ(lnk::ReadLink(testing::ReadBytes(link), "").path, target);
  if (const char* out = std::getenv("FERROW_LNK_FIXTURE_OUT"))
    testing::WriteBytes(out, testing::ReadBytes(link));
  env.RemoveFile(target);
  RemoveDirectoryA(folder.c_str());
}

TEST(Win32ShellLink, DesktopIsTheShellsDesktopFolder) {
  HelperLibrary library = HelperLibrary::BindFile(*Env::Default(), FERROW_HELPER_LIBRARY);
  std::string desktop = library.GetProfileDir(0).value_or("");
  EXPECT_NE(desktop.find("Desktop"), std::string::npos) << desktop;
}

}  // namespace
}  // namespace ferrow
