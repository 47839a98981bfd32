// The main of the window tests: a QApplication on the offscreen platform
// unless another one is asked for, so they run without a display.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
