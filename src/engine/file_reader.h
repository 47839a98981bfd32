// The reads of the followed file. Each opens the file with shared read and
// write access, so the writer is never hindered, and closes it again.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "support/text_encoding.h"

namespace ferrow {

class Env;
class SharedFile;

// ReadLastLines without a bound on what it reads.
constexpr int64_t kNoReadLimit = INT64_MAX;

// The most one poll reads.
constexpr int64_t kMaxReadIncrease = 102400;

// The bytes from the 1-based position `from_pos` to the end. A `from_pos`
// past the end reads the last two bytes; a growth beyond kMaxReadIncrease is
// not read at all and gives the "growing too fast" message instead (`message`
// is then set). Empty when the file cannot be opened. `reached`, when given,
// is the file position the read has brought the display to. `head`, when
// given, receives the file's first kHeadBytes bytes (where a byte-order mark
// lies), read through the same open file.
std::string ReadFileFromPos(Env& env, const std::string& file_name, int64_t from_pos,
                            bool* message = nullptr, int64_t* reached = nullptr,
                            std::string* head = nullptr);

// Enough of a file's start to hold any byte-order mark.
constexpr int64_t kHeadBytes = 3;

// The file's first kHeadBytes bytes (fewer when it is shorter).
std::string ReadFileHead(Env& env, const std::string& file_name);

// The length after an open and close, which makes some systems bring the
// length of a file being written up to date.
std::optional<int64_t> FileLenFresh(Env& env, const std::string& file_name);

// The file's last `lines_to_read` lines: everything after the line feed that
// many lines from the end (a line feed in the very last byte not counted).
// Empty when the file holds fewer line feeds than that. Reads backwards in
// blocks, with the same result as a scan byte by byte, calling
// `between_blocks` (when given) before each block. Nothing on a read error.
//
// A window that keeps at most `max_bytes` of older lines before the newest one
// never shows lines that begin more than `max_bytes` before it, so they are
// not read: the text then starts after the line feed where that distance is
// first reached, and holds at most 2 * `max_bytes` + 64 KB bytes (the start of
// an even longer newest line is left out).
//
// In a UTF-16 file (`encoding`) a line feed is a code unit at an even offset,
// never a byte that happens to be 10; everything else counts line-feed bytes.
std::optional<std::string> ReadLastLines(SharedFile& file, int64_t length, int32_t lines_to_read,
                                         int64_t max_bytes = kNoReadLimit,
                                         const std::function<void()>& between_blocks = nullptr,
                                         TextEncoding encoding = TextEncoding::kUndecided);

// The buffer-mode read of the initial load: up to `buffer` + 2 bytes, from
// length - buffer + 2 when the buffer is over 1024 bytes and the file is
// larger, else from the start. With `unit_bytes` (2 for UTF-16) bytes a
// character, every count above is that many times larger, so the read holds
// as many characters. `offset`, when given, receives where the read began.
std::string ReadFileTail(Env& env, const std::string& file_name, int64_t length, int32_t buffer,
                         int64_t* offset = nullptr, int64_t unit_bytes = 1);

// The `chars` characters before `end` of a file of up to `unit_bytes` bytes a
// character: the bytes from `end` - `chars` * `unit_bytes` (or the start).
std::string ReadBefore(Env& env, const std::string& file_name, int64_t end, int64_t chars,
                       int64_t unit_bytes, int64_t* offset);

}  // namespace ferrow
