#include "display/qt/period_buttons.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>

#include "shell/usual_period.h"

namespace tela {

namespace {

struct Choice {
  UsualPeriod period;
  const char* caption;
  const char* words;
  Qt::Key key;  // with Ctrl
};

constexpr Choice kChoices[] = {
    {UsualPeriod::today, "Today", "Both dates are today", Qt::Key_1},
    {UsualPeriod::this_month, "This month", "From the first of this month", Qt::Key_2},
    {UsualPeriod::last_month, "Last month", "The whole of last month", Qt::Key_3},
    {UsualPeriod::financial_year, "This year", "The financial year, from 1 April", Qt::Key_4},
};

}  // namespace

PeriodButtons::PeriodButtons(DateField& first, DateField& last, const std::function<Date()>& today,
                             QWidget& window) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (const Choice& choice : kChoices) {
    auto* action = new QAction(tr(choice.caption), this);
    action->setShortcut(Qt::CTRL | choice.key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(
        QStringLiteral("%1  %2").arg(tr(choice.words), action->shortcut().toString()));
    connect(action, &QAction::triggered, this, [&first, &last, today, period = choice.period] {
      const auto [from, to] = usual_period(period, today());
      first.set_date(to_qt(from));
      last.set_date(to_qt(to));
    });
    window.addAction(action);
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(tr(choice.words));
    row->addWidget(button);
  }
}

}  // namespace tela
