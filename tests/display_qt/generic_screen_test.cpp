// A screen of every kind of control, and how its window mirrors and works them.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "display/qt/date_field.h"
#include "display/qt/grid_pane.h"
#include "display_qt/desktop_fixture.h"

namespace tela::testing {

namespace {

// Writes down what it is told in `lNews`.
class SampleScreen : public Screen {
 public:
  explicit SampleScreen(AppState& app) : Screen(app, "sample", "SAMPLE", controls()) {
    form().at("MSHF").grid->SetColWidth(1, 0);
    form().at("Combo1").items = {"ONE", "TWO"};
    form().at("DTP1").date =
        Date{std::chrono::year(2024), std::chrono::month(1), std::chrono::day(5)};
    on_change("Text1", [this] { note("change " + form().text("Text1")); });
    on_key("Text1", Key::enter, [this] { focus("cmdSave"); });
    on_key("Combo1", Key::enter, [this] { note("enter " + form().text("Combo1")); });
    on_pick("Combo1", [this] { note("pick " + form().text("Combo1")); });
    on_leave("Text2", [this] { note("left"); });
    on_change("DTP1", [this] { note("date"); });
    on_press("cmdAss", [this] { form().at("cmdSave").enabled = true; });
    on_press("cmdSave", [this] { form().at("Text2").visible = false; });
  }

 private:
  static std::vector<Control> controls() {
    std::vector<Control> all;
    all.push_back(text_box("Text1", "&Points").numeric());
    all.push_back(text_box("Text2", "Name").selected_on_focus());
    all.push_back(date_picker("DTP1", "FROM"));
    all.push_back(combo("Combo1", "COUNTER"));
    all.push_back(check_box("Check1", "Cash Sales Points"));
    all.push_back(picture_button("cmdAss", "Ascending Order"));
    all.push_back(button("cmdSave", "&SAVE"));
    all.back().enabled = false;
    all.push_back(tela::grid("MSHF", 3, 1));
    all.push_back(label("lNews", "NEWS"));
    return all;
  }

  void note(const std::string& what) {
    form().set_text("lNews", form().text("lNews") + what + ";");
  }
};

constexpr ScreenEntry kSample[] = {{"sample", make_screen<SampleScreen>}};

class GenericScreen : public ::testing::Test {
 protected:
  Desktop desktop{kSample};
  ScreenView& view = desktop.open("sample");

  template <class Widget>
  Widget& get(const char* name) {
    return child<Widget>(view, name);
  }
  QString news() { return get<QLabel>("lNews").text(); }
};

}  // namespace

TEST_F(GenericScreen, TellsEachKeystrokeAndWipesWhatIsNoNumber) {
  QTest::keyClicks(&get<QLineEdit>("Text1"), "12a3");
  EXPECT_EQ(get<QLineEdit>("Text1").text(), "3");
  EXPECT_EQ(news(), "change 1;change 12;change ;change 3;");
}

TEST_F(GenericScreen, PicksTypesAndEntersInAComboOnceEach) {
  auto& box = get<QComboBox>("Combo1");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_EQ(news(), "pick ONE;");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(news(), "pick ONE;enter ONE;");
  QTest::keyClicks(&box, "9");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(news(), "pick ONE;enter ONE;enter ONE9;");
}

TEST_F(GenericScreen, TakesADateTypedDayFirst) {
  auto& date = get<DateField>("DTP1");
  date.setFocus();
  QTest::keyClicks(&date, "29022024");
  QTest::keyClick(&date, Qt::Key_Return);
  EXPECT_EQ(desktop.windows().current()->form().date("DTP1"),
            (Date{std::chrono::year(2024), std::chrono::month(2), std::chrono::day(29)}));
  EXPECT_EQ(news(), "date;");
}

TEST_F(GenericScreen, MirrorsWhatIsSwitchedOnAndHidden) {
  EXPECT_FALSE(get<QPushButton>("cmdSave").isEnabled());
  EXPECT_FALSE(get<QPushButton>("cmdAss").icon().isNull());
  QTest::mouseClick(&get<QPushButton>("cmdAss"), Qt::LeftButton);
  EXPECT_TRUE(get<QPushButton>("cmdSave").isEnabled());
  QTest::keyClick(&get<QLineEdit>("Text1"), Qt::Key_Return);
  EXPECT_TRUE(get<QPushButton>("cmdSave").hasFocus());
  QTest::keyClick(&get<QPushButton>("cmdSave"), Qt::Key_Return);
  EXPECT_FALSE(get<QLineEdit>("Text2").isVisible());
  QTest::mouseClick(&get<QCheckBox>("Check1"), Qt::LeftButton);
  EXPECT_EQ(desktop.windows().current()->form().text("Check1"), "1");
}

TEST_F(GenericScreen, WalksWithTabInTheDeclaredOrder) {
  get<QLineEdit>("Text1").setFocus();
  QStringList walked;
  for (int step = 0; step < 5; ++step) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    walked << QApplication::focusWidget()->objectName();
  }
  EXPECT_EQ(walked.join(' '), "Text2 DTP1 Combo1 Check1 cmdAss");
  EXPECT_EQ(news(), "left;");
}

TEST_F(GenericScreen, HidesAColumnWithoutWidth) {
  GridView& list = get<GridPane>("MSHF").view();
  EXPECT_TRUE(list.isColumnHidden(1));
  EXPECT_FALSE(list.isColumnHidden(2));
}

}  // namespace tela::testing
