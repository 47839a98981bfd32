#include "qt/qt_convert.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "support/strings.h"

namespace ferrow {
namespace {

bool IsFixedPitchName(const std::string& name) {
  for (const char* fixed : {"TERMINAL", "SYSTEM", "FIXEDSYS", "COURIER", "COURIER NEW", "CONSOLAS",
                            "LUCIDA CONSOLE"})
    if (UpperCase(name) == fixed) return true;
  return false;
}

QFont::StyleHint HintFor(const std::string& name) {
  const std::string upper = UpperCase(name);
  if (IsFixedPitchName(name)) return QFont::TypeWriter;
  if (upper.find("TIMES") != std::string::npos) return QFont::Serif;
  if (upper == "PAPYRUS" || upper == "BLACK CHANCERY") return QFont::Cursive;
  return QFont::SansSerif;
}

double LogicalDpi(const QWidget* widget) {
  const QScreen* screen = widget && widget->screen() ? widget->screen() : QGuiApplication::primaryScreen();
  return screen ? screen->logicalDotsPerInchX() : 96.0;
}

}  // namespace

// Measured, not asked: some monospaced fonts do not say they are.
bool MeasuresFixedPitch(const QFont& font) {
  const QFontMetrics metrics(font);
  return metrics.horizontalAdvance(QLatin1Char('i')) == metrics.horizontalAdvance(QLatin1Char('W')) &&
         metrics.horizontalAdvance(QLatin1Char('.')) == metrics.horizontalAdvance(QLatin1Char('M'));
}

QColor ToQColor(Colour colour) {
  const unsigned c = static_cast<unsigned>(colour);
  return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

Colour FromQColor(const QColor& colour) {
  return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

QFont MakeFont(const std::string& name, int points, bool bold) {
  QFont font(ToQt(name));
  font.setStyleHint(HintFor(name));
  font.setPointSize(points > 0 ? points : 10);
  font.setBold(bold);
  if (!IsFixedPitchName(name) || MeasuresFixedPitch(font)) return font;
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  for (const char* family : {"", "DejaVu Sans Mono", "Liberation Mono", "Noto Mono", "Courier New",
                             "monospace"}) {
    if (*family) fixed.setFamily(family);
    fixed.setPointSize(font.pointSize());
    fixed.setBold(bold);
    if (MeasuresFixedPitch(fixed)) return fixed;
  }
  return fixed;
}

void CentreWindow(QWidget& window) {
  const QScreen* screen = window.screen() ? window.screen() : QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect area = screen->availableGeometry();
  window.move(area.x() + (area.width() - window.width()) / 2,
              area.y() + (area.height() - window.height()) / 2);
}

int TwipsToPixels(int64_t twips, const QWidget* widget) {
  return static_cast<int>(twips * LogicalDpi(widget) / 1440.0 + 0.5);
}

int32_t PixelsToTwips(int pixels, const QWidget* widget) {
  return static_cast<int32_t>(pixels * 1440.0 / LogicalDpi(widget) + 0.5);
}

}  // namespace ferrow
