#include "support/install_layout.h"

#include "platform/env.h"
#include "support/paths.h"

// The build passes in the install layout, relative to the program's folder.
#ifndef FERROW_LIBRARY_FROM_PROGRAM
#define FERROW_LIBRARY_FROM_PROGRAM ""
#endif
#ifndef FERROW_DATA_FROM_PROGRAM
#define FERROW_DATA_FROM_PROGRAM ""
#endif

namespace ferrow {
namespace {

std::string FromProgram(Env& env, const std::string& relative) {
  const std::string program_folder = FolderPart(env.ProgramPath());
  if (relative.empty() || program_folder.empty()) return "";
  return JoinPath(program_folder, relative);
}

}  // namespace

std::string InstalledLibraryFolder(Env& env) { return FromProgram(env, FERROW_LIBRARY_FROM_PROGRAM); }

std::string InstalledDataFolder(Env& env) { return FromProgram(env, FERROW_DATA_FROM_PROGRAM); }

std::string ProgramDataFile(Env& env, const std::string& name) {
  const std::string beside = JoinPath(FolderPart(env.ProgramPath()), name);
  if (FileExists(env, beside)) return beside;
  const std::string data_folder = InstalledDataFolder(env);
  if (!data_folder.empty() && FileExists(env, JoinPath(data_folder, name)))
    return JoinPath(data_folder, name);
  return beside;
}

}  // namespace ferrow
