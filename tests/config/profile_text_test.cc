#include "config/profile_text.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

using std::nullopt;

std::string Set(std::string_view text, const char* section, const char* key, const char* value) {
  return ApplyProfileWrite(text, section, std::string_view(key), std::string_view(value));
}

TEST(ProfileText, FirstWriteMakesSectionAndKeyWithCrLf) {
  EXPECT_EQ(Set("", "Common", "HistoryCount", "0"), "[Common]\r\nHistoryCount=0\r\n");
}

TEST(ProfileText, FileBuiltFromCallsIsByteExact) {
  std::string t;
  t = Set(t, "Common", "BrowseStartDir", "C:\\");
  t = Set(t, "Common", "HistoryCount", "0");
  t = Set(t, "app.log", "FontSize", "10");
  t = Set(t, "Common", "LastFileSelected", "");
  t = Set(t, "app.log", "Font", "Courier New");
  t = Set(t, "COMMON", "historycount", "1");
  EXPECT_EQ(t,
            "[Common]\r\nBrowseStartDir=C:\\\r\nHistoryCount=1\r\nLastFileSelected=\r\n"
            "[app.log]\r\nFontSize=10\r\nFont=Courier New\r\n");
}

TEST(ProfileText, OverwrittenKeyKeepsPlaceAndFileSpelling) {
  std::string t = "[Common]\r\nHistoryCount=3\r\nDebug=False\r\n";
  EXPECT_EQ(Set(t, "common", "HISTORYCOUNT", "4"), "[Common]\r\nHistoryCount=4\r\nDebug=False\r\n");
}

TEST(ProfileText, EmptyValueWritesKeyWithNothingAfterEquals) {
  EXPECT_EQ(Set("[C]\r\nK=v\r\n", "C", "K", ""), "[C]\r\nK=\r\n");
}

TEST(ProfileText, NullValueDeletesTheKeyLine) {
  EXPECT_EQ(ApplyProfileWrite("[C]\r\nA=1\r\nK=v\r\nB=2\r\n", "C", "k", nullopt),
            "[C]\r\nA=1\r\nB=2\r\n");
}

TEST(ProfileText, NullKeyDeletesSectionWithItsKeys) {
  EXPECT_EQ(ApplyProfileWrite("[A]\r\nx=1\r\n[B]\r\ny=2\r\n; b comment\r\n\r\n[C]\r\nz=3\r\n", "b",
                              nullopt, nullopt),
            "[A]\r\nx=1\r\n[C]\r\nz=3\r\n");
}

TEST(ProfileText, DeletingWhatIsMissingChangesNothing) {
  const std::string t = "; top\r\n[A]\r\nx=1\r\n";
  EXPECT_EQ(ApplyProfileWrite(t, "B", nullopt, nullopt), t);
  EXPECT_EQ(ApplyProfileWrite(t, "A", "y", nullopt), t);
}

TEST(ProfileText, NewKeyGoesAfterLastKeyOfItsSection) {
  std::string t = "[A]\r\nx=1\r\n; note\r\n\r\n[B]\r\ny=2\r\n";
  EXPECT_EQ(Set(t, "A", "new", "n"), "[A]\r\nx=1\r\nnew=n\r\n; note\r\n\r\n[B]\r\ny=2\r\n");
}

TEST(ProfileText, NewKeyInEmptySectionGoesRightAfterHeader) {
  EXPECT_EQ(Set("[A]\r\n\r\n[B]\r\n", "A", "k", "v"), "[A]\r\nk=v\r\n\r\n[B]\r\n");
}

TEST(ProfileText, NewSectionIsAppendedAtTheEnd) {
  EXPECT_EQ(Set("[A]\r\nx=1\r\n\r\n; tail\r\n", "B", "k", "v"),
            "[A]\r\nx=1\r\n\r\n; tail\r\n[B]\r\nk=v\r\n");
}

TEST(ProfileText, EditKeepsCommentsBlankLinesAndSpacing) {
  const std::string before =
      "; Ferrow settings\r\n\r\n[Common]\r\n  HistoryCount = 2   ; kept\r\n"
      "Unknown Key =  odd  \r\n\r\n[app.log]\r\nFontSize = 10\r\n";
  const std::string after =
      "; Ferrow settings\r\n\r\n[Common]\r\n  HistoryCount = 2   ; kept\r\n"
      "Unknown Key =  odd  \r\n\r\n[app.log]\r\nFontSize=12\r\n";
  EXPECT_EQ(Set(before, "APP.LOG", "fontsize", "12"), after);
}

TEST(ProfileText, HeaderWithBlanksMatchesSection) {
  EXPECT_EQ(Set("[ app.log ]\r\nk=1\r\n", "app.log", "k", "2"), "[ app.log ]\r\nk=2\r\n");
}

TEST(ProfileText, CommentLookingLikeKeyIsNotMatched) {
  EXPECT_EQ(Set("[A]\r\nj=1\r\n;k=old\r\n", "A", "k", "v"), "[A]\r\nj=1\r\nk=v\r\n;k=old\r\n");
  EXPECT_EQ(Set("[A]\r\n;k=old\r\n", "A", "k", "v"), "[A]\r\nk=v\r\n;k=old\r\n");
}

TEST(ProfileText, FirstOfTwoSameNamedSectionsIsUsed) {
  EXPECT_EQ(Set("[A]\r\nk=1\r\n[A]\r\nk=2\r\n", "a", "k", "3"), "[A]\r\nk=3\r\n[A]\r\nk=2\r\n");
}

TEST(ProfileText, NulPaddingIsDroppedAndNoDataLost) {
  std::string padded = "[Common]\r\nHistoryCount=1\r\nHistory1=C:\\a.log\r\n";
  padded.append(40, '\0');
  EXPECT_EQ(Set(padded, "Common", "Debug", "True"),
            "[Common]\r\nHistoryCount=1\r\nHistory1=C:\\a.log\r\nDebug=True\r\n");
  EXPECT_EQ(Set(padded, "x.log", "Font", "Arial"),
            "[Common]\r\nHistoryCount=1\r\nHistory1=C:\\a.log\r\n[x.log]\r\nFont=Arial\r\n");
}

TEST(ProfileText, LineFeedOnlyFileKeepsItsLineEnds) {
  EXPECT_EQ(Set("[A]\nx=1\ny=2\n", "A", "x", "5"), "[A]\nx=5\ny=2\n");
}

TEST(ProfileText, UnterminatedLastLineIsEndedBeforeAppending) {
  EXPECT_EQ(Set("[A]\r\nx=1", "A", "y", "2"), "[A]\r\nx=1\r\ny=2\r\n");
  EXPECT_EQ(Set("[A]\r\nx=1", "B", "y", "2"), "[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
  EXPECT_EQ(Set("[A]", "A", "y", "2"), "[A]\r\ny=2\r\n");
}

TEST(ProfileText, KeysBeforeAnyHeaderBelongToNoSection) {
  EXPECT_EQ(Set("k=loose\r\n[A]\r\n", "A", "k", "v"), "k=loose\r\n[A]\r\nk=v\r\n");
}

}  // namespace
}  // namespace ferrow
