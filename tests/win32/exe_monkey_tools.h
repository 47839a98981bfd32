// What the random-action and dialog tests of the real ferrow.exe share:
// a writer thread on the followed files, the windows of the process found
// without sending them anything, and closing everything at the end.
#pragma once

#include <windows.h>

#include <atomic>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "win32/exe_fixture.h"

namespace ferrow::win32 {

// Appends to, empties and replaces the followed files from another thread.
class Writer {
 public:
  Writer(std::vector<std::string> files, unsigned seed);
  ~Writer();
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

 private:
  void Run();

  std::vector<std::string> files_;
  std::mt19937 random_;
  std::atomic<bool> running_{true};
  std::thread thread_;
};

// The process's shown top-level windows, and a window's children.
std::vector<HWND> ShownWindows(FerrowProcess& ferrow);
std::vector<HWND> ChildrenOf(HWND window);
std::string ClassOf(HWND window);
// A shown window of the process of `window_class`; null when none.
HWND Shown(FerrowProcess& ferrow, const std::string& window_class);
// The program answers its messages within 10 s (a modal loop answers too).
bool Answers(FerrowProcess& ferrow);
// Closes every window the program shows until it ends.
bool CloseAll(FerrowProcess& ferrow);
// A configuration file as a reader takes it: whole lines, each a section,
// a comment or a key, and the common section in it.
::testing::AssertionResult ReadsBackWhole(const std::string& ini);

}  // namespace ferrow::win32
