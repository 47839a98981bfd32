// A sound that cannot play: the message box lets ticks run inside it, as a
// real modal box does, while the file keeps growing.
#include <gtest/gtest.h>

#include <functional>

#include "engine/engine_fixture.h"

namespace ferrow {
namespace {

// A message box that runs what a person's wait would let run.
class ModalUi : public testing::RecordingUi {
 public:
  void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override {
    RecordingUi::ShowMessage(text, title, icon);
    if (while_shown) while_shown();
  }
  std::function<void()> while_shown;
};

class SoundProblem : public testing::EngineTest {
 protected:
  SoundProblem() {
    Append("start\n");
    options.LastFileSize = options.HighWaterMark = env.FileLength(log).value_or(0);
    options.PlaySoundOnUpdate = true;
    options.UpdateSound = dir.File("missing.wav");
  }
  ModalUi modal;
  Session boxed{env, options, modal};
  Follower ticks{boxed, windows};
};

TEST_F(SoundProblem, IsReportedOnceAndNoLineShowsTwiceThoughTicksRunUnderTheBox) {
  int nested = 0;
  modal.while_shown = [&] {
    if (++nested > 3) return;  // the old way, every box would open another
    ticks.Timer1_Timer();
    Append("two\n");
    ticks.Timer1_Timer();
  };
  Append("one\n");
  ticks.Timer1_Timer();
  Append("three\n");
  ticks.Timer1_Timer();
  EXPECT_EQ(modal.messages,
            (std::vector<std::string>{"|Problem encountered playing " + dir.File("missing.wav") +
                                      " (disabled sounds)"}));
  EXPECT_EQ(Shown(), "one\ntwo\nthree\n");
  EXPECT_EQ(windows.sound_box_clears, 1);
  EXPECT_FALSE(options.PlaySoundOnUpdate);
}

}  // namespace
}  // namespace ferrow
