// The reads of the followed file. Each opens the file with shared read and
// write access, so the writer is never hindered, and closes it again.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

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
// is the file position the read has brought the display to.
std::string ReadFileFromPos(Env& env, const std::string& file_name, int64_t from_pos,
                            bool* message = nullptr, int64_t* reached = nullptr);

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
std::optional<std::string> ReadLastLines(SharedFile& file, int64_t length, int32_t lines_to_read,
                                         int64_t max_bytes = kNoReadLimit,
                                         const std::function<void()>& between_blocks = nullptr);

// The buffer-mode read of the initial load: up to `buffer` + 2 bytes, from
// length - buffer + 2 when the buffer is over 1024 bytes and the file is
// larger, else from the start.
std::string ReadFileTail(Env& env, const std::string& file_name, int64_t length, int32_t buffer);

}  // namespace ferrow
