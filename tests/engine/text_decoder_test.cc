#include "engine/text_decoder.h"

#include <gtest/gtest.h>

#include "platform/env.h"

namespace ferrow {
namespace {

// The decoder as it runs on POSIX, whatever system the test runs on.
class Utf8Env : public EnvWrapper {
 public:
  Utf8Env() : EnvWrapper(Env::Default()) {}
  bool FileTextIsUtf8() override { return true; }
};

TEST(TextDecoder, CharactersSplitBetweenReadsComeOutWhole) {
  Utf8Env utf8;
  TextDecoder decoder(utf8);
  const std::string text = "é€😀";  // 2, 3 and 4 bytes
  for (size_t cut = 0; cut <= text.size(); ++cut) {
    decoder.Reset();
    std::string shown = decoder.Decode(text.substr(0, cut));
    shown += decoder.Decode(text.substr(cut));
    EXPECT_EQ(shown, text) << "cut at " << cut;
  }
}

TEST(TextDecoder, IllFormedBytesShowOneReplacementMarkEach) {
  Utf8Env utf8;
  TextDecoder decoder(utf8);
  EXPECT_EQ(decoder.Decode("a\xFF\xC0\x80z"), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDz");
  EXPECT_EQ(decoder.Decode("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");  // a surrogate
}

TEST(TextDecoder, ResetForgetsAHeldBackByte) {
  Utf8Env utf8;
  TextDecoder decoder(utf8);
  EXPECT_EQ(decoder.Decode("x\xE2\x82"), "x");
  decoder.Reset();
  EXPECT_EQ(decoder.Decode("y"), "y");
}

TEST(TextDecoder, ReadStartingInsideACharacterDropsItsTail) {
  Utf8Env utf8;
  TextDecoder decoder(utf8);
  EXPECT_EQ(decoder.DecodeFresh("\x82\xACnext line"), "next line");
  EXPECT_EQ(decoder.DecodeFresh("ends in \xE2\x82"), "ends in \xEF\xBF\xBD\xEF\xBF\xBD");
}

#ifdef _WIN32
TEST(TextDecoder, OnWindowsEveryByteIsACharacterOfTheAnsiCodePage) {
  TextDecoder decoder(*Env::Default());
  EXPECT_EQ(decoder.Decode("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(decoder.Decode("\xC3"), "\xC3\x83");  // no byte is held back
}
#endif

}  // namespace
}  // namespace ferrow
