#include "display/colours.h"

#include <cstdio>

#include "support/strings.h"

namespace ferrow {

const std::vector<NamedColour>& ColourTable() {
  static const std::vector<NamedColour> table = {
      {"Black", 0x000000},          {"Red", 0x0000FF},
      {"Green", 0x00FF00},          {"Yellow", 0x00FFFF},
      {"Blue", 0xFF0000},           {"Magenta", 0xFF00FF},
      {"Cyan", 0xFFFF00},           {"White", 0xFFFFFF},
      {"Grey", 0xBEBEBE},           {"Gray", 0xBEBEBE},
      {"Beige", 0xDCF5F5},          {"BlueViolet", 0xE22B8A},
      {"Cornflower", 0xED9564},     {"Cornsilk", 0xDCF8FF},
      {"Khaki", 0x6BB7DB},          {"Honeydew", 0xF0FFF0},
      {"Hotpink", 0xB469FF},        {"LightBlue", 0xE6D8AD},
      {"LightCoral", 0x80800F},     {"LightGrey", 0xD3D3D3},
      {"LightGray", 0xD3D3D3},      {"LightPink", 0xC1B6FF},
      {"SkyBlue", 0xFACE87},        {"LightSlateBlue", 0xFF7084},
      {"LightSlateGrey", 0x998877}, {"LightSlateGray", 0x998877},
      {"LightSteelBlue", 0xDEC40C}, {"Linen", 0xE6F0FA},
      {"MediumPurple", 0xDB7093},   {"MediumSlateBlue", 0xEE687B},
      {"MistyRose", 0xE1E4FF},      {"Orchid", 0xD670DA},
      {"Pink", 0xCBC0FF},           {"Plum", 0xDDA0DD},
      {"PowderBlue", 0xE6E0B0},     {"RosyBrown", 0x8F8FBC},
      {"SteelBlue", 0xB48246},      {"Thistle", 0xD8BFD8},
      {"Purple", 0xF020A0},         {"Violet", 0xEE82EE},
      {"Sienna", 0x2D52A0},         {"SlateGray", 0x908070},
      {"SlateGrey", 0x908070},      {"Salmon", 0x7280FA},
      {"Brown", 0x193258},          {"DimGrey", 0x696969},
      {"DimGray", 0x696969},        {"DarkViolet", 0x560052},
  };
  return table;
}

bool TryColourFromName(const std::string& name, Colour& colour) {
  for (const NamedColour& entry : ColourTable()) {
    if (EqualsNoCase(entry.name, name)) {
      colour = entry.value;
      return true;
    }
  }
  return false;
}

Colour ColourFromName(const std::string& name) {
  Colour colour = 0;
  TryColourFromName(name, colour);
  return colour;
}

std::string ColourToName(Colour colour) {
  for (const NamedColour& entry : ColourTable())
    if (entry.value == colour) return entry.name;
  char hex[16];
  std::snprintf(hex, sizeof hex, "&h%X", static_cast<unsigned>(colour));
  return hex;
}

}  // namespace ferrow
