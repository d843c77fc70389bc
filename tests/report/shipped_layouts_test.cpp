// Every layout that comes with the program, over the staging table that it is made for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/text/number_text.h"
#include "report/layout_fixture.h"
#include "report/shipped_report.h"

namespace tela {
namespace {

using testing::Contains;

struct Shipped {
  const char* file;
  const char* table;
  bool landscape;
  const char* summed;  ///< a column whose total the report shows; null if it has none
};

void PrintTo(const Shipped& layout, std::ostream* out) {
  *out << layout.file;
}

class ShippedLayout : public testing::TestWithParam<Shipped> {
 protected:
  std::shared_ptr<const ReportDocument> run(int records) {
    const auto report = open_shipped(GetParam().file, catalogue_, records);
    EXPECT_EQ(report->tables().front().location(), GetParam().table);
    report->set_formula("add", "\"No.38B\"");
    return report->run();
  }

  FakeCatalogue catalogue_;
};

TEST_P(ShippedLayout, ShowsItsTable) {
  const auto document = run(120);
  EXPECT_EQ(document->paper().width > document->paper().height, GetParam().landscape);
  const std::vector<std::string> first = texts_of(*document, 1);
  EXPECT_THAT(first, Contains("TELA MINI SUPER MARKET"));
  EXPECT_THAT(first, Contains("No.38B"));
  EXPECT_THAT(first, Contains("Page 1 of " + std::to_string(document->page_count())));
}

TEST_P(ShippedLayout, OpensOnAnEmptyTable) {
  const auto document = run(0);
  EXPECT_EQ(document->page_count(), 1);
  EXPECT_THAT(texts_of(*document, 1), Contains("Page 1 of 1"));
}

TEST_P(ShippedLayout, TotalsAreTheSumsOfTheRows) {
  if (GetParam().summed == nullptr) return;
  const auto document = run(120);
  const auto& fields = catalogue_.rows.fields;
  const auto column = std::find_if(fields.begin(), fields.end(), [](const Field& field) {
    return field.name == GetParam().summed;
  });
  ASSERT_NE(column, fields.end());
  double sum = 0;
  for (const auto& row : catalogue_.rows.rows) {
    sum += std::get<double>(row[static_cast<std::size_t>(column - fields.begin())]);
  }
  EXPECT_THAT(texts_of(*document, document->page_count()), Contains(format_number(sum, "0.00")));
}

TEST_P(ShippedLayout, TextsOfAPageDoNotOverlap) {
  const ReportPage page = run(120)->page(1);
  for (std::size_t i = 0; i < page.texts.size(); ++i) {
    const PageBox& a = page.texts[i].box;
    for (std::size_t j = i + 1; j < page.texts.size(); ++j) {
      const PageBox& b = page.texts[j].box;
      const bool apart = a.x + a.width <= b.x + 1e-6 || b.x + b.width <= a.x + 1e-6 ||
                         a.y + a.height <= b.y + 1e-6 || b.y + b.height <= a.y + 1e-6;
      EXPECT_TRUE(apart) << page.texts[i].text << " and " << page.texts[j].text;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, ShippedLayout,
    testing::Values(Shipped{"SalesReport.rpt", "SalesPrint", false, "Total"},
                    Shipped{"fDailyCashSPri.rpt", "fDailyCashS", false, "CashPaid"},
                    Shipped{"MonthCashSalesP.rpt", "MonthCashSales", false, "CashPaid"},
                    Shipped{"BilltoBillPri.rpt", "BilltoBillRep", false, "PointsUsed"},
                    Shipped{"ItemsReport.rpt", "ItemsSales", false, "Amount"},
                    Shipped{"CatagoryReport.rpt", "SalesCatagory", false, "Amount"},
                    Shipped{"SupplierItemReport.rpt", "SalesCatagory", false, "Qty"},
                    Shipped{"fSaleReturnPri.rpt", "fSaleReturn", false, "Amount"},
                    Shipped{"MonthlyProfitPri.rpt", "MonthlyProfit", true, "Profit"},
                    Shipped{"ProfitReport.rpt", "SaleProfit", false, nullptr},
                    Shipped{"StockRep.rpt", "StockRepPrint", false, "ClStock"},
                    Shipped{"StockAdjPrint.rpt", "StockAdjRep", false, "AdjustQty"},
                    Shipped{"SupPurPrint.rpt", "SupPurRep", false, "NetAmount"},
                    Shipped{"fItemPurPrint.rpt", "fItemPurRep", true, "NetAmount"},
                    Shipped{"frmIWPurPrint.rpt", "frmIWPurRep", false, "Amount"},
                    Shipped{"GrnReport.rpt", "GrnPrint", true, "Total"},
                    Shipped{"GST_Date_Report1.rpt", "GstDateWisePrint", false, "CGstAmount"},
                    Shipped{"HSN_Report.rpt", "HSNSalesPrint", false, "Taxable"}));

}  // namespace
}  // namespace tela
