#include "about/about_window.h"

#include <gtest/gtest.h>

#include "about/product.h"
#include "dialogs/fake_dialog_views.h"
#include "dialogs/key_codes.h"
#include "startup/command_line.h"
#include "session/session.h"
#include "testing/counting_env.h"
#include "testing/fake_menu_port.h"
#include "testing/recording_ui.h"

namespace ferrow {
namespace {

constexpr SystemColour kBlue = 0xFF0000, kWhite = 0xFFFFFF;

class AboutWindowTest : public ::testing::Test {
 protected:
  AboutWindowTest() {
    options.UsageText = BuildUsageText(250);
    options.StartTime = testing::FixedNow();
  }
  testing::CountingEnv env;
  Options options;
  testing::RecordingUi ui;
  Session session{env, options, ui};
  testing::FakeMenuPort menu;
  testing::FakeAboutView view;
  AboutWindow about{session, menu, view};
};

TEST_F(AboutWindowTest, OpensCentredWithCaptionTitleInformationAndTheWebsite) {
  about.Form_Load();
  EXPECT_EQ(view.caption, "About Ferrow for Windows");
  EXPECT_EQ(view.title, "Ferrow v1.46 - 30th June 2012\r\n\r\n");
  EXPECT_EQ(view.information.rfind(
                "Ferrow retrieves data from the END of the file as it changes. \r\n\r\n", 0),
            0u);
  EXPECT_NE(view.information.find(" - Running since 30/06/2012 "), std::string::npos)
      << view.information;
  EXPECT_NE(view.information.find("absolutely NO warranty\r\n\r\n" + options.UsageText),
            std::string::npos);
  EXPECT_EQ(view.website, kWebsite);
  EXPECT_EQ(view.website_text, kBlue);
  EXPECT_EQ(view.website_back, kButtonFace);
  EXPECT_EQ(view.centred, 1);
  EXPECT_EQ(view.shown, 1);
}

TEST_F(AboutWindowTest, WithTheLibraryMissingItIsNotActiveAndHasNoPath) {
  about.Form_Load();
  EXPECT_NE(view.information.find("\r\nFERROW.DLL helper v0 is NOT active \r\n\r\n"),
            std::string::npos)
      << view.information;
}

TEST_F(AboutWindowTest, TheLinkIsWhiteOnBlueUnderTheMouseAndNormalOverTheRest) {
  about.Form_Load();
  about.lblWebsite_MouseMove();
  EXPECT_EQ(view.website_text, kWhite);
  EXPECT_EQ(view.website_back, kBlue);
  about.Form_MouseMove();
  EXPECT_EQ(view.website_text, kBlue);
  EXPECT_EQ(view.website_back, kButtonFace);
}

TEST_F(AboutWindowTest, ClickingTheLinkOpensItGivesTheControlWindowTheFocusAndCloses) {
  about.Form_Load();
  about.lblWebsite_Click();
  EXPECT_EQ(view.opened, std::vector<std::string>{kWebsite});
  EXPECT_EQ(menu.calls.front(), "ShowNormalAndActivate");
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 1);
}

TEST_F(AboutWindowTest, OkClosesAndGivesTheControlWindowBack) {
  about.Form_Load();
  about.Command1_Click();
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.calls, (std::vector<std::string>{"EnableCheckBoxes", "EnableAllButtons",
                                                  "ShowNormalAndActivate"}));
  about.Command1_Click();
  about.Form_Unload();  // the window's own close that follows
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.calls.size(), 3u);
}

TEST_F(AboutWindowTest, EscapeOnOkClosesOtherKeysDoNot) {
  about.Form_Load();
  EXPECT_FALSE(about.Command1_KeyDown('A'));
  EXPECT_EQ(view.closes, 0);
  EXPECT_TRUE(about.Command1_KeyDown(kKeyEscape));
  EXPECT_EQ(view.closes, 1);
}

TEST_F(AboutWindowTest, EnterOnOkClosesAsOkDoes) {
  about.Form_Load();
  EXPECT_TRUE(about.Command1_KeyDown(kKeyReturn));
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("ShowNormalAndActivate"), 1);
}

TEST_F(AboutWindowTest, TheCloseBoxGivesTheControlWindowBack) {
  about.Form_Load();
  about.Form_Unload();
  EXPECT_EQ(menu.Count("EnableAllButtons"), 1);
  EXPECT_EQ(menu.Count("ShowNormalAndActivate"), 1);
}

TEST_F(AboutWindowTest, NothingComesBackWhileTheProgramClosesOrAnOpenRuns) {
  about.Form_Load();
  session.gate.Run(WindowGate::Work::kOpen, [&] { about.Command1_Click(); });
  EXPECT_EQ(view.closes, 1);
  EXPECT_TRUE(menu.calls.empty());
  AboutWindow second{session, menu, view};
  second.Form_Load();
  session.gate.RequestUnload([] {});
  second.Command1_Click();
  EXPECT_TRUE(menu.calls.empty());
}

}  // namespace
}  // namespace ferrow
