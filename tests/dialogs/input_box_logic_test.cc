#include "dialogs/input_box.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "dialogs/fake_dialog_views.h"
#include "dialogs/key_codes.h"
#include "testing/counting_env.h"

namespace ferrow {
namespace {

class InputMsgTest : public ::testing::Test {
 protected:
  // The user's action once the next wait has slept `pass` times.
  void At(int pass, std::function<void()> action) {
    env.on_sleep = [this, at = env.sleeps + pass, action] {
      if (env.sleeps == at) action();
    };
  }
  testing::FakeInputView& View() { return *views.back(); }
  std::shared_ptr<InputBox> Box() { return slot.Loaded(); }

  testing::CountingEnv env;  // counts the 100 ms sleeps instead of sleeping
  std::vector<std::unique_ptr<testing::FakeInputView>> views;
  InputBoxSlot slot{[this](const std::shared_ptr<InputBox>&) -> InputView& {
    views.push_back(std::make_unique<testing::FakeInputView>());
    return *views.back();
  }};
};

TEST_F(InputMsgTest, OkReturnsTheTextShownUnderTheTitleAndPrompt) {
  At(1, [&] {
    EXPECT_EQ(View().caption, "Title");
    EXPECT_EQ(View().prompt, "Prompt");
    EXPECT_EQ(View().shown, 1);
    View().text = "typed";
    Box()->cmdOK_Click();
  });
  EXPECT_EQ(InputMsg(env, slot, "Prompt", "Title"), "typed");
}

TEST_F(InputMsgTest, CancelAndOkOnAnEmptyTextBothReturnNothing) {
  At(1, [&] {
    View().text = "ignored";
    Box()->cmdCancel_Click();
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t", "start"), "");
  At(1, [&] {
    View().text = "";
    Box()->cmdOK_Click();
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t", "start"), "");
}

TEST_F(InputMsgTest, AnEmptyEditStringLeavesTheBoxEmptyAndAnEmptyPasswordCharLeavesItUnset) {
  At(1, [&] {
    EXPECT_EQ(View().text, "") << "the load empties it";
    EXPECT_EQ(View().selected, "");
    EXPECT_EQ(View().password_char, "");
    Box()->cmdCancel_Click();
  });
  InputMsg(env, slot, "p", "t", "", "");
  At(1, [&] {
    EXPECT_EQ(View().password_char, "*");
    Box()->cmdCancel_Click();
  });
  InputMsg(env, slot, "p", "t", "", "*");
}

TEST_F(InputMsgTest, AnEditStringIsSelectedWholeSoTypingReplacesIt) {
  At(1, [&] {
    EXPECT_EQ(View().text, "start here");
    EXPECT_EQ(View().selected, "start here");
    Box()->cmdOK_Click();
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t", "start here"), "start here");
}

TEST_F(InputMsgTest, EnterReturnsTheTextAtOnceAsOkDoes) {
  At(1, [&] {
    View().text = "entered";
    EXPECT_TRUE(Box()->txtInput_KeyDown(kKeyReturn));
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t"), "entered");
  EXPECT_EQ(env.sleeps, 1);
  At(1, [&] {
    View().text = "line feed";
    EXPECT_TRUE(Box()->txtInput_KeyDown(kKeyLineFeed));
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t"), "line feed");
}

TEST_F(InputMsgTest, EscapeCancelsAndOtherKeysEditTheText) {
  At(1, [&] {
    View().text = "dropped";
    EXPECT_FALSE(Box()->txtInput_KeyDown('A'));
    EXPECT_TRUE(Box()->Loaded());
    EXPECT_TRUE(Box()->txtInput_KeyDown(kKeyEscape));
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t"), "");
}

TEST_F(InputMsgTest, TheCloseBoxEndsTheWaitAsCancel) {
  At(1, [&] {
    View().text = "x";
    Box()->Form_QueryUnload();
  });
  EXPECT_EQ(InputMsg(env, slot, "p", "t"), "");
  EXPECT_EQ(View().closes, 0) << "the window is closing already";
}

TEST_F(InputMsgTest, AWindowDestroyedUnderTheWaitEndsItAsCancel) {
  At(2, [&] { Box()->ViewGone(); });
  EXPECT_EQ(InputMsg(env, slot, "p", "t"), "");
  EXPECT_EQ(slot.Loaded(), nullptr);
}

TEST_F(InputMsgTest, TheWaitLetsEventsRunTwiceAroundEachHundredMillisecondSleep) {
  At(30, [&] { Box()->cmdCancel_Click(); });
  InputMsg(env, slot, "p", "t");
  EXPECT_EQ(env.sleeps, 30);
  EXPECT_EQ(env.slept_ms, 3000);
  EXPECT_EQ(env.event_runs, 60);
}

TEST_F(InputMsgTest, TheBoxIsUnloadedBeforeInputMsgReturnsAndTheNextCallMakesANewOne) {
  At(1, [&] { Box()->cmdOK_Click(); });
  InputMsg(env, slot, "p", "t");
  EXPECT_EQ(slot.Loaded(), nullptr);
  EXPECT_EQ(views.size(), 1u);
  EXPECT_EQ(View().closes, 1);
  env.sleeps = 0;
  InputMsg(env, slot, "p", "t");
  EXPECT_EQ(views.size(), 2u);
}

TEST_F(InputMsgTest, ASecondInputMsgWhileOneWaitsReusesTheLoadedWindow) {
  std::string inner;
  env.on_sleep = [&] {
    if (env.sleeps == 2) {
      EXPECT_EQ(Box()->View(), views.front().get());
      inner = InputMsg(env, slot, "second", "inner title", "again");
    } else if (env.sleeps == 4) {
      EXPECT_EQ(View().caption, "inner title");
      EXPECT_EQ(View().prompt, "second");
      View().text = "inner answer";
      Box()->cmdOK_Click();
    }
  };
  const std::string outer = InputMsg(env, slot, "first", "t");
  EXPECT_EQ(views.size(), 1u);
  EXPECT_EQ(inner, "inner answer");
  EXPECT_EQ(outer, "inner answer") << "the shared box answered both";
  EXPECT_EQ(View().closes, 1);
}

}  // namespace
}  // namespace ferrow
