// Plays the update sound without waiting for it (QSoundEffect). Returns false
// at once for a file that is missing or is no WAV file it can play.
#pragma once

#include <QObject>
#include <string>

class QSoundEffect;

namespace ferrow {

class SoundPlayer : public QObject {
  Q_OBJECT

 public:
  explicit SoundPlayer(QObject* parent = nullptr);
  bool PlaySoundFile(const std::string& file, bool loop);

 private:
  QSoundEffect* effect_;
};

}  // namespace ferrow
