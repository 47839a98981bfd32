// The other program in the following tests: it changes the followed file the
// way a log writer or rotator would, one change per run (see file_writer_ops.h).
// In TEXT, "\n" is written as CR LF.
#include <string>
#include <vector>

#include "engine/file_writer_ops.h"

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  return ferrow::testing::ApplyWriterOp(args) ? 0 : 1;
}
