#include "control/sound_player.h"

#include <QSoundEffect>
#include <QUrl>
#include <fstream>

#include "engine/wav_check.h"

namespace ferrow {

SoundPlayer::SoundPlayer(QObject* parent) : QObject(parent), effect_(new QSoundEffect(this)) {}

bool SoundPlayer::PlaySoundFile(const std::string& file, bool loop) {
  std::ifstream in(file, std::ios::binary);
  std::string head(64, '\0');
  in.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<size_t>(in.gcount()));
  if (!LooksLikePlayableWav(head)) return false;
  effect_->setSource(QUrl::fromLocalFile(QString::fromStdString(file)));
  effect_->setLoopCount(loop ? QSoundEffect::Infinite : 1);
  effect_->play();
  return true;
}

}  // namespace ferrow
