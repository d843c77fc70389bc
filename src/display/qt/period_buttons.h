// Buttons that set both dates of a period at one press.
#pragma once

#include <QWidget>
#include <functional>

#include "display/qt/date_field.h"

namespace tela {

class PeriodButtons : public QWidget {
  Q_OBJECT

 public:
  /// The buttons set `first` and `last`, which are there as long as they; so do their keys,
  /// anywhere in `window`.
  PeriodButtons(DateField& first, DateField& last, const std::function<Date()>& today,
                QWidget& window);
};

}  // namespace tela
