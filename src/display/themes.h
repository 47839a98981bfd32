// The twelve themes of the text window (0 Custom to 11 Times), known by
// three-letter codes, and the operation that applies one to the record.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace ferrow {

struct Options;

constexpr int kThemeCount = 12;

// Three parallel tables indexed by theme number; slot 12 stays empty.
struct ThemeTables {
  std::array<std::string, 13> ThemeCode{};  // filled by SetTheme each time it runs
  std::array<std::string, 13> ThemeFontName{};
  std::array<int16_t, 13> ThemeFontSize{};
};

// The dialog captions of the themes, 0 to 11.
const std::array<const char*, kThemeCount>& ThemeCaptions();

// The start-up fonts and sizes of every theme.
void FillThemeTables(ThemeTables& themes);

// Applies the theme whose code is the first three letters of `name`
// (upper-cased) to Font, FontSize, FontBold and the three colours, and returns
// its number. A name of fewer than 3 letters changes nothing and returns 0;
// any other unknown name (Custom among them) gives the Standard look with row
// 0's font and size, and returns 1.
int16_t SetTheme(Options& options, ThemeTables& themes, const std::string& name);

// The look of a new configuration: theme 1, and the poll interval of 500 ms.
void ApplyDefaultTheme(Options& options, ThemeTables& themes);

}  // namespace ferrow
