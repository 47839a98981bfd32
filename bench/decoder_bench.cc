// The text decoder on 100 MB of a log in each encoding, read 100 KB a poll as
// the program reads a growing file (MB/s of file bytes, per CPU second: the
// machine may be shared). "PlatformUtf8" is
// the path every UTF-8 file took before files had encodings of their own (the
// API it uses is unchanged, so the same file measures the older code too:
// build with -DFERROW_BENCH_PLATFORM_ONLY against it).
#include <benchmark/benchmark.h>

#include <string>

#include "engine/text_decoder.h"
#include "platform/env.h"
#ifndef FERROW_BENCH_PLATFORM_ONLY
#include "support/codepage.h"
#endif

namespace {

using namespace ferrow;

constexpr size_t kFileBytes = 100 * 1000 * 1000;
constexpr size_t kPoll = 102400;

// A log line with a few accented letters and a symbol, as UTF-8.
std::string Line(size_t n) {
  return "2026-11-24 23:10:" + std::to_string(10 + n % 50) + " INFO caf\xC3\xA9 r\xC3\xA9sum\xC3\xA9 request " +
         std::to_string(n) + " served in 12 ms \xE2\x82\xAC 4,50\r\n";
}

// About kFileBytes of log lines in the encoding `kind` names.
std::string MakeFile(const std::string& kind) {
  std::string out;
  out.reserve(kFileBytes + 256);
  if (kind == "utf16le") out = "\xFF\xFE";
  for (size_t n = 0; out.size() < kFileBytes; ++n) {
    const std::string line = Line(n);
#ifndef FERROW_BENCH_PLATFORM_ONLY
    if (kind == "utf16le" || kind == "utf16be") {
      for (size_t i = 0; i < line.size();) {
        const unsigned char b = static_cast<unsigned char>(line[i]);
        const int extra = b < 0x80 ? 0 : b >= 0xE0 ? 2 : 1;
        char32_t c = extra == 0 ? b : b & (0x3F >> extra);
        for (int k = 1; k <= extra; ++k) c = c << 6 | (static_cast<unsigned char>(line[i + k]) & 0x3F);
        i += static_cast<size_t>(extra) + 1;
        const char hi = static_cast<char>(c >> 8), lo = static_cast<char>(c & 0xFF);
        out += kind == "utf16be" ? hi : lo;
        out += kind == "utf16be" ? lo : hi;
      }
      continue;
    }
    if (kind == "legacy") {  // é is E9, € is 80 in Windows-1252
      for (size_t i = 0; i < line.size(); ++i) {
        if (line.compare(i, 2, "\xC3\xA9") == 0) out += '\xE9', ++i;
        else if (line.compare(i, 3, "\xE2\x82\xAC") == 0) out += '\x80', i += 2;
        else out += line[i];
      }
      continue;
    }
#endif
    out += line;
  }
  if (kind == "utf16be") out.insert(0, "\xFE\xFF");
  return out;
}

const std::string& File(const std::string& kind) {
  static std::string cached_kind, cached;
  if (cached_kind != kind) {
    cached.clear();
    cached.shrink_to_fit();
    cached = MakeFile(kind);
    cached_kind = kind;
  }
  return cached;
}

void PlatformUtf8(benchmark::State& state) {
  const std::string& file = File("utf8");
  for (auto _ : state) {
    TextDecoder decoder(*Env::Default());
    size_t shown = 0;
    for (size_t at = 0; at < file.size(); at += kPoll) shown += decoder.Decode(file.substr(at, kPoll)).size();
    benchmark::DoNotOptimize(shown);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * File("utf8").size()));
}
BENCHMARK(PlatformUtf8)->Unit(benchmark::kMillisecond);

#ifndef FERROW_BENCH_PLATFORM_ONLY
// A followed file: its encoding decided from its bytes, each poll's read
// given with its offset.
void FollowedFile(benchmark::State& state, const std::string& kind) {
  const std::string& file = File(kind);
  for (auto _ : state) {
    TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
    decoder.StartFile();
    size_t shown = 0;
    for (size_t at = 0; at < file.size(); at += kPoll)
      shown += decoder.DecodeAt(file.substr(at, kPoll), static_cast<int64_t>(at)).size();
    benchmark::DoNotOptimize(shown);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * File(kind).size()));
}
BENCHMARK_CAPTURE(FollowedFile, Utf8, std::string("utf8"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FollowedFile, Utf16Le, std::string("utf16le"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FollowedFile, Utf16Be, std::string("utf16be"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FollowedFile, Windows1252, std::string("legacy"))->Unit(benchmark::kMillisecond);
#endif

}  // namespace

BENCHMARK_MAIN();
