// What the text window's control keeps while a full window follows a log:
// lines trimmed from the front give their memory back, and nothing the
// program did can be undone by the user.
#include <gtest/gtest.h>
#include <richedit.h>
#include <windows.h>

#include <string>

#include "display/append_block.h"
#include "display/rtf_compose.h"
#include "win32/text_window_fixture.h"

namespace ferrow::win32 {
namespace {

std::string Lines(int from, int to) {
  std::string text;
  for (int i = from; i <= to; ++i)
    text += "2024-05-01 10:00:00 GET /index.html 200 line " + std::to_string(i) + "\r\n";
  return text;
}

// Blocks in use on every heap of the process.
long BusyHeapBlocks() {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  long busy = 0;
  for (DWORD h = 0; h < count && h < 64; ++h) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heaps[h]);
    while (HeapWalk(heaps[h], &entry))
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ++busy;
    HeapUnlock(heaps[h]);
  }
  return busy;
}

// 3,000 lines through a window that holds some 500: the blocks in use come
// back to where they were (a control without undo kept two for every line
// break it deleted).
TEST_F(Win32TextWindowTest, LinesTrimmedFromAFullWindowGiveTheirMemoryBack) {
  options.MaxInputLength = 30000;
  Load();
  for (int i = 1; i <= 1000; i += 10) AppendTextBlock(session, window->Rtf(), Lines(i, i + 9), i % 20 == 1);
  PumpMessages();
  const long before = BusyHeapBlocks();
  for (int i = 1001; i <= 4000; i += 10) AppendTextBlock(session, window->Rtf(), Lines(i, i + 9), i % 20 == 1);
  PumpMessages();
  EXPECT_LT(BusyHeapBlocks() - before, 600) << "blocks kept for 3,000 lines that are gone";
  const std::string text = window->Rtf().Text();
  const std::string last = "2024-05-01 10:00:00 GET /index.html 200 line 3999\n"
                           "2024-05-01 10:00:00 GET /index.html 200 line 4000\n";
  ASSERT_GT(text.size(), last.size());
  EXPECT_EQ(text.substr(text.size() - last.size()), last);
  EXPECT_EQ(text.rfind("2024-05-01", 0), 0u) << "begins with a whole line";
  EXPECT_LE(window->Rtf().TextLength(), 30000);
}

// Loaded, appended to, trimmed, recoloured: the control holds no step the
// user could undo, and an undo request changes nothing.
TEST_F(Win32TextWindowTest, NothingTheProgramShowedCanBeUndone) {
  options.MaxInputLength = 2000;
  Load();
  window->Rtf().SetTextRTF(ComposeInitialDocument(session, {"one", "two"}, 10, false));
  EXPECT_EQ(SendMessageW(box(), EM_CANUNDO, 0, 0), 0) << "after a load";
  AppendTextBlock(session, window->Rtf(), Lines(1, 100), false);
  EXPECT_EQ(SendMessageW(box(), EM_CANUNDO, 0, 0), 0) << "after an append that trims";
  window->Rtf().SetFontName("Arial");
  EXPECT_EQ(SendMessageW(box(), EM_CANUNDO, 0, 0), 0) << "after a new font";
  const std::string before = window->Rtf().Text();
  SendMessageW(box(), EM_UNDO, 0, 0);
  EXPECT_EQ(window->Rtf().Text(), before);
}

}  // namespace
}  // namespace ferrow::win32
