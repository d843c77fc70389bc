#include "display/qt/look.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QWidget>
#include <algorithm>
#include <cctype>
#include <utility>

// The name stands outside any namespace, as Qt's resource compiler writes it.
static void load_resources() {
  Q_INIT_RESOURCE(desktop);
}

namespace tela {

namespace {

const QColor kInk(28, 43, 51);
const QColor kPaper(255, 255, 255);
const QColor kFace(238, 244, 247);
const QColor kAccent(31, 111, 139);
const QColor kFaint(140, 155, 163);  // of what is switched off
const QColor kSmallPrint(90, 104, 112);
const QColor kWrong(255, 217, 209);

QPalette palette() {
  QPalette colours(kFace);
  colours.setColor(QPalette::WindowText, kInk);
  colours.setColor(QPalette::Text, kInk);
  colours.setColor(QPalette::ButtonText, kInk);
  colours.setColor(QPalette::Base, kPaper);
  colours.setColor(QPalette::AlternateBase, kFace);
  colours.setColor(QPalette::Highlight, kAccent);
  colours.setColor(QPalette::HighlightedText, kPaper);
  colours.setColor(QPalette::ToolTipBase, kPaper);
  colours.setColor(QPalette::ToolTipText, kInk);
  colours.setColor(QPalette::PlaceholderText, kSmallPrint);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    colours.setColor(QPalette::Disabled, role, kFaint);
  return colours;
}

// The size that the desktop gives its text, in points.
double desktop_text_size() {
  static const double size = QApplication::font().pointSizeF();
  return size;
}

}  // namespace

void adopt_look() {
  load_resources();
  QLocale::setDefault(QLocale::c());
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(palette());
  QApplication::setWindowIcon(program_icon());
  desktop_text_size();
}

void set_text_size(int percent) {
  QFont font = QApplication::font();
  font.setPointSizeF(desktop_text_size() * percent / 100);
  QApplication::setFont(font);
}

QIcon drawn_icon(const QString& name) {
  const QString file = ":/tela/icons/" + name + ".svg";
  return QFile::exists(file) ? QIcon(file) : QIcon();
}

std::string plain_words(const std::string& caption) {
  std::string plain;
  for (const char letter : caption)
    if (letter != '&') plain += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return plain;
}

QIcon icon_for_words(const std::string& words) {
  static constexpr std::pair<const char*, const char*> kIcons[] = {
      {"descending", "descending"}, {"highest", "descending"}, {"ascending", "ascending"},
      {"lowest", "ascending"},      {"preview", "preview"},    {"print", "printer"},
      {"excel", "sheet"},           {"refresh", "refresh"},    {"view", "view"},
  };
  const std::string plain = plain_words(words);
  for (const auto& [word, icon] : kIcons)
    if (plain.find(word) != std::string::npos) return drawn_icon(icon);
  return {};
}

void mark_field(QWidget& field, bool wrong) {
  QPalette colours = QApplication::palette();
  if (wrong) colours.setColor(QPalette::Base, kWrong);
  field.setPalette(colours);
  field.setAccessibleDescription(wrong ? QCoreApplication::translate("Field", "not understood")
                                       : QString());
}

void paint_background(QPainter& painter, const QString& name, const QRect& place) {
  QSvgRenderer(":/tela/pictures/" + name + ".svg").render(&painter, place);
}

QIcon program_icon() {
  return QIcon(":/tela/tela-reports.svg");
}

}  // namespace tela
