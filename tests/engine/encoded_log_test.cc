// Following logs written in UTF-16, UTF-8 and the ANSI code page, on real files.
#include <gtest/gtest.h>

#include "display/filters.h"
#include "engine/engine_fixture.h"
#include "testing/encoded_text.h"

namespace ferrow {
namespace {

using testing::AppendBytes;
using testing::EveryEncoding;

// "Ċ" is 0A 01 in UTF-16LE: a byte 10 that is no line feed.
const std::string kLines =
    "premi\xC3\xA8re ligne\r\ndeuxi\xC3\xA8me \xC4\x8A\r\n\xC3\x89\x43HEC \xC3\xA0 la fin\r\n";

// The same without a character that the ANSI code page lacks.
const std::string kLatinLines =
    "premi\xC3\xA8re ligne\r\ndeuxi\xC3\xA8me\r\n\xC3\x89\x43HEC \xC3\xA0 la fin\r\n";

std::string WithoutLineBreaks(std::string s) {
  std::string out;
  for (char c : s)
    if (c != '\n' && c != '\r') out += c;
  return out;
}

class EncodedLog : public testing::EngineTest {
 protected:
  void NewFile(const std::string& bytes) {
    testing::WriteBytes(log, bytes);
    windows.box.SetText("");
    follower.ForgetPartialCharacter();
    options.LastFileSize = options.HighWaterMark = env.FileLength(log).value_or(0);
  }
  void Load(int32_t lines = 0) { follower.LoadFileToTextBox(log, windows.box, lines); }
};

TEST_F(EncodedLog, LinesModeShowsTheLastLinesInEveryEncoding) {
  for (const auto& file : EveryEncoding(kLines, false)) {
    NewFile(file.bytes);
    Load(2);
    EXPECT_EQ(Shown(), "deuxi\xC3\xA8me \xC4\x8A\n\xC3\x89\x43HEC \xC3\xA0 la fin\n") << file.name;
    Load(1);
    EXPECT_EQ(Shown(), "\xC3\x89\x43HEC \xC3\xA0 la fin\n") << file.name;
  }
}

TEST_F(EncodedLog, BufferModeShowsTheSameCharactersAsTheAnsiFile) {
  options.MaxInputLength = 2000;
  std::string text;
  for (int i = 0; i < 300; ++i) text += "ligne " + std::to_string(i) + " \xC3\xA9t\xC3\xA9 \xC3\x80\r\n";
  std::string ansi_shown;
  for (const auto& file : EveryEncoding(text, true)) {
    NewFile(file.bytes);
    options.MaxInputLength = 2000;
    Load();
    if (ansi_shown.empty()) {
      NewFile(testing::Latin1(text));
      Load();
      ansi_shown = Shown();
      const std::string last = "\nligne 299 \xC3\xA9t\xC3\xA9 \xC3\x80\n";
      ASSERT_EQ(ansi_shown.substr(ansi_shown.size() - last.size()), last);
      NewFile(file.bytes);
      Load();
    }
    EXPECT_EQ(Shown(), ansi_shown) << file.name;
  }
}

TEST_F(EncodedLog, GrowthCutAtEveryByteShowsWholeCharactersAndNoMark) {
  const std::string text = "a \xF0\x9F\x98\x80 \xC3\xA9t\xC3\xA9\r\n";
  for (const auto& file : EveryEncoding(text, false)) {
    for (size_t cut = 1; cut < file.bytes.size(); ++cut) {
      NewFile("");
      AppendBytes(log, file.bytes.substr(0, cut));
      Tick();
      AppendBytes(log, file.bytes.substr(cut));
      Tick();
      EXPECT_EQ(WithoutLineBreaks(Shown()), WithoutLineBreaks(text)) << file.name << " cut " << cut;
    }
  }
}

TEST_F(EncodedLog, GrowthInOddSizedPiecesShowsTheText) {
  for (const auto& file : EveryEncoding(kLatinLines, true)) {
    for (size_t step : {1u, 3u, 7u}) {
      NewFile("");
      for (size_t at = 0; at < file.bytes.size(); at += step) {
        AppendBytes(log, file.bytes.substr(at, step));
        Tick();
      }
      EXPECT_EQ(WithoutLineBreaks(Shown()), WithoutLineBreaks(kLatinLines)) << file.name << " " << step;
    }
  }
}

TEST_F(EncodedLog, WholeLinesOfUtf16AreLinesOfTextAndTheCaptionCountsBytes) {
  NewFile(testing::kUtf16LeMark);
  AppendBytes(log, testing::Utf16Le(kLines));
  Tick();
  EXPECT_EQ(Shown(), "premi\xC3\xA8re ligne\ndeuxi\xC3\xA8me \xC4\x8A\n\xC3\x89\x43HEC \xC3\xA0 la fin\n");
  const std::string size = std::to_string(2 + testing::Utf16Le(kLines).size());
  EXPECT_EQ(windows.captions.back(), "Ferrow - " + log + " (" + size + " bytes) [3]");
}

TEST_F(EncodedLog, AccentedFilterWordMatchesWithoutRegardToCase) {
  options.FontColour = 0xBEBEBE;
  options.FilterColour = 0xFF0000;
  options.FilterString = "\xC3\xA9\x63hec";  // échec
  RebuildFilterWords(options);
  for (const auto& file : EveryEncoding(kLatinLines, true)) {
    NewFile(file.bytes);
    Load();
    EXPECT_EQ(windows.box.Runs(),
              (std::vector<testing::Insertion>{
                  {"premi\xC3\xA8re ligne\ndeuxi\xC3\xA8me\n", 0xBEBEBE},
                  {"\xC3\x89\x43HEC \xC3\xA0 la fin", 0xFF0000},
                  {"\n", 0xBEBEBE}}))
        << file.name;
  }
  // And in what a poll appends.
  NewFile(testing::kUtf16BeMark);
  windows.box.insertions.clear();
  AppendBytes(log, testing::Utf16Be("ok\r\nun \xC3\x89\x43HEC\r\n"));
  Tick();
  EXPECT_EQ(windows.box.insertions, (std::vector<testing::Insertion>{
                                        {"ok\n", 0xBEBEBE}, {"un \xC3\x89\x43HEC\n", 0xFF0000}}));
}

TEST_F(EncodedLog, FileRotatedFromUtf16ToAnsiIsReadAsAnsi) {
  NewFile(testing::kUtf16LeMark + testing::Utf16Le("old line\r\n"));  // 22 bytes
  Write({"truncate", log, "0"});
  Tick();
  AppendBytes(log, "0123456789012345678901 caf\xE9 au lait\r\n");
  Tick();
  EXPECT_EQ(Shown(), " caf\xC3\xA9 au lait\n");
}

}  // namespace
}  // namespace ferrow
