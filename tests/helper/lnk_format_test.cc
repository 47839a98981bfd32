#include "lnk_format.h"

#include <gtest/gtest.h>

#include <random>

#include "testing/temp_dir.h"

namespace ferrow::lnk {
namespace {

NewLink LinkTo(const std::string& target) {
  NewLink link;
  link.target = target;
  link.working_folder = "/var/log";
  link.target_size = 1234;
  return link;
}

TEST(LnkFormat, WrittenLinkReadsBackItsTarget) {
  LinkTarget read = ReadLink(WriteLink(LinkTo("/var/log/app.log")), "");
  EXPECT_EQ(read.path, "/var/log/app.log");
  EXPECT_EQ(read.working_folder, "/var/log");
}

TEST(LnkFormat, WindowsPathsAndNonAsciiNamesSurvive) {
  EXPECT_EQ(ReadLink(WriteLink(LinkTo("C:\\logs\\app.log")), "").path, "C:\\logs\\app.log");
  NewLink link = LinkTo("/home/zoë/журнал.log");
  link.description = "café";
  link.working_folder = "/home/zoë";
  LinkTarget read = ReadLink(WriteLink(link), "");
  EXPECT_EQ(read.path, "/home/zoë/журнал.log");
  EXPECT_EQ(read.working_folder, "/home/zoë");
}

TEST(LnkFormat, HeaderIsTheShellLinkHeader) {
  std::string bytes = WriteLink(LinkTo("/x"));
  ASSERT_GE(bytes.size(), 0x4Cu);
  EXPECT_EQ(bytes.substr(0, 4), std::string("\x4C\0\0\0", 4));
  EXPECT_EQ(bytes.substr(4, 16),
            std::string("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16));
  EXPECT_EQ(bytes.substr(bytes.size() - 4), std::string(4, '\0'));  // terminal block
}

TEST(LnkFormat, LinkMadeUnderWindowsIsRead) {
  std::string data = testing::ReadBytes(FERROW_TEST_DATA "/wine_made.lnk");
  ASSERT_FALSE(data.empty());
  EXPECT_EQ(ReadLink(data, "").path, "C:\\ferrow-lnk-test\\web server.log");
}

TEST(LnkFormat, TruncatedLinksGiveNoTarget) {
  const std::string whole = WriteLink(LinkTo("/var/log/app.log"));
  for (size_t n = 0; n < whole.size(); ++n)
    EXPECT_EQ(ReadLink(whole.substr(0, n), "").path, "") << "cut at " << n;
}

TEST(LnkFormat, OversizedLengthsGiveNoTarget) {
  std::string bytes = WriteLink(LinkTo("/var/log/app.log"));
  std::string huge = bytes;
  huge[0x4C] = huge[0x4D] = huge[0x4E] = huge[0x4F] = '\xFF';  // LinkInfoSize
  EXPECT_EQ(ReadLink(huge, "").path, "");
  std::string offset = bytes;
  offset[0x4C + 0x10] = '\xF0';  // local path offset far outside the block
  EXPECT_EQ(ReadLink(offset, "").path, "");
  std::string id_list = bytes;
  id_list[0x14] |= 0x01;  // claims an ID list that is not there
  EXPECT_EQ(ReadLink(id_list, "").path, "");
}

TEST(LnkFormat, RandomAndMutatedInputNeverCrashes) {
  std::mt19937 random(7);
  const std::string valid = WriteLink(LinkTo("/var/log/app.log"));
  for (int i = 0; i < 20000; ++i) {
    std::string data;
    if (i % 2) {
      data.resize(random() % 400);
      for (char& c : data) c = static_cast<char>(random());
      if (data.size() >= 20 && i % 4 == 1) data.replace(0, 20, valid.substr(0, 20));
    } else {
      data = valid;
      for (int k = 0; k < 1 + i % 5; ++k) data[random() % data.size()] = static_cast<char>(random());
    }
    LinkTarget read = ReadLink(data, "/base");
    EXPECT_LE(read.path.size(), data.size() * 3 + 8);
  }
}

TEST(LnkFormat, NotALinkGivesNoTarget) {
  EXPECT_EQ(ReadLink("", "").path, "");
  EXPECT_EQ(ReadLink("plain text, not a shortcut at all, long enough for a header..........", "").path, "");
}

TEST(Utf16, RoundTripsAndReplacesBadBytes) {
  EXPECT_EQ(Utf16ToUtf8(Utf8ToUtf16("a€😀z")), "a€😀z");
  EXPECT_EQ(Utf8ToUtf16("\xFF"), std::u16string(1, u'\uFFFD'));
  EXPECT_EQ(Utf16ToUtf8(std::u16string(1, char16_t(0xD800))), "\xEF\xBF\xBD");
}

#ifndef _WIN32
TEST(LnkFormat, LnkinfoReadsOurLinksAndFindsTheTarget) {
  if (std::system("command -v lnkinfo >/dev/null 2>&1") != 0) GTEST_SKIP() << "lnkinfo missing";
  testing::TempDir dir;
  const std::string link = dir.File("app.log.lnk"), report = dir.File("report.txt");
  testing::WriteBytes(link, WriteLink(LinkTo("/var/log/web server.log")));
  ASSERT_EQ(std::system(("lnkinfo '" + link + "' > '" + report + "' 2>&1").c_str()), 0)
      << testing::ReadBytes(report);
  std::string text = testing::ReadBytes(report);
  EXPECT_NE(text.find("Local path"), std::string::npos) << text;
  EXPECT_NE(text.find(": /var/log/web server.log"), std::string::npos) << text;
  EXPECT_NE(text.find("Working directory"), std::string::npos) << text;
}
#endif

}  // namespace
}  // namespace ferrow::lnk
