#include "engine/file_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::TempDir;
using testing::WriteBytes;

Env& env() { return *Env::Default(); }

// The scan as first written: one byte at a time from the end.
std::string ByteByByte(const std::string& data, int32_t lines_to_read) {
  const int64_t length = static_cast<int64_t>(data.size());
  int32_t counter = 0;
  for (int64_t p = length; p >= 1; --p) {
    if (data[static_cast<size_t>(p - 1)] == '\n' && p < length && ++counter == lines_to_read)
      return data.substr(static_cast<size_t>(p));
  }
  return "";
}

TEST(ReadLastLines, GivesExactlyWhatTheByteByByteScanGives) {
  TempDir dir;
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    std::string data;
    const size_t size = round < 100 ? random() % 300 : random() % 200000;
    for (size_t i = 0; i < size; ++i) data += random() % 9 == 0 ? '\n' : static_cast<char>('a' + random() % 26);
    if (round % 3 == 0 && !data.empty()) data.back() = '\n';
    WriteBytes(dir.File("f"), data);
    auto file = env().OpenShared(dir.File("f"));
    ASSERT_TRUE(file);
    for (int32_t lines : {0, 1, 2, 3, 10, 1000, 5000}) {
      auto got = ReadLastLines(*file, static_cast<int64_t>(data.size()), lines);
      ASSERT_TRUE(got);
      EXPECT_EQ(*got, ByteByByte(data, lines)) << "round " << round << " lines " << lines;
    }
  }
}

TEST(ReadLastLines, ThreeLinesEndingInLineFeed) {
  TempDir dir;
  WriteBytes(dir.File("f"), "one\r\ntwo\r\nthree\r\n");
  auto file = env().OpenShared(dir.File("f"));
  EXPECT_EQ(ReadLastLines(*file, 17, 2), "two\r\nthree\r\n");
  EXPECT_EQ(ReadLastLines(*file, 17, 3), "");
  EXPECT_EQ(ReadLastLines(*file, 0, 2), "");
}

TEST(ReadLastLines, LinesBeyondWhatTheWindowKeepsAreScannedButNotRead) {
  TempDir dir;
  std::string data;
  for (int i = 0; i < 100000; ++i) data += "line " + std::to_string(100000 + i) + "\n";  // 12 bytes
  WriteBytes(dir.File("f"), data);
  auto file = env().OpenShared(dir.File("f"));
  const int64_t length = static_cast<int64_t>(data.size());
  int blocks = 0;
  auto got = ReadLastLines(*file, length, 50000, 10000, [&] { ++blocks; });
  ASSERT_TRUE(got);
  // Lines that begin 10000 bytes or more before the newest one are left out.
  EXPECT_EQ(*got, data.substr(data.size() - 12 * 835));
  EXPECT_EQ(blocks, static_cast<int>((12 * 50000 + 65535) / 65536));
  // Lines that all fit come whole, and a count beyond the file still gives nothing.
  EXPECT_EQ(ReadLastLines(*file, length, 100, 10000), ByteByByte(data, 100));
  blocks = 0;
  EXPECT_EQ(ReadLastLines(*file, length, INT32_MAX, 10000, [&] { ++blocks; }), "");
  EXPECT_EQ(blocks, static_cast<int>((length + 65535) / 65536));
}

TEST(ReadLastLines, NewestLineLongerThanTwiceTheBufferKeepsOnlyItsEnd) {
  TempDir dir;
  const std::string data = "old\n" + std::string(3000000, 'x') + "\n";
  WriteBytes(dir.File("f"), data);
  auto file = env().OpenShared(dir.File("f"));
  auto got = ReadLastLines(*file, static_cast<int64_t>(data.size()), 1, 100000);
  ASSERT_TRUE(got);
  EXPECT_EQ(got->size(), 2u * 100000 + 65536);
  EXPECT_EQ(*got, data.substr(data.size() - got->size()));
}

TEST(ReadFileFromPos, PositionPastTheEndReadsTheLastTwoBytes) {
  TempDir dir;
  WriteBytes(dir.File("f"), "abcdef");
  EXPECT_EQ(ReadFileFromPos(env(), dir.File("f"), 100), "ef");
  EXPECT_EQ(ReadFileFromPos(env(), dir.File("f"), 3), "cdef");
  EXPECT_EQ(ReadFileFromPos(env(), dir.File("f"), 0), "");
  EXPECT_EQ(ReadFileFromPos(env(), dir.File("missing"), 1), "");
}

TEST(ReadFileFromPos, MoreThanTheCapIsNotReadButReported) {
  TempDir dir;
  WriteBytes(dir.File("f"), std::string(1234567, 'x'));
  bool message = false;
  EXPECT_EQ(ReadFileFromPos(env(), dir.File("f"), 1, &message),
            "Can't read - File is growing too fast to log changes! (1,234,567 bytes increase)");
  EXPECT_TRUE(message);
}

TEST(FileLenFresh, GivesTheLengthAfterAnOpenAndClose) {
  TempDir dir;
  WriteBytes(dir.File("f"), "12345");
  EXPECT_EQ(FileLenFresh(env(), dir.File("f")), 5);
  EXPECT_FALSE(FileLenFresh(env(), dir.File("none")));
}

}  // namespace
}  // namespace ferrow
