// Where the configuration (INI) and debug log (LOG) files live: beside the
// program, named after it, or in the per-user configuration folder when the
// program's folder cannot be written.
#pragma once

#include <string>

namespace ferrow {

class Env;

// The program file's name without its folder and without its extension.
std::string ProgramName(Env& env);

// The folder the INI and LOG files go in (created when it is the per-user one).
std::string ConfigFolder(Env& env);

std::string IniFileName(Env& env);  // folder + program name + ".INI"
std::string LogFileName(Env& env);  // folder + program name + ".LOG"

}  // namespace ferrow
