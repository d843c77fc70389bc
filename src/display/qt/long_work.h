// An action that takes long: the windows stay alive meanwhile, the line at their foot tells how far
// it is, and Esc cancels it. What else the user types and clicks waits for its end.
#pragma once

#include <QElapsedTimer>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

class QStatusBar;

namespace tela {

class LongWork : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// To be asked often while an action runs, which began `elapsed` milliseconds ago. False once Esc
  /// has been pressed.
  bool keep_going(std::int64_t elapsed, std::int64_t rows, QStatusBar& line);
  /// The action has ended: what waited comes now.
  void end(QStatusBar& line);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Waiting = std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>;

  bool is_cancelled_ = false;
  QElapsedTimer last_look_;
  QString shown_;
  std::vector<Waiting> waiting_;
};

}  // namespace tela
