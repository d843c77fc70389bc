#include "display/qt/login_window.h"

#include <QCloseEvent>
#include <QIcon>
#include <QLabel>
#include <QPainter>

#include "display/qt/look.h"
#include "shell/owner_login.h"

namespace tela {

namespace {

constexpr int kWidth = 460;
constexpr int kPictureHeight = 150;

}  // namespace

LoginWindow::LoginWindow(OwnerLogin& login, UserEvents& events, DesktopSettings& settings)
    : login_(&login),
      events_(events),
      view_(new ScreenView(login, events, settings)),
      hint_(new QLabel) {
  setObjectName(QString::fromStdString(login.name()));
  setWindowTitle(QString::fromStdString(login.caption()));
  hint_->setObjectName("hint");
  hint_->setTextFormat(Qt::PlainText);
  hint_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  hint_->setWordWrap(true);
  hint_->setContentsMargins(12, 0, 12, 12);
  hint_->hide();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, kPictureHeight, 20, 8);
  column->addWidget(view_);
  column->addWidget(hint_);
  column->setSizeConstraint(QLayout::SetFixedSize);
  view_->setFixedWidth(kWidth - 40);
}

void LoginWindow::set_hint(const QString& hint) {
  hint_->setText(hint);
  hint_->setVisible(!hint.isEmpty());
}

void LoginWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), kFrameColour.lighter(104));
  paint_background(painter, "login", QRect(0, 0, width(), kPictureHeight));
}

void LoginWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  events_.run([this] { login_->press("Command2"); });
}

}  // namespace tela
