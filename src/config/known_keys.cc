#include "config/known_keys.h"

namespace ferrow {

const std::vector<std::string>& KnownKeys() {
  static const std::vector<std::string> keys = {
      "",  // index 0 is not used
      "BackColour",        "BringFromStartOfFile", "BrowseStartDir",    "Debug",
      "FilterColour",      "FilterString",         "Font",              "FontBold",
      "FontColour",        "FontSize",             "FormX",             "FormY",
      "FormWidth",         "FormHeight",           "GreenFilterString", "HideMenuOnStartup",
      "History*",          "HistoryCount",         "LastFileSelected",  "MaxInputLength",
      "MenuX",             "MenuY",                "MinimiseOnStartup", "PlaySoundOnUpdate",
      "RedFilterString",   "QuickScroll",          "ThemeNumber",       "ThemeName",
      "TimerInterval",     "UpdateSound",          "AlertOnUpdate",     "WriteLock",
      "FontName*",         "FontSize*",
  };
  return keys;
}

}  // namespace ferrow
