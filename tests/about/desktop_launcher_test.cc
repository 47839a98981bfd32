// The link button with the real companion library on Linux: a launcher in the
// XDG desktop folder that a desktop will start, and that resolves back to its
// file when it is dropped on a window.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "about/desktop_link.h"
#include "about/helper_library.h"
#include "about/shortcut_files.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

const std::string kLibrary = FERROW_HELPER_LIBRARY;

// Sets an environment variable for the life of the object.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value) : name_(name) {
    const char* old = std::getenv(name);
    had_ = old != nullptr;
    if (had_) old_ = old;
    setenv(name, value.c_str(), 1);
  }
  ~ScopedVariable() { had_ ? setenv(name_, old_.c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  bool had_;
  std::string old_;
};

std::string ShellQuoted(const std::string& text) {
  std::string out = "'";
  for (char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

class DesktopLauncherTest : public testing::SessionTest {
 protected:
  DesktopLauncherTest() {
    env.CreateFolders(dir.File("config"));
    testing::WriteBytes(dir.File("config") + "/user-dirs.dirs",
                        "XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
  }
  void Link(const std::string& name) { CreateDesktopLink(session, library, name); }

  ScopedVariable home{"HOME", dir.path()};
  ScopedVariable config{"XDG_CONFIG_HOME", dir.File("config")};
  ScopedVariable no_session{"DBUS_SESSION_BUS_ADDRESS", ""};
  HelperLibrary library = HelperLibrary::BindFile(env, kLibrary);
};

TEST_F(DesktopLauncherTest, LinkButtonMakesAnExecutableLauncherThatNamesTheFile) {
  env.CreateFolders(dir.File("Bureau"));
  const std::string log = dir.File("web server's \"main\" $log.log");
  testing::WriteBytes(log, "GET /\r\n");
  Link(log);
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Successfully created desktop link"}));

  const std::string launcher = dir.File("Bureau") + "/web server's \"main\" $log.log.desktop";
  ASSERT_TRUE(testing::PathExists(launcher));
  struct stat info {};
  ASSERT_EQ(::stat(launcher.c_str(), &info), 0);
  EXPECT_TRUE(info.st_mode & S_IXUSR);
  EXPECT_EQ(library.GetLinkTarget(launcher), log);
  EXPECT_TRUE(IsShortcutFile(launcher));
  // It runs this very program on the file.
  const std::string text = testing::ReadBytes(launcher);
  EXPECT_NE(text.find("Type=Application\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Exec=\"" + env.ProgramPath() + "\" "), std::string::npos) << text;
  if (std::system("command -v desktop-file-validate >/dev/null") == 0) {
    EXPECT_EQ(std::system(("desktop-file-validate " + ShellQuoted(launcher)).c_str()), 0);
  }
}

TEST_F(DesktopLauncherTest, NoDesktopFolderMeansNoSuccess) {
  const std::string log = dir.File("app.log");
  testing::WriteBytes(log, "x");
  Link(log);
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Could not create shortcut:  Unknown error"}));
  EXPECT_FALSE(testing::PathExists(dir.File("Bureau") + "/app.log.desktop"));
}

TEST_F(DesktopLauncherTest, ShortcutsAreKnownByTheirExtensionInAnyCase) {
  EXPECT_TRUE(IsShortcutFile("/home/me/Desktop/app.log.desktop"));
  EXPECT_TRUE(IsShortcutFile("C:\\Users\\me\\Desktop\\app.log.LNK"));
  EXPECT_TRUE(IsShortcutFile("notes.Desktop"));
  EXPECT_FALSE(IsShortcutFile("/var/log/desktop"));
  EXPECT_FALSE(IsShortcutFile("/var/log/app.log"));
  EXPECT_EQ(ShortcutFileExtension(), ".desktop");
}

}  // namespace
}  // namespace ferrow
