// The command line: split into tokens, and each switch applied to the record.
#pragma once

#include <string>
#include <vector>

namespace ferrow {

class Env;
struct Options;

constexpr int kMaxArguments = 128;

// The switches that turned something off, remembered for the file's section.
struct DisabledSwitches {
  bool F = false, M = false, S = false, A = false;
};

// Splits `text` on double quotes, blanks, commas and semicolons (a quoted
// phrase stays one token), at most 128 tokens.
std::vector<std::string> ParseCommandLine(const std::string& text);

// The arguments after the program's name as one command line, each argument
// that holds a delimiter quoted so that it stays one token.
std::string JoinArguments(const std::vector<std::string>& args);

// True when a token names a file rather than a switch: it does not begin
// with "/" or "-", or (on POSIX) it is a path such as /var/log/syslog.
bool IsFileNameToken(Env& env, const std::string& token);

// The eleven lines of the /? text; `buffer_kb` is the buffer size shown.
std::string BuildUsageText(int buffer_kb);

// Applies every token in order. Returns false when /? asks for the usage box
// (and the program then ends).
bool ApplyArguments(Env& env, Options& options, const std::vector<std::string>& args,
                    DisabledSwitches& disabled);

}  // namespace ferrow
