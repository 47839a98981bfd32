#include "qt/qt_window_services.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFileDialog>
#include <QMessageBox>

#include "about/product.h"
#include "control/window_gate.h"
#include "qt/qt_convert.h"
#include "support/tokenize.h"

namespace ferrow {
namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical: return QMessageBox::Critical;
    case MessageIcon::Question: return QMessageBox::Question;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    case MessageIcon::Information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
  }
}

QString Title(const std::string& title) { return ToQt(title.empty() ? std::string(kProductName) : title); }

// Where the dialog opens: a folder or file that is there; a file that is gone
// from a folder that is there (its name stays filled in). Anything else, such
// as the "C:\" a new configuration names, is not on this system: the home
// folder, as the Windows dialog falls back on its own for a folder it cannot find.
QString StartOf(const std::string& start) {
  QString path = ToQt(start);
  if (!QFileInfo::exists(path)) path.replace('\\', '/');  // either separator names a folder
  const QFileInfo info(path);
  if (info.exists() || (path.contains('/') && QFileInfo(info.absolutePath()).isDir())) return path;
  return QDir::homePath();
}

}  // namespace

void QtWindowServices::Message(const std::string& text, const std::string& title, MessageIcon icon) {
  MaybeEventPass pass(gate);
  QMessageBox box(IconOf(icon), Title(title), ToQt(text), QMessageBox::Ok);
  box.exec();
}

bool QtWindowServices::AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) {
  MaybeEventPass pass(gate);
  QMessageBox box(IconOf(icon), Title(title), ToQt(text), QMessageBox::Yes | QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

std::string QtWindowServices::OpenFileName(const std::string& title, const std::string& filter,
                                           const std::string& start_folder) {
  MaybeEventPass pass(gate);
  // Owned by the window the user asked from (the settings dialog for its
  // sound), so it stays above it; a start that names a file is selected.
  return FromQt(QFileDialog::getOpenFileName(QApplication::activeWindow(), ToQt(title), StartOf(start_folder),
                                             ToQt(QtFileFilter(filter))));
}

std::string QtFileFilter(const std::string& filter) {
  std::vector<std::string> parts;
  std::string out;
  // Split on "|" keeping empty parts out: name and pattern alternate.
  Tokenize(filter, "|", parts, 1000);
  for (size_t i = 0; i + 1 < parts.size(); i += 2) {
    std::string pattern = parts[i + 1] == "*.*" ? "*" : parts[i + 1];
    for (char& c : pattern)
      if (c == ';') c = ' ';
    if (!out.empty()) out += ";;";
    out += parts[i] + " (" + pattern + ")";
  }
  return out;
}

}  // namespace ferrow
