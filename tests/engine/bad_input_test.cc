// Files the follower was never meant for: no crash, no hang, and the outcome
// the failure table gives.
#include <gtest/gtest.h>

#include <random>

#include "engine/engine_fixture.h"

namespace ferrow {
namespace {

using testing::EngineTest;

class BadInput : public EngineTest {
 protected:
  void Start() { options.LastFileSize = options.HighWaterMark = env.FileLength(log).value_or(0); }
};

TEST_F(BadInput, BinaryFileIsShownWithoutHarm) {
  Start();
  std::mt19937 random(1);
  std::string bytes(50000, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  testing::WriteBytes(log, bytes);
  Tick();
  EXPECT_FALSE(Shown().empty());
  EXPECT_EQ(options.LastFileSize, 50000);
  follower.LoadFileToTextBox(log, windows.box, 0);
  follower.LoadFileToTextBox(log, windows.box, 10);
}

TEST_F(BadInput, NulBytesPassThrough) {
  Start();
  testing::WriteBytes(log, std::string("a\0b\r\n", 5));
  Tick();
  EXPECT_EQ(Shown(), std::string("a\0b\n", 4));
}

TEST_F(BadInput, FiveMegabyteLineWithoutLineEnd) {
  Start();
  Write({"fill", log, "5242880"});
  Tick();
  EXPECT_NE(Shown().find("growing too fast"), std::string::npos);
  options.MaxInputLength = 1048576;
  follower.LoadFileToTextBox(log, windows.box, 0);
  EXPECT_LE(Shown().size(), 1048576u + 8);
  follower.LoadFileToTextBox(log, windows.box, 3);  // fewer lines than asked: nothing
  EXPECT_EQ(Shown(), "");
}

TEST_F(BadInput, FileThatCannotBeOpenedForReadingLosesThoseBytes) {
  Append("a\n");
  Start();
  Append("b\n");
  class NoReadEnv : public testing::ProfileWriteEnv {
   public:
    std::unique_ptr<SharedFile> OpenShared(const std::string&) override { return nullptr; }
  } no_read;
  Session s{no_read, options, ui};
  Follower f(s, windows);
  f.Timer1_Timer();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(options.LastFileSize, 6);  // marks move on
}

TEST_F(BadInput, FileReplacedByAFolderShowsNothingAndKeepsTheMarks) {
  Append("a\n");
  Start();
  Write({"folder", log});
  Tick();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(options.LastFileSize, 3);
  follower.LoadFileToTextBox(log, windows.box, 0);
  follower.LoadFileToTextBox(log, windows.box, 2);
  SUCCEED();
}

}  // namespace
}  // namespace ferrow
