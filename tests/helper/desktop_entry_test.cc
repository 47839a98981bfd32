#include "desktop_entry.h"

#include <gtest/gtest.h>

#include <random>

namespace ferrow::desktop {
namespace {

std::string Launcher(const std::string& target) {
  return WriteLauncher({"/usr/bin/ferrow", target, "org.example.ferrow.Ferrow"});
}

TEST(DesktopEntry, LauncherRunsTheProgramOnTheFile) {
  const std::string text = Launcher("/var/log/app.log");
  EXPECT_EQ(text,
            "[Desktop Entry]\nType=Application\nVersion=1.0\nName=app.log\n"
            "Comment=Follow /var/log/app.log in Ferrow\n"
            "Exec=\"/usr/bin/ferrow\" \"/var/log/app.log\"\n"
            "Icon=org.example.ferrow.Ferrow\nTerminal=false\n");
  EXPECT_EQ(ReadLauncherTarget(text), "/var/log/app.log");
}

TEST(DesktopEntry, AwkwardFileNamesSurviveTheQuotingRules) {
  for (const std::string name :
       {"/logs/web server.log", "/logs/say \"hi\".log", "/logs/$HOME`id`.log", "/logs/back\\slash.log",
        "/logs/100%.log", "/logs/%f.log", "/logs/it's;a|b&c.log", "/home/zoë/журнал.log",
        "/logs/trailing\\"}) {
    const std::string text = Launcher(name);
    ASSERT_FALSE(text.empty()) << name;
    EXPECT_EQ(ReadLauncherTarget(text), name) << text;
  }
}

TEST(DesktopEntry, NamesNoEntryCanCarryAreRefused) {
  EXPECT_EQ(Launcher("/logs/two\nlines.log"), "");
  EXPECT_EQ(Launcher("/logs/tab\there.log"), "");
  EXPECT_EQ(Launcher(""), "");
  EXPECT_EQ(WriteLauncher({"", "/var/log/app.log", ""}), "");
}

TEST(DesktopEntry, TargetIsTheLastArgumentThatIsNoFieldCode) {
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\nExec=gedit /etc/hosts\n"),
            "/etc/hosts");
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nExec=ferrow /a.log %f\nType=Application\n"),
            "/a.log");
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\nExec=firefox %u\n"), "");
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\nExec=xterm\n"), "");
  // Escapes of the string type come first (\s is a blank), then the quoting.
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\r\nType=Application\r\nExec=view \"/my\\sfile\"\r\n"),
            "/my file");
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\nExec=view /my\\sfile\n"), "file");
}

TEST(DesktopEntry, OnlyApplicationsInTheDesktopEntryGroupCount) {
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Link\nURL=file:///a\nExec=x /a\n"), "");
  EXPECT_EQ(ReadLauncherTarget("[Other]\nType=Application\nExec=x /a\n"), "");
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\n[Desktop Action new]\n"
                               "Exec=x /a\n"),
            "");
  EXPECT_EQ(ReadLauncherTarget("GET / 200\r\nERROR in request 1\r\n"), "");
  EXPECT_EQ(ReadLauncherTarget(""), "");
}

TEST(DesktopEntry, GarbageIsReadWithoutHarm) {
  std::mt19937 random(15);
  const std::string start = Launcher("/var/log/app.log");
  for (int round = 0; round < 3000; ++round) {
    std::string data = start;
    for (int n = 0; n < 8; ++n)
      data[random() % data.size()] = static_cast<char>(random() % 256);
    data.resize(random() % (data.size() + 1));
    (void)ReadLauncherTarget(data);  // any answer will do; it must come back
  }
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\nExec=\"unterminated /a\n"), "");
  EXPECT_EQ(ReadLauncherTarget("[Desktop Entry]\nType=Application\nExec=x \"/a\\"), "");
}

}  // namespace
}  // namespace ferrow::desktop
