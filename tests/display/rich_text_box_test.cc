#include "qt/rich_text_box.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QTextBlock>

#include "display/append_block.h"
#include "display/filters.h"
#include "qt/qt_convert.h"
#include "display/rich_document.h"
#include "display/rtf_compose.h"
#include "display/text_ops.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

// The colour of the character at `position`.
Colour ColourAt(RichTextBox& box, int position) {
  QTextCursor c(box.document());
  c.setPosition(position);
  c.setPosition(position + 1, QTextCursor::KeepAnchor);
  return FromQColor(c.charFormat().foreground().color());
}

class RichTextBoxTest : public testing::SessionTest {
 protected:
  RichTextBox box;
};

TEST_F(RichTextBoxTest, IsARichTextBoxThatNobodyCanType) {
  EXPECT_EQ(box.TypeName(), "RichTextBox");
  EXPECT_TRUE(box.isReadOnly());
  EXPECT_FALSE(box.isUndoRedoEnabled());
  EXPECT_EQ(box.lineWrapMode(), QPlainTextEdit::NoWrap);
}

TEST_F(RichTextBoxTest, SelTextInsertsPlainTextInTheSelectionColour) {
  box.SetSelColor(0x0000FF);
  box.SetSelText("{\\rtf1 \\b not markup}\r\nnext");
  EXPECT_EQ(box.Text(), "{\\rtf1 \\b not markup}\nnext");
  EXPECT_EQ(box.TextLength(), 26);  // the line break counts one
  EXPECT_EQ(ColourAt(box, 0), 0x0000FF);
  EXPECT_EQ(box.SelColor(), 0x0000FF);
}

TEST_F(RichTextBoxTest, SelectionIsReadAndReplaced) {
  box.SetText("hello world\nsecond");
  box.SetSelStart(6);
  box.SetSelLength(5);
  EXPECT_EQ(box.SelStart(), 6);
  EXPECT_EQ(box.SelLength(), 5);
  EXPECT_EQ(box.SelText(), "world");
  box.SetSelText("there");
  EXPECT_EQ(box.Text(), "hello there\nsecond");
  box.SetSelStart(0);
  box.SetSelLength(100);
  EXPECT_EQ(box.SelText(), "hello there\nsecond");
}

TEST_F(RichTextBoxTest, MaxLengthCutsAnInsertionShort) {
  box.SetMaxLength(8);
  box.SetSelText("12345");
  box.SetSelText("67890");
  EXPECT_EQ(box.Text(), "12345678");
  box.SetMaxLength(0);
  box.SetSelText("9");
  EXPECT_EQ(box.Text(), "123456789");
}

TEST_F(RichTextBoxTest, SetTextUsesTheInsertionColourAndReplacesEverything) {
  box.SetSelColor(0x00FF00);
  box.SetSelText("old");
  box.SetSelColor(0xBEBEBE);
  box.SetText("Loading file x\r\nnext");
  EXPECT_EQ(box.Text(), "Loading file x\nnext");
  EXPECT_EQ(ColourAt(box, 0), 0xBEBEBE);
}

TEST_F(RichTextBoxTest, LineCountCountsTheEmptyLastLine) {
  box.SetText("a\nb\n");
  EXPECT_EQ(box.LineCount(), 3);
  box.SetText("a\nb");
  EXPECT_EQ(box.LineCount(), 2);
}

TEST_F(RichTextBoxTest, FindsLineFeedsAndCharacters) {
  box.SetText("ab\ncd\nef");
  EXPECT_EQ(box.Find('\n', 0), 2);
  EXPECT_EQ(box.Find('\n', 3), 5);
  EXPECT_EQ(box.Find('\n', 6), -1);
  EXPECT_EQ(box.Find('d', 0), 4);
  EXPECT_EQ(box.Find('z', 0), -1);
}

TEST_F(RichTextBoxTest, TrimDeletesFromTheFrontToAWholeLine) {
  options.MaxInputLength = 20;
  box.SetText("0123456789abc\ndefghijklmnopqr\n");
  TrimTextWindow(box, options);
  EXPECT_EQ(box.Text(), "defghijklmnopqr\n");
  EXPECT_TRUE(box.updatesEnabled());
}

TEST_F(RichTextBoxTest, ComposedDocumentShowsItsTextInItsColours) {
  options.Font = "Arial";
  options.FontColour = 0xFFFFFF;
  options.FilterColour = 0x00FFFF;
  options.FilterString = "error";
  RebuildFilterWords(options);
  box.SetTextRTF(ComposeInitialDocument(session, {"start", "Error 5", "{x}"}, 10, false));
  EXPECT_EQ(box.Text(), "start\nError 5\n{x}\n");
  EXPECT_EQ(ColourAt(box, 0), 0xFFFFFF);
  EXPECT_EQ(ColourAt(box, 6), 0x00FFFF);
  EXPECT_EQ(box.SelStart(), box.TextLength());
}

TEST_F(RichTextBoxTest, SelectionAsRichTextKeepsTextAndColours) {
  box.SetSelColor(0x0000FF);
  box.SetSelText("red line\n");
  box.SetSelColor(0x00FF00);
  box.SetSelText("green line\n");
  box.SetSelStart(4);
  box.SetSelLength(11);
  RichDocument copy = ReadRtf(box.SelRTF());
  EXPECT_EQ(copy.PlainText(), "line\ngreen ");
  ASSERT_GE(copy.runs.size(), 2u);
  EXPECT_EQ(copy.runs.front().colour, 0x0000FF);
  EXPECT_EQ(copy.runs.back().colour, 0x00FF00);
}

TEST_F(RichTextBoxTest, AppendedBlockLandsInTheWidgetWithItsColours) {
  options.FontColour = 0xBEBEBE;
  options.FilterColour = 0xFF0000;
  options.FilterString = "warn";
  options.RedFilterString = "fatal";
  RebuildFilterWords(options);
  AppendTextBlock(session, box, "one\r\nWARN two\r\n\r\nfatal three\r\n", true);
  EXPECT_EQ(box.Text(), "one\nWARN two\nfatal three\n");
  EXPECT_EQ(ColourAt(box, 0), 0xBEBEBE);
  EXPECT_EQ(ColourAt(box, 4), 0xFF0000);
  EXPECT_EQ(ColourAt(box, 13), 0x0000FF);
  EXPECT_EQ(box.textCursor().position(), box.TextLength());
  EXPECT_EQ(box.SelColor(), 0xBEBEBE);
}

TEST_F(RichTextBoxTest, EveryChangeMovesTheCaretToTheEnd) {
  box.SetText("abc\ndef");
  QTextCursor c = box.textCursor();
  c.setPosition(1);
  box.setTextCursor(c);
  box.SetSelStart(box.TextLength());
  box.SetSelText("\nmore");
  EXPECT_EQ(box.textCursor().position(), box.TextLength());
}

TEST(Fonts, MissingFixedPitchFontsFallBackToFixedPitch) {
  for (const char* name : {"Terminal", "System"}) {
    QFont font = MakeFont(name, 10, true);
    EXPECT_TRUE(MeasuresFixedPitch(font)) << name << " -> " << QFontInfo(font).family().toStdString();
    EXPECT_TRUE(font.bold());
  }
  EXPECT_EQ(MakeFont("Arial", 12, false).pointSize(), 12);
}

}  // namespace
}  // namespace ferrow
