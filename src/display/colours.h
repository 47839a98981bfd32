// The colour-name table through which themes, the configuration file and the
// settings dialog speak of colours. Colours are 0x00BBGGRR.
#pragma once

#include <string>
#include <vector>

#include "session/options.h"

namespace ferrow {

struct NamedColour {
  const char* name;
  Colour value;
};

// The 48 names in table order (1-based in the program's terms: element 0 is
// entry 1). The values are this program's palette, kept as they are even
// where they differ from other published values of the same names.
const std::vector<NamedColour>& ColourTable();

// The colour of the first entry named `name` (any case), or 0 (black).
Colour ColourFromName(const std::string& name);

// Sets `colour` and returns true when `name` is in the table; otherwise
// leaves `colour` alone and returns false.
bool TryColourFromName(const std::string& name, Colour& colour);

// The first name with that value ("Grey", never "Gray"), or "&h" and the
// value in upper-case hexadecimal without leading zeros.
std::string ColourToName(Colour colour);

}  // namespace ferrow
