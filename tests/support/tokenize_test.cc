#include "support/tokenize.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

using Tokens = std::vector<std::string>;

TEST(Tokenize, RunsOfDelimitersGiveNoEmptyTokens) {
  Tokens t;
  EXPECT_EQ(Tokenize("  a,,b  ", " ,", t, 128), 2);
  EXPECT_EQ(t, (Tokens{"a", "b"}));
}

TEST(Tokenize, QuotedPhraseIsOneTokenWithoutQuotes) {
  Tokens t;
  EXPECT_EQ(Tokenize("x \"y z\" w", " \"", t, 128), 3);
  EXPECT_EQ(t, (Tokens{"x", "y z", "w"}));
}

TEST(Tokenize, QuotesAreOrdinaryWhenNotDelimiters) {
  Tokens t;
  EXPECT_EQ(Tokenize("x \"y z\"", " ", t, 128), 3);
  EXPECT_EQ(t, (Tokens{"x", "\"y", "z\""}));
}

TEST(Tokenize, UnclosedQuoteRunsToTheEnd) {
  Tokens t;
  EXPECT_EQ(Tokenize("a \"b c", " \"", t, 128), 2);
  EXPECT_EQ(t, (Tokens{"a", "b c"}));
}

TEST(Tokenize, EmptyTextOrDelimitersGiveNoTokens) {
  Tokens t{"stale"};
  EXPECT_EQ(Tokenize("", " ", t, 128), 0);
  EXPECT_TRUE(t.empty());
  EXPECT_EQ(Tokenize("a b", "", t, 128), 0);
  EXPECT_EQ(Tokenize("   ", " ", t, 128), 0);
}

TEST(Tokenize, TokensBeyondMaximumAreNotStored) {
  Tokens t;
  EXPECT_EQ(Tokenize("a b c d", " ", t, 2), 2);
  EXPECT_EQ(t, (Tokens{"a", "b"}));
}

TEST(Tokenize, LastTokenNeedsNoTrailingDelimiter) {
  Tokens t;
  EXPECT_EQ(Tokenize("one", " ", t, 128), 1);
  EXPECT_EQ(t, (Tokens{"one"}));
}

TEST(Tokenize, SplitsLinesAtLineEnds) {
  Tokens t;
  EXPECT_EQ(Tokenize("l1\r\nl2\r\n\r\nl3", "\r\n", t, 1000), 3);
  EXPECT_EQ(t, (Tokens{"l1", "l2", "l3"}));
}

}  // namespace
}  // namespace ferrow
