// Logs in UTF-16, UTF-8 and the ANSI code page followed in the real Win32
// text window (a rich-edit control, under Wine): loaded in lines and buffer
// mode, grown a few bytes a poll, filtered, and copied as rich text.
#include <gtest/gtest.h>

#include <algorithm>

#include "display/filters.h"
#include "display/rich_document.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "testing/encoded_text.h"
#include "testing/fake_control_window.h"
#include "testing/session_fixture.h"
#include "win32/event_passes.h"
#include "win32/text_window_view.h"

namespace ferrow::win32 {
namespace {

constexpr Colour kText = 0x00C0C0C0, kFilter = 0x0000FFFF;

// Letters of the ANSI code page (1252), which the box shows today.
const std::string kLatinLines = "premi\xC3\xA8re ligne\r\n\xC3\x89\x43HEC \xC3\xA0 la fin\r\n";
// And letters beyond it: Greek, a character of two UTF-16 units.
const std::string kWideLines =
    "deuxi\xC3\xA8me \xF0\x9F\x98\x80\r\n\xCE\xA9\xCE\xBC\xCE\xAD\xCE\xB3\xCE\xB1 \xC3\x89\x43HEC\r\n";

std::string Shown(const std::string& lines) {
  std::string out;
  for (char c : lines)
    if (c != '\r') out += c;
  return out;
}

// What the box shows after a load: the lines, each with its break, as the
// Qt window shows them.
std::string Loaded(const std::string& lines) { return Shown(lines); }

// The characters of UTF-8 `text` as the box counts them (UTF-16 units).
int64_t Characters(const std::string& text) {
  int64_t n = 0;
  for (char c : text) {
    const unsigned char b = static_cast<unsigned char>(c);
    n += (b & 0xC0) == 0x80 ? 0 : b >= 0xF0 ? 2 : 1;
  }
  return n;
}

std::string WithoutBreaks(std::string s) {
  s.erase(std::remove_if(s.begin(), s.end(), [](char c) { return c == '\n' || c == '\r'; }), s.end());
  return s;
}

class BoxWindows : public FollowWindows {
 public:
  TextBox& TextWindowBox() override { return window->Rtf(); }
  bool StillShowing(const TextBox&) override { return true; }
  void SetTextWindowCaption(const std::string&) override {}
  void FlashTextWindow() override {}
  bool TimerEnabled() override { return true; }
  void SetTimerEnabled(bool) override {}
  void SetTimerInterval(int) override {}
  void ShowPauseButton(bool, const std::string&) override {}
  std::string FileNameBoxText() override { return ""; }
  void ClearPlaySoundCheckBox() override {}
  void RefreshFilterCaption() override {}
  void StoreMenuPosition(Options&) override {}
  bool PlaySoundFile(const std::string&, bool) override { return true; }

  Win32TextWindow* window = nullptr;
};

class EncodedLogWin32 : public ferrow::testing::SessionTest {
 protected:
  EncodedLogWin32() {
    options.FileSection = "app.log";
    options.FontColour = kText;
    options.FilterColour = kFilter;
    options.Font = "Courier New";
    options.FontSize = 10;
    options.MaxInputLength = 100000;
    options.FilterString = "\xC3\xA9\x63hec";  // échec
    options.FileName = log;
    options.AlertOnUpdate = false;
    RebuildFilterWords(options);
    window = new Win32TextWindow(session, control);
    control.shown_box = &window->Rtf();
    windows.window = window;
    window->Handle();
    window->Form_Load();
    PumpMessages();
  }
  ~EncodedLogWin32() override {
    window->Logic().Close();
    for (int i = 0; i < 50 && IsWindow(window->Handle()); ++i) {
      PumpMessages();
      Sleep(10);
    }
  }
  void NewFile(const std::string& bytes) {
    ferrow::testing::WriteBytes(log, bytes);
    follower.ForgetPartialCharacter();
    options.LastFileSize = options.HighWaterMark = env.FileLength(log).value_or(0);
  }
  // Loads the file (lines mode when `lines`), then writes it again from
  // empty, `step` bytes a poll.
  void LoadAndGrow(const ferrow::testing::EncodedFile& file, const std::string& text, size_t step) {
    NewFile(file.bytes);
    follower.LoadFileToTextBox(log, window->Rtf(), 1);
    const std::string last = Shown(text.substr(text.rfind("\r\n", text.size() - 3) + 2));
    EXPECT_EQ(window->Rtf().Text(), Loaded(last)) << file.name;
    follower.LoadFileToTextBox(log, window->Rtf(), 0);
    EXPECT_EQ(window->Rtf().Text(), Loaded(text)) << file.name;

    NewFile("");
    window->Rtf().SetText("");
    for (size_t at = 0; at < file.bytes.size(); at += step) {
      ferrow::testing::AppendBytes(log, file.bytes.substr(at, step));
      follower.Timer1_Timer();
    }
    EXPECT_EQ(WithoutBreaks(window->Rtf().Text()), WithoutBreaks(text)) << file.name;
  }

  std::string log = dir.File("app.log");
  ferrow::testing::FakeControlWindow control;
  Win32TextWindow* window;
  BoxWindows windows;
  Follower follower{session, windows};
};

TEST_F(EncodedLogWin32, EveryEncodingOfAnsiLettersLoadsGrowsAndIsFiltered) {
  for (const auto& file : ferrow::testing::EveryEncoding(kLatinLines, true)) {
    LoadAndGrow(file, kLatinLines, 3);
    follower.LoadFileToTextBox(log, window->Rtf(), 0);
    const std::string text = window->Rtf().Text();
    // Box positions count characters.
    window->Rtf().SetSelStart(Characters(text.substr(0, text.find('\n') + 1)));
    window->Rtf().SetSelLength(5);
    EXPECT_EQ(window->Rtf().SelText(), "\xC3\x89\x43HEC") << file.name;
    EXPECT_EQ(window->Rtf().SelColor(), kFilter) << file.name;
    window->Rtf().SetSelStart(0);
    window->Rtf().SetSelLength(3);
    EXPECT_EQ(window->Rtf().SelColor(), kText) << file.name;
  }
}

TEST_F(EncodedLogWin32, CopyAsRtfGivesTheShownTextBack) {
  options.CopyAsRTF = true;
  for (const auto& file : ferrow::testing::EveryEncoding(kLatinLines, true)) {
    NewFile(file.bytes);
    follower.LoadFileToTextBox(log, window->Rtf(), 0);
    window->Rtf().SetSelStart(0);
    window->Rtf().SetSelLength(window->Rtf().TextLength());
    EXPECT_EQ(ReadRtf(window->Rtf().SelRTF()).PlainText(), Loaded(kLatinLines)) << file.name;
  }
}

// The box takes its text as Unicode: Greek and emoji show whatever the ANSI
// code page holds.
TEST_F(EncodedLogWin32, LettersBeyondTheAnsiCodePageLoadGrowAndCopy) {
  for (const auto& file : ferrow::testing::EveryEncoding(kWideLines, false)) {
    LoadAndGrow(file, kWideLines, 3);
    follower.LoadFileToTextBox(log, window->Rtf(), 0);
    window->Rtf().SetSelStart(0);
    window->Rtf().SetSelLength(window->Rtf().TextLength());
    EXPECT_EQ(ReadRtf(window->Rtf().SelRTF()).PlainText(), Loaded(kWideLines)) << file.name;
  }
}

}  // namespace
}  // namespace ferrow::win32
