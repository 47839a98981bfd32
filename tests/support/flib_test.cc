#include "support/flib.h"

#include <gtest/gtest.h>

#include "platform/env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

class FlibTest : public ::testing::Test {
 protected:
  TempDir dir;
  FileTable files{*Env::Default()};
};

TEST_F(FlibTest, ReadOpenOfMissingFileGivesZero) {
  EXPECT_EQ(files.FOpen(dir.File("missing.ini"), "r", "ReadINIFile"), 0);
}

TEST_F(FlibTest, NumbersAreTheNextFreeOnes) {
  WriteBytes(dir.File("a"), "a");
  int16_t first = files.FOpen(dir.File("a"), "r", "");
  int16_t second = files.FOpen(dir.File("a"), "rb", "");
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 2);
  files.Close(first);
  EXPECT_EQ(files.FOpen(dir.File("a"), "rl", ""), 1);
}

TEST_F(FlibTest, ModeWithoutReadOrWriteOpensNothingButReturnsFreeNumber) {
  EXPECT_EQ(files.FOpen(dir.File("never"), "x", ""), 1);
  EXPECT_FALSE(testing::PathExists(dir.File("never")));
  std::string line;
  EXPECT_EQ(files.LineInput(1, line), kErrBadFileNumber);
  EXPECT_EQ(files.FOpen(dir.File("never"), "R", ""), 1);  // letters are case-sensitive
}

TEST_F(FlibTest, LineInputHandlesEveryLineEnd) {
  WriteBytes(dir.File("lines"), "crlf\r\nlf\ncr\rlast");
  int16_t n = files.FOpen(dir.File("lines"), "r", "");
  std::string line;
  ASSERT_EQ(files.LineInput(n, line), 0);
  EXPECT_EQ(line, "crlf");
  ASSERT_EQ(files.LineInput(n, line), 0);
  EXPECT_EQ(line, "lf");
  ASSERT_EQ(files.LineInput(n, line), 0);
  EXPECT_EQ(line, "cr");
  ASSERT_EQ(files.LineInput(n, line), 0);
  EXPECT_EQ(line, "last");
  EXPECT_EQ(files.LineInput(n, line), kErrPastEndOfFile);
}

TEST_F(FlibTest, BinaryWriteModeDoesNotTruncate) {
  WriteBytes(dir.File("keep"), "0123456789");
  int16_t n = files.FOpen(dir.File("keep"), "wb", "");
  ASSERT_NE(n, 0);
  EXPECT_EQ(files.Length(n), 10);
  EXPECT_EQ(files.Put(n, "ab"), 0);
  files.Close(n);
  EXPECT_EQ(ReadBytes(dir.File("keep")), "ab23456789");
}

TEST_F(FlibTest, BinaryWriteModeCreatesMissingFile) {
  int16_t n = files.FOpen(dir.File("new"), "wb", "");
  ASSERT_NE(n, 0);
  EXPECT_EQ(files.Put(n, "x"), 0);
  files.Close(n);
  EXPECT_EQ(ReadBytes(dir.File("new")), "x");
}

TEST_F(FlibTest, TextWriteModeReplacesContent) {
  WriteBytes(dir.File("old"), "old content");
  int16_t n = files.FOpen(dir.File("old"), "w", "");
  ASSERT_NE(n, 0);
  files.Put(n, "new\r\n");
  files.Close(n);
  EXPECT_EQ(ReadBytes(dir.File("old")), "new\r\n");
}

TEST_F(FlibTest, RewindGoesBackToFirstByte) {
  WriteBytes(dir.File("r"), "one\r\ntwo\r\n");
  int16_t n = files.FOpen(dir.File("r"), "rb", "");
  std::string line;
  files.LineInput(n, line);
  files.LineInput(n, line);
  EXPECT_EQ(line, "two");
  EXPECT_TRUE(files.Rewind(n));
  files.LineInput(n, line);
  EXPECT_EQ(line, "one");
}

TEST_F(FlibTest, RewindRefusesNumbersBelowOne) {
  EXPECT_FALSE(files.Rewind(0));
  EXPECT_FALSE(files.Rewind(-1));
  EXPECT_TRUE(files.Rewind(7));  // any number from 1 up
}

TEST_F(FlibTest, UnlinkGivesZeroOnlyWhenDeleted) {
  WriteBytes(dir.File("gone"), "x");
  EXPECT_EQ(Unlink(*Env::Default(), dir.File("gone")), 0);
  EXPECT_FALSE(testing::PathExists(dir.File("gone")));
  EXPECT_NE(Unlink(*Env::Default(), dir.File("gone")), 0);
}

}  // namespace
}  // namespace ferrow
