// The login by keyboard: both levels, wrong words, a shop whose catalogue cannot be reached.
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "display_qt/desktop_fixture.h"

namespace tela::testing {

namespace {

QLineEdit& user(Desktop& desktop) {
  return child<QLineEdit>(*desktop.login(), "Text1");
}

QLineEdit& password(Desktop& desktop) {
  return child<QLineEdit>(*desktop.login(), "Text2");
}

struct Level {
  const char* password;
  bool profit;
};

class LoginLevel : public ::testing::TestWithParam<Level> {};

}  // namespace

TEST_P(LoginLevel, ShowsTheMainWindowAndGreysWhatTheLevelMayNotOpen) {
  Desktop desktop;
  EXPECT_EQ(desktop.login()->windowTitle(), "OWNER PASS WORD");
  desktop.log_in(GetParam().password);
  EXPECT_EQ(desktop.login(), nullptr);
  EXPECT_TRUE(desktop.frame().isVisible());
  EXPECT_EQ(desktop.frame().windowTitle(), "TELA MINI SUPER MARKET  - ");
  EXPECT_EQ(child<QMenu>(desktop.frame(), "ProfitReport").menuAction()->isEnabled(),
            GetParam().profit);
  EXPECT_EQ(child<QAction>(desktop.frame(), "MonthlyProfitReport").isEnabled(), GetParam().profit);
}

INSTANTIATE_TEST_SUITE_P(Levels, LoginLevel,
                         ::testing::Values(Level{"kestr472", true}, Level{"Kestr", false}));

TEST(Login, TakesNoPasswordBeforeTheNameAndGoesBackWithUp) {
  Desktop desktop;
  QTest::keyClicks(&password(desktop), "KESTR472");
  EXPECT_EQ(password(desktop).text(), "");

  QTest::keyClicks(&user(desktop), "owner");
  QTest::keyClick(&user(desktop), Qt::Key_Enter);
  EXPECT_EQ(user(desktop).text(), "");
  EXPECT_TRUE(user(desktop).hasFocus());

  QTest::keyClicks(&user(desktop), "kestr");
  QTest::keyClick(&user(desktop), Qt::Key_Enter);
  EXPECT_EQ(user(desktop).text(), "KESTR");
  EXPECT_TRUE(password(desktop).hasFocus());
  QTest::keyClicks(&password(desktop), "ab");
  EXPECT_EQ(password(desktop).displayText(), "**");

  QTest::keyClick(&password(desktop), Qt::Key_Up);
  EXPECT_TRUE(user(desktop).hasFocus());
  EXPECT_EQ(user(desktop).selectedText(), "KESTR");
}

TEST(Login, ShowsAWrongPasswordInABoxWithoutTitle) {
  Desktop desktop;
  const SeenBox box = desktop.box_of([&] { desktop.log_in("sesame"); });
  EXPECT_EQ(box.text, "Enter the Correct Password");
  EXPECT_EQ(box.title.trimmed(), "");
  EXPECT_EQ(box.icon, QMessageBox::Critical);
  EXPECT_FALSE(box.asks);
  EXPECT_EQ(password(desktop).text(), "");
  EXPECT_TRUE(gets_focus(password(desktop)));
}

TEST(Login, StaysToBeTriedAgainWhenTheCatalogueCannotBeReached) {
  Desktop desktop;
  desktop.shop.reachable = false;
  const SeenBox box = desktop.box_of([&] { desktop.log_in(); });
  EXPECT_EQ(box.text, "NET WORK PROBLEM OR DATABASE NOT CONNECTED");
  EXPECT_EQ(box.icon, QMessageBox::Information);
  ASSERT_NE(desktop.login(), nullptr);
  EXPECT_EQ(child<QLabel>(*desktop.login(), "hint").text(), "there is no such catalogue");

  desktop.shop.reachable = true;
  QTest::keyClick(&password(desktop), Qt::Key_Return);
  EXPECT_NE(desktop.display().main_frame(), nullptr);
}

TEST(Login, EndsTheProgramByItsButtonAndByItsFrame) {
  Desktop by_button;
  EXPECT_FALSE(child<QPushButton>(*by_button.login(), "Command1").isVisible());
  QTest::mouseClick(&child<QPushButton>(*by_button.login(), "Command2"), Qt::LeftButton);
  EXPECT_TRUE(by_button.ended);
  EXPECT_EQ(by_button.login(), nullptr);

  Desktop by_frame;
  by_frame.login()->close();
  EXPECT_TRUE(by_frame.ended);
}

}  // namespace tela::testing
