// The text window under load, in a real window with painting (run it under
// Xvfb or on a desktop): appending 1,000-line blocks to a window that holds
// 256 KB, assigning a 1 MB composed document, and the memory it all takes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <fstream>
#include <random>
#include <string>

#include "display/append_block.h"
#include "bench_support.h"
#include "display/filters.h"
#include "qt/frmText.h"
#include "display/rtf_compose.h"
#include "display/text_ops.h"
#include "session/session.h"

namespace {

using namespace ferrow;

using bench::NoControl;

// ~100-byte log lines, one in ten with the filter word.
std::string Lines(int count, int seed, std::vector<std::string>* out = nullptr) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::string block;
  for (int i = 0; i < count; ++i) {
    std::string line = "2026-11-21 10:15:" + std::to_string(10 + i % 50) + " " +
                       (random() % 10 == 0 ? "ERROR" : "INFO ") + " 10.0.0." +
                       std::to_string(random() % 250) + " \"GET /api/orders/" +
                       std::to_string(random()) + " HTTP/1.1\" 200 " + std::to_string(random() % 9999);
    line.resize(98, '.');
    if (out) out->push_back(line);
    block += line + "\r\n";
  }
  return block;
}

long ResidentKb() {
  std::ifstream status("/proc/self/status");
  std::string key;
  long value = 0;
  while (status >> key) {
    if (key == "VmRSS:") {
      status >> value;
      return value;
    }
    status.ignore(1 << 20, '\n');
  }
  return 0;
}

struct Fixture {
  Fixture() : session{*Env::Default(), options, ui} {
    options.Font = "Terminal";
    options.FontSize = 10;
    options.FilterString = "ERROR";
    options.MaxInputLength = 256 * 1024;
    RebuildFilterWords(options);
    window = std::make_unique<frmText>(session, control);
    window->Form_Load();
    QApplication::processEvents();
  }
  Options options;
  HeadlessUi ui;
  Session session;
  NoControl control;
  std::unique_ptr<frmText> window;
};

void BM_AppendThousandLineBlock(benchmark::State& state) {
  Fixture f;
  std::vector<std::string> blocks;
  for (int i = 0; i < 8; ++i) blocks.push_back(Lines(1000, i));
  for (int i = 0; i < 4; ++i) AppendTextBlock(f.session, *f.window->Rtf, blocks[i], false);
  size_t n = 0;
  for (auto _ : state) {
    AppendTextBlock(f.session, *f.window->Rtf, blocks[n++ % blocks.size()], state.range(0) != 0);
    f.window->Rtf->viewport()->repaint();
  }
  state.counters["window_chars"] = static_cast<double>(f.window->Rtf->TextLength());
}
BENCHMARK(BM_AppendThousandLineBlock)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)
    ->Repetitions(5)->ReportAggregatesOnly(true);

void BM_AssignOneMegabyteDocument(benchmark::State& state) {
  Fixture f;
  std::vector<std::string> lines;
  Lines(10700, 42, &lines);
  const std::string doc = ComposeInitialDocument(f.session, lines, 10, true);
  state.counters["document_bytes"] = static_cast<double>(doc.size());
  for (auto _ : state) {
    f.window->Rtf->SetTextRTF(doc);
    f.window->Rtf->viewport()->repaint();
  }
}
BENCHMARK(BM_AssignOneMegabyteDocument)->Unit(benchmark::kMillisecond)->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_MemoryWithOneMegabyteShownAndStreaming(benchmark::State& state) {
  for (auto _ : state) {
    Fixture f;
    f.options.MaxInputLength = 1024 * 1024;
    const long before = ResidentKb();
    std::vector<std::string> blocks;
    for (int i = 0; i < 10; ++i) blocks.push_back(Lines(1000, 100 + i));  // ~100 KB each
    for (int i = 0; i < 10; ++i) AppendTextBlock(f.session, *f.window->Rtf, blocks[i], true);
    QApplication::processEvents();
    const long shown = ResidentKb();
    auto stream_100mb = [&] {
      for (int i = 0; i < 1000; ++i) {
        AppendTextBlock(f.session, *f.window->Rtf, blocks[i % 10], true);
        if (i % 50 == 0) QApplication::processEvents();
      }
      QApplication::processEvents();
    };
    stream_100mb();
    const long streamed = ResidentKb();
    stream_100mb();
    const long streamed_twice = ResidentKb();
    state.counters["rss_mb_at_start"] = before / 1024.0;
    state.counters["rss_mb_1mb_shown"] = shown / 1024.0;
    state.counters["rss_mb_after_100mb"] = streamed / 1024.0;
    state.counters["rss_mb_after_200mb"] = streamed_twice / 1024.0;
  }
}
BENCHMARK(BM_MemoryWithOneMegabyteShownAndStreaming)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

int main(int argc, char** argv) { return ferrow::bench::RunBenchmarksWithQt(argc, argv); }
