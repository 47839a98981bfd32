#include "qt/sound_player.h"

#include <QSoundEffect>
#include <QUrl>

#include "engine/wav_check.h"

namespace ferrow {

SoundPlayer::SoundPlayer(QObject* parent) : QObject(parent), effect_(new QSoundEffect(this)) {}

bool SoundPlayer::PlaySoundFile(const std::string& file, bool loop) {
  if (!FileLooksLikePlayableWav(file)) return false;
  effect_->setSource(QUrl::fromLocalFile(QString::fromStdString(file)));
  effect_->setLoopCount(loop ? QSoundEffect::Infinite : 1);
  effect_->play();
  return true;
}

}  // namespace ferrow
