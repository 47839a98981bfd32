#include "diag/debug_log.h"

#include <gtest/gtest.h>

#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;

constexpr char kStamp[] = "\"2012/06/30\",\"14:05:09\"";
constexpr char kHeader[] =
    "\"2012/06/30\",\"14:05:09\",\"Log cleared/started on 30 June 2012 at 14:05:09\"\r\n";

class DebugLogTest : public SessionTest {
 protected:
  DebugLogTest() { options.LoggingEnabled = true; }
};

TEST_F(DebugLogTest, MissingLogGetsHeaderThenRecord) {
  LogEvent(session, options.LogFileName, "started", "", "", "");
  EXPECT_EQ(Log(), std::string(kHeader) + kStamp + ",\"started\"\r\n");
}

TEST_F(DebugLogTest, ExistingLogIsAppendedTo) {
  LogEvent(session, options.LogFileName, "one");
  LogEvent(session, options.LogFileName, "two", "b");
  EXPECT_EQ(Log(), std::string(kHeader) + kStamp + ",\"one\"\r\n" + kStamp + ",\"two\",\"b\"\r\n");
}

TEST_F(DebugLogTest, EmptyFirstTextStillWritesQuotedField) {
  LogEvent(session, options.LogFileName, "", "", "", "");
  EXPECT_EQ(Log(), std::string(kHeader) + kStamp + ",\"\"\r\n");
}

TEST_F(DebugLogTest, EmptyLaterTextsAreLeftOut) {
  LogEvent(session, options.LogFileName, "a", "", "c", "");
  LogEvent(session, options.LogFileName, "a", "b", "c", "d");
  EXPECT_EQ(Log(), std::string(kHeader) + kStamp + ",\"a\",\"c\"\r\n" + kStamp +
                       ",\"a\",\"b\",\"c\",\"d\"\r\n");
}

TEST_F(DebugLogTest, QuotesInsideTextsAreWrittenAsTheyAre) {
  LogEvent(session, options.LogFileName, "say \"hi\"");
  EXPECT_NE(Log().find(",\"say \"hi\"\"\r\n"), std::string::npos);
}

TEST_F(DebugLogTest, DateUsesTheSystemDateSeparator) {
  env.date_separator = "-";
  LogEvent(session, options.LogFileName, "x");
  EXPECT_EQ(Log().substr(0, 12), "\"2012-06-30\"");
}

TEST_F(DebugLogTest, LogOfExactlyMaxSizeIsAppendedTo) {
  options.MaxLogSize = 100;
  testing::WriteBytes(options.LogFileName, std::string(100, 'x'));
  LogEvent(session, options.LogFileName, "more");
  EXPECT_EQ(Log(), std::string(100, 'x') + kStamp + ",\"more\"\r\n");
  EXPECT_FALSE(testing::PathExists(options.LogFileName + ".bak"));
}

TEST_F(DebugLogTest, OneByteOverMaxSizeRollsToBakAndStartsAfresh) {
  options.MaxLogSize = 100;
  testing::WriteBytes(options.LogFileName + ".bak", "older");
  testing::WriteBytes(options.LogFileName, std::string(101, 'x'));
  LogEvent(session, options.LogFileName, "new");
  EXPECT_EQ(testing::ReadBytes(options.LogFileName + ".bak"), std::string(101, 'x'));
  EXPECT_EQ(Log(), std::string(kHeader) + kStamp + ",\"new\"\r\n");
}

TEST_F(DebugLogTest, DisabledLoggingCreatesNothingButDefaultsMaxLogSize) {
  options.LoggingEnabled = false;
  LogEvent(session, options.LogFileName, "x");
  EXPECT_FALSE(testing::PathExists(options.LogFileName));
  EXPECT_EQ(options.MaxLogSize, 5242880);
}

TEST_F(DebugLogTest, EmptyFileNameDoesNothing) {
  LogEvent(session, "", "x");
  EXPECT_EQ(options.MaxLogSize, 0);
}

TEST_F(DebugLogTest, UnwritableLogIsSilentlySkipped) {
  LogEvent(session, dir.File("no") + "/such/folder.LOG", "x");
  SUCCEED();
}

}  // namespace
}  // namespace ferrow
