#include "control/window_gate.h"

#include <utility>

namespace ferrow {
namespace {

// Marks `kind` as running for the life of the scope, also when the work
// throws (exceptions end at the event loop's edge; the gate must not stay shut).
class RunningScope {
 public:
  RunningScope(WindowGate::Work& running, WindowGate::Work kind) : running_(running) { running_ = kind; }
  ~RunningScope() { running_ = WindowGate::Work::kNone; }
  RunningScope(const RunningScope&) = delete;
  RunningScope& operator=(const RunningScope&) = delete;

 private:
  WindowGate::Work& running_;
};

// Sets a flag for the life of the scope, also when the work throws.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = false; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
};

}  // namespace

bool WindowGate::Run(Work kind, const std::function<void()>& work) {
  if (Busy() || closing_) return false;
  try {
    RunningScope scope(running_, kind);
    work();
  } catch (...) {
    pending_ask_ = nullptr;  // what the user asked meanwhile is lost with the failed operation
    RunPendingUnload();      // an unload asked for meanwhile still happens
    throw;
  }
  RunPendingUnload();
  // Out of the operation's scope: it is over and the gate is free, so what
  // waits for the user no longer nests in it.
  RunAsks(TakeRunnableAsk());
  return true;
}

bool WindowGate::AskTheUser(std::function<void()> ask) {
  if (closing_ || !ask) return false;
  if (Busy() || asking_) {
    if (pending_ask_) return false;  // the first one asked for is kept
    pending_ask_ = std::move(ask);
    return true;
  }
  RunAsks(std::move(ask));
  return true;
}

void WindowGate::RunAsks(std::function<void()> ask) {
  while (ask) {
    try {
      FlagScope scope(asking_);
      ask();
    } catch (...) {
      pending_ask_ = nullptr;
      throw;
    }
    ask = TakeRunnableAsk();
  }
}

std::function<void()> WindowGate::TakeRunnableAsk() {
  if (closing_) pending_ask_ = nullptr;
  if (Busy() || asking_ || !pending_ask_) return nullptr;
  auto ask = std::move(pending_ask_);
  pending_ask_ = nullptr;
  return ask;
}

void WindowGate::RunPendingUnload() {
  if (!pending_unload_) return;
  auto unload = std::move(pending_unload_);
  pending_unload_ = nullptr;
  RunningScope scope(running_, Work::kUnload);
  unload();
}

void WindowGate::RequestUnload(std::function<void()> unload) {
  if (closing_) return;
  closing_ = true;
  pending_ask_ = nullptr;  // nothing opens once the program closes
  pending_unload_ = std::move(unload);
  if (!Busy()) RunPendingUnload();
}

bool WindowGate::DestroyPending() {
  if (!MayDestroyNow()) return !pending_destroy_.empty();
  // A destruction may close further windows, which queue theirs meanwhile.
  while (!pending_destroy_.empty()) {
    auto batch = std::move(pending_destroy_);
    pending_destroy_.clear();
    for (auto& destroy : batch) destroy();
  }
  return false;
}

}  // namespace ferrow
