#include "win32/exe_fixture.h"

#include <richedit.h>

namespace ferrow::win32 {
namespace {

struct Search {
  DWORD process;
  std::string window_class, title;
  HWND found = nullptr;
};

BOOL CALLBACK Match(HWND hwnd, LPARAM lparam) {
  auto* search = reinterpret_cast<Search*>(lparam);
  DWORD process = 0;
  GetWindowThreadProcessId(hwnd, &process);
  char name[128] = {};
  GetClassNameA(hwnd, name, sizeof(name));
  if (process != search->process || !IsWindowVisible(hwnd) || search->window_class != name) return TRUE;
  // Asked only when a title is wanted: asking a hung program would hang too.
  if (!search->title.empty() && TextOf(hwnd).find(search->title) == std::string::npos) return TRUE;
  search->found = hwnd;
  return FALSE;
}

BOOL CALLBACK CollectLabel(HWND hwnd, LPARAM lparam) {
  char name[64] = {};
  GetClassNameA(hwnd, name, sizeof(name));
  const std::string text = TextOf(hwnd);
  auto* joined = reinterpret_cast<std::string*>(lparam);
  if (lstrcmpiA(name, "Static") == 0 && !text.empty()) *joined += (joined->empty() ? "" : "\n") + text;
  return TRUE;
}

bool CopyBeside(const char* from, const std::string& folder, const char* name) {
  return CopyFileA(WindowsPath(from).c_str(), (folder + "\\" + name).c_str(), FALSE) != FALSE;
}

}  // namespace

std::string WindowsPath(const std::string& path) {
  std::string out = path.size() > 1 && path[0] == '/' ? "Z:" + path : path;
  for (char& c : out)
    if (c == '/') c = '\\';
  return out;
}

bool WaitUntil(const std::function<bool()>& done, int ms) {
  for (int waited = 0; waited <= ms; waited += 50) {
    if (done()) return true;
    Sleep(50);
  }
  return false;
}

std::string TextOf(HWND window) {
  const LRESULT length = SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
  std::string text(static_cast<size_t>(length) + 1, '\0');
  const LRESULT got = SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<size_t>(got));
  return text;
}

std::string UnixLineBreaks(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') out += text[i];
    else if (i + 1 >= text.size() || text[i + 1] != '\n') out += '\n';
  }
  return out;
}

FerrowProcess::FerrowProcess() {
  CopyBeside(FERROW_EXE, dir_.path(), "ferrow.exe");
  CopyBeside(FERROW_DLL, dir_.path(), "ferrow.dll");
  CopyBeside(FERROW_WAV, dir_.path(), "Updated.wav");
}

FerrowProcess::~FerrowProcess() {
  if (process_.hProcess) {
    if (!Ended(0)) {
      Close();
      if (!Ended(10000)) TerminateProcess(process_.hProcess, 99);
      WaitForSingleObject(process_.hProcess, 5000);
    }
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
  }
}

bool FerrowProcess::Start(const std::string& arguments) {
  const std::string exe = dir_.File("ferrow.exe");
  std::string command = "\"" + exe + "\" " + arguments;
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  QueryPerformanceCounter(&started_);
  return CreateProcessA(exe.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        dir_.path().c_str(), &startup, &process_) != FALSE;
}

bool FerrowProcess::StartWide(const std::wstring& arguments) {
  const std::string exe = dir_.File("ferrow.exe");
  const std::wstring wide_exe(exe.begin(), exe.end()), folder(dir_.path().begin(), dir_.path().end());
  std::wstring command = L"\"" + wide_exe + L"\" " + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  QueryPerformanceCounter(&started_);
  return CreateProcessW(wide_exe.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.c_str(), &startup, &process_) != FALSE;
}

bool FerrowProcess::Ended(int ms) {
  return WaitForSingleObject(process_.hProcess, static_cast<DWORD>(ms)) == WAIT_OBJECT_0;
}

DWORD FerrowProcess::ExitCode() {
  DWORD code = STILL_ACTIVE;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

double FerrowProcess::Elapsed() const {
  LARGE_INTEGER now{}, frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(now.QuadPart - started_.QuadPart) / static_cast<double>(frequency.QuadPart);
}

HWND FerrowProcess::Window(const std::string& window_class, const std::string& title, int ms) {
  Search search{process_.dwProcessId, window_class, title};
  WaitUntil([&] {
    EnumWindows(&Match, reinterpret_cast<LPARAM>(&search));
    return search.found != nullptr;
  }, ms);
  return search.found;
}

HWND FerrowProcess::TextBox() {
  HWND window = TextWindow();
  if (!window) return nullptr;
  HWND box = FindWindowExA(window, nullptr, "RICHEDIT50W", nullptr);
  return box ? box : FindWindowExA(window, nullptr, "RichEdit20W", nullptr);
}

std::string FerrowProcess::MessageText(HWND box) {
  std::string joined;
  EnumChildWindows(box, &CollectLabel, reinterpret_cast<LPARAM>(&joined));
  return joined;
}

void FerrowProcess::Close() {
  if (HWND control = Window("FerrowControlWindow", "", 0)) PostMessageA(control, WM_CLOSE, 0, 0);
}

}  // namespace ferrow::win32
