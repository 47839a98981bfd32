#include "control/window_gate.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace ferrow {
namespace {

TEST(WindowGate, ARequestWhileAnOperationRunsIsDroppedAndTheUnloadRunsAfterIt) {
  WindowGate gate;
  std::string order;
  gate.Run(WindowGate::Work::kOpen, [&] {
    order += "open(";
    EXPECT_FALSE(gate.Run(WindowGate::Work::kRestart, [&] { order += "restart"; }));
    gate.RequestUnload([&] { order += "unload"; });
    EXPECT_TRUE(gate.Closing());
    order += ")";
  });
  EXPECT_EQ(order, "open()unload");
  EXPECT_FALSE(gate.Busy());
  EXPECT_FALSE(gate.Run(WindowGate::Work::kOpen, [&] { order += "again"; }));
}

TEST(WindowGate, AnOperationThatThrowsLeavesTheGateOpenAndStillRunsTheUnload) {
  WindowGate gate;
  bool unloaded = false;
  EXPECT_THROW(gate.Run(WindowGate::Work::kApply,
                        [&] {
                          gate.RequestUnload([&] { unloaded = true; });
                          throw std::runtime_error("handler failed");
                        }),
               std::runtime_error);
  EXPECT_TRUE(unloaded);
  EXPECT_FALSE(gate.Busy());
}

TEST(WindowGate, WindowsAreDestroyedOnlyWhenNoEventPassRuns) {
  WindowGate gate;
  int destroyed = 0;
  gate.DestroyLater([&] { ++destroyed; });
  {
    EventPassScope pass(gate);
    EXPECT_TRUE(gate.DestroyPending());
    EXPECT_EQ(destroyed, 0);
  }
  EXPECT_FALSE(gate.DestroyPending());
  EXPECT_EQ(destroyed, 1);
}

}  // namespace
}  // namespace ferrow
