// What the desktop remembers between two starts: where windows stood, how wide columns were pulled,
// how large the text is. It lies in a file of the platform root, so that a shop's folder is moved
// with all that belongs to it.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <map>

namespace tela {

/// Columns that the user has pulled, by their number, in twips.
using PulledColumns = std::map<int, int>;

class DesktopSettings {
 public:
  /// `file` need not exist. A file that cannot be read or written is as good as an empty one.
  explicit DesktopSettings(const QString& file) : settings_(file, QSettings::IniFormat) {}

  /// The place and size of a window as its own saveGeometry() gave it; empty if none is known.
  QByteArray place(const QString& window) const;
  void set_place(const QString& window, const QByteArray& place);

  PulledColumns pulled_columns(const QString& grid) const;
  void set_pulled_columns(const QString& grid, const PulledColumns& columns);

  /// The size of the text in per cent, from 70 to 200.
  int text_percent() const;
  void set_text_percent(int percent);

  /// The folder in which the user saved last; empty if none is known.
  QString save_folder() const;
  void set_save_folder(const QString& folder);

  static constexpr int kSmallestText = 70;
  static constexpr int kLargestText = 200;

 private:
  QSettings settings_;
};

}  // namespace tela
