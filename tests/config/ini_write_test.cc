#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "testing/counting_env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ProfileWriteEnv;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

class IniWriteTest : public ::testing::Test {
 protected:
  TempDir dir;
  std::string ini = dir.File("Ferrow.INI");
  ProfileWriteEnv env;
};

TEST_F(IniWriteTest, WrittenValueIsReadBack) {
  ASSERT_TRUE(WriteINIFile(env, ini, "app.log", "FilterString", "ERROR WARN"));
  EXPECT_EQ(ReadINIFile(env, ini, "APP.LOG", "filterstring"), "ERROR WARN");
  EXPECT_EQ(ReadBytes(ini), "[app.log]\r\nFilterString=ERROR WARN\r\n");
}

TEST_F(IniWriteTest, EmptyValueForExistingKeyLeavesNothingAfterEquals) {
  WriteBytes(ini, "[Common]\r\nLastFileSelected=C:\\a.log\r\n");
  ASSERT_TRUE(WriteINIFile(env, ini, "Common", "LastFileSelected", ""));
  EXPECT_EQ(ReadBytes(ini), "[Common]\r\nLastFileSelected=\r\n");
  EXPECT_EQ(env.writes, 1);
}

TEST_F(IniWriteTest, ValueIsStrippedOfBlanksTabsLineEndsAndNuls) {
  ASSERT_TRUE(WriteINIFile(env, ini, "A", "k", std::string(" \t v a \r\n\0", 11)));
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "v a");
}

TEST_F(IniWriteTest, ValueOfOnlyBlanksCountsAsEmpty) {
  ASSERT_TRUE(WriteINIFile(env, ini, "A", "k", "   "));
  EXPECT_EQ(ReadBytes(ini), "[A]\r\nk=\r\n");
}

TEST_F(IniWriteTest, EmptyKeyDeletesWholeSection) {
  WriteBytes(ini, "[A]\r\nk=1\r\n[B]\r\nj=2\r\n");
  ASSERT_TRUE(WriteINIFile(env, ini, "a", "", ""));
  EXPECT_EQ(ReadBytes(ini), "[B]\r\nj=2\r\n");
}

TEST_F(IniWriteTest, EmptyFileNameOrSectionIsRefused) {
  EXPECT_FALSE(WriteINIFile(env, "", "A", "k", "v"));
  EXPECT_FALSE(WriteINIFile(env, ini, "", "k", "v"));
  EXPECT_EQ(env.writes, 0);
  EXPECT_FALSE(testing::PathExists(ini));
}

TEST_F(IniWriteTest, FailingWriteIsTriedTwoHundredTimes) {
  env.succeed = [](const char*, const char*) { return false; };
  EXPECT_FALSE(WriteINIFile(env, ini, "A", "k", "v"));
  EXPECT_EQ(env.writes, 200);
  EXPECT_EQ(env.sleeps, 200);
  EXPECT_EQ(env.slept_ms, 200 * 25);
  EXPECT_EQ(env.event_runs, 400);  // after each attempt, and again after a failure
}

TEST_F(IniWriteTest, WriteFailingForGoodIsNotRetried) {
  env.succeed = [](const char*, const char*) { return false; };
  env.failures_permanent = true;
  EXPECT_FALSE(WriteINIFile(env, ini, "A", "k", "v"));
  EXPECT_FALSE(WriteINIFile(env, ini, "A", "k", ""));
  EXPECT_FALSE(WriteINIFile(env, ini, "A", "", ""));
  EXPECT_EQ(env.writes, 3);
  EXPECT_EQ(env.sleeps, 0);
}

TEST_F(IniWriteTest, WriteSucceedingOnFourthAttemptStopsThere) {
  env.succeed = [&](const char*, const char*) { return env.writes >= 4; };
  EXPECT_TRUE(WriteINIFile(env, ini, "A", "k", "v"));
  EXPECT_EQ(env.writes, 4);
  EXPECT_EQ(env.sleeps, 3);
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "v");
}

TEST_F(IniWriteTest, EmptyValueThatCannotBeWrittenDeletesTheKeyInstead) {
  WriteBytes(ini, "[A]\r\nk=old\r\nj=1\r\n");
  env.succeed = [](const char*, const char* value) { return value == nullptr; };
  EXPECT_TRUE(WriteINIFile(env, ini, "A", "k", ""));
  EXPECT_EQ(env.deletes_of_key, 1);
  EXPECT_EQ(ReadBytes(ini), "[A]\r\nj=1\r\n");
}

TEST_F(IniWriteTest, EmptyValueFailingEverywhereGivesUpAfterOnePlusTwoHundred) {
  env.succeed = [](const char*, const char*) { return false; };
  EXPECT_FALSE(WriteINIFile(env, ini, "A", "k", ""));
  EXPECT_EQ(env.writes, 201);
  EXPECT_EQ(env.deletes_of_key, 200);
}

TEST_F(IniWriteTest, SectionDeleteIsRetriedToo) {
  env.succeed = [](const char*, const char*) { return false; };
  EXPECT_FALSE(WriteINIFile(env, ini, "A", "", ""));
  EXPECT_EQ(env.writes, 200);
  EXPECT_EQ(env.sleeps, 200);
}

TEST_F(IniWriteTest, BooleansAreWrittenAsTrueAndFalse) {
  ASSERT_TRUE(WriteINIBool(env, ini, "A", "QuickScroll", true));
  ASSERT_TRUE(WriteINIBool(env, ini, "A", "FontBold", false));
  EXPECT_EQ(ReadBytes(ini), "[A]\r\nQuickScroll=True\r\nFontBold=False\r\n");
}

TEST_F(IniWriteTest, BooleansAreReadInEveryRecognisedForm) {
  WriteBytes(ini,
             "[A]\r\na=yes\r\nb= \"1\" \r\nc=True;x\r\nd=NO\r\ne=0\r\nf=\"false\"\r\n"
             "g=maybe\r\nh=\r\n");
  struct Case {
    const char* key;
    bool found;
    bool value;
  } cases[] = {{"a", true, true},   {"b", true, true},   {"c", true, true},
               {"d", true, false},  {"e", true, false},  {"f", true, false},
               {"g", false, false}, {"h", false, false}, {"missing", false, false}};
  for (const Case& c : cases) {
    bool value = !c.value;
    EXPECT_EQ(ReadINIBool(env, ini, "A", c.key, value), c.found) << c.key;
    EXPECT_EQ(value, c.value) << c.key;
  }
}

}  // namespace
}  // namespace ferrow
