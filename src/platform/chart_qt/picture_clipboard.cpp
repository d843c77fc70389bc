#include "platform/chart_qt/picture_clipboard.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>
#include <stdexcept>

#include "platform/chart_qt/chart_view.h"

namespace tela {

namespace {

constexpr QSize kSizeOfItsOwn(1000, 620);

const ChartView* view_of(const Chart& chart) {
  for (const QWidget* widget : QApplication::allWidgets()) {
    const auto* view = qobject_cast<const ChartView*>(widget);
    if (view && view->shows(chart)) return view;
  }
  return nullptr;
}

void copy(const Chart& chart) {
  const ChartView* view = view_of(chart);
  DrawnChart drawn(chart, view ? view->viewport()->size() : kSizeOfItsOwn,
                   view ? view->font() : QApplication::font());
  QApplication::clipboard()->setImage(drawn.image());
}

void save_copied(const std::string& path) {
  const QString name = QString::fromStdString(path);
  const auto fail = [&](const QString& reason) {
    throw std::runtime_error("The picture could not be saved to " + path + ": " +
                             reason.toStdString());
  };
  const QImage picture = QApplication::clipboard()->image();
  if (picture.isNull()) fail("there is no picture on the clipboard");
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QImageWriter writer(&buffer, "bmp");
  if (!writer.write(picture.convertToFormat(QImage::Format_RGB32))) fail(writer.errorString());
  // A device or a folder of that name stays what it is.
  const QFileInfo present(name);
  if (present.exists() && !present.isFile()) fail("it is not a file");
  // The file takes its name when it is whole, so that a full disk leaves the old one.
  QSaveFile file(name);
  if (!file.open(QIODevice::WriteOnly)) fail(file.errorString());
  if (file.write(bytes) != bytes.size()) fail("the disk is full");
  if (!file.commit()) fail(file.errorString());
}

}  // namespace

ChartPictures make_chart_pictures() {
  return {copy, save_copied};
}

}  // namespace tela
