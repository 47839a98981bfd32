// The configuration file's sections and keys, each declared once with the
// range its value is read within. Defaults live in the option record.
#pragma once

#include <cstdint>

namespace ferrow::keys {

inline constexpr char kCommon[] = "Common";

// A number key: values outside [min, max] are clamped into it when `clamp`,
// else ignored.
struct NumberKey {
  const char* name;
  int32_t min;
  int32_t max;
  bool clamp;
};

// [Common]
inline constexpr char BrowseStartDir[] = "BrowseStartDir";
inline constexpr char LastFileSelected[] = "LastFileSelected";
inline constexpr NumberKey BufferSizeKb{"BufferSizeKb", 1, 10240, true};
inline constexpr char CopyAsRTF[] = "CopyAsRTF";
inline constexpr NumberKey HistoryCount{"HistoryCount", 0, 200, true};
inline constexpr char Debug[] = "Debug";
inline constexpr char WriteLock[] = "WriteLock";

// A followed file's section.
inline constexpr char BringFromStartOfFile[] = "BringFromStartOfFile";
inline constexpr char HideMenuOnStartup[] = "HideMenuOnStartup";
inline constexpr char PlaySoundOnUpdate[] = "PlaySoundOnUpdate";
inline constexpr char AlertOnUpdate[] = "AlertOnUpdate";
inline constexpr char QuickScroll[] = "QuickScroll";
inline constexpr char FontBold[] = "FontBold";
inline constexpr char UpdateSound[] = "UpdateSound";
inline constexpr NumberKey TimerInterval{"TimerInterval", 100, INT16_MAX, true};
inline constexpr NumberKey MaxInputLength{"MaxInputLength", INT32_MIN, INT32_MAX, false};
inline constexpr char FilterString[] = "FilterString";
inline constexpr char RedFilterString[] = "RedFilterString";
inline constexpr char FilterColour[] = "FilterColour";
inline constexpr char FontColour[] = "FontColour";
inline constexpr char BackColour[] = "BackColour";
inline constexpr char Font[] = "Font";
inline constexpr NumberKey FontSize{"FontSize", INT16_MIN, INT16_MAX, false};
inline constexpr NumberKey ThemeNumber{"ThemeNumber", 0, 11, false};
inline constexpr NumberKey FormX{"FormX", INT32_MIN, INT32_MAX, false};
inline constexpr NumberKey FormY{"FormY", INT32_MIN, INT32_MAX, false};
inline constexpr NumberKey FormWidth{"FormWidth", INT32_MIN, INT32_MAX, false};
inline constexpr NumberKey FormHeight{"FormHeight", INT32_MIN, INT32_MAX, false};
inline constexpr NumberKey MenuX{"MenuX", INT32_MIN, INT32_MAX, false};
inline constexpr NumberKey MenuY{"MenuY", INT32_MIN, INT32_MAX, false};

// Geometry is saved only beyond these, so a minimised or unplaced window
// leaves the last good values in place.
inline constexpr int32_t kMinSavedFormWidth = 1844;
inline constexpr int32_t kMinSavedFormHeight = 650;

}  // namespace ferrow::keys
