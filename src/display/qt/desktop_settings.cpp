#include "display/qt/desktop_settings.h"

#include <QStringList>
#include <algorithm>

namespace tela {

namespace {

const char* const kTextPercent = "text/percent";

QString place_key(const QString& window) {
  return "places/" + window;
}

QString columns_key(const QString& grid) {
  return "columns/" + grid;
}

}  // namespace

QByteArray DesktopSettings::place(const QString& window) const {
  return settings_.value(place_key(window)).toByteArray();
}

void DesktopSettings::set_place(const QString& window, const QByteArray& place) {
  settings_.setValue(place_key(window), place);
}

PulledColumns DesktopSettings::pulled_columns(const QString& grid) const {
  PulledColumns columns;
  for (const QString& entry : settings_.value(columns_key(grid)).toStringList()) {
    const QStringList parts = entry.split(':');
    if (parts.size() == 2) columns[parts[0].toInt()] = parts[1].toInt();
  }
  return columns;
}

void DesktopSettings::set_pulled_columns(const QString& grid, const PulledColumns& columns) {
  QStringList entries;
  for (const auto& [column, twips] : columns)
    entries << QString::number(column) + ':' + QString::number(twips);
  if (entries.isEmpty())
    settings_.remove(columns_key(grid));
  else
    settings_.setValue(columns_key(grid), entries);
}

int DesktopSettings::text_percent() const {
  return std::clamp(settings_.value(kTextPercent, 100).toInt(), kSmallestText, kLargestText);
}

void DesktopSettings::set_text_percent(int percent) {
  settings_.setValue(kTextPercent, std::clamp(percent, kSmallestText, kLargestText));
}

QString DesktopSettings::save_folder() const {
  return settings_.value("save_folder").toString();
}

void DesktopSettings::set_save_folder(const QString& folder) {
  settings_.setValue("save_folder", folder);
}

}  // namespace tela
