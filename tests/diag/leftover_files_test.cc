// What a start removes beside the configuration file, on either platform.
#include "diag/leftover_files.h"

#include <gtest/gtest.h>

#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using Names = std::vector<std::string>;

class LeftoverFiles : public testing::SessionTest {
 protected:
  Names Present() {
    Names names = env.FindMatches(dir.File("TMP*.TMP"));
    // On Windows "Ferrow.INI.*" finds the configuration file itself too.
    for (const std::string& n : env.FindMatches(dir.File("Ferrow.INI.*")))
      if (n != "Ferrow.INI") names.push_back(n);
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(LeftoverFiles, ADeadTrimsAndADeadWritersFilesGoOthersStay) {
  WriteIni("[Common]\r\n");
  testing::WriteBytes(dir.File("TMP00017.TMP"),
                      ";Ferrow v1.46 [" + options.IniFileName + "] written at 1/1/2026 10:00:00\r\n[Common]\r\n");
  testing::WriteBytes(dir.File("TMP00018.TMP"), ";Ferrow v1.46 [C:\\other\\Ferrow.INI] written at x\r\n");
  testing::WriteBytes(dir.File("TMP00019.TMP"), "someone else's\r\n");
  testing::WriteBytes(dir.File("Ferrow.INI.Zq81xA"), "[Common]\r\n");
  testing::WriteBytes(dir.File("Ferrow.INI.bak"), "[Common]\r\n");
  EXPECT_EQ(RemoveLeftoverFiles(session, options.IniFileName), 2);
  EXPECT_EQ(Present(), (Names{"Ferrow.INI.bak", "TMP00018.TMP", "TMP00019.TMP"}));
  EXPECT_EQ(Ini(), "[Common]\r\n");
}

// A trim killed after making its file but before the header reached it
// leaves the file empty. Only names of the trim's own form go (five digits);
// the system's temporary names (four hexadecimal digits) stay.
TEST_F(LeftoverFiles, AnEmptyFileOfTheTrimsOwnNameGoes) {
  WriteIni("[Common]\r\n");
  testing::WriteBytes(dir.File("TMP04711.TMP"), "");
  testing::WriteBytes(dir.File("TMP1A2B.TMP"), "");
  testing::WriteBytes(dir.File("TMP0815.TMP"), "");
  testing::WriteBytes(dir.File("TMP123456.TMP"), "");
  EXPECT_EQ(RemoveLeftoverFiles(session, options.IniFileName), 1);
  EXPECT_EQ(Present(), (Names{"TMP0815.TMP", "TMP123456.TMP", "TMP1A2B.TMP"}));
}

TEST_F(LeftoverFiles, NothingIsTouchedWithoutAConfigurationFile) {
  testing::WriteBytes(dir.File("Ferrow.INI.Zq81xA"), "[Common]\r\n");
  EXPECT_EQ(RemoveLeftoverFiles(session, options.IniFileName), 0);
  EXPECT_EQ(Present(), (Names{"Ferrow.INI.Zq81xA"}));
}

}  // namespace
}  // namespace ferrow
