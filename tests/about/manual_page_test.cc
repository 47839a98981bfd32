// The manual page lists the switches the usage box lists.
#include <gtest/gtest.h>

#include <sstream>

#include "startup/command_line.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

TEST(ManualPage, ListsEverySwitchOfTheUsageText) {
  const std::string page = testing::ReadBytes(FERROW_MANUAL_PAGE);
  ASSERT_FALSE(page.empty());
  std::istringstream usage(BuildUsageText(250));
  std::string line;
  int switches = 0;
  while (std::getline(usage, line)) {
    std::istringstream words(line);
    std::string product, name;
    words >> product >> name;
    if (name.empty() || name[0] != '/') continue;
    name = name.substr(0, name.find('='));
    ++switches;
    const bool listed = page.find("\n.B " + name + "\n") != std::string::npos ||
                        page.find("\n.BI " + name + "=") != std::string::npos;
    EXPECT_TRUE(listed) << name;
  }
  EXPECT_EQ(switches, 10);
}

TEST(ManualPage, TellsWhereTheSettingsOfAnInstalledProgramGo) {
  const std::string page = testing::ReadBytes(FERROW_MANUAL_PAGE);
  EXPECT_NE(page.find("$XDG_CONFIG_HOME/ferrow"), std::string::npos);
  EXPECT_NE(page.find("~/.config/ferrow/ferrow.INI"), std::string::npos);
}

}  // namespace
}  // namespace ferrow
