// The real ferrow.exe under Wine: started on a file, watched and driven
// from outside through its windows, its INI read back from beside it.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "about/usage.h"
#include "display/rich_document.h"
#include "session/options.h"
#include "startup/command_line.h"
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

// The sections of an INI file, in order.
std::vector<std::string> SectionNames(const std::string& ini) {
  std::string names(4096, '\0');
  names.resize(GetPrivateProfileSectionNamesA(names.data(), static_cast<DWORD>(names.size()), ini.c_str()));
  std::vector<std::string> out;
  for (size_t at = 0; at < names.size() && names[at]; at += out.back().size() + 1) out.push_back(names.c_str() + at);
  return out;
}

std::string IniValue(const std::string& ini, const std::string& section, const std::string& key) {
  char value[1024] = {};
  GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value, sizeof(value), ini.c_str());
  return value;
}

// Each line of a rich document with the colour of its first character.
std::vector<std::pair<std::string, Colour>> LineColours(const RichDocument& document) {
  std::vector<std::pair<std::string, Colour>> lines;
  bool line_open = false;
  for (const RichRun& run : document.runs)
    for (char c : run.text) {
      if (c == '\n') {
        line_open = false;
        continue;
      }
      if (!line_open) lines.push_back({"", run.colour});
      line_open = true;
      lines.back().first += c;
    }
  return lines;
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

// Without its start: only what is appended shows, poll after poll.
TEST_F(FerrowExe, FollowsAGrowingFileInTitleAndText) {
  WriteBytes(log, Lines(1, 3));
  ASSERT_TRUE(ferrow.Start("/-F \"" + log + "\""));
  ASSERT_TRUE(TitleShows(24)) << TextOf(ferrow.TextWindow());
  EXPECT_EQ(TextOf(ferrow.TextWindow()), Title(24, 0));
  EXPECT_EQ(Shown(), "");
  std::string appended;
  for (int round = 1; round <= 3; ++round) {
    Append(log, Lines(2 + 2 * round, 3 + 2 * round, "appended"));
    appended += UnixLineBreaks(Lines(2 + 2 * round, 3 + 2 * round, "appended"));
    ASSERT_TRUE(TitleShows()) << TextOf(ferrow.TextWindow());
    EXPECT_EQ(TextOf(ferrow.TextWindow()), Title(static_cast<int64_t>(ReadBytes(log).size()), 2 * round));
    EXPECT_EQ(Shown(), appended);
  }
}

// With its start: the loaded lines, then each poll's, line for line.
TEST_F(FerrowExe, TheLoadedTextAndEveryLaterPollShowTheFileLineForLine) {
  WriteBytes(log, Lines(1, 3));
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(TitleShows(24)) << TextOf(ferrow.TextWindow());
  EXPECT_EQ(TextOf(ferrow.TextWindow()), Title(24, 3));
  EXPECT_EQ(Shown(), "line 1\nline 2\nline 3\n");
  for (int round = 1; round <= 2; ++round) {
    Append(log, Lines(2 + 2 * round, 3 + 2 * round, "appended"));
    ASSERT_TRUE(TitleShows()) << TextOf(ferrow.TextWindow());
    EXPECT_EQ(TextOf(ferrow.TextWindow()), Title(static_cast<int64_t>(ReadBytes(log).size()), 3 + 2 * round));
  }
  EXPECT_EQ(Shown(), "line 1\nline 2\nline 3\nappended 4\nappended 5\nappended 6\nappended 7\n");
}

TEST_F(FerrowExe, ClosingTheControlWindowWritesTheSectionAndTheHistoryBesideTheExe) {
  WriteBytes(log, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("\"" + log + "\""));
  ASSERT_TRUE(ferrow.TextWindow());
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdPause)) != FALSE; }));
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_EQ(ferrow.ExitCode(), 0u);
  EXPECT_EQ(SectionNames(ferrow.IniPath()), (std::vector<std::string>{"Common", "app.log"}));
  EXPECT_NE(IniValue(ferrow.IniPath(), "app.log", "MenuX"), "");
  EXPECT_EQ(IniValue(ferrow.IniPath(), "Common", "HistoryCount"), "1");
  EXPECT_EQ(IniValue(ferrow.IniPath(), "Common", "History1"), log);
}

// Another ferrow.exe started from the first one's folder, so both share one
// INI; its control window, and its end.
class SecondProcess {
 public:
  SecondProcess(const FerrowProcess& first, const std::string& arguments) {
    const std::string exe = first.dir().File("ferrow.exe");
    std::string command = "\"" + exe + "\" " + arguments;
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    started_ = CreateProcessA(exe.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                              first.dir().path().c_str(), &startup, &process_) != FALSE;
  }
  ~SecondProcess() {
    if (!started_) return;
    if (!Ended(0)) TerminateProcess(process_.hProcess, 99);
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
  }
  bool Started() const { return started_; }
  HWND ControlWindow() {
    WaitUntil([&] {
      EnumWindows(&Find, reinterpret_cast<LPARAM>(this));
      return found_ != nullptr;
    });
    return found_;
  }
  bool Ended(int ms = 20000) { return WaitForSingleObject(process_.hProcess, static_cast<DWORD>(ms)) == WAIT_OBJECT_0; }

 private:
  static BOOL CALLBACK Find(HWND hwnd, LPARAM lparam) {
    auto* self = reinterpret_cast<SecondProcess*>(lparam);
    DWORD process = 0;
    GetWindowThreadProcessId(hwnd, &process);
    char name[64] = {};
    GetClassNameA(hwnd, name, sizeof(name));
    if (process != self->process_.dwProcessId || !IsWindowVisible(hwnd) || std::string(name) != "FerrowControlWindow")
      return TRUE;
    self->found_ = hwnd;
    return FALSE;
  }
  PROCESS_INFORMATION process_{};
  bool started_ = false;
  HWND found_ = nullptr;
};

// A fresh INI, two processes one after the other, each closed by WM_CLOSE
// as soon as its control window shows: the close comes in while the file is
// being opened (its settings writes let events run), and the name stays.
TEST_F(FerrowExe, TwoProcessesClosedWhileOpeningOnAFreshConfigurationBothLeaveTheirNamesInTheHistory) {
  const std::string a = ferrow.dir().File("a.log"), b = ferrow.dir().File("b.log");
  WriteBytes(a, Lines(1, 2));
  WriteBytes(b, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("\"" + a + "\""));
  ASSERT_TRUE(ferrow.ControlWindow());
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  SecondProcess second(ferrow, "\"" + b + "\"");
  ASSERT_TRUE(second.Started());
  HWND second_window = second.ControlWindow();
  ASSERT_TRUE(second_window);
  PostMessageA(second_window, WM_CLOSE, 0, 0);
  ASSERT_TRUE(second.Ended());
  const std::string ini = ferrow.IniPath();
  EXPECT_EQ(IniValue(ini, "Common", "HistoryCount"), "2");
  EXPECT_EQ(IniValue(ini, "Common", "History1"), a);
  EXPECT_EQ(IniValue(ini, "Common", "History2"), b);
  EXPECT_EQ(IniValue(ini, "Common", "History3"), "");
}

// The window manager's close request and Alt+F4 arrive as SC_CLOSE: the
// program ends and saves as on its Close button.
TEST_F(FerrowExe, TheSystemCloseCommandEndsTheProgramAndSaves) {
  WriteBytes(log, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("\"" + log + "\""));
  ASSERT_TRUE(Ready());
  PostMessageA(ferrow.ControlWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_EQ(ferrow.ExitCode(), 0u);
  EXPECT_EQ(SectionNames(ferrow.IniPath()), (std::vector<std::string>{"Common", "app.log"}));
  EXPECT_EQ(IniValue(ferrow.IniPath(), "Common", "History1"), log);
}

TEST_F(FerrowExe, AMissingFileShowsTheFileAccessErrorBox) {
  const std::string missing = ferrow.dir().File("gone.log");
  ASSERT_TRUE(ferrow.Start("\"" + missing + "\""));
  HWND box = ferrow.Window("#32770", "File Access Error");
  ASSERT_TRUE(box);
  EXPECT_EQ(ferrow.MessageText(box), "Can't open: " + missing +
                                         "\r\n\r\nIf this is a network drive then please check your are "
                                         "connected to the network");
  PostMessageA(box, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(ferrow.ControlWindow());
  ferrow.Close();
  EXPECT_TRUE(ferrow.Ended());
}

TEST_F(FerrowExe, SlashQuestionShowsTheUsageBoxAndEnds) {
  ASSERT_TRUE(ferrow.Start("/?"));
  HWND box = ferrow.Window("#32770", "Ferrow");
  ASSERT_TRUE(box);
  Options defaults;
  SetDefaultOptions(defaults);
  defaults.UsageText = BuildUsageText(defaults.MaxInputLength / 1024);
  EXPECT_EQ(ferrow.MessageText(box), UsageBoxText(defaults));
  EXPECT_FALSE(ferrow.Window("FerrowControlWindow", "", 0));
  PostMessageA(box, WM_COMMAND, IDOK, 0);
  EXPECT_TRUE(ferrow.Ended());
}

TEST_F(FerrowExe, FilterWordsAreHighlightedInColour) {
  WriteBytes(log, "before\r\n");
  WriteBytes(ferrow.IniPath(), "[Common]\r\nHistoryCount=0\r\nLocked=False\r\nCopyAsRTF=True\r\n");
  ASSERT_TRUE(ferrow.Start("/-F /H=error \"" + log + "\""));
  ASSERT_TRUE(TitleShows(8));
  Append(log, "all quiet\r\nan ERROR here\r\n");
  ASSERT_TRUE(TitleShows());
  Append(log, "still quiet\r\nanother error\r\n");
  ASSERT_TRUE(TitleShows());
  // Ferrow's own copy: Ctrl+A, then Ctrl+C, as rich text on the clipboard.
  HWND box = ferrow.TextBox();
  SendMessageA(box, WM_CHAR, 1, 0);
  SendMessageA(box, WM_CHAR, 3, 0);
  const RichDocument copied = ReadRtf(ClipboardText());
  EXPECT_EQ(copied.PlainText(), "all quiet\nan ERROR here\nstill quiet\nanother error\n") << ClipboardText();
  // The Standard look: grey text, blue filter words.
  const Colour grey = 0xBEBEBE, blue = 0xFF0000;
  EXPECT_EQ(LineColours(copied), (std::vector<std::pair<std::string, Colour>>{
                                     {"all quiet", grey}, {"an ERROR here", blue},
                                     {"still quiet", grey}, {"another error", blue}}))
      << ClipboardText();
}

TEST_F(FerrowExe, PauseStopsTheUpdatesAndResumeShowsWhatCameMeanwhile) {
  WriteBytes(log, Lines(1, 2));
  ASSERT_TRUE(ferrow.Start("/-F \"" + log + "\""));
  ASSERT_TRUE(TitleShows(16));
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdPause)) != FALSE; }));
  Append(log, Lines(3, 3));
  ASSERT_TRUE(TitleShows());
  SendMessageA(Button(kIdPause), BM_CLICK, 0, 0);
  Append(log, Lines(4, 5));
  Sleep(1500);  // three polls
  EXPECT_EQ(TextOf(ferrow.TextWindow()), Title(24, 1));
  EXPECT_EQ(Shown(), "line 3\n");
  SendMessageA(Button(kIdPause), BM_CLICK, 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return Shown() == "line 3\nline 4\nline 5\n"; })) << Shown();
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
  EXPECT_EQ(SectionNames(ferrow.IniPath()), std::vector<std::string>{"Common"}) << "the file was never opened";
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
  const std::string shown = Shown();
  EXPECT_GT(shown.size(), 850u * 1000u);  // CR LF shows as one character
  EXPECT_LE(shown.size(), 1024u * 1024u);
  // Whole lines from the file's end, as many as the window keeps.
  const std::string file = UnixLineBreaks(text);
  ASSERT_LT(shown.size(), file.size());
  const std::string end = file.substr(file.size() - shown.size());
  EXPECT_TRUE(shown == end && file[file.size() - shown.size() - 1] == '\n')
      << "shown ends: " << shown.substr(shown.size() - 80) << "\nfile ends: " << end.substr(end.size() - 80);
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
