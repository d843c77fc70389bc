// A list that drops down, with free text: typing a part of an entry offers the entries that hold
// it.
#pragma once

#include <QComboBox>
#include <string>
#include <vector>

namespace tela {

/// The text stays as it was typed, until an entry is chosen. A text that is none of the entries is
/// marked.
class EntryCombo : public QComboBox {
  Q_OBJECT

 public:
  explicit EntryCombo(QWidget* parent = nullptr);

  void show_entries(const std::vector<std::string>& entries);
  /// Shows the program's text.
  void show_text(const QString& text);
  /// If one entry alone holds what was typed, chooses it, as a click on it does. An entry that was
  /// typed whole, in any case of letters, is left as it is.
  void take_only_match();

 signals:
  /// What was typed is none of the entries; `words` say so.
  void unmatched(const QString& words);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  /// The entries that hold the text, in any case of letters.
  QStringList matches() const;
  bool is_entry() const;
  void mark(bool wrong);
  bool popup_key(const QKeyEvent& event);
  bool popup_press(const QMouseEvent& event);

  bool is_typed_ = false;  // the text is the user's, and no entry was chosen since
};

}  // namespace tela
