#include "engine/engine_fixture.h"

#include "engine/file_writer_ops.h"
#ifndef _WIN32
#include "testing/processes.h"
#endif

namespace ferrow::testing {

void EngineTest::Write(const std::vector<std::string>& args) {
#ifdef _WIN32
  // Under Wine the change is made here, through a handle of its own.
  ASSERT_TRUE(ApplyWriterOp(args)) << args[0];
#else
  std::vector<std::string> argv = {FERROW_FILE_WRITER};
  argv.insert(argv.end(), args.begin(), args.end());
  ASSERT_EQ(WaitExit(Spawn(argv)), 0) << args[0];
#endif
}

}  // namespace ferrow::testing
