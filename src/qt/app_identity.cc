// The program's face on the desktop: the icon of its windows, and the desktop
// entry they belong to, by which task bars and docks find its name and icon.
// Linked into the program only; it runs as the application object is built,
// so neither main() nor the windows need to know about it.
#include <QGuiApplication>
#include <QIcon>

namespace {

void SetIdentity() {
  QGuiApplication::setDesktopFileName(QStringLiteral(FERROW_APP_ID));
  // The same drawing as the installed icon, so a zip or a build folder shows it too.
  QIcon icon;
  for (int size : {16, 24, 32, 48, 64, 128, 256})
    icon.addFile(QStringLiteral(":/icons/ferrow-%1.png").arg(size), QSize(size, size));
  QGuiApplication::setWindowIcon(icon);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(SetIdentity)
