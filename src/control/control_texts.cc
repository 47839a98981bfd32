#include "control/control_texts.h"

#include "about/product.h"
#include "platform/env.h"
#include "session/options.h"
#include "support/paths.h"

namespace ferrow {
namespace {

std::string Quoted(const std::string& words) { return "\"" + words + "\""; }

}  // namespace

std::optional<OpenRefusal> CheckFileToOpen(Env& env, const std::string& name) {
  if (env.IsFolder(name)) return OpenRefusal{"Error", "You selected a directory", true};
  if (FileExists(env, name)) return std::nullopt;
  const std::string please = "check your are connected to the network";
  if (name.rfind("\\\\", 0) == 0)
    return OpenRefusal{"File Access Error",
                       "Can't open UNC path for file: " + name + "\r\nPlease " + please, false};
  return OpenRefusal{"File Access Error",
                     "Can't open: " + name + "\r\n\r\nIf this is a network drive then please " + please,
                     false};
}

std::string FilterToolTip(const Options& o) {
  std::string tip = "Filtering on " + (o.FilterString.empty() ? std::string("Nothing") : Quoted(o.FilterString));
  if (!o.RedFilterString.empty()) tip += " Red Filter=" + Quoted(o.RedFilterString);
  return tip;
}

std::string MenuTitle(const std::string& rest) { return std::string(kProductName) + " Menu" + rest; }

}  // namespace ferrow
