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

}  // namespace

bool WindowGate::Run(Work kind, const std::function<void()>& work) {
  if (Busy() || closing_) return false;
  try {
    RunningScope scope(running_, kind);
    work();
  } catch (...) {
    RunPendingUnload();  // an unload asked for meanwhile still happens
    throw;
  }
  RunPendingUnload();
  return true;
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
