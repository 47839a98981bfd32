// Cutting one fuzzer input into the several arguments a function takes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ferrow::fuzz {

class Input {
 public:
  Input(const uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  // The text up to the next `end` byte (which is consumed), or all the rest.
  std::string Field(char end = '\n') {
    const size_t stop = rest_.find(end);
    std::string field(rest_.substr(0, stop));
    rest_.remove_prefix(stop == std::string_view::npos ? rest_.size() : stop + 1);
    return field;
  }
  uint8_t Byte() {
    if (rest_.empty()) return 0;
    const uint8_t b = static_cast<uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return b;
  }
  std::string Rest() {
    std::string all(rest_);
    rest_ = {};
    return all;
  }

 private:
  std::string_view rest_;
};

}  // namespace ferrow::fuzz
