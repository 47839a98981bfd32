// On Windows a poll holds the followed file open with shared read, write and
// delete access: the writer goes on appending, and can rename the file away.
#include <windows.h>

#include <gtest/gtest.h>

#include "platform/env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

TEST(Win32Sharing, WriterAppendsAndRenamesWhileAPollHoldsTheFile) {
  testing::TempDir dir;
  const std::string log = dir.File("live.log"), rotated = dir.File("live.log.1");
  // A writer that lets others read, as log writers do.
  HANDLE writer = CreateFileA(log.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_DELETE,
                              nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  DWORD written = 0;
  ASSERT_TRUE(WriteFile(writer, "one\r\n", 5, &written, nullptr));

  auto poll = Env::Default()->OpenShared(log);
  ASSERT_TRUE(poll);
  EXPECT_TRUE(WriteFile(writer, "two\r\n", 5, &written, nullptr));
  EXPECT_EQ(written, 5u);
  CloseHandle(writer);
  EXPECT_TRUE(MoveFileA(log.c_str(), rotated.c_str()));
  char buffer[16] = {};
  ASSERT_TRUE(poll->Seek(5));
  EXPECT_EQ(poll->Read(buffer, sizeof buffer), 5);
  poll.reset();
  EXPECT_EQ(Env::Default()->FileLength(rotated).value_or(0), 10);
}

}  // namespace
}  // namespace ferrow
