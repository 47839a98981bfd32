#include "config/config_location.h"

#include "platform/env.h"
#include "support/paths.h"

namespace ferrow {

std::string ProgramName(Env& env) {
  std::string name = FileNamePart(env.ProgramPath());
  size_t dot = name.rfind('.');
  if (dot != std::string::npos && dot > 0) name.erase(dot);
  return name.empty() ? "Ferrow" : name;
}

std::string ConfigFolder(Env& env) {
  std::string program_folder = FolderPart(env.ProgramPath());
  if (!program_folder.empty() && env.IsFolderWritable(program_folder)) return program_folder;
  std::string user_folder = env.UserConfigFolder();
  if (!user_folder.empty() && env.CreateFolders(user_folder)) return user_folder;
  return program_folder;
}

std::string IniFileName(Env& env) { return JoinPath(ConfigFolder(env), ProgramName(env) + ".INI"); }

std::string LogFileName(Env& env) { return JoinPath(ConfigFolder(env), ProgramName(env) + ".LOG"); }

}  // namespace ferrow
