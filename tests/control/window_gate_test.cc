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

// What waits for the user, asked for while an operation runs, starts once the
// operation is over: the gate is free by then, and nothing nests in it.
TEST(WindowGate, AUserRequestDuringAnOperationRunsRightAfterItNeverInsideIt) {
  WindowGate gate;
  std::string order;
  bool busy_when_asked = true, asking_when_asked = false;
  gate.Run(WindowGate::Work::kOpen, [&] {
    order += "open(";
    EXPECT_TRUE(gate.AskTheUser([&] {
      busy_when_asked = gate.Busy();
      asking_when_asked = gate.Asking();
      order += "browse";
    }));
    EXPECT_TRUE(gate.UserRequestWaiting());
    order += ")";
  });
  EXPECT_EQ(order, "open()browse");
  EXPECT_FALSE(busy_when_asked);
  EXPECT_TRUE(asking_when_asked);
  EXPECT_FALSE(gate.Asking());
  EXPECT_FALSE(gate.UserRequestWaiting());
}

TEST(WindowGate, AUserRequestIsDroppedWhenTheUnloadBeginsBeforeItsTurn) {
  WindowGate gate;
  std::string order;
  gate.Run(WindowGate::Work::kRestart, [&] {
    order += "restart(";
    gate.AskTheUser([&] { order += "filter"; });
    gate.RequestUnload([&] { order += "unload"; });
    EXPECT_FALSE(gate.UserRequestWaiting());
    EXPECT_FALSE(gate.AskTheUser([&] { order += "browse"; }));
    order += ")";
  });
  EXPECT_EQ(order, "restart()unload");
}

// A double click, or a second button, while the first request waits: the
// first one asked for is the one that opens.
TEST(WindowGate, OnlyTheFirstUserRequestAskedForDuringAnOperationWaits) {
  WindowGate gate;
  std::string order;
  gate.Run(WindowGate::Work::kOpen, [&] {
    EXPECT_TRUE(gate.AskTheUser([&] { order += "browse "; }));
    EXPECT_FALSE(gate.AskTheUser([&] { order += "filter "; }));
    EXPECT_FALSE(gate.AskTheUser([&] { order += "browse again "; }));
  });
  EXPECT_EQ(order, "browse ");
}

// Asked for while the user answers something else (the input box waits), it
// starts once that answer and what it started are over.
TEST(WindowGate, AUserRequestDuringAnotherOneStartsAfterItsWholeWork) {
  WindowGate gate;
  std::string order;
  gate.AskTheUser([&] {
    order += "filter(";
    gate.AskTheUser([&] { order += "browse"; });
    gate.Run(WindowGate::Work::kRestart, [&] { order += "restart"; });
    order += ")";
  });
  EXPECT_EQ(order, "filter(restart)browse");
}

TEST(WindowGate, AnOperationThatThrowsDropsTheUserRequestThatWaitedForIt) {
  WindowGate gate;
  bool asked = false;
  EXPECT_THROW(gate.Run(WindowGate::Work::kOpen,
                        [&] {
                          gate.AskTheUser([&] { asked = true; });
                          throw std::runtime_error("handler failed");
                        }),
               std::runtime_error);
  EXPECT_FALSE(gate.UserRequestWaiting());
  EXPECT_TRUE(gate.Run(WindowGate::Work::kOpen, [] {}));
  EXPECT_FALSE(asked);
}

}  // namespace
}  // namespace ferrow
