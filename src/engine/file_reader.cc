#include "engine/file_reader.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/env.h"
#include "support/numbers.h"

namespace ferrow {
namespace {

constexpr int64_t kBackwardBlock = 64 * 1024;

// No single read asks for more than this: some systems cut reads at 2 GiB.
constexpr int64_t kMaxReadCall = 64 * 1024 * 1024;

// Reads `count` bytes at `offset`; fewer when the file is shorter.
std::string ReadAt(SharedFile& file, int64_t offset, int64_t count) {
  if (count <= 0 || !file.Seek(offset)) return {};
  std::string bytes(static_cast<size_t>(count), '\0');
  int64_t done = 0;
  while (done < count) {
    const int64_t got = file.Read(bytes.data() + done, std::min(count - done, kMaxReadCall));
    if (got <= 0) break;
    done += got;
  }
  bytes.resize(static_cast<size_t>(done));
  return bytes;
}

// The bytes after the 1-based position `after`, at most 2 * `max_bytes` +
// one block of them (the last ones).
std::optional<std::string> ReadTail(SharedFile& file, int64_t after, int64_t length,
                                    int64_t max_bytes) {
  int64_t from = after;
  if (max_bytes < kNoReadLimit / 4) from = std::max(from, length - (2 * max_bytes + kBackwardBlock));
  std::string rest = ReadAt(file, from, length - from);
  if (static_cast<int64_t>(rest.size()) != length - from) return std::nullopt;
  return rest;
}

// ReadLastLines of a UTF-16 file: the same scan over code units, in blocks
// that start at even offsets so that no unit is cut in two.
std::optional<std::string> ReadLastUtf16Lines(SharedFile& file, int64_t length, int32_t lines_to_read,
                                              int64_t max_bytes,
                                              const std::function<void()>& between_blocks,
                                              bool big_endian) {
  const int64_t units_end = length & ~int64_t{1};
  const size_t low = big_endian ? 1 : 0;
  int32_t counter = 0;
  int64_t newest = -1, cut = -1;  // 0-based offsets of line-feed units
  for (int64_t block_end = units_end; block_end > 0;) {
    if (between_blocks) between_blocks();
    const int64_t block_start = std::max<int64_t>(0, block_end - kBackwardBlock);
    const std::string block = ReadAt(file, block_start, block_end - block_start);
    if (static_cast<int64_t>(block.size()) != block_end - block_start) return std::nullopt;
    for (int64_t o = block_end - 2; o >= block_start; o -= 2) {
      const size_t i = static_cast<size_t>(o - block_start);
      if (block[i + low] != '\n' || block[i + 1 - low] != 0 || o + 2 >= length) continue;
      if (newest < 0) newest = o;
      if (cut < 0 && newest - o >= max_bytes) cut = o;
      if (++counter == lines_to_read)
        return ReadTail(file, std::max(o, cut) + 2, length, max_bytes);
    }
    block_end = block_start;
  }
  return std::string();
}

}  // namespace

std::string ReadFileFromPos(Env& env, const std::string& file_name, int64_t from_pos, bool* message,
                            int64_t* reached, std::string* head) {
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
  if (head) *head = from_pos <= 1 ? std::string() : ReadAt(*file, 0, kHeadBytes);
  std::string bytes = ReadAt(*file, from_pos - 1, count);
  if (reached) *reached = from_pos - 1 + static_cast<int64_t>(bytes.size());
  return bytes;
}

std::string ReadFileHead(Env& env, const std::string& file_name) {
  auto file = env.OpenShared(file_name);
  return file ? ReadAt(*file, 0, kHeadBytes) : std::string();
}

std::optional<int64_t> FileLenFresh(Env& env, const std::string& file_name) {
  { auto touch = env.OpenShared(file_name); }
  return env.FileLength(file_name);
}

std::optional<std::string> ReadLastLines(SharedFile& file, int64_t length, int32_t lines_to_read,
                                         int64_t max_bytes,
                                         const std::function<void()>& between_blocks,
                                         TextEncoding encoding) {
  if (length < 1) return std::string();
  if (CodeUnitBytes(encoding) == 2)
    return ReadLastUtf16Lines(file, length, lines_to_read, max_bytes, between_blocks,
                              encoding == TextEncoding::kUtf16Be);
  int32_t counter = 0;
  int64_t newest = 0;  // the line feed before the newest line
  int64_t cut = 0;     // the line feed beyond which nothing can be shown
  // Positions are 1-based as in the scan they stand for: byte p is at offset p - 1.
  for (int64_t block_end = length; block_end >= 1;) {
    if (between_blocks) between_blocks();
    const int64_t block_start = std::max<int64_t>(1, block_end - kBackwardBlock + 1);
    const std::string block = ReadAt(file, block_start - 1, block_end - block_start + 1);
    if (static_cast<int64_t>(block.size()) != block_end - block_start + 1) return std::nullopt;
    for (int64_t p = block_end; p >= block_start; --p) {
      if (block[static_cast<size_t>(p - block_start)] != '\n' || p >= length) continue;
      if (newest == 0) newest = p;
      if (cut == 0 && newest - p >= max_bytes) cut = p;
      if (++counter == lines_to_read) return ReadTail(file, std::max(p, cut), length, max_bytes);
    }
    block_end = block_start - 1;
  }
  return std::string();
}

std::string ReadFileTail(Env& env, const std::string& file_name, int64_t length, int32_t buffer,
                         int64_t* offset, int64_t unit_bytes) {
  int64_t from = 0;
  if (buffer > 1024 && length + 2 * unit_bytes > buffer * unit_bytes)
    from = length - (buffer - 2) * unit_bytes;
  if (offset) *offset = from;
  auto file = env.OpenShared(file_name);
  if (!file) return {};
  return ReadAt(*file, from, (static_cast<int64_t>(buffer) + 2) * unit_bytes);
}

std::string ReadBefore(Env& env, const std::string& file_name, int64_t end, int64_t chars,
                       int64_t unit_bytes, int64_t* offset) {
  *offset = std::max<int64_t>(0, end - chars * unit_bytes);
  auto file = env.OpenShared(file_name);
  if (!file) return {};
  return ReadAt(*file, *offset, end - *offset);
}

}  // namespace ferrow
