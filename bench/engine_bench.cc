// The following engine under load, in a real window with painting (run under
// Xvfb): a poll at the 100 KB cap, the initial load of a big file's end, the
// last 100000 lines of a 2 GB file, and the CPU that idle following costs.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <random>

#include "bench_support.h"
#include "display/filters.h"
#include "qt/frmText.h"
#include "engine/file_reader.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "session/session.h"

namespace {

using namespace ferrow;
namespace fs = std::filesystem;

using bench::NoControl;

class BenchWindows : public FollowWindows {
 public:
  explicit BenchWindows(frmText& text) : text_(text) {}
  TextBox& TextWindowBox() override { return *text_.Rtf; }
  void SetTextWindowCaption(const std::string& c) override { text_.setWindowTitle(QString::fromStdString(c)); }
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

 private:
  frmText& text_;
};

// ~100-byte lines, one in ten with the filter word.
std::string Lines(size_t bytes, unsigned seed) {
  std::mt19937 random(seed);
  std::string block;
  for (int i = 0; block.size() < bytes; ++i) {
    std::string line = std::string(random() % 10 == 0 ? "ERROR" : "INFO ") +
                       " 2026-11-21 10:15:00 worker-" + std::to_string(random() % 64) +
                       " handled request " + std::to_string(random());
    line.resize(98, '.');
    block += line + "\r\n";
  }
  block.resize(bytes);
  return block;
}

std::string Scratch(const std::string& name) {
  fs::path dir = fs::temp_directory_path() / "ferrow-bench";
  fs::create_directories(dir);
  return (dir / name).string();
}

struct Fixture {
  Fixture() : session{*Env::Default(), options, ui} {
    options.FilterString = "ERROR";
    options.MaxInputLength = 256 * 1024;
    options.AlertOnUpdate = false;
    RebuildFilterWords(options);
    text = std::make_unique<frmText>(session, control);
    text->Form_Load();
    windows = std::make_unique<BenchWindows>(*text);
    follower = std::make_unique<Follower>(session, *windows);
    QApplication::processEvents();
  }
  Options options;
  HeadlessUi ui;
  Session session;
  NoControl control;
  std::unique_ptr<frmText> text;
  std::unique_ptr<BenchWindows> windows;
  std::unique_ptr<Follower> follower;
};

void BM_PollAtTheCap(benchmark::State& state) {
  Fixture f;
  f.options.QuickScroll = state.range(0) != 0;
  const std::string log = Scratch("poll.log");
  const std::string block = Lines(100 * 1024, 1);
  std::ofstream(log, std::ios::binary | std::ios::trunc) << Lines(300 * 1024, 2);
  f.options.FileName = log;
  f.options.LastFileSize = static_cast<int64_t>(fs::file_size(log));
  f.Logic().follower->LoadFileToTextBox(log, *f.text->Rtf, 0);
  for (auto _ : state) {
    state.PauseTiming();
    std::ofstream(log, std::ios::binary | std::ios::app) << block;
    state.ResumeTiming();
    // The poll's work; the tick adds its deliberate 10 ms sleep to it.
    f.Logic().follower->HasFileChanged(log, false);
    f.text->Rtf->viewport()->repaint();
  }
}
BENCHMARK(BM_PollAtTheCap)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_InitialLoadOfTheLastMegabyteOf200MB(benchmark::State& state) {
  Fixture f;
  f.options.MaxInputLength = 1048576;
  const std::string log = Scratch("big.log");
  {
    std::ofstream(log, std::ios::binary | std::ios::trunc);
    fs::resize_file(log, 198 * 1024 * 1024);  // the head is never read; let it be sparse
    std::ofstream(log, std::ios::binary | std::ios::app) << Lines(2 * 1024 * 1024, 3);
  }
  for (auto _ : state) {
    f.options.MaxInputLength = 1048576;
    f.Logic().follower->LoadFileToTextBox(log, *f.text->Rtf, 0);
    f.text->Rtf->viewport()->repaint();
  }
  state.counters["file_mb"] = fs::file_size(log) / 1048576.0;
  state.counters["shown_chars"] = static_cast<double>(f.text->Rtf->TextLength());
}
BENCHMARK(BM_InitialLoadOfTheLastMegabyteOf200MB)->Unit(benchmark::kMillisecond)->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_LastHundredThousandLinesOf2GB(benchmark::State& state) {
  const std::string log = Scratch("huge.log");
  {
    std::ofstream(log, std::ios::binary | std::ios::trunc);
    fs::resize_file(log, 2000ull * 1024 * 1024);
    std::ofstream(log, std::ios::binary | std::ios::app) << Lines(12 * 1024 * 1024, 4);
  }
  const int64_t length = static_cast<int64_t>(fs::file_size(log));
  for (auto _ : state) {
    auto file = Env::Default()->OpenShared(log);
    benchmark::DoNotOptimize(ReadLastLines(*file, length, 100000));
  }
  state.counters["file_gb"] = length / 1073741824.0;
  fs::remove(log);
}
BENCHMARK(BM_LastHundredThousandLinesOf2GB)->Unit(benchmark::kMillisecond)->Repetitions(5)
    ->ReportAggregatesOnly(true);

double CpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
         (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

void BM_IdleFollowingForSixtySeconds(benchmark::State& state) {
  for (auto _ : state) {
    Fixture f;
    const std::string log = Scratch("idle.log");
    std::ofstream(log, std::ios::binary | std::ios::trunc) << Lines(64 * 1024, 5);
    f.options.FileName = log;
    f.options.LastFileSize = static_cast<int64_t>(fs::file_size(log));
    QTimer timer;
    timer.setInterval(500);
    QObject::connect(&timer, &QTimer::timeout, [&] { f.Logic().follower->Timer1_Timer(); });
    timer.start();
    const double before = CpuSeconds();
    QEventLoop loop;
    QTimer::singleShot(60000, &loop, &QEventLoop::quit);
    loop.exec();
    state.counters["cpu_seconds"] = CpuSeconds() - before;
    state.counters["ticks"] = f.Logic().follower->TickCount();
  }
}
BENCHMARK(BM_IdleFollowingForSixtySeconds)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

int main(int argc, char** argv) { return ferrow::bench::RunBenchmarksWithQt(argc, argv); }
