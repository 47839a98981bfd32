#include "win32/exe_monkey_tools.h"

#include <cstdio>

#include "testing/temp_dir.h"
#include "win32/control_ids.h"

namespace ferrow::win32 {
namespace {

struct Search {
  DWORD process;
  std::vector<HWND> found;
};

BOOL CALLBACK CollectTopLevel(HWND hwnd, LPARAM lparam) {
  auto* search = reinterpret_cast<Search*>(lparam);
  DWORD process = 0;
  GetWindowThreadProcessId(hwnd, &process);
  if (process == search->process && IsWindowVisible(hwnd)) search->found.push_back(hwnd);
  return TRUE;
}

BOOL CALLBACK CollectChild(HWND hwnd, LPARAM lparam) {
  reinterpret_cast<std::vector<HWND>*>(lparam)->push_back(hwnd);
  return TRUE;
}

}  // namespace

Writer::Writer(std::vector<std::string> files, unsigned seed)
    : files_(std::move(files)), random_(seed), thread_([this] { Run(); }) {}

Writer::~Writer() {
  running_ = false;
  thread_.join();
}

void Writer::Run() {
  int line = 0;
  while (running_) {
    const std::string& file = files_[random_() % files_.size()];
    const unsigned what = random_() % 100;
    if (what < 85) {
      if (FILE* out = std::fopen(file.c_str(), "ab")) {
        for (int i = random_() % 5; i >= 0; --i) std::fprintf(out, "line %d error warn\r\n", ++line);
        std::fclose(out);
      }
    } else if (what < 93) {
      testing::WriteBytes(file, "");
    } else {
      DeleteFileA(file.c_str());
      testing::WriteBytes(file, "replaced\r\n");
    }
    Sleep(20 + random_() % 60);
  }
}

std::vector<HWND> ShownWindows(FerrowProcess& ferrow) {
  Search search{GetProcessId(ferrow.Process()), {}};
  EnumWindows(&CollectTopLevel, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(window, &CollectChild, reinterpret_cast<LPARAM>(&children));
  return children;
}

std::string ClassOf(HWND window) {
  char name[64] = {};
  GetClassNameA(window, name, sizeof(name));
  return name;
}

// Found without sending it anything: a hung program must not hang the test.
HWND Shown(FerrowProcess& ferrow, const std::string& window_class) {
  for (HWND window : ShownWindows(ferrow))
    if (ClassOf(window) == window_class) return window;
  return nullptr;
}

bool Answers(FerrowProcess& ferrow) {
  HWND control = Shown(ferrow, kControlWindowClass);
  if (!control) return true;
  DWORD_PTR ignored = 0;
  if (SendMessageTimeoutA(control, WM_NULL, 0, 0, SMTO_NORMAL, 10000, &ignored)) return true;
  return !IsWindow(control) || ferrow.Ended(5000);  // it was closing: not a hang
}

bool CloseAll(FerrowProcess& ferrow) {
  for (int round = 0; round < 100; ++round) {
    if (ferrow.Ended(0)) return true;
    for (HWND window : ShownWindows(ferrow)) {
      if (ClassOf(window) == "#32770") {
        PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        PostMessageA(window, WM_COMMAND, IDOK, 0);
      }
      PostMessageA(window, WM_CLOSE, 0, 0);
    }
    if (ferrow.Ended(200)) return true;
  }
  return false;
}

::testing::AssertionResult ReadsBackWhole(const std::string& ini) {
  if (ini.find("[Common]\r\n") == std::string::npos) return ::testing::AssertionFailure() << ini;
  if (ini.size() < 2 || ini.compare(ini.size() - 2, 2, "\r\n") != 0) return ::testing::AssertionFailure() << ini;
  size_t start = 0;
  while (start < ini.size()) {
    const size_t end = ini.find("\r\n", start);
    const std::string line = ini.substr(start, end - start);
    start = end + 2;
    if (line.empty() || line[0] == ';' || (line[0] == '[' && line.back() == ']')) continue;
    if (line.find('=') == std::string::npos) return ::testing::AssertionFailure() << "line: " << line << "\n" << ini;
  }
  return ::testing::AssertionSuccess();
}

}  // namespace ferrow::win32
