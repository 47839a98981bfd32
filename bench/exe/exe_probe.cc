// Grows a file at a steady rate while the real ferrow.exe follows it, and
// watches its windows from outside as a user would: how far the text
// window's caption is behind the file, how long each window takes to answer,
// and how long a click on Pause takes to act. Prints "START" when it begins
// to write and "END" when it stops, so the script beside it can sample the
// processes' CPU and memory in between.
//
//   exe_probe <log file> <lines per second> <seconds>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>
#include <utility>

#include "win32/control_ids.h"

using namespace ferrow::win32;

namespace {

double NowMs() {
  static LARGE_INTEGER frequency = [] {
    LARGE_INTEGER f{};
    QueryPerformanceFrequency(&f);
    return f;
  }();
  LARGE_INTEGER now{};
  QueryPerformanceCounter(&now);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

std::string Title(HWND window) {
  char text[1024] = {};
  DWORD_PTR got = 0;
  SendMessageTimeoutA(window, WM_GETTEXT, sizeof(text), reinterpret_cast<LPARAM>(text), SMTO_NORMAL,
                      10000, &got);
  return text;
}

// The size the caption says the display has reached: "(1,234 bytes)".
long long ShownBytes(HWND text_window) {
  const std::string title = Title(text_window);
  const size_t end = title.rfind(" bytes)");
  const size_t open = title.rfind('(', end);
  if (end == std::string::npos || open == std::string::npos) return -1;
  long long n = 0;
  for (size_t i = open + 1; i < end; ++i)
    if (title[i] >= '0' && title[i] <= '9') n = n * 10 + (title[i] - '0');
  return n;
}

// The lines the caption says the window holds: "[2,816]".
long long ShownLines(HWND text_window) {
  const std::string title = Title(text_window);
  const size_t close = title.rfind(']');
  const size_t open = title.rfind('[', close);
  if (close == std::string::npos || open == std::string::npos) return -1;
  long long n = 0;
  for (size_t i = open + 1; i < close; ++i)
    if (title[i] >= '0' && title[i] <= '9') n = n * 10 + (title[i] - '0');
  return n;
}

double AnswerMs(HWND window) {
  const double start = NowMs();
  DWORD_PTR ignored = 0;
  if (!SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 20000, &ignored)) return 20000;
  return NowMs() - start;
}

HWND WaitFor(const char* window_class, int ms) {
  for (int waited = 0; waited < ms; waited += 100) {
    if (HWND found = FindWindowA(window_class, nullptr)) return found;
    Sleep(100);
  }
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: exe_probe <log file> <lines per second> <seconds>\n");
    return 2;
  }
  const std::string path = argv[1];
  const int rate = std::max(1, std::atoi(argv[2]));
  const double seconds = std::atof(argv[3]);
  HWND control = WaitFor(kControlWindowClass, 120000);
  HWND text = WaitFor(kTextWindowClass, 120000);
  if (!control || !text) {
    std::printf("ERROR no ferrow windows\n");
    return 1;
  }
  HWND pause = GetDlgItem(control, kIdPause);
  for (int i = 0; i < 1200 && !IsWindowEnabled(pause); ++i) Sleep(100);
  HANDLE file = CreateFileA(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    std::printf("ERROR cannot open %s\n", path.c_str());
    return 1;
  }
  LARGE_INTEGER size{};
  GetFileSizeEx(file, &size);
  long long written = size.QuadPart;
  // Settle: the initial load shown in full.
  for (int i = 0; i < 600 && ShownBytes(text) < written; ++i) Sleep(100);
  // The load leaves the window short of its buffer; lines go in until the
  // window holds no more (its line count stops growing), so what is measured
  // after START is a window that trims as much as it takes in.
  for (long long lines = ShownLines(text), round = 0; round < 100; ++round) {
    std::string batch;
    for (int i = 0; i < 100; ++i) {
      char line[160];
      std::snprintf(line, sizeof(line),
                    "2024-05-01 09:59:59.000 INFO  [worker-2] GET /api/fill/%lld 200 1234 bytes"
                    " in 12 ms\r\n",
                    round * 100 + i);
      batch += line;
    }
    DWORD done = 0;
    WriteFile(file, batch.data(), static_cast<DWORD>(batch.size()), &done, nullptr);
    written += done;
    for (int i = 0; i < 600 && ShownBytes(text) < written; ++i) Sleep(100);
    const long long now = ShownLines(text);
    if (now <= lines) break;
    lines = now;
  }

  // The writer runs on a thread of its own, so a window that does not
  // answer never holds the file back.
  struct Shared {
    CRITICAL_SECTION lock;
    std::deque<std::pair<long long, double>> pending;  // end offset, when written
    long long written, lines = 0;
    HANDLE file;
    int rate;
    double start, seconds;
  } shared;
  InitializeCriticalSection(&shared.lock);
  shared.written = written;
  shared.file = file;
  shared.rate = rate;
  shared.seconds = seconds;
  std::printf("START\n");
  std::fflush(stdout);
  shared.start = NowMs();
  HANDLE writer = CreateThread(
      nullptr, 0,
      [](LPVOID data) -> DWORD {
        auto* s = static_cast<Shared*>(data);
        while (NowMs() - s->start < s->seconds * 1000.0) {
          const double now = NowMs();
          const long long due = static_cast<long long>((now - s->start) / 1000.0 * s->rate) + 1;
          std::string batch;
          for (; s->lines < due; ++s->lines) {
            char line[160];
            std::snprintf(
                line, sizeof(line),
                "2024-05-01 10:00:00.000 INFO  [worker-3] GET /api/items/%lld 200 1234 bytes"
                " in 12 ms\r\n",
                s->lines);
            batch += line;
          }
          if (!batch.empty()) {
            DWORD done = 0;
            WriteFile(s->file, batch.data(), static_cast<DWORD>(batch.size()), &done, nullptr);
            EnterCriticalSection(&s->lock);
            s->written += done;
            s->pending.push_back({s->written, now});
            LeaveCriticalSection(&s->lock);
          }
          Sleep(10);
        }
        return 0;
      },
      &shared, 0, nullptr);

  double worst_behind = 0, worst_control = 0, worst_text = 0, sum_behind = 0;
  int samples = 0;
  while (WaitForSingleObject(writer, 100) == WAIT_TIMEOUT) {
    worst_control = std::max(worst_control, AnswerMs(control));
    worst_text = std::max(worst_text, AnswerMs(text));
    const long long shown = ShownBytes(text);
    EnterCriticalSection(&shared.lock);
    while (!shared.pending.empty() && shared.pending.front().first <= shown)
      shared.pending.pop_front();
    const double behind = shared.pending.empty() ? 0 : NowMs() - shared.pending.front().second;
    LeaveCriticalSection(&shared.lock);
    worst_behind = std::max(worst_behind, behind);
    sum_behind += behind;
    ++samples;
  }
  CloseHandle(writer);
  const long long lines = shared.lines;
  std::printf("END\n");
  std::fflush(stdout);

  // A click on Pause: acted once the menu's caption says so.
  const double clicked = NowMs();
  PostMessageA(pause, BM_CLICK, 0, 0);
  double pause_ms = -1;
  while (NowMs() - clicked < 60000) {
    if (Title(control).find("(Paused)") != std::string::npos) {
      pause_ms = NowMs() - clicked;
      break;
    }
    Sleep(5);
  }
  PostMessageA(pause, BM_CLICK, 0, 0);
  std::printf("lines written      %lld at %d lines/s over %.0f s\n", lines, rate, seconds);
  std::printf("behind the file    worst %.0f ms, mean %.0f ms (one poll: 500 ms)\n", worst_behind,
              samples ? sum_behind / samples : 0.0);
  std::printf("windows answer     control worst %.0f ms, text worst %.0f ms\n", worst_control,
              worst_text);
  std::printf("pause acts after   %.0f ms\n", pause_ms);
  return 0;
}
