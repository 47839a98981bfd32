// The scenarios this front-end fails today, each with the wrong behaviour
// it shows. They are registered DISABLED_ (still built and listed); remove
// an entry once its defect is fixed.
#include <map>
#include <string>

#include "frontend/scenario_registry.h"

namespace ferrow::frontend {

const char* FrontEndName() { return "Win32FrontEnd"; }

const char* KnownDefect(const std::string& scenario) {
  static const std::map<std::string, const char*> known = {
  };
  auto found = known.find(scenario);
  return found == known.end() ? nullptr : found->second;
}

}  // namespace ferrow::frontend
