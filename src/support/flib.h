// Numbered file handles in the manner of the BASIC runtime: open a file by a
// mode string, read it line by line, write bytes, go back to its start.
#pragma once

#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>

namespace ferrow {

class Env;

// BASIC error numbers that callers test.
constexpr int kErrBadFileNumber = 52;
constexpr int kErrPastEndOfFile = 62;
constexpr int kErrDeviceIO = 57;

class FileTable {
 public:
  explicit FileTable(Env& env) : env_(env) {}
  ~FileTable();
  FileTable(const FileTable&) = delete;
  FileTable& operator=(const FileTable&) = delete;

  // Opens `name` by the letters of `mode` (case-sensitive): "r" reads ("b"
  // byte-wise, else text lines; "l" picks the second sharing variant, which
  // here shares as widely as the first); otherwise "w" writes ("b": read and
  // write from the first byte without truncating, creating the file if need
  // be; else the file is replaced). A mode with neither letter opens nothing
  // yet returns the next free number. 0 when the open failed. `caller` is the
  // calling procedure's name and plays no part in the open.
  int16_t FOpen(const std::string& name, const std::string& mode, const std::string& caller);

  // Reads one line, without its end (CR LF, LF or CR). Returns 0, or
  // kErrPastEndOfFile when nothing is left, or another BASIC error number.
  int LineInput(int16_t number, std::string& line);

  // True at the end of a file opened for text lines; for a byte-wise file,
  // true only once a read has run into its end, as BASIC has it. Also true
  // for a number that is not open.
  bool Eof(int16_t number);

  // Writes `bytes` at the current position; 0 or a BASIC error number.
  int Put(int16_t number, std::string_view bytes);

  // Writes out what the file buffers and waits until the disk holds it; 0 or
  // a BASIC error number.
  int Commit(int16_t number);

  // Moves the file to its first byte; false only when `number` < 1.
  bool Rewind(int16_t number);

  // Length in bytes of an open file, -1 when `number` is not open.
  int64_t Length(int16_t number);

  void Close(int16_t number);

 private:
  struct OpenFile {
    std::FILE* stream;
    bool binary;
    bool hit_end;
  };
  int16_t FreeFile() const;
  OpenFile* Find(int16_t number);
  std::FILE* Stream(int16_t number);

  Env& env_;
  std::map<int16_t, OpenFile> files_;
};

// Deletes a file; 0 on success, non-zero on failure.
int Unlink(Env& env, const std::string& name);

}  // namespace ferrow
