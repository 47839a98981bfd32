#include "display/filters.h"

#include <gtest/gtest.h>

#include "display/rtf_escape.h"
#include "session/options.h"

namespace ferrow {
namespace {

using Words = std::vector<std::string>;

TEST(TokeniseFilter, RepeatsAndBlanksAreDroppedAndTheStringRewritten) {
  std::string filter = "  disk  disk full ";
  Words words;
  EXPECT_EQ(TokeniseFilter(filter, words), 3);
  EXPECT_EQ(words, (Words{"disk", "full"}));
  EXPECT_EQ(filter, "disk full");
}

TEST(TokeniseFilter, QuotedPhraseStaysOneWord) {
  std::string filter = "\"out of memory\" ERROR";
  Words words;
  EXPECT_EQ(TokeniseFilter(filter, words), 2);
  EXPECT_EQ(words, (Words{"out of memory", "ERROR"}));
}

TEST(TokeniseFilter, EmptyStringGivesNoWords) {
  std::string filter;
  Words words{"old"};
  EXPECT_EQ(TokeniseFilter(filter, words), 0);
  EXPECT_TRUE(words.empty());
}

TEST(LineMatchesFilter, IgnoresCase) {
  EXPECT_TRUE(LineMatchesFilter("An ERROR here", {"error"}));
  EXPECT_FALSE(LineMatchesFilter("all well", {"error"}));
}

TEST(LineMatchesFilter, EmptyLineOrListNeverMatches) {
  EXPECT_FALSE(LineMatchesFilter("", {"x"}));
  EXPECT_FALSE(LineMatchesFilter("x", {}));
}

TEST(RebuildFilterWords, BuildsBothLists) {
  Options o;
  o.FilterString = "ERR warn";
  o.RedFilterString = "fatal";
  RebuildFilterWords(o);
  EXPECT_EQ(o.FilterWords, (Words{"ERR", "warn"}));
  EXPECT_EQ(o.RedFilterWords, (Words{"fatal"}));
}

TEST(RTFEscape, EscapesBackslashesAndBraces) {
  EXPECT_EQ(RTFEscape("C:\\x {y}"), "C:\\\\x \\{y\\}");
  EXPECT_EQ(RTFEscape(""), "");
}

TEST(EscapeBraces, LeavesBackslashesAlone) { EXPECT_EQ(EscapeBraces("C:\\x {y}"), "C:\\x \\{y\\}"); }

}  // namespace
}  // namespace ferrow
