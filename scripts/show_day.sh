#!/bin/sh
# Prints the daily sales report of the last day with bills, of one counter and of all, as a user of
# the screen would see it, and writes its printed form and pictures of the windows to out/.
#
# usage: scripts/show_day.sh FOLDER     FOLDER holds the built programs
set -eu
programs=$1
console=$programs/tela_console/tela_console
table=$programs/tela_table/tela_table
mkdir -p out

last_day=$(echo 'sql select max(BillDate) from SalesTemp' | "$console" |
  sed -n 's/.*"rows":\[\["\([0-9]*\)-\([0-9]*\)-\([0-9]*\)"\]\].*/\3\/\2\/\1/p')
if [ -z "$last_day" ]; then
  echo "The catalogue in $TELA_ROOT holds no bills." >&2
  exit 1
fi

"$console" <<SCRIPT | "$table" 'lTotalBills=TOTAL BILLS' 'lStart=START BILL' 'lEnd=END BILL' \
  'tTotalAmount=TOTAL AMOUNT' 'Text1=TOTAL CASH' 'Text2=TOTAL CARD' 'Text3=TOTAL PASS' \
  'tMobilePay=TOTAL MOBILE PAY' 'Text4=TOTAL POINTS'
open frmDailyS_R
set DTPicker1 $last_day
pick Combo1 COUNTER-1
key Combo1 enter
show
pick Combo1 ALL COUNTER
key Combo1 enter
show
SCRIPT
echo
echo "Daily sales of $last_day, of counter 1 and of all counters."

# The printed form needs the report engine, which a build without Qt lacks.
if "$console" >/dev/null <<SCRIPT; then
open frmDailyS_R
set DTPicker1 $last_day
pick Combo1 ALL COUNTER
key Combo1 enter
answer ok
press cmdprint
pdf out/daily_sales.pdf
SCRIPT
  echo "Its printed form is out/daily_sales.pdf."
fi

# The same screens as windows.
reports=$programs/tela_reports/tela_reports
if [ -x "$reports" ] && QT_QPA_PLATFORM=offscreen "$reports" --pictures out 2>out/pictures.log; then
  echo "Pictures of the windows are in out/."
fi
