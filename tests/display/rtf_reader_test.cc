#include <gtest/gtest.h>

#include <random>

#include "display/filters.h"
#include "display/rich_document.h"
#include "display/rtf_compose.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

class RtfRoundTrip : public testing::SessionTest {};

TEST_F(RtfRoundTrip, EveryComposedDocumentReadsBackItsLinesAndColours) {
  const std::vector<std::string> lines = {"start", "Error 5 {brace} C:\\path", "",
                                          "  indented\ttab", "café – naïve", "last error"};
  for (const char* font : {"Terminal", "Arial", "Times New Roman"}) {
    for (int size : {9, 10, 12}) {
      for (bool bold : {false, true}) {
        options.Font = font;
        options.FontSize = static_cast<int16_t>(size);
        options.FontColour = 0x123456;
        options.FilterColour = 0x00FFFF;
        options.FilterString = "error";
        RebuildFilterWords(options);
        RichDocument doc = ReadRtf(ComposeInitialDocument(session, lines, size, bold));
        std::string expected;
        for (const auto& l : lines) expected += l + "\n";
        EXPECT_EQ(doc.PlainText(), expected) << font << size;
        EXPECT_EQ(doc.font, font);
        EXPECT_EQ(doc.font_size, size);
        for (const RichRun& run : doc.runs) {
          ASSERT_TRUE(run.has_colour);
          const bool filtered = run.text.find("rror") != std::string::npos;
          if (run.text != "\n") {
            EXPECT_EQ(run.colour, filtered ? 0x00FFFF : 0x123456) << run.text;
          }
          EXPECT_EQ(run.bold, bold);
        }
      }
    }
  }
}

TEST(RtfReader, SkipsUnknownWordsAndStarredDestinations) {
  RichDocument doc = ReadRtf(
      "{\\rtf1{\\*\\unknowndest hidden}{\\stylesheet{\\s0 Normal;}}\\foo12 \\bar visible\\par}");
  EXPECT_EQ(doc.PlainText(), "visible\n");
}

TEST(RtfReader, DecodesHexAndUnicodeEscapes) {
  EXPECT_EQ(ReadRtf("{\\rtf1\\ansi\\ansicpg1252 caf\\'e9 \\'80}").PlainText(), "café €");
  EXPECT_EQ(ReadRtf("{\\rtf1\\ansi\\ansicpg850 \\'82}").PlainText(), "é");
  EXPECT_EQ(ReadRtf("{\\rtf1\\uc1 \\u8364?\\u-3913?\\u-8704?}").PlainText(), "€\xEF\x82\xB7\xEF\xBF\xBD");
  EXPECT_EQ(ReadRtf("{\\rtf1 \\u55357?\\u56832?}").PlainText(), "😀");
}

TEST(RtfReader, ColourTableAcceptsBothCasesAndAutoEntry) {
  RichDocument doc =
      ReadRtf("{\\rtf1{\\colortbl ;\\Red255\\Green0\\Blue0;\\red0\\green0\\blue255;}"
              "\\cf1 red\\cf2 blue\\cf0 auto\\cf9 missing}");
  ASSERT_EQ(doc.runs.size(), 3u);
  EXPECT_EQ(doc.runs[0].text, "red");
  EXPECT_EQ(doc.runs[0].colour, 0x0000FF);
  EXPECT_EQ(doc.runs[1].colour, 0xFF0000);
  EXPECT_FALSE(doc.runs[2].has_colour);
  EXPECT_EQ(doc.runs[2].text, "automissing");
}

// A rich-edit control streams its text out with a NUL after the document.
TEST(RtfReader, ANulAfterTheDocumentIsNoText) {
  EXPECT_EQ(ReadRtf(std::string("{\\rtf1 caf\\'e9 end}\0", 20)).PlainText(), "caf\xC3\xA9 end");
}

TEST(RtfReader, ANulInsideTheDocumentIsACharacterOfTheText) {
  EXPECT_EQ(ReadRtf(std::string("{\\rtf1 ab\0cd\\par}", 17)).PlainText(), std::string("ab\0cd\n", 6));
}

TEST(RtfReader, UnbalancedAndTruncatedInputIsReadAsFarAsItGoes) {
  EXPECT_EQ(ReadRtf("}}}{\\rtf1 a}}}b").PlainText(), "ab");
  EXPECT_EQ(ReadRtf("{\\rtf1 abc\\par de").PlainText(), "abc\nde");
  EXPECT_EQ(ReadRtf("{\\rtf1 x\\'4").PlainText(), "x");
  EXPECT_EQ(ReadRtf("{\\rtf1 x\\").PlainText(), "x");
  EXPECT_EQ(ReadRtf("").PlainText(), "");
}

TEST(RtfReader, TenThousandRandomAndTruncatedInputsNeverCrash) {
  std::mt19937 random(11);
  const std::string alphabet = "{}\\'abcdefu0123456789-; \r\n*";
  testing::CountingEnv env;
  Options options;
  testing::RecordingUi ui;
  Session session{env, options, ui};
  const std::string valid =
      ComposeInitialDocument(session, {"one {x}", "two \\ three", "error"}, 10, true);
  for (int i = 0; i < 10000; ++i) {
    std::string input;
    if (i % 3 == 0) {
      input = valid.substr(0, random() % (valid.size() + 1));
    } else if (i % 3 == 1) {
      for (size_t n = random() % 300; n > 0; --n) input += alphabet[random() % alphabet.size()];
    } else {
      for (size_t n = random() % 300; n > 0; --n) input += static_cast<char>(random());
    }
    RichDocument doc = ReadRtf(input);
    EXPECT_LE(doc.PlainText().size(), input.size() * 4 + 4);
  }
}

}  // namespace
}  // namespace ferrow
