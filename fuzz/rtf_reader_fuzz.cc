// The rich-text reader on any document: linear, never past its input.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "display/rich_document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const ferrow::RichDocument doc =
      ferrow::ReadRtf(std::string_view(reinterpret_cast<const char*>(data), size));
  (void)doc.PlainText();
  return 0;
}
