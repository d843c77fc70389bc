-- The indexes serve the reports and are few, since the tills insert all day. Bills are added in the
-- order of their dates, so an index on the date alone leads to rows that lie side by side.
create index SalesTemp_BillDate on SalesTemp (BillDate)
GO
create index SalesTemp_BillNo on SalesTemp (BillNo)
GO
create index SalesTemp_Staff on SalesTemp (Staff, BillDate)
GO

-- Sales_BillDate holds all that the reports over a period read of a line, and Sales_iCode all that
-- the stock report does. The bill's number comes second, so that a till adds at the index's end.
create index Sales_BillDate on Sales
  (BillDate, BillNo, iCode, iName, mrp, SaleRate, Qty, PurRate, Counter)
GO
create index Sales_BillNo on Sales (BillNo)
GO
create index Sales_iCode on Sales (iCode, BillDate, Qty)
GO

create index wsalestemp_BillNo on wsalestemp (BillNo)
GO
create index wsales_BillNo on wsales (BillNo, iCode)
GO
create index wsales_BillDate on wsales (BillDate)
GO

create index SalesTemp1_BillDate on SalesTemp1 (BillDate)
GO
create index SalesTemp1_BillNo on SalesTemp1 (BillNo)
GO
create index Sales1_BillDate on Sales1 (BillDate)
GO
create index Sales1_BillNo on Sales1 (BillNo)
GO

create index BillRateChanged_BillDate on BillRateChanged (BillDate)
GO

create index Items_iCode on Items (iCode)
GO
create index OptimumStock_iCode on OptimumStock (iCode)
GO
create index StockAdjust_AdjustDate on StockAdjust (AdjustDate)
GO
create index StockAdjust_iCode on StockAdjust (iCode, AdjustDate, AdjustQty)
GO
create index ProductEdit_ModifiedDate on ProductEdit (ModifiedDate)
GO

create index Supplier_Scode on Supplier (Scode)
GO
create index PurchaseTemp_BillDate on PurchaseTemp (BillDate)
GO
create index PurchaseTemp_GrnNo on PurchaseTemp (GrnNo)
GO
create index Purchase_BillDate on Purchase (BillDate)
GO
create index Purchase_GrnNo on Purchase (GrnNo)
GO
create index Purchase_iCode on Purchase (iCode, BillDate, Qty, FQty)
GO
create index SupplierCashPay_GrnNo on SupplierCashPay (GrnNo)
GO

create index Journal_InternalNo on Journal (InternalNo)
GO
create index Journal_TransDate on Journal (TransDate)
GO
create index Cust_Trans_TransDate on Cust_Trans (TransDate)
GO

create unique index GiftPoints_GiftCode on GiftPoints (GiftCode)
GO
