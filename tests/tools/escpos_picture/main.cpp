// escpos_picture BILL PICTURE.png [COLUMNS]: paints a bill's bytes as its printer would put them on
// paper, to look at and for the guide. 48 columns are a receipt, 80 the line printer.
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <exception>

#include "tools/escpos/paper.h"

namespace {

// Dots of a receipt printer: 203 to the inch, a character of 12 by 24, lines of 1/6 inch.
constexpr int kColumnDots = 12;
constexpr int kCharacterDots = 24;
constexpr int kLineDots = 30;
constexpr int kMargin = 24;

int height_of(const tela::PrintedLine& line) {
  int tallest = 1;
  for (const auto& character : line.characters) tallest = std::max(tallest, character.height);
  return kLineDots + (tallest - 1) * kCharacterDots;
}

void paint(QPainter& painter, const tela::PrintedCharacter& character, int line_bottom) {
  QFont font("DejaVu Sans Mono");
  font.setPixelSize(20);
  font.setBold(character.emphasised);
  const QFontMetricsF metrics(font);
  painter.save();
  painter.translate(kMargin + character.column * kColumnDots, line_bottom);
  painter.scale(character.width * kColumnDots / metrics.horizontalAdvance('0'),
                character.height * kCharacterDots / metrics.height());
  painter.setFont(font);
  painter.drawText(QPointF(0, -metrics.descent()), QString(QLatin1Char(character.character)));
  painter.restore();
}

QImage picture_of(const std::vector<tela::PrintedLine>& lines, int columns) {
  int height = 2 * kMargin;
  for (const auto& line : lines) height += height_of(line);
  QImage image(2 * kMargin + columns * kColumnDots, height, QImage::Format_Grayscale8);
  image.fill(Qt::white);
  QPainter painter(&image);
  int y = kMargin;
  for (const auto& line : lines) {
    if (line.cut_here) {
      painter.setPen(QPen(Qt::gray, 2, Qt::DashLine));
      painter.drawLine(0, y, image.width(), y);
      painter.setPen(Qt::black);
    }
    y += height_of(line);
    for (const auto& character : line.characters) paint(painter, character, y);
  }
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc < 3 || argc > 4) {
    std::fprintf(stderr, "usage: escpos_picture BILL PICTURE.png [COLUMNS]\n");
    return 2;
  }
  const int columns = argc == 4 ? QByteArray(argv[3]).toInt() : 48;
  QFile bill(QString::fromLocal8Bit(argv[1]));
  if (columns < 2 || !bill.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "escpos_picture: cannot read %s\n", argv[1]);
    return 1;
  }
  try {
    const QByteArray bytes = bill.readAll();
    const auto lines =
        tela::read_escpos({bytes.data(), static_cast<std::size_t>(bytes.size())}, columns);
    if (picture_of(lines, columns).save(QString::fromLocal8Bit(argv[2]))) return 0;
    std::fprintf(stderr, "escpos_picture: cannot write %s\n", argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "escpos_picture: %s: %s\n", argv[1], error.what());
  }
  return 1;
}
