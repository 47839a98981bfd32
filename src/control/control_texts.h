// The control window's decisions that need no window: what may be opened and
// what the user is told, the filter button's tool tip, the captions.
#pragma once

#include <optional>
#include <string>

namespace ferrow {

class Env;
struct Options;

struct OpenRefusal {
  std::string title;
  std::string text;
  bool clear_name;  // a folder: the name box is emptied
};

// Why `file_name` cannot be opened, or nothing when it can.
std::optional<OpenRefusal> CheckFileToOpen(Env& env, const std::string& file_name);

// "Filtering on "ERROR WARN" Red Filter="FATAL"", or "Filtering on Nothing".
std::string FilterToolTip(const Options& options);

// "Ferrow Menu" and the captions the control window shows while it works.
std::string MenuTitle(const std::string& rest = "");

}  // namespace ferrow
