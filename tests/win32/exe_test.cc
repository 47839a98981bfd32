// The real ferrow.exe under Wine: started on a file, watched and driven
// from outside through its windows, its INI read back from beside it.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "display/rich_document.h"
#include "testing/temp_dir.h"
#include "win32/control_ids.h"
#include "win32/exe_fixture.h"
#include "win32/window_capture.h"

namespace ferrow::win32 {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

void Append(const std::string& path, const std::string& bytes) {
  WriteBytes(path, ReadBytes(path) + bytes);
}

std::string Lines(int from, int to, const std::string& word = "line") {
  std::string text;
  for (int i = from; i <= to; ++i) text += word + " " + std::to_string(i) + "\r\n";
  return text;
}

std::string Upper(std::string text) {
  for (char& c : text) c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
  return text;
}

std::string ClipboardText() {
  std::string text;
  if (!OpenClipboard(nullptr)) return "";
  if (HANDLE data = GetClipboardData(CF_TEXT)) {
    if (const char* bytes = static_cast<const char*>(GlobalLock(data))) text = bytes;
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

using FerrowExe = FerrowExeTest;

TEST_F(FerrowExe, FollowsAGrowingFileInTitleAndText) {
  WriteBytes(log, Lines(1, 3));
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(TitleShows(24)) << TextOf(ferrow.TextWindow());
  EXPECT_NE(TextOf(ferrow.TextWindow()).find(log), std::string::npos);
  const int first = TitleLines();
  EXPECT_EQ(first, 3);
  for (int round = 1; round <= 3; ++round) {
    Append(log, Lines(2 + 2 * round, 3 + 2 * round, "appended"));
    ASSERT_TRUE(TitleShows()) << TextOf(ferrow.TextWindow());
    EXPECT_EQ(TitleLines(), first + 2 * round) << TextOf(ferrow.TextWindow());
  }
  const std::string shown = TextOf(ferrow.TextBox());
  for (const char* line : {"line 1", "line 3", "appended 4", "appended 9"})
    EXPECT_NE(shown.find(line), std::string::npos) << line << " in " << shown;
}

TEST_F(FerrowExe, ClosingTheControlWindowWritesTheSectionAndTheHistoryBesideTheExe) {
  WriteBytes(log, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("\"" + log + "\""));
  ASSERT_TRUE(ferrow.TextWindow());
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdPause)) != FALSE; }));
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_EQ(ferrow.ExitCode(), 0u);
  const std::string ini = Upper(ReadBytes(ferrow.IniPath()));
  EXPECT_NE(ini.find("[APP.LOG]"), std::string::npos) << ini;
  EXPECT_NE(ini.find("MENUX="), std::string::npos) << ini;
  EXPECT_NE(ini.find("=" + Upper(log)), std::string::npos) << "the history holds the file: " << ini;
}

TEST_F(FerrowExe, AMissingFileShowsTheFileAccessErrorBox) {
  const std::string missing = ferrow.dir().File("gone.log");
  ASSERT_TRUE(ferrow.Start("\"" + missing + "\""));
  HWND box = ferrow.Window("#32770", "File Access Error");
  ASSERT_TRUE(box);
  EXPECT_NE(ferrow.MessageText(box).find("Can't open: " + missing), std::string::npos)
      << ferrow.MessageText(box);
  PostMessageA(box, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(ferrow.ControlWindow());
  ferrow.Close();
  EXPECT_TRUE(ferrow.Ended());
}

TEST_F(FerrowExe, SlashQuestionShowsTheUsageBoxAndEnds) {
  ASSERT_TRUE(ferrow.Start("/?"));
  HWND box = ferrow.Window("#32770", "Ferrow");
  ASSERT_TRUE(box);
  EXPECT_NE(ferrow.MessageText(box).find("Ferrow v1.46"), std::string::npos) << ferrow.MessageText(box);
  EXPECT_FALSE(ferrow.Window("FerrowControlWindow", "", 0));
  PostMessageA(box, WM_COMMAND, IDOK, 0);
  EXPECT_TRUE(ferrow.Ended());
}

TEST_F(FerrowExe, FilterWordsAreHighlightedInColour) {
  WriteBytes(log, "all quiet\r\nan ERROR here\r\n");
  WriteBytes(ferrow.IniPath(), "[Common]\r\nHistoryCount=0\r\nLocked=False\r\nCopyAsRTF=True\r\n");
  ASSERT_TRUE(ferrow.Start("/F /H=error \"" + log + "\""));
  ASSERT_TRUE(TitleShows(26));
  Append(log, "still quiet\r\nanother error\r\n");
  ASSERT_TRUE(TitleShows());
  // Ferrow's own copy: Ctrl+A, then Ctrl+C, as rich text on the clipboard.
  HWND box = ferrow.TextBox();
  SendMessageA(box, WM_CHAR, 1, 0);
  SendMessageA(box, WM_CHAR, 3, 0);
  const RichDocument copied = ReadRtf(ClipboardText());
  ASSERT_NE(copied.PlainText().find("another error"), std::string::npos) << ClipboardText();
  Colour quiet = 0, loud = 0;
  for (const RichRun& run : copied.runs) {
    if (run.text.find("quiet") != std::string::npos) quiet = run.colour;
    if (Upper(run.text).find("ERROR") != std::string::npos) {
      EXPECT_TRUE(run.has_colour) << run.text;
      loud = run.colour;
    }
  }
  EXPECT_NE(loud, quiet) << ClipboardText();
}

TEST_F(FerrowExe, PauseStopsTheUpdatesAndResumeShowsWhatCameMeanwhile) {
  WriteBytes(log, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(TitleShows(16));
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdPause)) != FALSE; }));
  SendMessageA(Button(kIdPause), BM_CLICK, 0, 0);
  Append(log, Lines(3, 4));
  Sleep(1500);  // three polls
  EXPECT_TRUE(TitleShows(16)) << TextOf(ferrow.TextWindow());
  EXPECT_EQ(TextOf(ferrow.TextBox()).find("line 3"), std::string::npos);
  SendMessageA(Button(kIdPause), BM_CLICK, 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return TextOf(ferrow.TextBox()).find("line 4") != std::string::npos; }))
      << TextOf(ferrow.TextBox());
}

TEST_F(FerrowExe, ClosingDuringTheStartDelayEndsTheProcessAtOnce) {
  WriteBytes(log, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("/WAIT=30 \"" + log + "\""));
  HWND control = ferrow.Window("FerrowControlWindow", "Waiting 30 seconds");
  ASSERT_TRUE(control);
  const double asked = ferrow.Elapsed();
  PostMessageA(control, WM_CLOSE, 0, 0);
  ASSERT_TRUE(ferrow.Ended(10000));
  EXPECT_LT(ferrow.Elapsed() - asked, 5000);
  const std::string ini = Upper(ReadBytes(ferrow.IniPath()));
  EXPECT_NE(ini.find("[COMMON]"), std::string::npos) << ini;
  EXPECT_EQ(ini.find("[APP.LOG]"), std::string::npos) << "the file was never opened: " << ini;
}

// The whole first megabyte-long tail, from the start of the process to the
// window showing it; the time goes to the test's output.
TEST_F(FerrowExe, TheInitialLoadOfAOneMegabyteTailIsShownPromptly) {
  std::string text;
  for (int i = 0; text.size() < 3 * 1024 * 1024; ++i)
    text += "2024-05-01 10:00:" + std::to_string(i % 60) + " GET /index.html 200 " + std::to_string(i) +
            (i % 50 == 0 ? " error\r\n" : "\r\n");
  WriteBytes(log, text);
  ASSERT_TRUE(ferrow.Start("/F /B=1024 /H=error \"" + log + "\""));
  ASSERT_TRUE(ferrow.Window("FerrowTextWindow", " bytes) [", 120000));
  DWORD_PTR ignored = 0;
  SendMessageTimeoutA(ferrow.TextWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 10000, &ignored);
  const double ms = ferrow.Elapsed();
  const std::string shown = TextOf(ferrow.TextBox());
  EXPECT_GT(shown.size(), 850u * 1000u);  // CR LF shows as one character
  EXPECT_LE(shown.size(), 1024u * 1024u);
  EXPECT_NE(shown.find(text.substr(text.size() - 200, 150)), std::string::npos);
  std::printf("initial load of a %zu-byte tail shown after %.0f ms\n", shown.size(), ms);
  EXPECT_LT(ms, 60000);
}

}  // namespace
}  // namespace ferrow::win32

namespace ferrow::win32 {
namespace {

// Pictures of the program's windows for review, when FERROW_SCREENSHOTS
// names a folder.
TEST_F(FerrowExe, Screenshots) {
  WriteBytes(log,
             "2024-05-01 10:00:01 GET /index.html 200\r\n"
             "2024-05-01 10:00:02 GET /missing 404 warning: not found\r\n"
             "2024-05-01 10:00:03 POST /api/save 200\r\n"
             "2024-05-01 10:00:04 error: database timeout after 30 s\r\n"
             "2024-05-01 10:00:05 GET /index.html 200\r\n");
  ASSERT_TRUE(ferrow.Start("/F \"/H=error warning\" \"" + log + "\""));
  ASSERT_TRUE(TitleShows());
  HWND control = ferrow.ControlWindow();
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdPause)) != FALSE; }));
  Sleep(500);  // painted
  const char* folder = std::getenv("FERROW_SCREENSHOTS");
  if (!folder || !*folder) return;
  // On top, whole.
  SetWindowPos(control, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  Sleep(500);
  EXPECT_TRUE(SaveWindowBitmap(control, std::string(folder) + "\\control-win32.bmp"));
}

}  // namespace
}  // namespace ferrow::win32
