// Where an installed program finds its own files. An install puts the program
// in bin/, the companion library in lib/.../ferrow/ and the data (the update
// sound) in share/ferrow/; a zip or a build folder keeps them all beside the
// program. Both are looked for, the program's own folder first. The layout is
// known relative to the program's folder, so a package unpacked anywhere
// (dpkg -x, a DESTDIR) finds its files as well as an installed one.
#pragma once

#include <string>

namespace ferrow {

class Env;

// The folder an install puts the companion library in; "" when the build
// knows no install layout.
std::string InstalledLibraryFolder(Env& env);

// The folder an install puts the program's data in; "" as above.
std::string InstalledDataFolder(Env& env);

// The program's own file `name`: beside the program when it is there, else in
// the installed data folder when it is there, else the name beside the program.
std::string ProgramDataFile(Env& env, const std::string& name);

}  // namespace ferrow
