// A control window whose waits let real window events run, through the
// program's own events hook, so that user actions can arrive in the middle
// of an open, a restart, Apply or a close. Sleeps are shortened; nothing
// else is faked but the message boxes.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>

#include "qt/Form1.h"
#include "qt/event_passes.h"
#include "control/fake_services.h"
#include "control/window_services.h"
#include "qt/frmText.h"
#include "testing/session_fixture.h"

namespace ferrow::testing {

// The real environment with short sleeps; counts the event passes and posts
// the actions planned for a pass before that pass runs, so that they arrive
// as real events inside the wait.
class LiveEnv : public EnvWrapper {
 public:
  LiveEnv() : EnvWrapper(Env::Default()) {}
  void SleepMs(int ms) override { EnvWrapper::SleepMs(std::min(ms, 2)); }
  void LetEventsRun() override {
    ++passes;
    auto planned = plan.find(passes);
    if (planned != plan.end()) QTimer::singleShot(0, qApp, planned->second);
    if (every_pass) every_pass();
    EnvWrapper::LetEventsRun();
  }
  // Runs `action` as an event inside the `pass`-th wait from now.
  void At(int pass, std::function<void()> action) { plan[passes + pass] = std::move(action); }

  int passes = 0;
  std::map<int, std::function<void()>> plan;
  std::function<void()> every_pass;
};

class LiveForm1Test : public ::testing::Test {
 protected:
  LiveForm1Test() {
    options.IniFileName = dir.File("Ferrow.INI");
    options.LogFileName = dir.File("Ferrow.LOG");
    options.FileDefaults = static_cast<const FileOptions&>(options);
    InstallEventsHook(env, session.gate);
    form = std::make_unique<Form1>(session, services);
    routed.SetTarget(&form->Logic());
  }
  ~LiveForm1Test() override {
    form->close();
    form.reset();
    QApplication::processEvents();
    Env::Default()->SetEventsHook(nullptr);
  }
  std::string MakeLog(const std::string& name, const std::string& text) {
    const std::string path = dir.File(name);
    WriteBytes(path, text);
    return path;
  }
  // A log long enough that its load lets events run many times.
  std::string MakeLongLog(const std::string& name, int lines = 5000) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "line " + std::to_string(i) + " of the log\r\n";
    return MakeLog(name, text);
  }
  void Type(const std::string& name) { form->cmbFileName->setEditText(QString::fromStdString(name)); }
  // The log opened, brought from its start.
  void FollowFromStart(const std::string& log) {
    options.BringFromStartOfFile = true;
    form->Logic().Form_Load();
    Type(log);
    form->chkFileStart->SetValue(1);
    form->Logic().OK_Click();
  }
  static void Key(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(target, &press);
  }
  // Lets queued events and pending window deletions run.
  static void Settle() {
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
  }
  // Runs `action` as an event inside the `nth` wait of the initial load (the
  // text window's box is disabled while the load runs).
  void DuringLoad(int nth, std::function<void()> action) {
    env.every_pass = [this, nth, seen = 0, action = std::move(action)]() mutable {
      frmText* text = form->TextWindow();
      if (!text || text->Rtf->isEnabled() || ++seen != nth) return;
      QTimer::singleShot(0, qApp, action);
    };
  }
  template <class W>
  static W* Find() {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* found = qobject_cast<W*>(w); found && found->isVisible()) return found;
    return nullptr;
  }

  TempDir dir;
  LiveEnv env;
  Options options;
  FakeServices services;
  RoutedUi routed{services};
  Session session{env, options, routed};
  std::unique_ptr<Form1> form;
};

}  // namespace ferrow::testing
