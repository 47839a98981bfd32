#include "support/install_layout.h"

#include <gtest/gtest.h>

#include "platform/env.h"
#include "support/paths.h"
#include "testing/temp_dir.h"

// Paths are written the POSIX way here; a Windows zip keeps everything beside the program.
#ifndef _WIN32
namespace ferrow {
namespace {

// The program as if installed in <root>/usr/bin.
class InstalledEnv : public EnvWrapper {
 public:
  explicit InstalledEnv(const std::string& root) : EnvWrapper(Env::Default()), root_(root) {}
  std::string ProgramPath() override { return root_ + "/usr/bin/ferrow"; }

 private:
  std::string root_;
};

class InstallLayoutTest : public ::testing::Test {
 protected:
  InstallLayoutTest() { env.CreateFolders(dir.File("usr/bin")); }
  testing::TempDir dir;
  InstalledEnv env{dir.path()};
};

TEST_F(InstallLayoutTest, FoldersLieBesideBinUnderTheSamePrefix) {
  const std::string library = InstalledLibraryFolder(env), data = InstalledDataFolder(env);
  EXPECT_EQ(library.rfind(dir.path() + "/usr/bin/../lib", 0), 0u) << library;
  EXPECT_EQ(FileNamePart(library), "ferrow");
  EXPECT_EQ(data, dir.path() + "/usr/bin/../share/ferrow");
}

TEST_F(InstallLayoutTest, SoundBesideTheProgramComesFirst) {
  env.CreateFolders(InstalledDataFolder(env));
  testing::WriteBytes(JoinPath(InstalledDataFolder(env), "Updated.wav"), "RIFF");
  EXPECT_EQ(ProgramDataFile(env, "Updated.wav"),
            JoinPath(InstalledDataFolder(env), "Updated.wav"));
  testing::WriteBytes(dir.File("usr/bin/Updated.wav"), "RIFF");
  EXPECT_EQ(ProgramDataFile(env, "Updated.wav"), dir.File("usr/bin/Updated.wav"));
}

TEST_F(InstallLayoutTest, MissingEverywhereGivesTheNameBesideTheProgram) {
  EXPECT_EQ(ProgramDataFile(env, "Updated.wav"), dir.File("usr/bin/Updated.wav"));
}

}  // namespace
}  // namespace ferrow
#endif
