#include "config/config_location.h"

#include <gtest/gtest.h>

#include "platform/env.h"
#include "support/paths.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::TempDir;

// The program "lives" in a folder of the test's choosing.
class PlacedEnv : public EnvWrapper {
 public:
  PlacedEnv(std::string program, std::string user_folder, bool writable)
      : EnvWrapper(Env::Default()),
        program_(std::move(program)),
        user_folder_(std::move(user_folder)),
        writable_(writable) {}
  std::string ProgramPath() override { return program_; }
  std::string UserConfigFolder() override { return user_folder_; }
  bool IsFolderWritable(const std::string& f) override {
    return writable_ && EnvWrapper::IsFolderWritable(f);
  }

 private:
  std::string program_, user_folder_;
  bool writable_;
};

TEST(ConfigLocation, IniAndLogSitBesideTheProgramNamedAfterIt) {
  TempDir dir;
  PlacedEnv env(dir.File("Ferrow.exe"), dir.File("user"), true);
  EXPECT_EQ(ProgramName(env), "Ferrow");
  EXPECT_EQ(IniFileName(env), dir.File("Ferrow.INI"));
  EXPECT_EQ(LogFileName(env), dir.File("Ferrow.LOG"));
}

TEST(ConfigLocation, ProgramWithoutExtensionKeepsItsName) {
  TempDir dir;
  PlacedEnv env(dir.File("ferrow"), "", true);
  EXPECT_EQ(IniFileName(env), dir.File("ferrow.INI"));
}

TEST(ConfigLocation, UnwritableProgramFolderFallsBackToUserFolder) {
  TempDir dir;
  const std::string user = dir.File("config") + NativeSeparator() + "ferrow";
  PlacedEnv env(dir.File("Ferrow.exe"), user, false);
  EXPECT_EQ(IniFileName(env), JoinPath(user, "Ferrow.INI"));
  EXPECT_TRUE(Env::Default()->IsFolder(user));  // created on the way
}

}  // namespace
}  // namespace ferrow
