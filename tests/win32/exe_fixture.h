// The real ferrow.exe, started in a folder of its own (with ferrow.dll and
// Updated.wav beside it, so its INI lands there too) and watched from
// outside through its windows, as a user's tools would see them.
#pragma once

#include <windows.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/numbers.h"
#include "testing/temp_dir.h"
#include "win32/control_ids.h"

namespace ferrow::win32 {

// A build path as Windows names it (Z: is Wine's root).
std::string WindowsPath(const std::string& path);

// Retries `done` every 50 ms for up to `ms`; true when it came true.
bool WaitUntil(const std::function<bool()>& done, int ms = 15000);

// A window's text, asked through WM_GETTEXT (it works across processes).
std::string TextOf(HWND window);

// `text` with CR LF and lone CR made "\n".
std::string UnixLineBreaks(const std::string& text);

class FerrowProcess {
 public:
  FerrowProcess();
  ~FerrowProcess();
  FerrowProcess(const FerrowProcess&) = delete;
  FerrowProcess& operator=(const FerrowProcess&) = delete;

  const testing::TempDir& dir() const { return dir_; }
  std::string IniPath() const { return dir_.File("ferrow.INI"); }

  // Starts the program with `arguments` (the command line after its name).
  bool Start(const std::string& arguments);
  // The same, in UTF-16, as the shell starts it with any name.
  bool StartWide(const std::wstring& arguments);
  // True once the process has ended within `ms`.
  bool Ended(int ms = 20000);
  DWORD ExitCode();
  // Milliseconds since Start.
  double Elapsed() const;
  HANDLE Process() const { return process_.hProcess; }

  // A visible top-level window of the process of `window_class`, whose
  // title contains `title` ("" takes any); null when none shows up in time.
  HWND Window(const std::string& window_class, const std::string& title = "", int ms = 15000);
  HWND ControlWindow() { return Window("FerrowControlWindow"); }
  HWND TextWindow() { return Window("FerrowTextWindow"); }
  // The rich-edit control inside the text window.
  HWND TextBox();
  // The texts of a message box's labels, joined by new lines.
  static std::string MessageText(HWND box);
  // Closes the control window as its close box does.
  void Close();

 private:
  testing::TempDir dir_;
  PROCESS_INFORMATION process_{};
  LARGE_INTEGER started_{};
};

// The program started by a test on `log`, in the program's own folder.
class FerrowExeTest : public ::testing::Test {
 protected:
  FerrowExeTest() : log(ferrow.dir().File("app.log")) {}
  // The title once it shows `size` bytes; the file's size now by default.
  bool TitleShows(int64_t size = -1) {
    if (size < 0) size = static_cast<int64_t>(testing::ReadBytes(log).size());
    return !!ferrow.Window("FerrowTextWindow", "(" + std::to_string(size) + " bytes) [");
  }
  // The whole title the text window shows for `size` bytes and `lines` lines.
  std::string Title(int64_t size, int lines) {
    return "Ferrow - " + log + " (" + GroupDigits(size) + " bytes) [" + std::to_string(lines) + "]";
  }
  // The line count in the title.
  int TitleLines() {
    const std::string title = TextOf(ferrow.TextWindow());
    const size_t open = title.rfind('[');
    return open == std::string::npos ? -1 : std::atoi(title.c_str() + open + 1);
  }
  // The text window's whole text, "\n" at each line break.
  std::string Shown() { return UnixLineBreaks(TextOf(ferrow.TextBox())); }
  HWND Button(int id) { return GetDlgItem(ferrow.ControlWindow(), id); }
  // Once the file is open and the buttons are enabled.
  bool Ready() {
    return WaitUntil([&] { return IsWindowEnabled(Button(kIdPause)) && IsWindowEnabled(Button(kIdOptions)); });
  }

  FerrowProcess ferrow;
  std::string log;
};

}  // namespace ferrow::win32
