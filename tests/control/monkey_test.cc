// Thousands of random user actions on the real windows while another thread
// appends to, empties and replaces the followed files. Actions also arrive
// as real events inside the program's waits (loads, configuration writes,
// Apply, the input box, message boxes). Nothing may crash, trip a sanitizer
// or hang, and every close must leave a configuration file that reads back.
//
// FERROW_MONKEY_SEED and FERROW_MONKEY_ACTIONS repeat or lengthen a run.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <thread>

#include "qt/frmAbout.h"
#include "config/ini_file.h"
#include "control/live_fixture.h"
#include "qt/frmInputBox.h"
#include "qt/frmSettings.h"
#include "testing/processes.h"

namespace ferrow {
namespace {

using Clock = std::chrono::steady_clock;
using testing::LiveEnv;
using testing::ReadBytes;

long long EnvNumber(const char* name, long long fallback) {
  const char* value = std::getenv(name);
  return value && *value ? std::atoll(value) : fallback;
}

// Appends to, empties and replaces the followed files from another thread.
class Writer {
 public:
  Writer(std::vector<std::string> files, unsigned seed)
      : files_(std::move(files)), random_(seed), thread_([this] { Run(); }) {}
  ~Writer() {
    running_ = false;
    thread_.join();
  }

 private:
  void Run() {
    while (running_) {
      const std::string& file = files_[random_() % files_.size()];
      const unsigned what = random_() % 100;
      if (what < 85) {
        std::ofstream(file, std::ios::app | std::ios::binary)
            << (what % 7 == 0 ? "ERROR " : "INFO ") << what << " line\r\n";
      } else if (what < 92) {
        std::ofstream(file, std::ios::trunc | std::ios::binary);
      } else {
        const std::string next = file + ".new";
        std::ofstream(next, std::ios::binary) << "replaced\r\n";
        std::rename(next.c_str(), file.c_str());
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
  }
  std::vector<std::string> files_;
  std::mt19937 random_;
  std::atomic<bool> running_{true};
  std::thread thread_;
};

// Message boxes and the open-file dialog answer at once, after letting
// events run as their own loops would.
class MonkeyServices : public WindowServices {
 public:
  MonkeyServices(std::mt19937& random, std::vector<std::string>& names) : random_(random), names_(names) {}
  void Message(const std::string&, const std::string&, MessageIcon) override { ModalLoop(); }
  bool AskYesNo(const std::string&, const std::string&, MessageIcon) override {
    ModalLoop();
    return random_() % 2 == 0;
  }
  std::string OpenFileName(const std::string&, const std::string&, const std::string&) override {
    ModalLoop();
    return names_[random_() % names_.size()];
  }
  WindowGate* gate = nullptr;
  int shown = 0;

 private:
  void ModalLoop() {
    ++shown;
    EventPassScope pass(*gate);
    for (int i = 0; i < 2; ++i) QApplication::processEvents();
  }
  std::mt19937& random_;
  std::vector<std::string>& names_;
};

class Monkey : public ::testing::Test {
 protected:
  // One run of the program: a session over the shared configuration file.
  struct Program {
    explicit Program(Monkey& m) : routed(m.services), session{m.env, options, routed} {
      options.IniFileName = m.ini;
      options.LogFileName = m.dir.File("Ferrow.LOG");
      options.FileDefaults = static_cast<const FileOptions&>(options);
      InstallEventsHook(m.env, session.gate);
      m.services.gate = &session.gate;
      form = std::make_unique<Form1>(session, m.services);
      routed.SetTarget(&form->Logic());
      form->Logic().Form_Load();
    }
    Options options;
    RoutedUi routed;
    Session session;
    std::unique_ptr<Form1> form;
  };

  Monkey() : seed(static_cast<unsigned>(EnvNumber("FERROW_MONKEY_SEED", std::random_device{}()))) {
    random.seed(seed);
    names = {log, other, dir.File("missing.log"), dir.path(), ""};
  }

  template <class W>
  static W* Shown() {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* found = qobject_cast<W*>(w); found && found->isVisible()) return found;
    return nullptr;
  }
  static void Key(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, key == Qt::Key_A ? "a" : "");
    QApplication::sendEvent(target, &press);
  }
  void Drop(QWidget* target) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Pick(names)))});
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
  }
  template <class T>
  T Pick(const std::vector<T>& from) { return from[random() % from.size()]; }
  int KeyOf() { return Pick<int>({Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_F1, Qt::Key_Delete, Qt::Key_A}); }

  void ActOnControlWindow(Form1& f) {
    switch (random() % 9) {
      case 0: {
        QToolButton* b = Pick<QToolButton*>({f.cmdOK, f.cmdBrowse, f.cmdOptions, f.cmdFilter, f.cmdPause,
                                             f.cmdAbout, f.cmdOK, f.cmdPause});
        if (b->isEnabled()) b->click();
        break;
      }
      case 1: {
        QWidget* w = Pick<QWidget*>({f.cmbFileName->lineEdit(), f.cmbFileName, f.chkFileStart, f.chkMinimise,
                                     f.chkPlaySound, f.cmdPause, f.cmdAbout, f.cmdOK});
        const bool shift = random() % 3 == 0;
        Key(w, KeyOf(), shift ? Qt::ShiftModifier : Qt::NoModifier);
        break;
      }
      case 2: f.cmbFileName->setEditText(QString::fromStdString(Pick(names))); break;
      case 3:
        if (f.cmbFileName->count() > 0) {
          const int i = static_cast<int>(random() % static_cast<unsigned>(f.cmbFileName->count()));
          f.cmbFileName->setCurrentIndex(i);
          emit f.cmbFileName->activated(i);
        }
        break;
      case 4: Drop(Pick<QWidget*>({&f, f.cmbFileName->lineEdit()})); break;
      case 5:
        if (frmText* t = f.TextWindow()) {
          if (random() % 2) t->close();
          else if (random() % 2) Drop(t->Rtf->viewport());
          else Key(t->Rtf, Pick<int>({Qt::Key_A, Qt::Key_Return, Qt::Key_C}), Qt::ControlModifier);
        }
        break;
      case 6: {
        TriStateBox* box = Pick<TriStateBox*>({f.chkFileStart, f.chkMinimise, f.chkPlaySound});
        if (box->isEnabled()) box->click();
        break;
      }
      case 7: f.showNormal(); break;
      default: break;
    }
  }
  void ActOnDialogs() {
    if (frmSettings* s = Shown<frmSettings>()) {
      switch (random() % 8) {
        case 0: s->cmdOK->click(); break;
        case 1: s->cmdCancel->click(); break;
        case 2: s->optTheme[random() % s->optTheme.size()]->click(); break;
        case 3: Pick<QCheckBox*>({s->chkNiceMode, s->chkQuickScroll, s->chkAlert, s->chkPlaySound})->click(); break;
        case 4: Key(s->chkAlert, KeyOf()); break;
        case 5: s->close(); break;
        case 6: s->cmdRevertWav->click(); break;
        default: s->Command1->click(); break;
      }
    }
    if (frmAbout* a = Shown<frmAbout>()) {
      if (random() % 2) a->close();
      else Key(a->Command1, Qt::Key_Escape);
    }
    if (frmInputBox* box = LoadedInputBox()) {
      switch (random() % 5) {
        case 0: box->txtInput->setText(random() % 2 ? "ERROR WARN" : ""); break;
        case 1: box->cmdOK->click(); break;
        case 2: box->cmdCancel->click(); break;
        case 3: Key(box->txtInput, KeyOf()); break;
        default: box->close(); break;
      }
    }
  }
  // One user action; nested ones arrive inside whatever wait it starts.
  void Act() {
    Form1& f = *program->form;
    if (f.Logic().Unloaded()) return;
    ++actions;
    const unsigned what = random() % 100;
    if (what < 55) ActOnControlWindow(f);
    else if (what < 85) ActOnDialogs();
    else if (what < 99) {
      const auto until = Clock::now() + std::chrono::milliseconds(random() % 30);
      while (Clock::now() < until) QApplication::processEvents();  // ticks, repaints
    } else if (f.cmdClose->isEnabled()) {
      f.cmdClose->click();
    } else {
      f.close();
    }
  }
  // A closed program: the configuration file reads back; then a new run.
  void CheckAndRestartIfClosed() {
    if (!program->form->Logic().Unloaded()) return;
    for (int i = 0; i < 20 && program->session.gate.DestroyPending(); ++i) QApplication::processEvents();
    std::string why;
    const std::string text = ReadBytes(ini);
    EXPECT_TRUE(testing::Parseable(text, &why)) << why << "\nseed " << seed;
    EXPECT_NE(text.find("[Common]"), std::string::npos) << "seed " << seed;
    ++closes;
    program.reset();
    program = std::make_unique<Program>(*this);
  }

  testing::TempDir dir;
  LiveEnv env;
  const std::string ini = dir.File("Ferrow.INI");
  const std::string log = dir.File("app.log");
  const std::string other = dir.File("other.log");
  unsigned seed;
  std::mt19937 random;
  std::vector<std::string> names;
  MonkeyServices services{random, names};
  std::unique_ptr<Program> program;
  int actions = 0, closes = 0, nesting = 0;
};

TEST_F(Monkey, RandomUserActionsNeverCrashHangOrTearTheConfigurationFile) {
  const long long wanted = EnvNumber("FERROW_MONKEY_ACTIONS", 2500);
  std::printf("monkey seed %u, %lld actions\n", seed, wanted);
  testing::WriteBytes(ini, "[Common]\r\n");  // as the first run leaves it
  testing::WriteBytes(log, "INFO first\r\n");
  testing::WriteBytes(other, "INFO other\r\n");
  Writer writer({log, other}, seed);

  std::atomic<long long> last_progress{Clock::now().time_since_epoch().count()};
  std::atomic<bool> done{false};
  std::thread watchdog([&] {
    while (!done) {
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      const auto idle = Clock::now().time_since_epoch().count() - last_progress.load();
      if (std::chrono::nanoseconds(idle) > std::chrono::seconds(30)) {
        std::fprintf(stderr, "monkey: no answer for 30 s; seed %u, action %d\n", seed, actions);
        std::abort();
      }
    }
  });

  program = std::make_unique<Program>(*this);
  // Inside every wait (loads, writes, Apply, the input box, message boxes):
  // now and then another action, a few levels deep at most.
  // A fresh single-shot timer each time: a timer never fires inside its own
  // handler, and the user must be able to act inside a wait this one began.
  bool acting = true;
  std::function<void()> user = [&] {
    if (!acting) return;
    QTimer::singleShot(2, qApp, [&] { user(); });
    if (random() % 3 != 0) return;
    if (nesting >= 3) {  // deep enough: only answer a waiting input box
      if (frmInputBox* box = LoadedInputBox()) box->cmdCancel->click();
      return;
    }
    ++nesting;
    Act();
    --nesting;
  };
  user();
  auto slowest = Clock::duration::zero();
  for (long long i = 0; i < wanted; ++i) {
    const auto start = Clock::now();
    Act();
    CheckAndRestartIfClosed();
    slowest = std::max(slowest, Clock::now() - start);
    last_progress = Clock::now().time_since_epoch().count();
  }
  acting = false;
  program->form->close();
  CheckAndRestartIfClosed();
  program->form->close();
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  done = true;
  watchdog.join();
  program.reset();
  Env::Default()->SetEventsHook(nullptr);

  std::printf("monkey: %d actions (nested ones included), %d closes, %d message boxes, slowest %lld ms\n",
              actions, closes, services.shown,
              static_cast<long long>(std::chrono::duration_cast<std::chrono::milliseconds>(slowest).count()));
  EXPECT_LT(slowest, std::chrono::seconds(10)) << "seed " << seed;
  EXPECT_GE(closes, 1);
}

}  // namespace
}  // namespace ferrow
