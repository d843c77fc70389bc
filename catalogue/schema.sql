-- The retail tables of the catalogue, which the tills and this program share.
-- Types in one place: codes are numeric(18,0), days date, times of day time(0), money, rates,
-- quantities, points and percentages float. Text may carry trailing blanks. No column is required:
-- the tills decide what a row holds, and reports read a null as it stands.

-- Bills: one header a bill, one line an item. A return is a line with a negative Qty.
create table SalesTemp (
  BillNo numeric(18,0),
  BillDate date,
  BillTime time(0),
  openingtime time(0),
  Counter int,
  Staff varchar(60),
  CustCode varchar(30),
  CustName varchar(100),
  OpPoints float,
  BillPoints float,
  ClPoints float,
  NetAmount float,
  DiscAmount float,
  Total float,
  CashPaid float,
  CardPaid float,
  MealsPaid float,
  MobilePay float,
  MobilePayType varchar(40),
  PointsUsed float,
  cashret float,
  uhsaved float,
  BillType varchar(30)
)
GO

create table Sales (
  BillNo numeric(18,0),
  BillDate date,
  Counter int,
  iCode numeric(18,0),
  iName varchar(60),
  mrp float,
  SaleRate float,
  PurRate float,
  Qty float,
  Amount float,
  iCGst float,
  iSGst float,
  iIGst float,
  iHSNcode varchar(20),
  CessPercent float
)
GO

-- Wholesale bills. NetAmount of the bill is repeated on each of its lines.
create table wsalestemp (
  BillNo numeric(18,0),
  BillDate date,
  NetAmount float,
  CashPaid float,
  CardPaid float,
  MealsPaid float,
  cashret float,
  uhsaved float
)
GO

create table wsales (
  BillNo numeric(18,0),
  BillDate date,
  iCode numeric(18,0),
  mrp float,
  SaleRate float,
  Qty float,
  Amount float,
  NetAmount float
)
GO

-- Bills to registered businesses. Amount of a line is its value before tax.
create table SalesTemp1 (
  BillNo numeric(18,0),
  BillDate date,
  NetAmount float,
  GstNo varchar(20),
  Cname varchar(100)
)
GO

create table Sales1 (
  BillNo numeric(18,0),
  BillDate date,
  iHSNcode varchar(20),
  Qty float,
  Amount float,
  iIGst float,
  iCGstAmt float,
  iSGstAmt float,
  iIGstAmt float,
  TaxType varchar(20)
)
GO

-- The tills' return notes and running stock.
create table salesreturn (
  ReturnNo numeric(18,0),
  ReturnDate date,
  BillNo numeric(18,0),
  iCode numeric(18,0),
  SaleRate float,
  Qty float,
  Amount float
)
GO

create table salesreturntemp (
  ReturnNo numeric(18,0),
  ReturnDate date,
  Counter int,
  NetAmount float
)
GO

create table stockledger (
  iCode numeric(18,0),
  TransDate date,
  Qty float,
  Remarks varchar(60)
)
GO

-- The number of the last bill.
create table bill_no (
  billno numeric(18,0)
)
GO

-- One row for each line whose rate was changed at the till: SaleRate is the changed rate,
-- SaleRateA the item's own.
create table BillRateChanged (
  BillNo numeric(18,0),
  BillDate date,
  Counter int,
  Staff varchar(60),
  iCode numeric(18,0),
  iName varchar(60),
  Mrp float,
  SaleRate float,
  SaleRateA float
)
GO

-- Items and stock.
create table Items (
  iCode numeric(18,0),
  iName varchar(60),
  iLongName varchar(100),
  mrp float,
  SaleRate float,
  PurRate float,
  OpStock float,
  ministock float,
  Stock float,
  Catagory varchar(60),
  Supplier varchar(100),
  iHSNcode varchar(20),
  iIGst float,
  CreatedDate date
)
GO

create table OptimumStock (
  iCode numeric(18,0),
  iName varchar(60),
  OpStock float
)
GO

create table StockAdjust (
  iCode numeric(18,0),
  iName varchar(60),
  OpStock float,
  AdjustQty float,
  ClStock float,
  AdjustDate date
)
GO

create table ProductEdit (
  iCode numeric(18,0),
  iLongName varchar(100),
  barcode varchar(30),
  mrp float,
  OldRate float,
  SaleRate float,
  ModifiedDate date,
  ModifiedTime time(0)
)
GO

-- Suppliers and purchases. InternalNo is the voucher that links a purchase to its Journal entries.
create table Supplier (
  Scode numeric(18,0),
  Sname varchar(100),
  GLCode numeric(18,0),
  mobile varchar(20),
  TaxType varchar(20),
  CreditDays int,
  GstNo varchar(20)
)
GO

create table PurchaseTemp (
  InternalNo numeric(18,0),
  GrnNo numeric(18,0),
  BillNo varchar(30),
  BillDate date,
  Scode numeric(18,0),
  Sname varchar(100),
  GstNo varchar(20),
  TaxType varchar(20),
  TotalQty float,
  TotalValue float,
  TotalDiscount float,
  AfterDiscount float,
  TotalCGST float,
  TotalSGST float,
  TotalIGST float,
  GrossAmount float,
  SplDiscount float,
  SplDiscAmt float,
  NetAmount float,
  CessAmount float
)
GO

create table Purchase (
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

create table SupplierCashPay (
  GrnNo numeric(18,0),
  InternalNo numeric(18,0)
)
GO

-- Ledgers. LedgerType 10 of Journal is an expense; TransType 2 of Cust_Trans is a credit
-- customer's payment, stored negative.
create table Journal (
  InternalNo numeric(18,0),
  TransDate date,
  TransAmount float,
  LedgerType int
)
GO

create table Cust_Trans (
  TransDate date,
  TransType int,
  Amount float
)
GO

-- Settings. Each of these tables but GiftPoints holds one row.
create table PointsSet (
  PointAmt float,
  CashPoint smallint,
  CreditPoint smallint,
  HomePoint smallint
)
GO

create table GiftPoints (
  GiftCode numeric(18,0),
  GiftName varchar(100),
  NoOfPoints float
)
GO

create table tword (
  tword1 varchar(100),
  tword2 varchar(100),
  tword3 varchar(100)
)
GO

create table CrPath (
  CrReportPath varchar(255)
)
GO

create table PrinterSet (
  PrintNo smallint,
  PrinterType varchar(60),
  PortNo varchar(255),
  PrinterName varchar(100),
  PrintTop smallint,
  PrintEnd smallint
)
GO
