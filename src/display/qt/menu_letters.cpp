#include "display/qt/menu_letters.h"

namespace tela {

QString with_letter(const QString& caption, QString& taken) {
  for (qsizetype i = 0; i < caption.size(); ++i) {
    const QChar letter = caption[i].toUpper();
    if (!letter.isLetter() || taken.contains(letter)) continue;
    taken += letter;
    QString marked = caption;
    return marked.insert(i, '&');
  }
  return caption;
}

}  // namespace tela
