// The report engine as its caller sees it: open a layout, log its tables on to the catalogue, hand
// it the query and the two heading values, run it, and get a document of pages.
//
//   auto engine = platform.make_report_engine();
//   auto report = engine->open_report("D:\\Tela_Supermarket\\Report\\SalesReport.rpt");
//   report->tables().front().set_logon_info({"", "TelaData", user, password});
//   for (ReportTable& table : report->tables()) table.set_location(table.location());
//   report->set_query("SELECT * FROM SalesPrint");
//   report->set_formula("tit", "\"" + heading + "\"");
//   std::shared_ptr<const ReportDocument> document = report->run();
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/report/report_page.h"

namespace tela {

/// A report that cannot be opened or run: no such file, a broken layout (with file, line and
/// reason), a formula field or a column that is not there. The engine has written the same words to
/// its log.
class ReportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// How a table of a report reaches its catalogue. An empty server is the local one.
struct LogOnInfo {
  std::string server;
  std::string database;
  std::string user;
  std::string password;
};

/// A table that a layout reads.
class ReportTable {
 public:
  explicit ReportTable(std::string location) : location_(std::move(location)) {}

  /// The report logs on with what its first table was given.
  void set_logon_info(LogOnInfo info) { logon_ = std::move(info); }
  const LogOnInfo& logon_info() const { return logon_; }

  /// The table's name in the catalogue that the report is logged on to; at first, the layout's
  /// word.
  void set_location(std::string location) { location_ = std::move(location); }
  const std::string& location() const { return location_; }

 private:
  std::string location_;
  LogOnInfo logon_;
};

/// A report that has run: its rows, laid out on pages. It never changes and needs no connection.
class ReportDocument {
 public:
  virtual ~ReportDocument() = default;

  /// The rows of the query.
  virtual int record_count() const = 0;
  /// At least 1: a report without rows is one page of headings. The same on every machine, since no
  /// font is measured.
  virtual int page_count() const = 0;
  virtual PaperSize paper() const = 0;
  /// The font family that the layout asks for.
  virtual const std::string& font_family() const = 0;
  /// The page of that number, from 1 to page_count(), made on demand.
  virtual ReportPage page(int number) const = 0;
  /// Writes all rows of the query with a header line: UTF-8, comma, quotes where a field needs them
  /// (RFC 4180), a null as an empty field, dates yyyy-mm-dd, times HH:MM:SS, decimal point.
  virtual void write_csv(std::ostream& out) const = 0;
};

/// An opened report.
class Report {
 public:
  virtual ~Report() = default;

  /// The tables that the layout reads, at least one.
  virtual std::vector<ReportTable>& tables() = 0;
  /// The query to run. Without one the report reads all of its first table's location.
  virtual void set_query(std::string sql) = 0;
  /// Gives the formula field `name` (compared without case) its formula: a text in double quotes,
  /// blanks inside them kept. Throws ReportError for an unknown field or any other formula.
  virtual void set_formula(std::string_view name, std::string_view formula) = 0;
  /// Logs on, runs the query and lays the rows out. Throws DatabaseError from the catalogue, and
  /// ReportError when the query lacks a column that the layout shows.
  virtual std::shared_ptr<const ReportDocument> run() = 0;
};

/// The application object of the engine.
class ReportEngine {
 public:
  virtual ~ReportEngine() = default;

  /// Opens the layout at `path`, a path of the shop's machine such as
  /// "D:\Tela_Supermarket\Report\SalesReport.rpt". Throws ReportError.
  virtual std::unique_ptr<Report> open_report(std::string_view path) = 0;
};

/// Writes a document as a PDF file. Throws ReportError. The desktop's painter supplies one.
using PdfWriter = std::function<void(const ReportDocument& document, const std::string& path)>;

}  // namespace tela
