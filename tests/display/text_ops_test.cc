#include "display/text_ops.h"

#include <gtest/gtest.h>

#include "testing/fake_text_box.h"

namespace ferrow {
namespace {

using testing::FakeTextBox;

class TextOpsTest : public ::testing::Test {
 protected:
  TextOpsTest() { options.MaxInputLength = 20; }
  Options options;
  FakeTextBox box;
};

TEST_F(TextOpsTest, TenOverDeletesNineThenUpToTheNextLineFeed) {
  box.SetText("0123456789abc\ndefghijklmnopqr\n");  // 30 characters: 10 over
  TrimTextWindow(box, options);
  EXPECT_EQ(box.text, "defghijklmnopqr\n");
  EXPECT_EQ(box.max_length, 20);
}

TEST_F(TextOpsTest, WithoutALineFeedOnlyNineGo) {
  box.SetText("0123456789abcdefghijklmnopqrst");  // 30, no line feed
  TrimTextWindow(box, options);
  EXPECT_EQ(box.text, "9abcdefghijklmnopqrst");
}

TEST_F(TextOpsTest, TextWithinTheLimitIsLeftAlone) {
  box.SetText("short\n");
  TrimTextWindow(box, options);
  EXPECT_EQ(box.text, "short\n");
}

TEST_F(TextOpsTest, TrimLocksUpdatesUnlessMinimised) {
  box.SetText("x");
  TrimTextWindow(box, options);
  EXPECT_EQ(box.locks, 1);
  box.minimised = true;
  TrimTextWindow(box, options);
  EXPECT_EQ(box.locks, 1);
}

TEST_F(TextOpsTest, DeleteOfOneTakesNothingButTheLine) {
  box.SetText("ab\ncd");
  DeleteLeadingText(box, 1, true);
  EXPECT_EQ(box.text, "cd");
  DeleteLeadingText(box, 0, true);
  EXPECT_EQ(box.text, "cd");
}

TEST_F(TextOpsTest, RaiseMaxLengthAllowsTwiceTheBuffer) {
  RaiseMaxLength(box, options);
  EXPECT_EQ(box.max_length, 40);
}

TEST_F(TextOpsTest, AppendedRunIsPlainTextInItsColourThenTheColourAfter) {
  options.Font = "Arial";
  box.SetText("a\n");
  AppendColouredText(box, options, "{\\b x}\r\n", 0x0000FF, 0x00FF00);
  EXPECT_EQ(box.text, "a\n{\\b x}\n");
  EXPECT_EQ(box.insertions.back(), (testing::Insertion{"{\\b x}\n", 0x0000FF}));
  EXPECT_EQ(box.insert_colour, 0x00FF00);
  EXPECT_EQ(box.font_name, "Arial");
  EXPECT_EQ(box.sel_start, box.TextLength());
}

TEST_F(TextOpsTest, BoxesOfOtherKindsAreLeftAlone) {
  box.type_name = "ListBox";
  box.SetText("0123456789abcdefghijklmnopqrst");
  TrimTextWindow(box, options);
  AppendColouredText(box, options, "more", 1);
  RaiseMaxLength(box, options);
  EXPECT_EQ(box.text, "0123456789abcdefghijklmnopqrst");
  EXPECT_EQ(box.max_length, 0);
  EXPECT_EQ(GetLineCount(box), 0);
  box.type_name = "Textbox";
  EXPECT_EQ(GetLineCount(box), 1);
  box.type_name = "richtextbox";  // the kind is compared with its case
  EXPECT_EQ(GetLineCount(box), 0);
}

TEST_F(TextOpsTest, LineCountIsZeroForEmptyTextAndCountsTheEmptyLastLine) {
  EXPECT_EQ(GetLineCount(box), 0);
  box.SetText("a\nb\n");
  EXPECT_EQ(GetLineCount(box), 3);
}

TEST_F(TextOpsTest, WordWrapOnAndOff) {
  SetWordWrapOn(box);
  EXPECT_TRUE(box.wrap);
  SetWordWrapOff(box);
  EXPECT_FALSE(box.wrap);
}

}  // namespace
}  // namespace ferrow
