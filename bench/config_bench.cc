// What the shared configuration file costs: one key read, one key written
// (a whole-file rewrite, flushed to disk), and the history tidy that runs on
// every file open and close (201 reads, 201 writes and the lock).
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "config/history.h"
#include "config/ini_file.h"
#include "session/session.h"

namespace {

using namespace ferrow;
namespace fs = std::filesystem;

// A configuration file as a busy user's looks: a full history and 50 files.
std::string MakeIni() {
  fs::path dir = fs::temp_directory_path() / "ferrow-bench";
  fs::create_directories(dir);
  std::string ini = (dir / "Ferrow.INI").string();
  std::string text = "[Common]\r\nWriteLock=False\r\nHistoryCount=200\r\n";
  for (int i = 1; i <= 200; ++i)
    text += "History" + std::to_string(i) + "=/var/log/app/service" + std::to_string(i) + ".log\r\n";
  for (int f = 0; f < 50; ++f) {
    text += "[service" + std::to_string(f) + ".log]\r\n";
    for (const char* key : {"FontSize=10", "Font=Terminal", "ThemeNumber=1", "BackColour=Black",
                            "FontColour=Grey", "FilterColour=Blue", "FilterString=ERROR WARN"})
      text += std::string(key) + "\r\n";
  }
  std::FILE* f = std::fopen(ini.c_str(), "wb");
  std::fwrite(text.data(), 1, text.size(), f);
  std::fclose(f);
  return ini;
}

void BM_ReadINIFile(benchmark::State& state) {
  const std::string ini = MakeIni();
  for (auto _ : state)
    benchmark::DoNotOptimize(ReadINIFile(*Env::Default(), ini, "service49.log", "FilterString"));
}
BENCHMARK(BM_ReadINIFile);

void BM_WriteINIFile(benchmark::State& state) {
  const std::string ini = MakeIni();
  int n = 0;
  for (auto _ : state)
    WriteINIFile(*Env::Default(), ini, "service25.log", "FontSize", std::to_string(n++ % 20));
}
BENCHMARK(BM_WriteINIFile);

void BM_TidyHistory(benchmark::State& state) {
  Options options;
  options.IniFileName = MakeIni();
  HeadlessUi ui;
  Session session{*Env::Default(), options, ui};
  for (auto _ : state) TidyHistory(session);
}
BENCHMARK(BM_TidyHistory)->Unit(benchmark::kMillisecond);

}  // namespace
