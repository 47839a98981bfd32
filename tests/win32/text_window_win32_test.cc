// The text window as a real Win32 window with a real rich-edit control,
// driven through the same logic and append path as the program's.
#include "win32/text_window_view.h"

#include <gtest/gtest.h>
#include <richedit.h>

#include <commctrl.h>

#include <cstdlib>

#include "display/append_block.h"
#include "display/filters.h"
#include "display/rich_document.h"
#include "display/rtf_compose.h"
#include "display/text_ops.h"
#include "testing/fake_control_window.h"
#include "testing/session_fixture.h"
#include "win32/event_passes.h"
#include "win32/text_window_fixture.h"
#include "win32/twips.h"
#include "win32/window_capture.h"

namespace ferrow::win32 {
namespace {

std::string WindowText(HWND hwnd) {
  std::string text(static_cast<size_t>(SendMessageA(hwnd, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
  SendMessageA(hwnd, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(text.find('\0'));
  std::string out;  // the control may give CR or CR LF at a break
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') out += text[i];
    else if (i + 1 >= text.size() || text[i + 1] != '\n') out += '\n';
  }
  return out;
}

std::string ClipboardText() {
  std::string text;
  if (!OpenClipboard(nullptr)) return "<closed>";
  if (HANDLE data = GetClipboardData(CF_TEXT)) {
    text = static_cast<const char*>(GlobalLock(data));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

void PutOnClipboard(const std::string& text) {
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
  GlobalUnlock(memory);
  SetClipboardData(CF_TEXT, memory);
  CloseClipboard();
}

TEST_F(Win32TextWindowTest, TheBoxIsARealRichEditControl) {
  char name[64] = {};
  GetClassNameA(box(), name, sizeof(name));
  EXPECT_EQ(lstrcmpiA(name, RichEditBox::ClassName()), 0) << name;
  EXPECT_TRUE(lstrcmpiA(name, "RICHEDIT50W") == 0 || lstrcmpiA(name, "RichEdit20W") == 0) << name;
  EXPECT_TRUE(IsWindowUnicode(box())) << "text would pass through the ANSI code page";
}

TEST_F(Win32TextWindowTest, AppendedLinesShowInTheirColoursAndCountAsLines) {
  Load();
  AppendTextBlock(session, window->Rtf(), "first line\r\nan error here\r\nlast line\r\n", false);
  EXPECT_EQ(WindowText(box()), "first line\nan error here\nlast line\n");
  EXPECT_EQ(window->Rtf().Text(), "first line\nan error here\nlast line\n");
  EXPECT_EQ(GetLineCount(window->Rtf()), 4);
  EXPECT_EQ(SendMessageA(box(), EM_GETLINECOUNT, 0, 0), 4);
  window->Rtf().SetSelStart(11);
  window->Rtf().SetSelLength(13);
  EXPECT_EQ(window->Rtf().SelText(), "an error here");
  EXPECT_EQ(window->Rtf().SelColor(), kFilter);
  window->Rtf().SetSelStart(0);
  window->Rtf().SetSelLength(5);
  EXPECT_EQ(window->Rtf().SelColor(), kText);
  const std::string rtf = StreamOut(box(), false);
  EXPECT_EQ(rtf.rfind("{\\rtf1", 0), 0u) << rtf;
  EXPECT_NE(rtf.find("\\red255\\green255\\blue0"), std::string::npos) << rtf;
  EXPECT_NE(rtf.find("an error here"), std::string::npos);
}

TEST_F(Win32TextWindowTest, TheInitialDocumentGoesInThroughTheRichTextStream) {
  Load();
  window->Rtf().SetTextRTF(
      ComposeInitialDocument(session, {"start", "Error 5", "{x} caf\xC3\xA9"}, 10, false));
  EXPECT_EQ(window->Rtf().Text(), "start\nError 5\n{x} caf\xC3\xA9\n");
  EXPECT_EQ(window->Rtf().SelStart(), window->Rtf().TextLength());
  window->Rtf().SetSelStart(6);
  window->Rtf().SetSelLength(7);
  EXPECT_EQ(window->Rtf().SelColor(), kFilter);
}

TEST_F(Win32TextWindowTest, TheCaptionReachesTheTitleBar) {
  Load();
  window->Logic().SetCaption("Ferrow - C:\\logs\\app.log (1,234 bytes) [3]");
  char title[128] = {};
  GetWindowTextA(hwnd(), title, sizeof(title));
  EXPECT_STREQ(title, "Ferrow - C:\\logs\\app.log (1,234 bytes) [3]");
  EXPECT_EQ(window->Logic().Caption(), title);
  window->Logic().Flash();
}

TEST_F(Win32TextWindowTest, PasteCutClearUndoAndTypingChangeNothing) {
  Load();
  AppendTextBlock(session, window->Rtf(), "keep me\r\n", false);
  PutOnClipboard("PASTE");
  SendMessageA(box(), EM_SETSEL, 0, 4);
  for (UINT message : {WM_PASTE, WM_CUT, WM_CLEAR, WM_UNDO}) SendMessageA(box(), message, 0, 0);
  for (WPARAM key : {WPARAM{VK_DELETE}, WPARAM{VK_BACK}, WPARAM{'V'}}) SendMessageA(box(), WM_KEYDOWN, key, 0);
  for (WPARAM character : {WPARAM{'q'}, WPARAM{8}, WPARAM{22}}) SendMessageA(box(), WM_CHAR, character, 0);
  EXPECT_EQ(WindowText(box()), "keep me\n");
  EXPECT_EQ(ClipboardText(), "PASTE");
}

// The box is read-only besides; made writable, the window procedure alone
// keeps pastes out, and without it they would go in.
TEST_F(Win32TextWindowTest, TheWindowProcedureAloneKeepsPastesOut) {
  Load();
  SendMessageA(box(), EM_SETREADONLY, FALSE, 0);
  PutOnClipboard("PASTE");
  SendMessageA(box(), WM_PASTE, 0, 0);
  SendMessageA(box(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
  SendMessageA(box(), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(WindowText(box()), "");
  window->Rtf().Unsubclass();
  SendMessageA(box(), WM_PASTE, 0, 0);
  EXPECT_EQ(WindowText(box()), "PASTE") << "the check above would prove nothing";
}

TEST_F(Win32TextWindowTest, SubclassingReplacesTheWindowProcedureOnceAndRestoresIt) {
  const LONG_PTR own = GetWindowLongPtrA(box(), GWLP_WNDPROC);
  Load();
  ASSERT_TRUE(window->Rtf().Subclassed());
  const LONG_PTR installed = GetWindowLongPtrA(box(), GWLP_WNDPROC);
  EXPECT_NE(installed, own);
  window->Rtf().Subclass();
  EXPECT_EQ(GetWindowLongPtrA(box(), GWLP_WNDPROC), installed);
  window->Rtf().Unsubclass();
  window->Rtf().Unsubclass();
  EXPECT_EQ(GetWindowLongPtrA(box(), GWLP_WNDPROC), own);
}

TEST_F(Win32TextWindowTest, CtrlAThenCtrlCCopiesThePlainTextThroughTheClipboard) {
  Load();
  AppendTextBlock(session, window->Rtf(), "one\r\ntwo\r\n", false);
  SendMessageA(box(), WM_CHAR, 1, 0);
  SendMessageA(box(), WM_CHAR, 3, 0);
  EXPECT_EQ(ClipboardText(), "one\r\ntwo\r\n");
  EXPECT_EQ(window->Rtf().SelLength(), 0);
}

TEST_F(Win32TextWindowTest, AnAppendOverTheLimitIsTrimmedToWholeLines) {
  options.MaxInputLength = 20;
  Load();
  AppendTextBlock(session, window->Rtf(), "0123456789abc\r\n", false);
  AppendTextBlock(session, window->Rtf(), "defghijklmnopqr\r\n", false);
  EXPECT_EQ(WindowText(box()), "defghijklmnopqr\n");
}

TEST_F(Win32TextWindowTest, ClosingStoresTheGeometryAndTheWindowGoesAfterTheHandler) {
  options.FormX = 720;
  options.FormY = 360;
  options.FormWidth = 7200;
  options.FormHeight = 2880;
  Load();
  RECT r{};
  GetWindowRect(hwnd(), &r);
  EXPECT_EQ(r.left, TwipsToPixels(720));
  EXPECT_EQ(r.right - r.left, TwipsToPixels(7200));
  window->Logic().Close();
  closed = true;
  EXPECT_TRUE(IsWindow(hwnd())) << "not destroyed inside its own close";
  EXPECT_FALSE(IsWindowVisible(hwnd()));
  EXPECT_NEAR(options.FormWidth, 7200, 30);
  EXPECT_NEAR(options.FormX, 720, 30);
  EXPECT_EQ(control.closes, 1);
  EXPECT_EQ(control.timer_stops, 1);
}

TEST_F(Win32TextWindowTest, AWindowClosedInsideAWaitIsDestroyedOnlyAfterTheWait) {
  Load();
  Env& real = *Env::Default();
  InstallEventsHook(real, session.gate);
  PostMessageA(hwnd(), WM_CLOSE, 0, 0);
  real.LetEventsRun();  // the close runs in here
  EXPECT_EQ(control.closes, 1);
  Sleep(50);
  real.LetEventsRun();  // and the timer that would destroy the window
  EXPECT_TRUE(IsWindow(hwnd()));
  EXPECT_EQ(session.gate.EventPasses(), 0);
  real.SetEventsHook(nullptr);
  closed = true;  // outside any wait the window goes
}

// What the box is asked while the program appends: reformatting or copying
// the whole text costs more the more text there is.
struct BoxCalls {
  int whole_format = 0;  // EM_SETCHARFORMAT over all the text
  int whole_copies = 0;  // the whole text or stream out
  int64_t range_read = 0;  // characters read through EM_GETTEXTRANGE
};

LRESULT CALLBACK CountCalls(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                            DWORD_PTR data) {
  auto* calls = reinterpret_cast<BoxCalls*>(data);
  if (message == EM_SETCHARFORMAT && (wparam & SCF_ALL)) ++calls->whole_format;
  if (message == EM_GETTEXTEX || message == WM_GETTEXT || message == EM_STREAMOUT) ++calls->whole_copies;
  if (message == EM_GETTEXTRANGE) {
    const auto* range = reinterpret_cast<const TEXTRANGEW*>(lparam);
    const LONG end = range->chrg.cpMax < 0 ? 1 << 30 : range->chrg.cpMax;
    calls->range_read += end - range->chrg.cpMin;
  }
  return DefSubclassProc(hwnd, message, wparam, lparam);
}

std::string NumberedLines(int from, int to) {
  std::string text;
  for (int i = from; i <= to; ++i)
    text += "2024-05-01 10:00:00 GET /index.html 200 line " + std::to_string(i) + "\r\n";
  return text;
}

// The window's buffer full, every append also trims: neither reformats nor
// copies the whole text, so an append costs the same at any length.
TEST_F(Win32TextWindowTest, AnAppendToAFullWindowNeitherReformatsNorCopiesTheWholeText) {
  options.MaxInputLength = 30000;
  Load();
  AppendTextBlock(session, window->Rtf(), NumberedLines(1, 1000), true);
  ASSERT_LE(window->Rtf().TextLength(), 30000 + 100);
  BoxCalls calls;
  ASSERT_TRUE(SetWindowSubclass(box(), &CountCalls, 1, reinterpret_cast<DWORD_PTR>(&calls)));
  for (int i = 1001; i <= 1010; ++i) AppendTextBlock(session, window->Rtf(), NumberedLines(i, i), i % 2 == 0);
  RemoveWindowSubclass(box(), &CountCalls, 1);
  EXPECT_EQ(calls.whole_format, 0);
  EXPECT_EQ(calls.whole_copies, 0);
  EXPECT_LT(calls.range_read, 10 * 1024) << "reads to the first line break, not the whole text";
  const std::string text = window->Rtf().Text();
  const std::string last = "2024-05-01 10:00:00 GET /index.html 200 line 1009\n"
                           "2024-05-01 10:00:00 GET /index.html 200 line 1010\n";
  ASSERT_GT(text.size(), last.size());
  EXPECT_EQ(text.substr(text.size() - last.size()), last);
  EXPECT_EQ(text.rfind("2024-05-01", 0), 0u) << "begins with a whole line";
}

// The font is set again after every run; only a new name reformats the text.
TEST_F(Win32TextWindowTest, ANewFontNameReachesTheWholeText) {
  Load();
  AppendTextBlock(session, window->Rtf(), "one\r\ntwo\r\n", false);
  window->Rtf().SetFontName("Arial");
  window->Rtf().SetSelStart(0);
  window->Rtf().SetSelLength(window->Rtf().TextLength());
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  SendMessageW(box(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  EXPECT_TRUE(format.dwMask & CFM_FACE);
  EXPECT_EQ(std::wstring(format.szFaceName), L"Arial");
}

// The control takes a document's last "\par" as the end of its text; the
// window keeps it, as the other front-end does, so the next line is a line
// of its own and the lines count right.
TEST_F(Win32TextWindowTest, TheFirstLineAppendedAfterALoadIsALineOfItsOwn) {
  Load();
  window->Rtf().SetTextRTF(ComposeInitialDocument(session, {"one", "two", "three"}, 10, false));
  EXPECT_EQ(window->Rtf().Text(), "one\ntwo\nthree\n");
  AppendTextBlock(session, window->Rtf(), "four\r\n", false);
  AppendTextBlock(session, window->Rtf(), "five\r\nsix\r\n", true);
  EXPECT_EQ(window->Rtf().Text(), "one\ntwo\nthree\nfour\nfive\nsix\n");
  EXPECT_EQ(WindowText(box()), "one\ntwo\nthree\nfour\nfive\nsix\n");
  EXPECT_EQ(GetLineCount(window->Rtf()), 7);
}

// Accents, the euro sign, CJK and a character beyond the first plane: in as
// UTF-8 and back out the same, as plain text and as rich text.
TEST_F(Win32TextWindowTest, AnyCharacterShowsAndReadsBack) {
  const std::string line =
      "caf\xC3\xA9 \xE2\x82\xAC 5 \xE6\xBC\xA2\xE5\xAD\x97 \xF0\x9F\x98\x80 na\xC3\xAFve";
  Load();
  AppendTextBlock(session, window->Rtf(), line + "\r\n", false);
  EXPECT_EQ(window->Rtf().Text(), line + "\n");
  window->Rtf().SetSelStart(0);
  window->Rtf().SetSelLength(window->Rtf().TextLength());
  EXPECT_EQ(window->Rtf().SelText(), line + "\n");
  const std::string rtf = window->Rtf().SelRTF();
  EXPECT_EQ(ReadRtf(rtf).PlainText().substr(0, line.size()), line) << rtf;
  window->Rtf().SetTextRTF(ComposeInitialDocument(session, {line, "error " + line}, 10, false));
  EXPECT_EQ(window->Rtf().Text(), line + "\nerror " + line + "\n");
}

// EM_REPLACESEL ends at a NUL; what follows it in the block still shows,
// with quick scroll on and off.
TEST_F(Win32TextWindowTest, TextAfterANulByteIsShown) {
  Load();
  AppendTextBlock(session, window->Rtf(), std::string("ab\0cd\r\nef\r\n", 11), false);
  AppendTextBlock(session, window->Rtf(), std::string("gh\0ij\r\nkl\r\n", 11), true);
  EXPECT_EQ(window->Rtf().Text(), std::string("ab\0cd\nef\ngh\0ij\nkl\n", 18));
}

// A picture of the window for review, when FERROW_SCREENSHOTS names a folder.
TEST_F(Win32TextWindowTest, Screenshot) {
  options.FormWidth = 9000;
  options.FormHeight = 3000;
  options.FormX = 300;
  options.FormY = 300;
  options.FilterString = "error warning";
  options.RedFilterString = "fatal";
  RebuildFilterWords(options);
  Load();
  AppendTextBlock(session, window->Rtf(),
                  "2024-05-01 10:00:01 GET /index.html 200\r\n"
                  "2024-05-01 10:00:02 GET /missing 404 warning: not found\r\n"
                  "2024-05-01 10:00:03 POST /api/save 200\r\n"
                  "2024-05-01 10:00:04 error: database timeout after 30 s\r\n"
                  "2024-05-01 10:00:05 fatal: worker 3 stopped\r\n"
                  "2024-05-01 10:00:06 GET /index.html 200\r\n",
                  true);
  window->Logic().SetCaption("Ferrow - C:\\logs\\access.log (312 bytes) [7]");
  for (int i = 0; i < 20; ++i) {
    PumpMessages();
    Sleep(20);
  }
  const char* folder = std::getenv("FERROW_SCREENSHOTS");
  if (folder && *folder) {
    EXPECT_TRUE(SaveWindowBitmap(hwnd(), std::string(folder) + "\\text-window-win32.bmp"));
  }
  EXPECT_EQ(GetLineCount(window->Rtf()), 7);
}

}  // namespace
}  // namespace ferrow::win32
