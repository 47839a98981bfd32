#include <gtest/gtest.h>

#include <cstdlib>

#include "display/rich_document.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

RichDocument Sample() {
  RichDocument doc;
  doc.font = "Courier New";
  doc.font_size = 10;
  doc.runs = {{"plain line {1} C:\\x\n", true, 0xBEBEBE, false},
              {"ERROR line\n", true, 0x0000FF, true},
              {"café €\n", true, 0xFF0000, false},
              {"auto", false, 0, false}};
  return doc;
}

TEST(RtfWriter, ReadsBackTheSameTextAndColours) {
  RichDocument back = ReadRtf(WriteRtf(Sample()));
  EXPECT_EQ(back.PlainText(), Sample().PlainText());
  ASSERT_EQ(back.runs.size(), 4u);
  EXPECT_EQ(back.runs[1].colour, 0x0000FF);
  EXPECT_TRUE(back.runs[1].bold);
  EXPECT_EQ(back.runs[2].colour, 0xFF0000);
  EXPECT_FALSE(back.runs[3].has_colour);
  EXPECT_EQ(back.font, "Courier New");
  EXPECT_EQ(back.font_size, 10);
}

TEST(RtfWriter, ColourTableHoldsTheColoursInUseOnce) {
  std::string rtf = WriteRtf(Sample());
  EXPECT_NE(rtf.find("{\\colortbl ;\\red190\\green190\\blue190;\\red255\\green0\\blue0;"
                     "\\red0\\green0\\blue255;}"),
            std::string::npos)
      << rtf;
  EXPECT_NE(rtf.find("caf\\u233?"), std::string::npos);
  EXPECT_EQ(rtf.rfind("{\\rtf1", 0), 0u);
  EXPECT_EQ(rtf.back(), '}');
}

#ifndef _WIN32
TEST(RtfWriter, UnrtfShowsTheSameTextAndColours) {
  if (std::system("command -v unrtf >/dev/null 2>&1") != 0) GTEST_SKIP() << "unrtf missing";
  testing::TempDir dir;
  testing::WriteBytes(dir.File("copy.rtf"), WriteRtf(Sample()));
  ASSERT_EQ(std::system(("unrtf --html '" + dir.File("copy.rtf") + "' > '" + dir.File("copy.html") +
                         "' 2>/dev/null")
                            .c_str()),
            0);
  std::string html = testing::ReadBytes(dir.File("copy.html"));
  for (const char* text : {"plain line {1} C:\\x", "ERROR line", "auto"})
    EXPECT_NE(html.find(text), std::string::npos) << text << "\n" << html;
  EXPECT_NE(html.find("caf&eacute; &euro;"), std::string::npos) << html;
  EXPECT_NE(html.find("#ff0000"), std::string::npos) << html;  // the red run
  EXPECT_NE(html.find("#0000ff"), std::string::npos) << html;  // the blue run
  EXPECT_NE(html.find("#bebebe"), std::string::npos) << html;
}
#endif

}  // namespace
}  // namespace ferrow
