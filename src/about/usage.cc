#include "about/usage.h"

#include "about/product.h"
#include "session/session.h"

namespace ferrow {

std::string UsageBoxText(const Options& options) {
  return std::string(kProductName) + " v" + kVersion + kCopyright + kReleaseDate + "\r\n\r\n" +
         options.UsageText;
}

void ShowUsage(Session& session) {
  session.ui.ShowMessage(UsageBoxText(session.options), kProductName, MessageIcon::Information);
}

}  // namespace ferrow
