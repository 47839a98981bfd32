// The control window's system menu loses the separator before Close, Size and
// Maximize, whatever else the window system puts in it.
#include "control/system_menu.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

using E = SystemMenuEntry;

TEST(SystemMenuTrim, TheStandardSevenLoseTheSeparatorSizeAndMaximize) {
  // Restore, Move, Size, Minimize, Maximize, separator, Close.
  const std::vector<E> menu{E::kOther, E::kOther, E::kSize, E::kOther, E::kMaximize, E::kSeparator, E::kClose};
  EXPECT_EQ(SystemMenuEntriesToRemove(menu), (std::vector<int>{5, 4, 2}));
}

TEST(SystemMenuTrim, ALongerMenuKeepsCloseAndItsOwnExtras) {
  // Wine's: the standard seven, then a separator and an entry of its own.
  const std::vector<E> menu{E::kOther, E::kOther, E::kSize,  E::kOther,    E::kMaximize,
                            E::kSeparator, E::kClose, E::kSeparator, E::kOther};
  EXPECT_EQ(SystemMenuEntriesToRemove(menu), (std::vector<int>{5, 4, 2}));
}

TEST(SystemMenuTrim, OnlyTheSeparatorRightBeforeCloseGoes) {
  EXPECT_EQ(SystemMenuEntriesToRemove({E::kSeparator, E::kOther, E::kSeparator, E::kClose, E::kSeparator}),
            (std::vector<int>{2}));
}

TEST(SystemMenuTrim, AMenuWithoutThemLosesNothing) {
  EXPECT_TRUE(SystemMenuEntriesToRemove({E::kOther, E::kSeparator, E::kOther, E::kClose}).empty());
  EXPECT_TRUE(SystemMenuEntriesToRemove({E::kOther, E::kClose}).empty());
  EXPECT_TRUE(SystemMenuEntriesToRemove({}).empty());
}

}  // namespace
}  // namespace ferrow
