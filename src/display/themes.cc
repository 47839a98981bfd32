#include "display/themes.h"

#include "display/colours.h"
#include "session/options.h"
#include "support/strings.h"

namespace ferrow {
namespace {

struct ThemeRow {
  const char* code;
  const char* font;
  int16_t size;
  bool bold;
  const char* font_colour;
  const char* back_colour;  // nullptr: kBackNumber
  const char* filter_colour;
};

constexpr Colour kWordPerfectBlue = 0x800000;  // given as a number, not a name

// Row 0 (Custom) has no look of its own.
constexpr ThemeRow kRows[kThemeCount] = {
    {"CUS", "Terminal", 10, true, "grey", "black", "blue"},
    {"STA", "Terminal", 10, true, "grey", "black", "blue"},
    {"PAP", "Terminal", 9, false, "black", "white", "blue"},
    {"MOD", "Arial", 10, true, "linen", "slategrey", "salmon"},
    {"FAN", "Papyrus", 10, true, "lightpink", "black", "cornflower"},
    {"CHO", "Papyrus", 10, true, "beige", "brown", "cornflower"},
    {"GOT", "Black Chancery", 12, false, "grey", "darkviolet", "lightpink"},
    {"RED", "Terminal", 10, true, "white", "red", "yellow"},
    {"WP5", "System", 12, true, "grey", nullptr, "yellow"},
    {"OFF", "Arial", 10, true, "white", "black", "yellow"},
    {"PIN", "Arial", 10, true, "linen", "hotpink", "black"},
    {"TIM", "Times New Roman", 10, true, "black", "cornsilk", "red"},
};

void ApplyColours(Options& o, const ThemeRow& row) {
  o.FontColour = ColourFromName(row.font_colour);
  o.BackColour = row.back_colour ? ColourFromName(row.back_colour) : kWordPerfectBlue;
  o.FilterColour = ColourFromName(row.filter_colour);
  o.FontBold = row.bold;
}

}  // namespace

const std::array<const char*, kThemeCount>& ThemeCaptions() {
  static const std::array<const char*, kThemeCount> captions = {
      "Custom", "Standard", "Paper",      "Modern", "Fancy", "Chocolate",
      "Gothic", "Soviet Red", "WordPerfect 5.1", "Office", "Pink",  "Times"};
  return captions;
}

void FillThemeTables(ThemeTables& themes) {
  for (int i = 0; i < kThemeCount; ++i) {
    themes.ThemeFontName[i] = kRows[i].font;
    themes.ThemeFontSize[i] = kRows[i].size;
  }
}

int16_t SetTheme(Options& o, ThemeTables& themes, const std::string& name) {
  for (int i = 0; i < kThemeCount; ++i) themes.ThemeCode[i] = kRows[i].code;
  const std::string upper = UpperCase(name);
  if (upper.size() < 3) return 0;
  const std::string code = upper.substr(0, 3);
  for (int i = 1; i < kThemeCount; ++i) {
    if (code != themes.ThemeCode[i]) continue;
    o.Font = i == 1 ? "Terminal" : themes.ThemeFontName[i];
    o.FontSize = themes.ThemeFontSize[i];
    ApplyColours(o, kRows[i]);
    return static_cast<int16_t>(i);
  }
  o.Font = themes.ThemeFontName[0];
  o.FontSize = themes.ThemeFontSize[0];
  ApplyColours(o, kRows[1]);
  return 1;
}

void ApplyDefaultTheme(Options& o, ThemeTables& themes) {
  o.ThemeNumber = SetTheme(o, themes, "STA");
  o.TimerInterval = 500;
}

}  // namespace ferrow
