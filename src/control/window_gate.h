// The one rule for re-entrancy. The program lets window events run inside its
// waits (the initial load, the lock wait, the input box, configuration write
// retries, the start delay), so any handler can run inside any other. Three
// things keep that safe, for every window toolkit alike:
// - Opening a file, restarting, applying settings, editing the history and
//   unloading never nest:
//   a request that arrives while one of them runs is dropped; an unload is
//   kept and runs as soon as the running one is over, never inside it.
// - Once the unload has been asked for, nothing re-shows a window or starts
//   the timer again (`Closing`), and running operations stop at their next
//   step.
// - What waits for the user (an open-file dialog, the input box, a question
//   asked by a click) never starts inside one of those operations or inside
//   another such wait: asked for meanwhile, it is kept and starts as soon as
//   they are over (`AskTheUser`), so a click on a button the user sees
//   enabled is never lost.
// - A window is never destroyed while an event pass or one of those
//   operations runs: its destruction waits (`DestroyLater`) until the
//   outermost handler has returned.
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace ferrow {

class WindowGate {
 public:
  // kHistory: an edit of the stored history (SHIFT+DEL, clearing it).
  enum class Work { kNone, kOpen, kRestart, kApply, kHistory, kUnload };

  // Runs `work` unless another operation runs or the unload has begun;
  // false when the request was dropped.
  bool Run(Work kind, const std::function<void()>& work);
  // The unload: now when nothing runs, else right after the running
  // operation. Asked for twice, it runs once.
  void RequestUnload(std::function<void()> unload);

  // Runs `ask` now when no operation runs and nothing else waits for the
  // user; otherwise keeps it and runs it right after they end (at the end of
  // `Run`, or of the wait that asks), never inside them. One request waits at
  // most: the first one asked for; later ones are dropped, as a click would
  // land on a window that the first request's dialog has taken. Dropped
  // once the unload begins. False when it was dropped.
  bool AskTheUser(std::function<void()> ask);
  bool Asking() const { return asking_; }
  bool UserRequestWaiting() const { return static_cast<bool>(pending_ask_); }

  Work Running() const { return running_; }
  bool Busy() const { return running_ != Work::kNone; }
  bool Closing() const { return closing_; }

  // A pass of window events inside a wait (or a modal box's own loop).
  void EnterEventPass() { ++event_passes_; }
  void LeaveEventPass() { --event_passes_; }
  int EventPasses() const { return event_passes_; }

  // Keeps a window's destruction for `DestroyPending` (never now: the window
  // may be the one whose handler asks).
  void DestroyLater(std::function<void()> destroy) { pending_destroy_.push_back(std::move(destroy)); }
  // Destroys what waits, when no event pass and no operation runs (called
  // from the top of the event loop); true when something is still left.
  bool DestroyPending();
  bool MayDestroyNow() const { return event_passes_ == 0 && !Busy(); }
  // Expires with the gate, for callbacks that may outlive it.
  std::weak_ptr<const int> Life() const { return life_; }

 private:
  void RunPendingUnload();
  // Runs `ask`, then each request that waited for it, while nothing else
  // runs or waits.
  void RunAsks(std::function<void()> ask);
  std::function<void()> TakeRunnableAsk();

  Work running_ = Work::kNone;
  bool closing_ = false;
  bool asking_ = false;
  int event_passes_ = 0;
  std::function<void()> pending_unload_;
  std::function<void()> pending_ask_;
  std::vector<std::function<void()>> pending_destroy_;
  std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
};

// Counts one event pass for the life of the scope.
class EventPassScope {
 public:
  explicit EventPassScope(WindowGate& gate) : gate_(gate) { gate_.EnterEventPass(); }
  ~EventPassScope() { gate_.LeaveEventPass(); }
  EventPassScope(const EventPassScope&) = delete;
  EventPassScope& operator=(const EventPassScope&) = delete;

 private:
  WindowGate& gate_;
};

// Counts one event pass when there is a gate (a modal box's own loop).
class MaybeEventPass {
 public:
  explicit MaybeEventPass(WindowGate* gate) : gate_(gate) {
    if (gate_) gate_->EnterEventPass();
  }
  ~MaybeEventPass() {
    if (gate_) gate_->LeaveEventPass();
  }
  MaybeEventPass(const MaybeEventPass&) = delete;
  MaybeEventPass& operator=(const MaybeEventPass&) = delete;

 private:
  WindowGate* gate_;
};

}  // namespace ferrow
