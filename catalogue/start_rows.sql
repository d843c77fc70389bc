-- The one row that each settings table holds from the start.
insert into tword values ('THANK YOU - VISIT AGAIN', 'GOODS ONCE SOLD ARE EXCHANGED WITHIN 7 DAYS', '')
GO
insert into CrPath values ('D:\Tela_Supermarket\Report')
GO
-- The receipt layout, written to the port "bill".
insert into PrinterSet values (1, 'THERMAL', 'bill', 'RECEIPT', 0, 4)
GO
-- A point for each 100 rupees, on sales at the till.
insert into PointsSet values (100, 1, 0, 0)
GO
insert into bill_no values (0)
GO
