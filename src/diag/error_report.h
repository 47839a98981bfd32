// Trapped errors of the maintenance code become one debug-log record naming
// the error, the procedure and the step it had reached; nothing is shown.
#pragma once

#include <cstdint>
#include <string>

namespace ferrow {

struct Session;

// "Error <n> (<description>) at <line> in <proc>()"
std::string ErrorText(int32_t error_number, const std::string& description, int16_t line,
                      const std::string& proc_name);

// Writes ErrorText to the debug log (a no-op while logging is off).
void ReportError(Session& session, int32_t error_number, const std::string& description,
                 int16_t& line, const std::string& proc_name);

// BASIC's description of the error numbers the program meets.
std::string ErrorDescription(int32_t error_number);

}  // namespace ferrow
