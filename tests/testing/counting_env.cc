#include "testing/counting_env.h"

namespace ferrow::testing {

bool ProfileWriteEnv::WriteProfileString(const char* section, const char* key, const char* value,
                                         const std::string& path) {
  ++writes;
  if (key && !value) ++deletes_of_key;
  if (succeed && !succeed(key, value)) return false;
  return CountingEnv::WriteProfileString(section, key, value, path);
}

}  // namespace ferrow::testing
