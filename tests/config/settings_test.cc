#include "config/settings.h"

#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;

class SettingsTest : public SessionTest {
 protected:
  std::string Key(const std::string& section, const std::string& key) {
    return ReadINIFile(env, options.IniFileName, section, key);
  }
  void LoadCommon(const std::string& common) {
    WriteIni("[Common]\r\n" + common);
    LoadCommonSettings(session, options.IniFileName);
  }
  void LoadFile(const std::string& keys) {
    WriteIni("[app.log]\r\n" + keys);
    LoadFileSettings(session, options.IniFileName, "app.log");
  }
};

TEST_F(SettingsTest, BufferSizeKbIsClampedToOneKilobyte) {
  LoadCommon("BufferSizeKb=0\r\n");
  EXPECT_EQ(options.MaxInputLength, 1024);
}

TEST_F(SettingsTest, BufferSizeKbIsClampedToTenMegabytes) {
  LoadCommon("BufferSizeKb=99999\r\n");
  EXPECT_EQ(options.MaxInputLength, 10485760);
}

TEST_F(SettingsTest, BufferSizeKbThatIsNoNumberCountsAsZero) {
  LoadCommon("BufferSizeKb=lots\r\n");
  EXPECT_EQ(options.MaxInputLength, 1024);
}

TEST_F(SettingsTest, PerFileMaxInputLengthIsTakenInBytesUnclamped) {
  LoadFile("MaxInputLength=500\r\n");
  EXPECT_EQ(options.MaxInputLength, 500);
  LoadFile("MaxInputLength=0\r\n");
  EXPECT_EQ(options.MaxInputLength, 0);
  LoadFile("MaxInputLength=-5\r\n");
  EXPECT_EQ(options.MaxInputLength, -5);
}

TEST_F(SettingsTest, TimerIntervalHasAMinimumOfOneHundred) {
  LoadFile("TimerInterval=10\r\n");
  EXPECT_EQ(options.TimerInterval, 100);
  LoadFile("TimerInterval=750\r\n");
  EXPECT_EQ(options.TimerInterval, 750);
  LoadFile("TimerInterval=fast\r\n");
  EXPECT_EQ(options.TimerInterval, 750);
}

TEST_F(SettingsTest, SavedBufferSizeIsMaxInputLengthInRoundedKilobytes) {
  WriteIni("[Common]\r\n");
  options.MaxInputLength = 1500;
  SaveCommonSettings(session);
  EXPECT_EQ(Key("Common", "BufferSizeKb"), "1");
  options.MaxInputLength = 256000;
  SaveCommonSettings(session);
  EXPECT_EQ(Key("Common", "BufferSizeKb"), "250");
}

TEST_F(SettingsTest, CommonSettingsAreSavedInOrder) {
  options.BrowseStartDir = "C:\\logs";
  options.LastFileSelected = "C:\\logs\\app.log";
  options.CopyAsRTF = true;
  SaveCommonSettings(session);
  EXPECT_EQ(Ini(),
            "[Common]\r\nBrowseStartDir=C:\\logs\r\nLastFileSelected=C:\\logs\\app.log\r\n"
            "BufferSizeKb=250\r\nCopyAsRTF=True\r\n");
}

TEST_F(SettingsTest, CommonLoadTakesOnlyNonEmptyNamesAndRecognisedBooleans) {
  options.BrowseStartDir = "D:\\";
  LoadCommon("LastFileSelected=C:\\a.log\r\nBrowseStartDir=\r\nCopyAsRTF=perhaps\r\n"
             "HistoryCount=1\r\nHistory1=C:\\a.log\r\n");
  EXPECT_EQ(options.LastFileSelected, "C:\\a.log");
  EXPECT_EQ(options.BrowseStartDir, "D:\\");
  EXPECT_FALSE(options.CopyAsRTF);
  EXPECT_EQ(options.HistoryTotal, 1);
  LoadCommon("CopyAsRTF=yes\r\n");
  EXPECT_TRUE(options.CopyAsRTF);
}

TEST_F(SettingsTest, MissingConfigurationFileChangesNothing) {
  LoadCommonSettings(session, options.IniFileName);
  LoadFileSettings(session, options.IniFileName, "app.log");
  EXPECT_EQ(options.MaxInputLength, 256000);
  EXPECT_FALSE(testing::PathExists(options.IniFileName));
}

TEST_F(SettingsTest, WithNoFileSelectedNoFileSectionIsReadOrWritten) {
  WriteIni("[Common]\r\nFontSize=20\r\n[]\r\nFontSize=30\r\n");
  const std::string before = Ini();
  LoadFileSettings(session, options.IniFileName, "");
  SaveFileSettings(session, "");
  SaveWindowSettings(session);  // FileSection is empty
  EXPECT_EQ(options.FontSize, 10);
  EXPECT_EQ(Ini(), before);
  EXPECT_EQ(env.writes, 0);
}

TEST_F(SettingsTest, FileSettingsAreReadOverTheRecord) {
  LoadFile("BringFromStartOfFile=yes\r\nPlaySoundOnUpdate=1\r\nAlertOnUpdate=False\r\n"
           "UpdateSound=ding.wav\r\nFormWidth=12000\r\nFormHeight=4000\r\nFormX=100\r\n"
           "FormY=200\r\nFilterString=ERROR WARN\r\nQuickScroll=TRUE\r\n"
           "HideMenuOnStartup=yes\r\nMenuX=300\r\nMenuY=400\r\nFont=Arial\r\nFontSize=12\r\n"
           "FontBold=False\r\nRedFilterString=FATAL\r\nThemeNumber=9\r\n");
  EXPECT_TRUE(options.BringFromStartOfFile);
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_FALSE(options.AlertOnUpdate);
  EXPECT_EQ(options.UpdateSound, "ding.wav");
  EXPECT_EQ(options.FormWidth, 12000);
  EXPECT_EQ(options.FormHeight, 4000);
  EXPECT_EQ(options.FormX, 100);
  EXPECT_EQ(options.FormY, 200);
  EXPECT_EQ(options.FilterString, "ERROR WARN");
  EXPECT_TRUE(options.QuickScroll);
  EXPECT_TRUE(options.HideMenuOnStartup);
  EXPECT_EQ(options.MenuX, 300);
  EXPECT_EQ(options.MenuY, 400);
  EXPECT_EQ(options.Font, "Arial");
  EXPECT_EQ(options.FontSize, 12);
  EXPECT_FALSE(options.FontBold);
  EXPECT_EQ(options.RedFilterString, "FATAL");
  EXPECT_EQ(options.ThemeNumber, 9);
}

TEST_F(SettingsTest, MissingAndMalformedKeysLeaveFieldsAlone) {
  options.FontSize = 14;
  options.FormX = 7;
  LoadFile("FontSize=big\r\nFormX=\r\nFont=\r\nAlertOnUpdate=sometimes\r\nFontSize=99\r\n");
  EXPECT_EQ(options.FontSize, 14);
  EXPECT_EQ(options.FormX, 7);
  EXPECT_EQ(options.Font, "Terminal");
  EXPECT_TRUE(options.AlertOnUpdate);
}

TEST_F(SettingsTest, ThemeNumberIsTakenOnlyWithinTheThemeTable) {
  LoadFile("ThemeNumber=12\r\n");
  EXPECT_EQ(options.ThemeNumber, 1);
  LoadFile("ThemeNumber=-1\r\n");
  EXPECT_EQ(options.ThemeNumber, 1);
  LoadFile("ThemeNumber=0\r\n");
  EXPECT_EQ(options.ThemeNumber, 0);
}

TEST_F(SettingsTest, FontBoldFollowsTheGeneralBooleanRule) {
  LoadFile("FontBold=0\r\n");
  EXPECT_FALSE(options.FontBold);
  LoadFile("FontBold=-1\r\n");
  EXPECT_TRUE(options.FontBold);
  LoadFile("FontBold=false\r\n");
  EXPECT_FALSE(options.FontBold);
  LoadFile("FontBold=yes\r\n");  // the YES/NO form is not this rule's
  EXPECT_FALSE(options.FontBold);
}

TEST_F(SettingsTest, ColoursAreReadAsNumbersHexOrNames) {
  LoadFile("BackColour=255\r\nFontColour=&h800000\r\nFilterColour=00FF00\r\n");
  EXPECT_EQ(options.BackColour, 255);
  EXPECT_EQ(options.FontColour, 0x800000);
  EXPECT_EQ(options.FilterColour, 0x00FF00);
  LoadFile("BackColour=Cornsilk\r\nFontColour=slategrey\r\nFilterColour=nocolour\r\n");
  EXPECT_EQ(options.BackColour, 0xDCF8FF);
  EXPECT_EQ(options.FontColour, 0x908070);
  EXPECT_EQ(options.FilterColour, 0x00FF00);
}

TEST_F(SettingsTest, FileSettingsAreSavedInOrderWithNamedColours) {
  options.FilterString = " \tERROR WARN\r\n";
  options.MenuX = 1500;
  options.BackColour = 0x800000;
  options.TimerInterval = 2000;
  options.MaxInputLength = 4096;
  options.RedFilterString = "FATAL";
  SaveFileSettings(session, "app.log");
  EXPECT_EQ(Ini(),
            "[app.log]\r\nMenuX=1500\r\nBackColour=&h800000\r\nFilterString=ERROR WARN\r\n"
            "FilterColour=Blue\r\nFont=Terminal\r\nFontColour=Grey\r\nFontSize=10\r\n"
            "ThemeNumber=1\r\nUpdateSound=Updated.wav\r\nFontBold=True\r\n"
            "BringFromStartOfFile=False\r\nHideMenuOnStartup=False\r\n"
            "PlaySoundOnUpdate=False\r\nAlertOnUpdate=True\r\nQuickScroll=False\r\n");
  EXPECT_EQ(options.FilterString, "ERROR WARN");
}

TEST_F(SettingsTest, TimerIntervalBufferAndRedFilterAreReadButNeverWritten) {
  LoadFile("TimerInterval=1000\r\nMaxInputLength=4096\r\nRedFilterString=FATAL\r\n");
  WriteIni("");
  SaveFileSettings(session, "app.log");
  EXPECT_EQ(Ini().find("TimerInterval"), std::string::npos);
  EXPECT_EQ(Ini().find("MaxInputLength"), std::string::npos);
  EXPECT_EQ(Ini().find("RedFilterString"), std::string::npos);
}

TEST_F(SettingsTest, WindowGeometryIsSavedOnlyWhenSensible) {
  options.FileSection = "app.log";
  options.FormWidth = 1844;
  options.FormHeight = 650;
  options.FormX = 0;
  options.FormY = -10;
  SaveWindowSettings(session);
  EXPECT_FALSE(testing::PathExists(options.IniFileName));
  options.FormWidth = 1845;
  options.FormHeight = 651;
  options.FormX = 1;
  options.FormY = 2;
  SaveWindowSettings(session);
  EXPECT_EQ(Ini(), "[app.log]\r\nFormWidth=1845\r\nFormHeight=651\r\nFormX=1\r\nFormY=2\r\n");
}

TEST_F(SettingsTest, SameFileNameInTwoFoldersSharesOneSection) {
  SaveFileSettings(session, "app.log");  // followed as C:\a\app.log
  options.FontSize = 30;
  LoadFileSettings(session, options.IniFileName, "APP.LOG");  // as D:\b\APP.LOG
  EXPECT_EQ(options.FontSize, 10);
  options.FontSize = 16;
  SaveFileSettings(session, "APP.LOG");
  EXPECT_EQ(Ini().find("[APP.LOG]"), std::string::npos);
  EXPECT_EQ(Key("app.log", "FontSize"), "16");
}

}  // namespace
}  // namespace ferrow
