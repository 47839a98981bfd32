// One Ferrow session without a person, for the tests that run several at
// once: the real start-up and windows, offscreen, with the configuration file
// in FOLDER. It follows FILE, appends LINES lines to it while following, waits
// HOLD_MS, closes the control window as the close button does, and prints
// "opened", what its text window showed, and the history it saved.
//   session_driver FOLDER FILE LINES HOLD_MS
#include <QApplication>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "qt/Form1.h"
#include "qt/qt_window_services.h"
#include "qt/frmText.h"
#include "session/session.h"
#include "startup/startup.h"
#include "support/paths.h"

namespace {

class Placed : public ferrow::EnvWrapper {
 public:
  explicit Placed(std::string program) : EnvWrapper(Env::Default()), program_(std::move(program)) {}
  std::string ProgramPath() override { return program_; }

 private:
  std::string program_;
};

class SilentServices : public ferrow::WindowServices {
 public:
  void Message(const std::string& text, const std::string&, ferrow::MessageIcon) override {
    std::cout << "message:" << text << std::endl;
  }
  bool AskYesNo(const std::string&, const std::string&, ferrow::MessageIcon) override { return true; }
  std::string OpenFileName(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const std::string folder = argv[1], file = argv[2];
  const int lines = std::atoi(argv[3]), hold_ms = std::atoi(argv[4]);

  Placed env(ferrow::JoinPath(folder, "Ferrow"));
  env.SetEventsHook([] { QApplication::processEvents(); });
  SilentServices services;
  ferrow::RoutedUi ui(services);
  ferrow::Options options;
  ferrow::Session session{env, options, ui};
  ferrow::StartupState state(env);
  std::unique_ptr<ferrow::Form1> form;
  ferrow::RunStartup(session, {file}, state, [&] {
    form = std::make_unique<ferrow::Form1>(session, services);
    ui.SetTarget(&form->Logic());
    options.FileName = options.LastFileSelected;
    form->Logic().Form_Load();
  });
  std::cout << "opened" << std::endl;

  int written = 0;
  QTimer writer;
  QObject::connect(&writer, &QTimer::timeout, [&] {
    if (written == lines) {
      writer.stop();
      QTimer::singleShot(hold_ms, [&] {
        if (form->TextWindow()) std::cout << "shown:" << form->TextWindow()->Rtf->LineCount() << std::endl;
        form->close();
        for (int i = 0; i < options.HistoryTotal; ++i)
          std::cout << "list:" << options.HistoryList[static_cast<size_t>(i)] << std::endl;
        app.quit();
      });
      return;
    }
    std::ofstream(file, std::ios::binary | std::ios::app) << "line " << ++written << "\r\n";
  });
  writer.start(50);
  return app.exec();
}
