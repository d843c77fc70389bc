// The viewer of the report engine: pages, zoom, search, print and export, with buttons of its own.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/report/report_engine.h"
#include "platform/report/report_search.h"

class QAction;
class QComboBox;
class QKeySequence;
class QLabel;
class QLineEdit;
class QScrollArea;
class QSpinBox;
class QToolBar;

namespace tela {

class PageCanvas;

class ReportViewer : public QWidget {
  Q_OBJECT

 public:
  explicit ReportViewer(QWidget* parent = nullptr);

  /// Shows the first page of `document`. Null empties the viewer and switches its buttons off.
  void set_report(std::shared_ptr<const ReportDocument> document);
  const std::shared_ptr<const ReportDocument>& report() const { return document_; }

  /// Zooms to `percent`, 90 at first.
  void zoom_to(int percent);
  /// Keeps the page as wide as the viewer, also when the window is resized.
  void fit_width();
  int zoom() const { return zoom_; }

  /// Shows the page of that number; the nearest one where there is none.
  void show_page(int number);
  /// From 1; 0 without a report.
  int current_page() const { return page_; }

  /// Goes to the next place that holds `text` and marks it. False if there is none.
  bool find(const QString& text);

  /// Shows the next part of the page, the lower one for 1, the upper one for -1; beyond the page's
  /// edge the neighbouring page.
  void show_part(int direction);

  /// The name and the folder that are proposed when the report is saved.
  void set_save_name(const QString& name) { save_name_ = name; }
  void set_save_folder(const QString& folder) { save_folder_ = folder; }

 signals:
  void saved_in(const QString& folder);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void add_paging();
  void add_zoom();
  void add_search();
  void add_outputs();
  QAction* add_key(const QKeySequence& key, const std::function<void()>& run);
  /// The same with a button.
  QAction* add_action(const QString& text, const QKeySequence& key,
                      const std::function<void()>& run);

  void apply_zoom(int percent);
  void step_zoom(int direction);
  void print();
  /// Asks for a file and has it written.
  void save(const QString& suffix, const QString& filter,
            const std::function<void(const QString& path)>& write);

  std::shared_ptr<const ReportDocument> document_;
  int page_ = 0;
  int zoom_ = 90;
  bool fits_width_ = false;
  QString save_name_;
  QString save_folder_;
  std::string wanted_;
  std::optional<TextHit> hit_;

  QToolBar* bar_ = nullptr;
  QScrollArea* scroll_ = nullptr;
  PageCanvas* canvas_ = nullptr;
  QSpinBox* page_box_ = nullptr;
  QLabel* page_count_ = nullptr;
  QComboBox* zoom_box_ = nullptr;
  QLineEdit* search_box_ = nullptr;
  QLabel* search_result_ = nullptr;
  QAction* first_ = nullptr;
  QAction* previous_ = nullptr;
  QAction* next_ = nullptr;
  QAction* last_ = nullptr;
};

}  // namespace tela
