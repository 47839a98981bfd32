// How a followed file's encoding is decided from its bytes, and its text
// decoded whatever the reads cut it into.
#include <gtest/gtest.h>

#include "engine/text_decoder.h"
#include "platform/env.h"
#include "testing/encoded_text.h"

namespace ferrow {
namespace {

using testing::Utf16Be;
using testing::Utf16Le;

const std::string kText = "caf\xC3\xA9 \xF0\x9F\x98\x80 \xC3\x89\x43HEC\r\nend\r\n";  // é, 😀, É

struct Case {
  const char* name;
  std::string bytes;
  TextEncoding encoding;
};

std::vector<Case> EveryEncoding() {
  return {{"UTF-16LE", testing::kUtf16LeMark + Utf16Le(kText), TextEncoding::kUtf16Le},
          {"UTF-16BE", testing::kUtf16BeMark + Utf16Be(kText), TextEncoding::kUtf16Be},
          {"UTF-8 with mark", testing::kUtf8Mark + kText, TextEncoding::kUtf8},
          {"UTF-8", kText, TextEncoding::kUtf8}};
}

// The file read as the poll reads it: a new read wherever `cuts` say.
std::string ReadInPieces(TextDecoder& decoder, const std::string& bytes, std::vector<size_t> cuts) {
  cuts.push_back(bytes.size());
  std::string text;
  size_t from = 0;
  for (size_t cut : cuts) {
    text += decoder.DecodeAt(bytes.substr(from, cut - from), static_cast<int64_t>(from));
    from = cut;
  }
  return text;
}

TEST(EncodingDecision, EveryEncodingCutAtEveryByteReadsWholeAndWithoutItsMark) {
  for (const Case& c : EveryEncoding()) {
    for (size_t cut = 0; cut <= c.bytes.size(); ++cut) {
      TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
      decoder.StartFile();
      EXPECT_EQ(ReadInPieces(decoder, c.bytes, {cut}), kText) << c.name << " cut at " << cut;
      EXPECT_EQ(decoder.encoding(), c.encoding) << c.name;
    }
  }
}

TEST(EncodingDecision, EveryEncodingReadInOddSizedPiecesReadsWhole) {
  for (const Case& c : EveryEncoding()) {
    for (size_t step : {1u, 3u, 5u, 7u}) {
      TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
      decoder.StartFile();
      std::vector<size_t> cuts;
      for (size_t at = step; at < c.bytes.size(); at += step) cuts.push_back(at);
      EXPECT_EQ(ReadInPieces(decoder, c.bytes, cuts), kText) << c.name << " step " << step;
    }
  }
}

TEST(EncodingDecision, FirstBytesThatAreNotUtf8MeanTheLegacyCodePage) {
  TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
  decoder.StartFile();
  // Windows-1252 here; the ANSI code page (1252 too under the test's Wine) on Windows.
  EXPECT_EQ(decoder.DecodeAt("caf\xE9 \x80 \xC3\xA9\r\n", 0),
            "caf\xC3\xA9 \xE2\x82\xAC \xC3\x83\xC2\xA9\r\n");
  EXPECT_EQ(decoder.encoding(), TextEncoding::kLegacy);
}

TEST(EncodingDecision, AsciiLeavesItUndecidedUntilTheFirstOtherBytes) {
  TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
  decoder.StartFile();
  EXPECT_EQ(decoder.DecodeAt("plain ascii\r\n", 0), "plain ascii\r\n");
  EXPECT_EQ(decoder.encoding(), TextEncoding::kUndecided);
  EXPECT_EQ(decoder.DecodeAt("\xE2\x82", 13), "");  // too early to tell
  EXPECT_EQ(decoder.encoding(), TextEncoding::kUndecided);
  EXPECT_EQ(decoder.DecodeAt("\xAC \xFF\r\n", 15), "\xE2\x82\xAC \xEF\xBF\xBD\r\n");
  EXPECT_EQ(decoder.encoding(), TextEncoding::kUtf8);
}

TEST(EncodingDecision, AFileStartedAgainIsDecidedAgain) {
  TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
  decoder.StartFile();
  EXPECT_EQ(decoder.DecodeAt(testing::kUtf16LeMark + Utf16Le("a\r\n"), 0), "a\r\n");
  decoder.StartFile();
  EXPECT_EQ(decoder.DecodeAt("caf\xE9\r\n", 0), "caf\xC3\xA9\r\n");
  EXPECT_EQ(decoder.encoding(), TextEncoding::kLegacy);
}

TEST(EncodingDecision, MarkSeenInTheHeadDecidesAReadFromTheMiddle) {
  const std::string file = testing::kUtf16BeMark + Utf16Be("x\xF0\x9F\x98\x80yz");
  TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
  decoder.StartFile();
  decoder.LookAtHead(file.substr(0, 3));
  // Offset 5: an odd byte, then the second half of the pair: both dropped.
  EXPECT_EQ(decoder.DecodeAt(file.substr(5), 5), "yz");
  // Offset 3: the odd byte of the x, then the whole pair.
  EXPECT_EQ(decoder.DecodeAt(file.substr(3), 3), "\xF0\x9F\x98\x80yz");
}

TEST(EncodingDecision, ReadStartingInsideAUtf8CharacterDropsItsTail) {
  const std::string file = "ab \xF0\x9F\x98\x80 c\xC3\xA9";
  for (size_t from = 4; from <= 6; ++from) {
    TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
    decoder.StartFile();
    decoder.LookAtHead(file.substr(0, 3));
    EXPECT_EQ(decoder.DecodeAt(file.substr(from), static_cast<int64_t>(from)), " c\xC3\xA9");
  }
}

TEST(EncodingDecision, MarkSplitOverThreeReadsIsNeverShown) {
  TextDecoder decoder(*Env::Default(), TextEncoding::kUndecided);
  decoder.StartFile();
  std::string text = decoder.DecodeAt("\xEF", 0);
  decoder.LookAtHead("\xEF\xBB");
  text += decoder.DecodeAt("\xBB", 1);
  decoder.LookAtHead("\xEF\xBB\xBF");
  text += decoder.DecodeAt("\xBFok", 2);
  EXPECT_EQ(text, "ok");
}

}  // namespace
}  // namespace ferrow
