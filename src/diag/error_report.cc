#include "diag/error_report.h"

#include "diag/debug_log.h"
#include "session/session.h"

namespace ferrow {

std::string ErrorText(int32_t error_number, const std::string& description, int16_t line,
                      const std::string& proc_name) {
  return "Error " + std::to_string(error_number) + " (" + description + ") at " +
         std::to_string(line) + " in " + proc_name + "()";
}

void ReportError(Session& session, int32_t error_number, const std::string& description,
                 int16_t& line, const std::string& proc_name) {
  LogEvent(session, session.options.LogFileName,
           ErrorText(error_number, description, line, proc_name), "", "", "");
}

std::string ErrorDescription(int32_t error_number) {
  switch (error_number) {
    case 5: return "Invalid procedure call or argument";
    case 52: return "Bad file name or number";
    case 53: return "File not found";
    case 57: return "Device I/O error";
    case 62: return "Input past end of file";
    case 70: return "Permission denied";
    case 75: return "Path/File access error";
    default: return "Application-defined or object-defined error";
  }
}

}  // namespace ferrow
