// The desktop's tests drive real windows on a platform without a screen.
#include <gtest/gtest.h>

#include <QApplication>

#include "display/qt/look.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tela::adopt_look();
  return RUN_ALL_TESTS();
}
