#include "diag/error_report.h"

#include <gtest/gtest.h>

#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;

TEST(ErrorText, NamesErrorStepAndProcedure) {
  EXPECT_EQ(ErrorText(53, "File not found", 15, "TrimFile"),
            "Error 53 (File not found) at 15 in TrimFile()");
}

TEST(ErrorText, EmptyDescriptionGivesEmptyParentheses) {
  EXPECT_EQ(ErrorText(5, "", 12, "TrimFile"), "Error 5 () at 12 in TrimFile()");
}

class ReportErrorTest : public SessionTest {};

TEST_F(ReportErrorTest, WritesOneLogRecordAndNeverAddsSafe) {
  options.LoggingEnabled = true;
  int16_t line = 42;
  ReportError(session, 62, "Input past end of file", line, "TrimFile");
  std::string log = Log();
  EXPECT_NE(log.find(",\"Error 62 (Input past end of file) at 42 in TrimFile()\"\r\n"),
            std::string::npos)
      << log;
  EXPECT_EQ(log.find("Safe"), std::string::npos);
}

TEST_F(ReportErrorTest, NothingAtAllWhileLoggingIsOff) {
  int16_t line = 1;
  ReportError(session, 53, "File not found", line, "X");
  EXPECT_FALSE(testing::PathExists(options.LogFileName));
}

TEST(ErrorDescription, KnowsTheFileErrors) {
  EXPECT_EQ(ErrorDescription(62), "Input past end of file");
  EXPECT_EQ(ErrorDescription(53), "File not found");
}

}  // namespace
}  // namespace ferrow
