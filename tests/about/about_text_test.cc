#include "about/about_text.h"

#include <gtest/gtest.h>

#include "startup/command_line.h"
#include "session/options.h"

namespace ferrow {
namespace {

TEST(AboutText, CaptionAndTitle) {
  EXPECT_EQ(AboutCaption(), "About Ferrow for Windows");
  EXPECT_EQ(AboutTitle(), "Ferrow v1.46 - 30th June 2012\r\n\r\n");
}

TEST(AboutText, MissingLibraryIsNotActiveAndHasNoPath) {
  Options o;
  o.UsageText = BuildUsageText(250);
  std::string text = AboutInformation(o, "/Opt/Ferrow/Ferrow", "21/11/2026 10:00:00", "/x/libferrow.so");
  EXPECT_NE(text.find("\r\nFERROW.DLL helper v0 is NOT active \r\n\r\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("/x/libferrow.so"), std::string::npos);
  EXPECT_EQ(text.rfind("Ferrow retrieves data from the END of the file as it changes. \r\n\r\n"
                       "/opt/ferrow/ferrow - Running since 21/11/2026 10:00:00\r\n",
                       0),
            0u);
  EXPECT_NE(text.find("absolutely NO warranty\r\n\r\n" + o.UsageText), std::string::npos);
}

TEST(AboutText, LibraryInUseShowsItsVersionAndPath) {
  Options o;
  o.HelperLibraryVersion = 103;
  o.HelperLibraryInUse = true;
  std::string text = AboutInformation(o, "p", "s", "/x/libferrow.so");
  EXPECT_NE(text.find("FERROW.DLL helper v1.03 is active  - /x/libferrow.so\r\n"), std::string::npos) << text;
}

TEST(AboutText, VersionInGeneralNumberFormat) {
  EXPECT_EQ(LibraryVersionText(103), "1.03");
  EXPECT_EQ(LibraryVersionText(110), "1.1");
  EXPECT_EQ(LibraryVersionText(0), "0");
  EXPECT_EQ(LibraryVersionText(200), "2");
}

}  // namespace
}  // namespace ferrow
