// The program: start-up, then the control window until it is closed.
#include <QApplication>
#include <QSocketNotifier>
#ifndef _WIN32
#include <signal.h>
#include <unistd.h>
#endif
#include <clocale>
#include <exception>
#include <memory>

#include "qt/Form1.h"
#include "qt/event_passes.h"
#include "qt/qt_window_services.h"
#include "session/options.h"
#include "session/session.h"
#include "startup/startup.h"

namespace {

// Exceptions end at the event loop's edge: a failing handler is abandoned,
// the program goes on.
class FerrowApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
      return false;
    }
  }
};

#ifndef _WIN32
// SIGTERM and SIGINT close the program as its close button does, so that its
// settings and history are saved: the handler only writes to a pipe that the
// event loop watches.
int signal_pipe[2] = {-1, -1};

void OnSignal(int) {
  char byte = 1;
  (void)!::write(signal_pipe[1], &byte, 1);
}

void CloseOnSignals(QWidget* window) {
  if (::pipe(signal_pipe) != 0) return;
  auto* notifier = new QSocketNotifier(signal_pipe[0], QSocketNotifier::Read, window);
  QObject::connect(notifier, &QSocketNotifier::activated, window, [window] {
    char byte;
    (void)!::read(signal_pipe[0], &byte, 1);
    window->close();
  });
  struct sigaction action {};
  action.sa_handler = OnSignal;
  sigemptyset(&action.sa_mask);
  ::sigaction(SIGTERM, &action, nullptr);
  ::sigaction(SIGINT, &action, nullptr);
}
#else
void CloseOnSignals(QWidget*) {}
#endif

}  // namespace

int main(int argc, char** argv) {
  FerrowApplication app(argc, argv);
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_NUMERIC, "C");
  ferrow::Env& env = *ferrow::Env::Default();
  ferrow::QtWindowServices services;
  ferrow::RoutedUi ui(services);
  ferrow::Options options;
  ferrow::Session session{env, options, ui};
  ferrow::InstallEventsHook(env, session.gate);
  services.gate = &session.gate;
  ferrow::StartupState state(env);
  std::unique_ptr<ferrow::Form1> form;
  const std::vector<std::string> args(argv + 1, argv + argc);

  const bool go_on = ferrow::RunStartup(session, args, state, [&] {
    session.helper = &state.library;
    form = std::make_unique<ferrow::Form1>(session, services);
    ui.SetTarget(&form->Logic());
    options.FileName = options.LastFileSelected;
    CloseOnSignals(form.get());
    form->Logic().on_unloaded = [] { QCoreApplication::quit(); };
    form->Logic().Form_Load();
  });
  if (!go_on) return 0;  // /? showed the usage and ends the program
  // Closed while it waited to start or opened its file: nothing is left to run.
  if (form && form->Logic().Unloaded()) {
    ui.SetTarget(nullptr);
    return 0;
  }
  const int result = app.exec();
  ui.SetTarget(nullptr);
  return result;
}
