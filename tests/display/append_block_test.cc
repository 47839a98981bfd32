#include "display/append_block.h"

#include <gtest/gtest.h>

#include "display/filters.h"
#include "testing/fake_text_box.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::FakeTextBox;
using testing::Insertion;
using Runs = std::vector<Insertion>;

constexpr Colour kText = 0xBEBEBE, kFilter = 0xFF0000, kRed = 0x0000FF;

class AppendBlockTest : public testing::SessionTest {
 protected:
  AppendBlockTest() {
    options.FontColour = kText;
    options.FilterColour = kFilter;
    options.MaxInputLength = 1000;
  }
  void Filters(const std::string& filter, const std::string& red) {
    options.FilterString = filter;
    options.RedFilterString = red;
    RebuildFilterWords(options);
  }
  FakeTextBox box;
};

TEST_F(AppendBlockTest, BlankLinesOfTheFileDisappear) {
  AppendTextBlock(session, box, "a\r\n\r\nb\r\n", false);
  EXPECT_EQ(box.text, "a\nb\n");
  EXPECT_EQ(box.insertions, (Runs{{"a\n", kText}, {"b\n", kText}}));
}

TEST_F(AppendBlockTest, RedWinsOverTheFilterColour) {
  Filters("ERR", "fatal");
  AppendTextBlock(session, box, "Fatal err\r\nerr only\r\nplain\r\n", false);
  EXPECT_EQ(box.Runs(), (Runs{{"Fatal err\n", kRed}, {"err only\n", kFilter}, {"plain\n", kText}}));
}

TEST_F(AppendBlockTest, QuickScrollGathersUnmarkedLinesIntoOneInsertion) {
  Filters("ERROR", "");
  AppendTextBlock(session, box, "a\nb\nERROR c\nd\ne\n", true);
  EXPECT_EQ(box.insertions,
            (Runs{{"a\nb\n", kText}, {"ERROR c\n", kFilter}, {"d\ne\n", kText}}));
  EXPECT_EQ(box.empty_insertions, 1);  // the trailing empty run
  EXPECT_EQ(box.insert_colour, kText);
}

TEST_F(AppendBlockTest, BracesShowWithABackslashWhenAppended) {
  AppendTextBlock(session, box, "{x}\r\n", false);
  EXPECT_EQ(box.text, "\\{x\\}\n");
}

TEST_F(AppendBlockTest, BlockWithoutLinesChangesNothing) {
  box.max_length = 77;
  AppendTextBlock(session, box, "\r\n\r\n", false);
  EXPECT_EQ(box.text, "");
  EXPECT_EQ(box.max_length, 77);
  EXPECT_EQ(box.batches, 0);
}

TEST_F(AppendBlockTest, WindowIsTrimmedAndTheCaretLeftAtTheEnd) {
  options.MaxInputLength = 16;
  box.SetText("old line 1\nold line 2\n");
  AppendTextBlock(session, box, "new line\r\n", false);
  EXPECT_EQ(box.text, "new line\n");
  EXPECT_EQ(box.max_length, 16);
  EXPECT_EQ(box.sel_start, box.TextLength());
  EXPECT_EQ(box.open_batches, 0);
}

TEST_F(AppendBlockTest, TheBufferIsRaisedSoABigBlockIsNotCutShort) {
  options.MaxInputLength = 8;
  box.max_length = 8;
  AppendTextBlock(session, box, "1234567\r\nabcdefg\r\n", true);
  EXPECT_EQ(box.text, "abcdefg\n");
}

TEST_F(AppendBlockTest, DebugBannerCounterRunsToThousandAndOneThenZero) {
  options.Debug = true;
  AppendTextBlock(session, box, "x\r\n", false);
  EXPECT_EQ(box.insertions.front(),
            (Insertion{"* * * Debug: Started block write 1 at 30/06/2012 14:05:09 * * *\n", kFilter}));
  session.DebugBlockCounter = 1000;
  AppendTextBlock(session, box, "x\r\n", false);
  EXPECT_EQ(session.DebugBlockCounter, 1001);
  AppendTextBlock(session, box, "\r\n", false);  // no lines: the counter advances all the same
  EXPECT_EQ(session.DebugBlockCounter, 0);
  AppendTextBlock(session, box, "y\r\n", false);
  EXPECT_EQ(session.DebugBlockCounter, 1);
}

TEST_F(AppendBlockTest, BoxOfAnotherKindGetsNothing) {
  box.type_name = "Label";
  AppendTextBlock(session, box, "x\r\n", false);
  EXPECT_EQ(box.text, "");
}

}  // namespace
}  // namespace ferrow
