// Logs in UTF-16, UTF-8 and the ANSI code page followed in the real Qt text
// window: loaded, grown, filtered and copied as rich text that unrtf reads back.
#include <QApplication>
#include <QClipboard>

#include "control/form1_fixture.h"
#include <QTextCursor>
#include <algorithm>

#include "display/filters.h"
#include "qt/frmText.h"
#include "qt/qt_convert.h"
#include "qt/rich_text_box.h"
#include "testing/encoded_text.h"
#include "testing/unrtf.h"

namespace ferrow {
namespace {

const std::string kLines =
    "premi\xC3\xA8re ligne\r\ndeuxi\xC3\xA8me \xC4\x8A \xF0\x9F\x98\x80\r\n"
    "\xCE\xA9\xCE\xBC\xCE\xAD\xCE\xB3\xCE\xB1 \xC3\x89\x43HEC \xC3\xA0 la fin\r\n";
const std::string kLatinLines = "premi\xC3\xA8re ligne\r\n\xC3\x89\x43HEC \xC3\xA0 la fin\r\n";

Colour ColourAt(RichTextBox& box, int position) {
  QTextCursor c(box.document());
  c.setPosition(position);
  c.setPosition(position + 1, QTextCursor::KeepAnchor);
  return FromQColor(c.charFormat().foreground().color());
}

std::string Shown(const std::string& lines) {
  std::string out;
  for (char c : lines)
    if (c != '\r') out += c;
  return out;
}

class EncodedLogWindow : public testing::Form1Test {
 protected:
  EncodedLogWindow() { form->Logic().Form_Load(); }
  RichTextBox& Open(const std::string& name, const std::string& bytes) {
    log = MakeLog(name, bytes);
    Type(log);
    form->Logic().OK_Click();
    return *form->TextWindow()->Rtf;
  }
  void Grow(const std::string& bytes, size_t step) {
    for (size_t at = 0; at < bytes.size(); at += step) {
      testing::AppendBytes(log, bytes.substr(at, step));
      form->Logic().follower().Timer1_Timer();
    }
  }
  std::string log;
};

TEST_F(EncodedLogWindow, EveryEncodingLoadsInLinesAndBufferModeAndGrowsInOddPieces) {
  for (bool latin : {false, true}) {
    const std::string& text = latin ? kLatinLines : kLines;
    int n = 0;
    for (const auto& file : testing::EveryEncoding(text, latin)) {
      if (latin && std::string(file.name) != "ANSI") continue;
      RichTextBox& box = Open("log" + std::to_string(n++) + ".log", file.bytes);
      form->Logic().follower().LoadFileToTextBox(log, box, 1);
      const std::string last = Shown(text.substr(text.rfind("\r\n", text.size() - 3) + 2));
      EXPECT_EQ(box.Text(), last) << file.name;
      form->Logic().follower().LoadFileToTextBox(log, box, 0);
      EXPECT_EQ(box.Text(), Shown(text)) << file.name;

      // The same file written again from empty, 3 bytes a poll: every
      // character is cut somewhere.
      testing::WriteBytes(log, "");
      form->Logic().follower().Timer1_Timer();
      options.LastFileSize = 0;
      box.SetText("");
      Grow(file.bytes, 3);
      std::string shown = box.Text();
      shown.erase(std::remove(shown.begin(), shown.end(), '\n'), shown.end());
      std::string expected = Shown(text);
      expected.erase(std::remove(expected.begin(), expected.end(), '\n'), expected.end());
      EXPECT_EQ(shown, expected) << file.name;
    }
  }
}

TEST_F(EncodedLogWindow, AccentedFilterWordIsHighlightedWhateverItsCase) {
  for (const auto& file : testing::EveryEncoding(kLatinLines, true)) {
    RichTextBox& box = Open("filter.log", file.bytes);
    options.FilterString = "\xC3\xA9\x63hec";  // échec
    options.FilterColour = 0x00FFFF;
    options.FontColour = 0xBEBEBE;
    RebuildFilterWords(options);
    form->Logic().follower().LoadFileToTextBox(log, box, 0);
    const QString shown = box.toPlainText();
    const int at = static_cast<int>(shown.indexOf(QString::fromUtf8("\xC3\x89\x43HEC")));
    ASSERT_GT(at, 0) << file.name;
    EXPECT_EQ(ColourAt(box, at), 0x00FFFF) << file.name;
    EXPECT_EQ(ColourAt(box, 0), 0xBEBEBE) << file.name;
  }
}

TEST_F(EncodedLogWindow, TheTrimKeepsWholeLinesOfUtf16Text) {
  RichTextBox& box = Open("trim.log", testing::kUtf16LeMark);
  options.MaxInputLength = 60;
  std::string all;
  for (int i = 0; i < 12; ++i) {
    const std::string line = "ligne " + std::to_string(i) + " \xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80\r\n";
    testing::AppendBytes(log, testing::Utf16Le(line));
    form->Logic().follower().Timer1_Timer();
    all += Shown(line);
  }
  const std::string shown = box.Text();
  ASSERT_LT(shown.size(), all.size());
  // The window holds the newest lines, whole, and no more characters than
  // the limit and the rest of the line that was cut.
  const size_t start = all.size() - shown.size();
  EXPECT_EQ(all.substr(start), shown);
  EXPECT_EQ(all[start - 1], '\n');
  EXPECT_LE(QString::fromStdString(shown).size(), 60 + 20);
}

TEST_F(EncodedLogWindow, CopyAsRtfIsReadBackByUnrtfAsTheShownText) {
  if (!testing::UnrtfInstalled()) GTEST_SKIP() << "unrtf missing (scripts/setup --tests)";
  for (const auto& file : testing::EveryEncoding(kLines, false)) {
    RichTextBox& box = Open("copy.log", file.bytes);
    form->Logic().follower().LoadFileToTextBox(log, box, 0);
    options.CopyAsRTF = true;
    Key(&box, Qt::Key_A, Qt::ControlModifier);
    Key(&box, Qt::Key_C, Qt::ControlModifier);
    testing::WriteBytes(dir.File("copy.rtf"), QApplication::clipboard()->text().toStdString());
    EXPECT_EQ(testing::UnrtfText(dir.File("copy.rtf")).value_or("unrtf failed"), Shown(kLines))
        << file.name;
    options.CopyAsRTF = false;
    Key(&box, Qt::Key_A, Qt::ControlModifier);
    Key(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), Shown(kLines)) << file.name;
  }
}

}  // namespace
}  // namespace ferrow
