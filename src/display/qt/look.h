// How the program looks: the same on every desktop, whatever theme and language that has, since the
// colours of the bands and of the main window are fixed.
#pragma once

#include <QColor>
#include <QIcon>
#include <QRect>
#include <QString>
#include <string>

class QPainter;
class QWidget;

namespace tela {

/// The main window's background, number 15984837 (blue 243, green 232, red 197).
inline const QColor kFrameColour(197, 232, 243);

/// Sets style, palette and number format of the whole program. Call once, after the application
/// object is made.
void adopt_look();

/// Sets the size of all text: `percent` of the desktop's own.
void set_text_size(int percent);

/// A drawing of the program: "sales", "purchase", "tax", "printer", "exit", "ascending", …
QIcon drawn_icon(const QString& name);

/// A caption in small letters, without the mark of its short-cut letter.
std::string plain_words(const std::string& caption);

/// The icon for a button with these words on or behind it; a null icon if none fits.
QIcon icon_for_words(const std::string& words);

/// Marks a field whose text is not understood, or takes the mark away.
void mark_field(QWidget& field, bool wrong);

/// Paints a background, "login" or "frame", into `place`.
void paint_background(QPainter& painter, const QString& name, const QRect& place);

/// The program's own icon.
QIcon program_icon();

}  // namespace tela
