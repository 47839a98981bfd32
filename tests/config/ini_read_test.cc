#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "testing/counting_env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::CountingEnv;
using testing::TempDir;
using testing::WriteBytes;

class IniReadTest : public ::testing::Test {
 protected:
  std::string Read(const std::string& text, const std::string& section, const std::string& key) {
    WriteBytes(ini, text);
    return ReadINIFile(env, ini, section, key);
  }
  TempDir dir;
  std::string ini = dir.File("Ferrow.INI");
  CountingEnv env;
};

TEST_F(IniReadTest, HeaderWithBlanksMatchesUpperCasedSection) {
  EXPECT_EQ(Read("[ app.log ]\r\nFont=Arial\r\n", "APP.LOG", "font"), "Arial");
}

TEST_F(IniReadTest, EmptyBracketsAndUnclosedBracketAreHeadersOfNoSection) {
  const std::string text = "[A]\r\na=1\r\n[]\r\nb=2\r\n[x\r\nc=3\r\n";
  EXPECT_EQ(Read(text, "A", "a"), "1");
  EXPECT_EQ(Read(text, "A", "b"), "");  // [] ends section A
  EXPECT_EQ(Read(text, "x", "c"), "");  // [x names no section
  EXPECT_EQ(Read("[x\r\nc=3\r\n", "[x", "c"), "");
}

TEST_F(IniReadTest, KeyLineWithBlanksAndCommentYieldsTrimmedValue) {
  EXPECT_EQ(Read("[Common]\r\n   History3 = C:\\a.log ; old\r\n", "Common", "History3"),
            "C:\\a.log");
}

TEST_F(IniReadTest, SemicolonInPathCutsItToo) {
  EXPECT_EQ(Read("[Common]\r\nHistory1=C:\\odd;name.log\r\n", "Common", "History1"), "C:\\odd");
}

TEST_F(IniReadTest, ValueIsTextAfterFirstEquals) {
  EXPECT_EQ(Read("[A]\r\nk=a=b\r\n", "A", "k"), "a=b");
  EXPECT_EQ(Read("[A]\r\nk=\r\n", "A", "k"), "");
}

TEST_F(IniReadTest, KeyInAnotherSectionOnlyIsNotFound) {
  EXPECT_EQ(Read("[A]\r\nk=1\r\n[B]\r\nj=2\r\n", "B", "k"), "");
}

TEST_F(IniReadTest, KeyBeforeAnyHeaderIsNeverFound) {
  EXPECT_EQ(Read("k=1\r\n[A]\r\nj=2\r\n", "A", "k"), "");
}

TEST_F(IniReadTest, FirstMatchingKeyWins) {
  EXPECT_EQ(Read("[A]\r\nk=1\r\nK=2\r\n", "a", "K"), "1");
}

TEST_F(IniReadTest, LinesWithTabsAndLineFeedOnlyEndsAreRead) {
  EXPECT_EQ(Read("\t[A]\t\n\tk=v\t\n", "A", "k"), "v");
}

TEST_F(IniReadTest, EmptyArgumentGivesEmptyWithoutTouchingDisk) {
  WriteBytes(ini, "[A]\r\nk=1\r\n");
  EXPECT_EQ(ReadINIFile(env, "", "A", "k"), "");
  EXPECT_EQ(ReadINIFile(env, ini, "", "k"), "");
  EXPECT_EQ(ReadINIFile(env, ini, "A", ""), "");
  EXPECT_EQ(env.sleeps, 0);
}

TEST_F(IniReadTest, MissingFileGivesEmptyAfterFiftyAttempts) {
  EXPECT_EQ(ReadINIFile(env, dir.File("none.ini"), "A", "k"), "");
  EXPECT_EQ(env.sleeps, 49);
  EXPECT_EQ(env.slept_ms, 49 * 25);
  EXPECT_EQ(env.event_runs, 49);
}

TEST_F(IniReadTest, FileAppearingDuringRetriesIsRead) {
  env.on_sleep = [&] {
    if (env.sleeps == 3) WriteBytes(ini, "[A]\r\nk=late\r\n");
  };
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "late");
  EXPECT_EQ(env.sleeps, 3);
}

TEST_F(IniReadTest, EveryReadSeesTheFileAsItIsNow) {
  EXPECT_EQ(Read("[A]\r\nk=1\r\n", "A", "k"), "1");
  WriteBytes(ini, "[A]\r\nk=2\r\n");
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "2");
}

TEST_F(IniReadTest, NulPaddingAfterTrimIsHarmless) {
  std::string text = "[A]\r\nk=1\r\n";
  text.append(100, '\0');
  EXPECT_EQ(Read(text, "A", "k"), "1");
  EXPECT_EQ(Read(text, "A", "missing"), "");
}

}  // namespace
}  // namespace ferrow
