#include "engine/file_writer_ops.h"

#include <filesystem>
#include <fstream>

namespace ferrow::testing {

bool ApplyWriterOp(const std::vector<std::string>& args) {
  namespace fs = std::filesystem;
  if (args.size() < 2) return false;
  const std::string& op = args[0];
  const std::string& file = args[1];
  std::error_code ec;
  if (op == "append" && args.size() == 3) {
    std::string text;
    for (char c : args[2]) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
    std::ofstream(file, std::ios::binary | std::ios::app) << text;
  } else if (op == "fill" && args.size() == 3) {
    std::ofstream(file, std::ios::binary | std::ios::app) << std::string(std::stoul(args[2]), 'x');
  } else if (op == "truncate" && args.size() == 3) {
    fs::resize_file(file, std::stoull(args[2]), ec);
  } else if (op == "delete") {
    fs::remove(file, ec);
  } else if (op == "folder") {
    fs::remove(file, ec);
    fs::create_directory(file, ec);
  } else {
    return false;
  }
  return !ec;
}

}  // namespace ferrow::testing
