// Moving the option record to and from the configuration file: [Common] at
// start-up, on opening a file and on closing; the followed file's own section
// whenever that file is opened or its look and behaviour change. No write
// lock: each key is written on its own and the last writer wins.
#pragma once

#include <string>

namespace ferrow {

struct Session;

void LoadCommonSettings(Session& session, const std::string& ini_file_name);
void SaveCommonSettings(Session& session);

// Fonts, colours, theme, buffer size and the red filter.
void LoadFileLook(Session& session, const std::string& ini_file_name, const std::string& section);
// The look, then behaviour and geometry, then the control window's settings.
void LoadFileSettings(Session& session, const std::string& ini_file_name,
                      const std::string& section);
void LoadMenuSettings(Session& session, const std::string& ini_file_name,
                      const std::string& section);

// TimerInterval, MaxInputLength and RedFilterString are read from a file's
// section but never written: they are set by hand.
void SaveFileSettings(Session& session, const std::string& section);
// The text window's geometry, each value only when it is a sensible one.
void SaveWindowSettings(Session& session);

}  // namespace ferrow
