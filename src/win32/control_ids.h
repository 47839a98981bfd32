// The control window's child controls by id, and its window class: what the
// window makes and what a test from outside looks for.
#pragma once

namespace ferrow::win32 {

inline constexpr char kControlWindowClass[] = "FerrowControlWindow";
inline constexpr char kTextWindowClass[] = "FerrowTextWindow";

// Child window ids; the order of ferrow::Control, from 100.
enum ControlId : int {
  kIdFileName = 100, kIdPlainFileName, kIdDragDropTip,
  kIdOK, kIdBrowse, kIdOptions, kIdFilter, kIdPause, kIdAbout, kIdClose, kIdLink,
  kIdFileStart, kIdMinimise, kIdPlaySound,
};

inline constexpr int kTimer1Id = 1;

}  // namespace ferrow::win32
