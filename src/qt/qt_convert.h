// Conversions between the program's values and Qt's.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <string>

#include "session/options.h"

class QWidget;

namespace ferrow {

inline QString ToQt(const std::string& text) { return QString::fromUtf8(text.data(), static_cast<int>(text.size())); }
inline std::string FromQt(const QString& text) { return text.toStdString(); }

// 0x00BBGGRR <-> QColor.
QColor ToQColor(Colour colour);
Colour FromQColor(const QColor& colour);

// The font a theme names, or one of the same kind when the system lacks it:
// fixed-pitch for Terminal, System and the like, never the toolkit's default
// proportional font in their place.
QFont MakeFont(const std::string& name, int points, bool bold);

// Moves `window` to the middle of its screen's free area.
void CentreWindow(QWidget& window);

// True when every character of `font` takes the same width.
bool MeasuresFixedPitch(const QFont& font);

// Twips are 1440 to the logical inch of the screen `widget` is on.
int TwipsToPixels(int64_t twips, const QWidget* widget);
int32_t PixelsToTwips(int pixels, const QWidget* widget);

}  // namespace ferrow
