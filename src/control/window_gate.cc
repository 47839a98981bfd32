#include "control/window_gate.h"

#include <utility>

namespace ferrow {

bool WindowGate::Run(Work kind, const std::function<void()>& work) {
  if (Busy() || closing_) return false;
  running_ = kind;
  try {
    work();
  } catch (...) {
    Finish();
    throw;
  }
  Finish();
  return true;
}

void WindowGate::Finish() {
  running_ = Work::kNone;
  if (!pending_unload_) return;
  auto unload = std::move(pending_unload_);
  pending_unload_ = nullptr;
  running_ = Work::kUnload;
  unload();
  running_ = Work::kNone;
}

void WindowGate::RequestUnload(std::function<void()> unload) {
  if (closing_) return;
  closing_ = true;
  if (Busy()) {
    pending_unload_ = std::move(unload);
    return;
  }
  running_ = Work::kUnload;
  unload();
  running_ = Work::kNone;
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
