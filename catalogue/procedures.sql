-- The stored procedures of the catalogue.

-- What was sold from one day to another, both included, with its profit: a row is one item at one
-- price. The percentage is on the purchase value, as in the other profit reports: goods without a
-- cost earn 100, and what came back on balance counts with the sign turned.
create procedure spGetProfitNew @FromDate date, @ToDate date as
select iCode, iName, Mrp, SaleRate, PurRate,
  sum(Qty) as Qty,
  sum(Qty * SaleRate) as SaleTotal,
  sum(Qty * PurRate) as PurTotal,
  sum(Qty * SaleRate) - sum(Qty * PurRate) as ProfitTotal,
  (case
    when PurRate = 0 and sum(Qty) < 0 then -100
    when PurRate = 0 then 100
    when sum(Qty) < 0 then (SaleRate - PurRate) * 100 / PurRate * -1
    else (SaleRate - PurRate) * 100 / PurRate
  end) as ProfitPer
from Sales
where BillDate >= @FromDate and BillDate <= @ToDate
group by iCode, iName, Mrp, SaleRate, PurRate
GO
