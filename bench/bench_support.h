// What the window benchmarks share: a control window that is never there,
// and a main that runs the benchmarks inside a QApplication.
#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>

#include "display/control_port.h"

namespace ferrow::bench {

class NoControl : public ControlWindowPort {
 public:
  void SetFileNameBox(const std::string&) override {}
  void OK_Click(bool, int16_t, bool) override {}
  void StopTimer() override {}
  void ShowNormalAndActivate() override {}
  bool ProgramClosing() override { return true; }
};

inline int RunBenchmarksWithQt(int argc, char** argv) {
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace ferrow::bench
