#include <gtest/gtest.h>

#include "engine/engine_fixture.h"

namespace ferrow {
namespace {

using testing::EngineTest;

class ChangeDetection : public EngineTest {
 protected:
  void StartAt(const std::string& text) {
    Append(text);
    options.LastFileSize = options.HighWaterMark = env.FileLength(log).value_or(0);
  }
};

TEST_F(ChangeDetection, GrowthIsReadAndAppendedAsLines) {
  StartAt("old line\n");
  Append("new one\nnew two\n");
  Tick();
  EXPECT_EQ(Shown(), "new one\nnew two\n");
  EXPECT_EQ(options.LastFileSize, 28);
  EXPECT_EQ(options.HighWaterMark, 28);
  // The size the read has just reached, not the mark before it.
  EXPECT_EQ(windows.captions.back(), "Ferrow - " + log + " (28 bytes) [2]");
}

TEST_F(ChangeDetection, GrowthOfExactly102400BytesIsShown) {
  StartAt("start\n");
  Write({"fill", log, "102400"});
  Tick();
  EXPECT_EQ(Shown(), std::string(102400, 'x') + "\n");
}

TEST_F(ChangeDetection, OneByteMoreShowsTheGrowingTooFastLine) {
  StartAt("start\n");
  Write({"fill", log, "102401"});
  Tick();
  EXPECT_EQ(Shown(), "Can't read - File is growing too fast to log changes! (102,401 bytes increase)\n");
  EXPECT_EQ(options.LastFileSize, 7 + 102401);
  Append("after\n");
  Tick();
  EXPECT_EQ(Shown().substr(Shown().size() - 6), "after\n");
}

TEST_F(ChangeDetection, EmptiedFileShowsNothingUntilItPassesItsOldLength) {
  StartAt("0123456789\n");  // 12 bytes
  Write({"truncate", log, "0"});
  Tick();
  EXPECT_EQ(options.LastFileSize, 12);
  Append("short\n");  // 7 bytes: shorter than the mark, which it lowers
  Tick();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(options.LastFileSize, 7);
}

TEST_F(ChangeDetection, EmptiedThenRewrittenPastTheOldLengthShowsOnlyWhatLiesBeyond) {
  StartAt("0123456789\n");  // 12 bytes
  Write({"truncate", log, "0"});
  Tick();
  Append("abcdefghijkl+more\n");  // 19 bytes, all written before the next poll
  Tick();
  EXPECT_EQ(Shown(), "+more\n");
}

TEST_F(ChangeDetection, ShorterFileThenExtendedShowsOnlyBytesBeyondTheShorterLength) {
  StartAt("first line\nsecond line\n");
  Write({"truncate", log, "12"});  // "first line\r\n"
  Tick();
  EXPECT_EQ(options.LastFileSize, 12);
  Append("third\n");
  Tick();
  EXPECT_EQ(Shown(), "third\n");
}

TEST_F(ChangeDetection, PartialLineIsShownAtOnceAndItsRestLater) {
  StartAt("");
  Append("partial");
  Tick();
  EXPECT_EQ(Shown(), "partial\n");
  Append(" and the rest\n");
  Tick();
  EXPECT_EQ(Shown(), "partial\n and the rest\n");
}

#ifndef _WIN32
TEST_F(ChangeDetection, CharacterSplitBetweenTwoPollsIsShownWhole) {
  StartAt("");
  Write({"append", log, "caf\xC3"});
  Tick();
  Write({"append", log, "\xA9 au lait\n"});
  Tick();
  // The first poll shows "caf" and holds the first byte of the é back.
  EXPECT_EQ(Shown(), "caf\n\xC3\xA9 au lait\n");
  EXPECT_EQ(Shown().find("\xEF\xBF\xBD"), std::string::npos);
}

TEST_F(ChangeDetection, PartialCharacterHeldBackIsDroppedWhenTheFileIsEmptied) {
  StartAt("");
  Write({"append", log, "caf\xC3"});
  Tick();
  Write({"truncate", log, "0"});  // copy-truncate rotation
  Tick();
  Append("new file+more\n");  // past the old length before the next poll
  Tick();
  EXPECT_EQ(Shown(), "caf\nfile+more\n");
  EXPECT_EQ(Shown().find("\xEF\xBF\xBD"), std::string::npos);
}

// A log in the legacy code page shows its characters, not replacement marks.
TEST_F(ChangeDetection, BytesThatAreNotUtf8AreReadAsWindows1252) {
  StartAt("");
  Write({"append", log, "bad \xFF\xFE bytes\n"});
  Tick();
  EXPECT_EQ(Shown(), "bad \xC3\xBF\xC3\xBE bytes\n");
}

// Once a file has shown UTF-8, bytes that are not show one replacement mark each.
TEST_F(ChangeDetection, BytesThatAreNotUtf8InAUtf8FileShowAsReplacementMarks) {
  StartAt("");
  Write({"append", log, "caf\xC3\xA9\n"});
  Tick();
  Write({"append", log, "bad \xFF\xFE bytes\n"});
  Tick();
  EXPECT_EQ(Shown(), "caf\xC3\xA9\nbad \xEF\xBF\xBD\xEF\xBF\xBD bytes\n");
}
#else
TEST_F(ChangeDetection, AnsiTextIsShownInTheAnsiCodePage) {
  StartAt("");
  Write({"append", log, "caf\xE9\n"});
  Tick();
  EXPECT_EQ(Shown(), "caf\xC3\xA9\n");
}
#endif

TEST_F(ChangeDetection, MissingSoundFileSaysSoOnceThenStaysSilent) {
  StartAt("a\n");
  options.PlaySoundOnUpdate = true;
  options.UpdateSound = dir.File("missing.wav");
  Append("b\n");
  Tick();
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"|Problem encountered playing " +
                                                   dir.File("missing.wav") + " (disabled sounds)"}));
  EXPECT_FALSE(options.PlaySoundOnUpdate);
  EXPECT_EQ(windows.sound_box_clears, 1);
  Append("c\n");
  Tick();
  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(ChangeDetection, SoundWithoutAFolderIsLookedForBesideTheProgram) {
  StartAt("a\n");
  class BesideEnv : public testing::ProfileWriteEnv {
   public:
    std::string program;
    std::string ProgramPath() override { return program; }
  } beside;
  beside.program = dir.File("ferrow");
  testing::WriteBytes(dir.File("ding.wav"), "RIFF");
  Session s{beside, options, ui};
  Follower f(s, windows);
  EXPECT_TRUE(f.PlayWav("ding.wav"));
  EXPECT_EQ(windows.played, (std::vector<std::string>{dir.File("ding.wav")}));
  EXPECT_EQ(beside.slept_ms, 40);
  EXPECT_FALSE(f.PlayWav("none.wav"));
}

TEST_F(ChangeDetection, FlashOnlyWhenAlertIsOn) {
  StartAt("a\n");
  Append("b\n");
  Tick();
  EXPECT_EQ(windows.flashes, 0);
  options.AlertOnUpdate = true;
  Append("c\n");
  Tick();
  EXPECT_EQ(windows.flashes, 1);
}

TEST_F(ChangeDetection, CaptionOfAnEmptyTextWindowShowsZeroLines) {
  options.LastFileSize = 1234567;
  follower.UpdateCaption();
  EXPECT_EQ(windows.captions.back(), "Ferrow - " + log + " (1,234,567 bytes) [0]");
}

TEST_F(ChangeDetection, VanishedFileShowsNothingUntilItComesBack) {
  StartAt("one\n");
  Write({"delete", log});
  Tick();
  EXPECT_EQ(options.LastFileSize, 5);
  Append("two\nthree\n");
  Tick();
  EXPECT_EQ(Shown(), "three\n");  // a new file of that name, read beyond the old mark
}

TEST_F(ChangeDetection, EmptyFileNameResetsTheMarks) {
  options.FileName = "";
  options.LastFileSize = options.HighWaterMark = 99;
  Tick();
  EXPECT_EQ(options.LastFileSize, 0);
  EXPECT_EQ(options.HighWaterMark, 0);
}

TEST_F(ChangeDetection, HighWaterMarkLimitsReadingWhenAsked) {
  StartAt("abc\n");
  options.HighWaterMark = 100;
  Append("def\n");
  EXPECT_TRUE(follower.HasFileChanged(log, true));
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(options.HighWaterMark, 10);
}

TEST_F(ChangeDetection, TickCounterWrapsAfterTenThousandAndEachTickSleeps) {
  options.FileName = "";
  for (int i = 0; i < 10001; ++i) Tick();
  EXPECT_EQ(follower.TickCount(), 0);
  Tick();
  EXPECT_EQ(follower.TickCount(), 1);
  EXPECT_EQ(env.slept_ms, 10002 * 10);
}

TEST_F(ChangeDetection, NewerWindowsOpensTheFileBeforeAskingItsLength) {
  StartAt("a\n");
  class NewWindowsEnv : public testing::ProfileWriteEnv {
   public:
    int OsMajorVersion() override { return 6; }
    std::unique_ptr<SharedFile> OpenShared(const std::string& p) override {
      ++opens;
      return ProfileWriteEnv::OpenShared(p);
    }
    int opens = 0;
  } newer;
  Session s{newer, options, ui};
  Follower f(s, windows);
  f.Timer1_Timer();
  EXPECT_EQ(newer.opens, 1);  // the fresh length; nothing grew, so no read
}

}  // namespace
}  // namespace ferrow
