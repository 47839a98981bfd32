#include "about/about_text.h"

#include <cstdio>

#include "about/product.h"
#include "session/options.h"
#include "support/strings.h"

namespace ferrow {

std::string AboutCaption() { return std::string("About ") + kProductName + " for Windows"; }

std::string AboutTitle() {
  return std::string(kProductName) + " v" + kVersion + " - " + kReleaseDate + "\r\n\r\n";
}

std::string LibraryVersionText(int version) {
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", version / 100.0);
  return text;
}

std::string AboutInformation(const Options& o, const std::string& program_path,
                             const std::string& started, const std::string& library_path) {
  const std::string name = kProductName;
  std::string lower_path = program_path;
  for (char& c : lower_path)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  std::string text = name + " retrieves data from the END of the file as it changes. \r\n\r\n";
  text += lower_path + " - Running since " + started + "\r\n";
  text += "FERROW.DLL helper v" + LibraryVersionText(o.HelperLibraryVersion) + " is" +
          (o.HelperLibraryInUse ? "" : " NOT") + " active ";
  if (o.HelperLibraryInUse) text += " - " + library_path;
  text += "\r\n\r\n" + name + " for Windows shows of the last few bytes of a text file each time it changes. \r\n";
  text += "If the file shrinks you will see NO output. If the file then expands again you will see "
          "whatever is now at the new end of the file.\r\n";
  text += name + " for Windows is Linux-file compatible and is commonly found on Linux/Unix systems "
                 "as a command-line utility.\r\n";
  text += "It is useful for real-time monitoring of log files such as those found on webservers.\r\n";
  text += "This software is freeware and comes with absolutely NO warranty\r\n\r\n" + o.UsageText;
  return text;
}

}  // namespace ferrow
