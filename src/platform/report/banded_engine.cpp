// Opening and running banded reports.
#include "platform/report/banded_engine.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/report/banded_document.h"
#include "platform/report/layout_reader.h"
#include "platform/text/ascii.h"
#include "platform/text/strings.h"

namespace tela {
namespace {

namespace fs = std::filesystem;

/// Runs `action`; a failure goes to the log and on to the caller.
template <typename Action>
auto logged(const ReportEngineParts& parts, const Action& action) {
  try {
    return action();
  } catch (const std::exception& failure) {
    if (parts.log) parts.log(failure.what());
    throw;
  }
}

/// The file `name` in `folder`, names compared without case as on the shop's machine.
std::optional<fs::path> find_file(const fs::path& folder, const std::string& name) {
  std::error_code ignored;
  const fs::path exact = folder / name;
  if (fs::is_regular_file(exact, ignored)) return exact;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
    if (equal_ignoring_case(entry.path().filename().string(), name)) return entry.path();
  }
  return std::nullopt;
}

std::optional<std::string> read_file(const std::vector<fs::path>& folders,
                                     const std::string& name) {
  for (const fs::path& folder : folders) {
    const std::optional<fs::path> path = find_file(folder, name);
    if (!path) continue;
    std::ifstream file(*path, std::ios::binary);
    if (!file) continue;
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  return std::nullopt;
}

/// The layout at `path` of the shop's machine.
Layout find_layout(const ReportEngineParts& parts, std::string_view path) {
  const std::size_t slash = path.find_last_of("\\/");
  if (slash == std::string_view::npos) {
    throw ReportError(std::string(path) + ": a report is opened by its whole path");
  }
  const std::string name(path.substr(slash + 1));
  const fs::path shop_folder = parts.resolve_folder(path.substr(0, slash));
  std::error_code ignored;
  const bool shop_has_layouts = fs::is_directory(shop_folder, ignored);
  const fs::path home = shop_has_layouts ? shop_folder : parts.shipped_layouts;
  return read_layout(name, [&](const std::string& file) {
    const bool is_layout = file == name;
    return read_file(is_layout ? std::vector{home} : std::vector{home, parts.shipped_layouts},
                     file);
  });
}

/// The text that a formula stands for: what stands between its double quotes.
std::string formula_value(std::string_view name, std::string_view formula) {
  const std::string_view text = trimmed(formula);
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  const std::string_view value = quoted ? text.substr(1, text.size() - 2) : "";
  if (!quoted || value.find('"') != std::string_view::npos) {
    throw ReportError("formula '" + std::string(name) + "' is no text in double quotes");
  }
  return std::string(value);
}

class BandedReport : public Report {
 public:
  BandedReport(std::shared_ptr<const ReportEngineParts> parts, Layout layout)
      : parts_(std::move(parts)), layout_(std::move(layout)) {
    for (const std::string& table : layout_.tables) tables_.emplace_back(table);
  }

  std::vector<ReportTable>& tables() override { return tables_; }

  void set_query(std::string sql) override { query_ = std::move(sql); }

  void set_formula(std::string_view name, std::string_view formula) override {
    logged(*parts_, [&] {
      const auto known =
          std::find_if(layout_.formulas.begin(), layout_.formulas.end(),
                       [&](const auto& field) { return equal_ignoring_case(field, name); });
      if (known == layout_.formulas.end()) {
        throw ReportError(layout_.file + ": there is no formula field '" + std::string(name) + "'");
      }
      formulas_[*known] = formula_value(name, formula);
    });
  }

  std::shared_ptr<const ReportDocument> run() override {
    return logged(*parts_, [&]() -> std::shared_ptr<const ReportDocument> {
      Layout bound = layout_;
      ReportData data(bound, read_rows(), formulas_);
      return std::make_shared<BandedDocument>(std::move(bound), std::move(data));
    });
  }

 private:
  RowSet read_rows() const {
    const LogOnInfo& logon = tables_.front().logon_info();
    const std::unique_ptr<Connection> connection = parts_->make_connection();
    connection->open("Data Source=" + logon.server + ";User ID=" + logon.user +
                     ";Password=" + logon.password + ";Initial Catalog=" + logon.database);
    const std::string all = "SELECT * FROM " + tables_.front().location();
    return connection->execute(query_.empty() ? all : query_);
  }

  std::shared_ptr<const ReportEngineParts> parts_;
  Layout layout_;
  std::vector<ReportTable> tables_;
  std::string query_;
  std::map<std::string, std::string> formulas_;
};

}  // namespace

BandedReportEngine::BandedReportEngine(ReportEngineParts parts)
    : parts_(std::make_shared<const ReportEngineParts>(std::move(parts))) {}

std::unique_ptr<Report> BandedReportEngine::open_report(std::string_view path) {
  return logged(*parts_, [&]() -> std::unique_ptr<Report> {
    return std::make_unique<BandedReport>(parts_, find_layout(*parts_, path));
  });
}

}  // namespace tela
