#include "engine/file_reader.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/env.h"
#include "support/numbers.h"

namespace ferrow {
namespace {

constexpr int64_t kBackwardBlock = 64 * 1024;

// Reads `count` bytes at `offset` in one call; fewer when the file is shorter.
std::string ReadAt(SharedFile& file, int64_t offset, int64_t count) {
  std::string bytes(static_cast<size_t>(std::max<int64_t>(count, 0)), '\0');
  if (count <= 0 || !file.Seek(offset)) return {};
  int64_t got = file.Read(bytes.data(), count);
  bytes.resize(static_cast<size_t>(std::max<int64_t>(got, 0)));
  return bytes;
}

}  // namespace

std::string ReadFileFromPos(Env& env, const std::string& file_name, int64_t from_pos, bool* message,
                            int64_t* reached) {
  if (message) *message = false;
  const int64_t length = env.FileLength(file_name).value_or(0);
  if (reached) *reached = length;
  if (from_pos < 1 || length < 1) return {};
  if (from_pos > length) from_pos = length - 1;
  const int64_t count = length - from_pos + 1;
  if (count > kMaxReadIncrease) {
    if (message) *message = true;
    return "Can't read - File is growing too fast to log changes! (" + GroupDigits(count) +
           " bytes increase)";
  }
  auto file = env.OpenShared(file_name);
  if (!file) return {};
  std::string bytes = ReadAt(*file, from_pos - 1, count);
  if (reached) *reached = from_pos - 1 + static_cast<int64_t>(bytes.size());
  return bytes;
}

std::optional<int64_t> FileLenFresh(Env& env, const std::string& file_name) {
  { auto touch = env.OpenShared(file_name); }
  return env.FileLength(file_name);
}

std::optional<std::string> ReadLastLines(SharedFile& file, int64_t length, int32_t lines_to_read) {
  if (length < 1) return std::string();
  int32_t counter = 0;
  // Positions are 1-based as in the scan they stand for: byte p is at offset p - 1.
  for (int64_t block_end = length; block_end >= 1;) {
    const int64_t block_start = std::max<int64_t>(1, block_end - kBackwardBlock + 1);
    const std::string block = ReadAt(file, block_start - 1, block_end - block_start + 1);
    if (static_cast<int64_t>(block.size()) != block_end - block_start + 1) return std::nullopt;
    for (int64_t p = block_end; p >= block_start; --p) {
      if (block[static_cast<size_t>(p - block_start)] != '\n' || p >= length) continue;
      if (++counter == lines_to_read) {
        std::string rest = ReadAt(file, p, length - p);
        if (static_cast<int64_t>(rest.size()) != length - p) return std::nullopt;
        return rest;
      }
    }
    block_end = block_start - 1;
  }
  return std::string();
}

std::string ReadFileTail(Env& env, const std::string& file_name, int64_t length, int32_t buffer) {
  auto file = env.OpenShared(file_name);
  if (!file) return {};
  int64_t offset = 0;
  if (buffer > 1024 && length + 2 > buffer) offset = length - buffer + 2;
  return ReadAt(*file, offset, static_cast<int64_t>(buffer) + 2);
}

}  // namespace ferrow
