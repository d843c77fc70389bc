#include "apps/tela_catalogue/commands/data_checks.h"

namespace tela {
namespace {

constexpr DataCheck checks[] = {
    {"bills without lines",
     "select top 1000 T.BillNo from SalesTemp T left join Sales S on S.BillNo=T.BillNo"
     " where S.BillNo is null order by T.BillNo"},
    {"bills whose lines have no header",
     "select top 1000 S.BillNo from Sales S left join SalesTemp T on T.BillNo=S.BillNo"
     " where T.BillNo is null group by S.BillNo order by S.BillNo"},
    {"bill numbers used more than once",
     "select top 1000 BillNo from SalesTemp group by BillNo having count(*)>1 order by BillNo"},
    {"bills whose NetAmount is not the sum of their lines",
     "select top 1000 T.BillNo from SalesTemp T join Sales S on S.BillNo=T.BillNo"
     " group by T.BillNo,T.NetAmount having abs(sum(S.Amount)-T.NetAmount)>0.005"
     " order by T.BillNo"},
    {"bills whose Total is not NetAmount less DiscAmount",
     "select top 1000 BillNo from SalesTemp where abs(NetAmount-DiscAmount-Total)>0.005"
     " order by BillNo"},
    {"bills with a negative payment",
     "select top 1000 BillNo from SalesTemp where CashPaid<0 or CardPaid<0 or MealsPaid<0"
     " or MobilePay<0 or PointsUsed<0 order by BillNo"},
    {"bills of the till that were paid above their total without cash",
     "select top 1000 BillNo from SalesTemp where BillType in ('CASH/CREDIT','POINTS SALES')"
     " and Total>=0 and CardPaid+MealsPaid+MobilePay+PointsUsed>Total+0.005 order by BillNo"},
    {"bills with an unknown BillType",
     "select top 1000 BillNo,BillType from SalesTemp where BillType is null or BillType not in"
     " ('CASH/CREDIT','POINTS SALES','CREDIT BILL','HOME DELIVERY') order by BillNo"},
    {"bills without a date",
     "select top 1000 BillNo from SalesTemp where BillDate is null"
     " order by BillNo"},
    {"bills with a line of another date or counter",
     "select top 1000 T.BillNo from SalesTemp T join Sales S on S.BillNo=T.BillNo"
     " where S.BillDate<>T.BillDate or S.Counter<>T.Counter group by T.BillNo order by T.BillNo"},
    {"bills with a line of no quantity, which the profit reports cannot divide by",
     "select top 1000 BillNo from Sales where Qty=0 or Qty is null group by BillNo"
     " order by BillNo"},
    {"sold items that are missing in Items",
     "select top 1000 iCode from Sales where iCode not in (select iCode from Items)"
     " group by iCode order by iCode"},
    {"GST rates of Sales that the tax reports do not know",
     "select top 1000 iIGst from Sales where iIGst is null or iIGst not in (0,5,12,18,28)"
     " group by iIGst order by iIGst"},
    {"item codes used more than once",
     "select top 1000 iCode from Items group by iCode having count(*)>1 order by iCode"},
    {"items with a sale rate above their MRP",
     "select top 1000 iCode from Items where SaleRate>mrp order by iCode"},
    {"items of a supplier that is missing in Supplier",
     "select top 1000 I.iCode,I.Supplier from Items I left join Supplier S on S.Sname=I.Supplier"
     " where S.Scode is null order by I.iCode"},
    {"purchases without lines",
     "select top 1000 T.GrnNo from PurchaseTemp T left join Purchase P on P.GrnNo=T.GrnNo"
     " where P.GrnNo is null order by T.GrnNo"},
    {"purchases whose lines have no header",
     "select top 1000 P.GrnNo from Purchase P left join PurchaseTemp T on T.GrnNo=P.GrnNo"
     " where T.GrnNo is null group by P.GrnNo order by P.GrnNo"},
    {"purchases of a supplier that is missing in Supplier",
     "select top 1000 T.GrnNo,T.Scode from PurchaseTemp T left join Supplier S on S.Scode=T.Scode"
     " where S.Scode is null order by T.GrnNo"},
    {"purchases with an unknown TaxType",
     "select top 1000 GrnNo,TaxType from PurchaseTemp where TaxType is null or TaxType not in"
     " ('SGST','IGST','TOT') order by GrnNo"},
    {"suppliers with an unknown TaxType",
     "select top 1000 Scode,TaxType from Supplier where TaxType is null or TaxType not in"
     " ('SGST','IGST','TOT') order by Scode"},
    {"business bills without lines",
     "select top 1000 T.BillNo from SalesTemp1 T left join Sales1 S on S.BillNo=T.BillNo"
     " where S.BillNo is null order by T.BillNo"},
    {"business bills whose lines have no header",
     "select top 1000 S.BillNo from Sales1 S left join SalesTemp1 T on T.BillNo=S.BillNo"
     " where T.BillNo is null group by S.BillNo order by S.BillNo"},
};

}  // namespace

std::span<const DataCheck> data_checks() {
  return checks;
}

}  // namespace tela
