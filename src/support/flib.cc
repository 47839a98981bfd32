#include "support/flib.h"

#include "platform/env.h"

namespace ferrow {

FileTable::~FileTable() {
  for (auto& [number, file] : files_) std::fclose(file.stream);
}

int16_t FileTable::FreeFile() const {
  int16_t number = 1;
  while (files_.count(number)) ++number;
  return number;
}

FileTable::OpenFile* FileTable::Find(int16_t number) {
  auto it = files_.find(number);
  return it == files_.end() ? nullptr : &it->second;
}

std::FILE* FileTable::Stream(int16_t number) {
  OpenFile* file = Find(number);
  return file ? file->stream : nullptr;
}

int16_t FileTable::FOpen(const std::string& name, const std::string& mode,
                         const std::string& /*caller*/) {
  const int16_t number = FreeFile();
  const bool read = mode.find('r') != std::string::npos;
  const bool write = mode.find('w') != std::string::npos;
  const bool binary = mode.find('b') != std::string::npos;
  if (!read && !write) return number;
  if (name.empty()) return 0;

  std::FILE* stream = nullptr;
  if (read) {
    // Line ends are handled by LineInput, so text reads open byte-wise too.
    stream = env_.OpenStream(name, "rb");
  } else if (binary) {
    stream = env_.OpenStream(name, "r+b");
    if (!stream) stream = env_.OpenStream(name, "w+b");
  } else {
    stream = env_.OpenStream(name, "wb");
  }
  if (!stream) return 0;
  files_[number] = OpenFile{stream, binary, false};
  return number;
}

int FileTable::LineInput(int16_t number, std::string& line) {
  line.clear();
  OpenFile* file = Find(number);
  if (!file) return kErrBadFileNumber;
  std::FILE* f = file->stream;
  int c = std::getc(f);
  if (c == EOF) {
    file->hit_end = true;
    return std::ferror(f) ? kErrDeviceIO : kErrPastEndOfFile;
  }
  while (c != EOF && c != '\n' && c != '\r') {
    line += static_cast<char>(c);
    c = std::getc(f);
  }
  if (c == EOF) file->hit_end = true;
  if (c == '\r') {
    int next = std::getc(f);
    if (next != '\n' && next != EOF) std::ungetc(next, f);
  }
  return std::ferror(f) ? kErrDeviceIO : 0;
}

bool FileTable::Eof(int16_t number) {
  OpenFile* file = Find(number);
  if (!file) return true;
  if (file->binary) return file->hit_end;
  std::FILE* f = file->stream;
  int c = std::getc(f);
  if (c == EOF) return true;
  std::ungetc(c, f);
  return false;
}

int FileTable::Put(int16_t number, std::string_view bytes) {
  std::FILE* f = Stream(number);
  if (!f) return kErrBadFileNumber;
  // A stream that was just read must be repositioned before it is written.
  std::fseek(f, 0, SEEK_CUR);
  if (std::fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size()) return kErrDeviceIO;
  return 0;
}

int FileTable::Commit(int16_t number) {
  std::FILE* f = Stream(number);
  if (!f) return kErrBadFileNumber;
  return env_.SyncStream(f) ? 0 : kErrDeviceIO;
}

bool FileTable::Rewind(int16_t number) {
  if (number < 1) return false;
  if (OpenFile* file = Find(number)) {
    std::rewind(file->stream);
    file->hit_end = false;
  }
  return true;
}

int64_t FileTable::Length(int16_t number) {
  std::FILE* f = Stream(number);
  if (!f) return -1;
  std::fflush(f);
  long here = std::ftell(f);
  std::fseek(f, 0, SEEK_END);
  long end = std::ftell(f);
  std::fseek(f, here, SEEK_SET);
  return end;
}

void FileTable::Close(int16_t number) {
  auto it = files_.find(number);
  if (it == files_.end()) return;
  std::fclose(it->second.stream);
  files_.erase(it);
}

int Unlink(Env& env, const std::string& name) { return env.RemoveFile(name); }

}  // namespace ferrow
