// Checks against the real Windows API: our text transformation must produce
// what WritePrivateProfileStringA writes, and our reader must read what
// GetPrivateProfileStringA reads.
#include <windows.h>

#include <gtest/gtest.h>

#include <optional>

#include "config/ini_file.h"
#include "config/profile_text.h"
#include "platform/env.h"
#include "support/paths.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

struct Call {
  const char* section;
  const char* key;    // nullptr deletes the section
  const char* value;  // nullptr deletes the key
};

std::string ApplyAll(std::string text, const std::vector<Call>& calls) {
  for (const Call& c : calls) {
    std::optional<std::string_view> key, value;
    if (c.key) key = c.key;
    if (c.value) value = c.value;
    text = ApplyProfileWrite(text, c.section, key, value);
  }
  return text;
}

TEST(Win32ProfileApi, RealWriterAndOurTransformationAgreeOnANewFile) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  const std::vector<Call> calls = {
      {"Common", "BrowseStartDir", "C:\\"},
      {"Common", "HistoryCount", "0"},
      {"Common", "LastFileSelected", ""},
      {"Common", "Locked", "False"},
      {"app.log", "FontSize", "10"},
      {"app.log", "Font", "Courier New"},
      {"COMMON", "historycount", "2"},
      {"Common", "History1", "C:\\logs\\app.log"},
      {"web.log", "FilterString", "ERROR WARN"},
      {"Common", "History2", "C:\\logs\\web.log"},
      {"app.log", "FontSize", nullptr},
      {"APP.LOG", "ThemeNumber", "3"},
      {"web.log", nullptr, nullptr},
      {"Common", "LastFileSelected", "C:\\logs\\app.log"},
      {"other.log", "Font", ""},
  };
  for (const Call& c : calls)
    ASSERT_TRUE(WritePrivateProfileStringA(c.section, c.key, c.value, ini.c_str()));
  EXPECT_EQ(ReadBytes(ini), ApplyAll("", calls));
}

TEST(Win32ProfileApi, GetPrivateProfileStringReadsWhatReadIniFileReads) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini,
             "[Common]\r\nHistoryCount=2\r\nHistory1=C:\\logs\\app.log\r\n"
             "  BrowseStartDir=C:\\logs\r\nEmpty=\r\n[app.log]\r\nFontSize=10\r\n"
             "Font=Courier New\r\n");
  Env& env = *Env::Default();
  const std::pair<const char*, const char*> keys[] = {
      {"Common", "HistoryCount"}, {"common", "history1"}, {"Common", "BrowseStartDir"},
      {"Common", "Empty"},        {"app.log", "FontSize"}, {"APP.LOG", "Font"},
      {"app.log", "Missing"},     {"Missing", "Font"}};
  for (const auto& [section, key] : keys) {
    char buffer[512] = {};
    GetPrivateProfileStringA(section, key, "", buffer, sizeof buffer, ini.c_str());
    EXPECT_EQ(ReadINIFile(env, ini, section, key), std::string(buffer)) << section << "/" << key;
  }
}

TEST(Win32ProfileApi, FindFirstFileProbesDriveRootAndWildcards) {
  Env& env = *Env::Default();
  EXPECT_TRUE(FileExists(env, "C:\\"));
  EXPECT_TRUE(FileExists(env, "C:\\windows\\"));
  EXPECT_FALSE(FileExists(env, "C:\\no such folder\\"));
  TempDir dir;
  WriteBytes(dir.File("a.log"), "x");
  EXPECT_TRUE(FileExists(env, dir.File("*.log")));
  EXPECT_TRUE(FileExists(env, dir.File("?.LOG")));
  EXPECT_FALSE(FileExists(env, dir.File("*.txt")));
}

TEST(Win32ProfileApi, SharedOpenReadsWhileAnotherHandleWrites) {
  TempDir dir;
  const std::string log = dir.File("live.log");
  HANDLE writer = CreateFileA(log.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  DWORD written = 0;
  ASSERT_TRUE(WriteFile(writer, "one\r\n", 5, &written, nullptr));

  auto reader = Env::Default()->OpenShared(log);
  ASSERT_TRUE(reader);
  ASSERT_TRUE(WriteFile(writer, "two\r\n", 5, &written, nullptr));  // not blocked
  char buffer[16] = {};
  ASSERT_TRUE(reader->Seek(5));
  EXPECT_EQ(reader->Read(buffer, sizeof buffer), 5);
  EXPECT_EQ(std::string(buffer, 5), "two\r\n");
  CloseHandle(writer);
}

TEST(Win32ProfileApi, ConfigurationIsReadWhileAnotherHandleHoldsItOpen) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini, "[Common]\r\nDebug=True\r\n");
  HANDLE other = CreateFileA(ini.c_str(), GENERIC_READ | GENERIC_WRITE,
                             FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ReadINIFile(*Env::Default(), ini, "Common", "Debug"), "True");
  CloseHandle(other);
}

}  // namespace
}  // namespace ferrow
