-- The staging tables: a screen empties one and fills it by position, for a report layout or for a
-- further statement. They hold the rows of the last run and no data of their own. The order of the
-- columns is part of the contract; the layouts in reports/ name them.

-- Bill lists.
create table SalesPrint (
  FromDate date,
  ToDate date,
  CounterName varchar(100),
  BillNo numeric(18,0),
  BillDate date,
  NetAmount float,
  DiscAmount float,
  Total float,
  CashPaid float,
  CardPaid float,
  MealsPaid float,
  MobilePay float,
  PointsUsed float
)
GO

create table fDailyCashS (
  FromDate date,
  CounterName varchar(100),
  SNo int,
  BillNo numeric(18,0),
  BillDate date,
  BillTime time(0),
  NetAmount float,
  DiscAmount float,
  Total float,
  CashPaid float
)
GO

create table MonthCashSales (
  FromDate date,
  ToDate date,
  CounterName varchar(100),
  SNo int,
  BillNo numeric(18,0),
  BillDate date,
  BillTime time(0),
  NetAmount float,
  DiscAmount float,
  Total float,
  CashPaid float
)
GO

-- The limits are bill numbers or, from the list by value, amounts.
create table BilltoBillRep (
  FromLimit float,
  ToLimit float,
  BillNo numeric(18,0),
  BillDate date,
  NetAmount float,
  DiscAmount float,
  Total float,
  CashPaid float,
  CardPaid float,
  MealsPaid float,
  MobilePay float,
  PointsUsed float
)
GO

-- Sales by item.
create table ItemsSales (
  iCode numeric(18,0),
  iName varchar(100),
  mrp float,
  SaleRate float,
  Qty float,
  Amount float,
  FromDate date,
  ToDate date,
  CounterName varchar(100)
)
GO

create table SalesCatagory (
  FromDate date,
  ToDate date,
  iCode numeric(18,0),
  iName varchar(100),
  mrp float,
  SaleRate float,
  Qty float,
  Amount float,
  Catagory varchar(100)
)
GO

create table fSaleReturn (
  FromDate date,
  ToDate date,
  CounterName varchar(100),
  SNo int,
  iCode numeric(18,0),
  iName varchar(100),
  mrp float,
  SaleRate float,
  Qty float,
  Amount float,
  BillNo numeric(18,0),
  BillDate date
)
GO

-- Profit. SaleRate and PurRate of BillWiseProfit hold values of the line, not rates.
create table BillWiseProfit (
  BillNo numeric(18,0),
  BillDate date,
  iCode numeric(18,0),
  SaleRate float,
  PurRate float,
  Profit float,
  ProfitPercent float
)
GO

create table MonthlyProfit (
  FromDate date,
  ToDate date,
  SNo int,
  iCode numeric(18,0),
  iName varchar(100),
  mrp float,
  SaleRate float,
  PurRate float,
  Qty float,
  SaleAmount float,
  PurAmount float,
  Profit float
)
GO

create table ProfitPercent (
  iCode numeric(18,0),
  iName varchar(100),
  Mrp float,
  SaleRate float,
  PurRate float,
  Qty float,
  SaleTotal float,
  PurTotal float,
  ProfitTotal float,
  ProfitPer float
)
GO

create table SaleProfit (
  FromDate date,
  ToDate date,
  SaleValue float,
  PurchaseValue float,
  TotalDiscount float,
  TotalExpenses float,
  Profit float,
  TotalSales float,
  TotalPurchase float,
  StockValue float
)
GO

-- Stock. The columns in Bdt count before the period.
create table StkAsOnDate (
  iCode numeric(18,0),
  iName varchar(60),
  OpStock float,
  SaleQtyBdt float,
  PurQtyBdt float,
  AdjQtyBdt float,
  SaleQty float,
  PurQty float,
  AdjQty float,
  ClStock float
)
GO

create table StockRepPrint (
  FromDate date,
  ToDate date,
  SNo int,
  iCode numeric(18,0),
  iName varchar(100),
  OpStock float,
  SaleQty float,
  PurQty float,
  AdjQty float,
  ClStock float
)
GO

create table OptimumStockTemp (
  iCode numeric(18,0),
  iName varchar(60),
  OpStock float
)
GO

create table StockAdjRep (
  FromDate date,
  ToDate date,
  SNo int,
  iCode numeric(18,0),
  iName varchar(100),
  OpStock float,
  AdjustQty float,
  ClStock float,
  AdjustDate date
)
GO

-- Purchases. GrnPrint has exactly the columns of Purchase: it is filled by "select *".
create table GrnPrint (
  GrnNo numeric(18,0),
  BillNo varchar(30),
  BillDate date,
  sname varchar(100),
  iCode numeric(18,0),
  iName varchar(60),
  Qty float,
  FQty float,
  mrp float,
  PurRate float,
  DiscPer float,
  DiscAmt float,
  Amount float,
  iCGst float,
  iCGstAmt float,
  iSGst float,
  iSGstAmt float,
  iIGst float,
  iIGstAmt float,
  Total float,
  MarginPer float,
  iHSNcode varchar(20),
  TaxType varchar(20)
)
GO

create table TempPurchase (
  SNo int,
  iCode numeric(18,0),
  IName varchar(100),
  Qty float,
  Fqty float,
  mrp float,
  PurchaseRate float,
  DiscPer float,
  DiscAmt float,
  Amount float,
  TaxPer float,
  TaxAmt float,
  Total float
)
GO

create table SupPurRep (
  FromDate date,
  ToDate date,
  SNo int,
  GrnNo numeric(18,0),
  BillNo varchar(30),
  BillDate date,
  Sname varchar(100),
  GrossAmount float,
  SplDiscount float,
  SplDiscAmt float,
  NetAmount float
)
GO

create table frmIWPurRep (
  FromDate date,
  ToDate date,
  iCode numeric(18,0),
  iName varchar(100),
  Qty float,
  FQty float,
  TotalQty float,
  PurRate float,
  Amount float
)
GO

create table fItemPurRep (
  FromDate date,
  ToDate date,
  SNo int,
  iCode numeric(18,0),
  iName varchar(100),
  Qty float,
  FQty float,
  TotalQty float,
  mrp float,
  PurRate float,
  PurValue float,
  DiscAmt float,
  Amount float,
  TaxAmt float,
  NetAmount float
)
GO

-- Taxes. iCgst and iSgst of DailyGstTable1 hold amounts; those of the others are percentages.
create table DailyGstTable (
  BillNo numeric(18,0),
  BillDate date,
  iCGst float,
  iSGst float,
  Amount float,
  BasicAmount float
)
GO

create table DailyGstTable1 (
  BillNo numeric(18,0),
  BillDate date,
  Amount float,
  BasicAmount float,
  iCgst float,
  iSgst float
)
GO

create table GstDateWisePrint (
  SNo int,
  StartBill numeric(18,0),
  EndBill numeric(18,0),
  BillDate date,
  Amount float,
  BasicAmount float,
  CGstAmount float,
  SGstAmount float
)
GO

create table SalesGst (
  BillNo numeric(18,0),
  BillDate date,
  Sales0 float,
  Sales5 float,
  Sales12 float,
  Sales18 float,
  Sales28 float
)
GO

create table HsnGstReport (
  iHSNcode varchar(20),
  Qty float,
  Amount float,
  Taxable float,
  iCGst float,
  iSGst float
)
GO

create table HSNSalesPrint (
  SNo int,
  iHSNcode varchar(20),
  Qty float,
  Amount float,
  Taxable float,
  IGstAmount float,
  CGstAmount float,
  SGstAmount float
)
GO

-- Graphs.
create table BarChartYear (
  MonthName varchar(20),
  MonthNumber int,
  YearNo int,
  NetAmount float
)
GO
