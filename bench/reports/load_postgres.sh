#!/bin/sh
# Makes a private PostgreSQL in a new folder, copies a catalogue's sales, purchases, adjustments and
# items into it with covering indexes, and prints the command that starts a psql on it. Run as root it
# works as the user postgres.
#
#   load_postgres.sh CATALOGUE.db FOLDER        FOLDER/stop ends it
set -eu
catalogue=$1
folder=$2
bin=$(ls -d /usr/lib/postgresql/*/bin | tail -1)
as() { if [ "$(id -u)" = 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi; }

mkdir -p "$folder"
if [ "$(id -u)" = 0 ]; then chown postgres "$folder"; fi
as "$bin/initdb" -D "$folder/data" --auth=trust --encoding=UTF8 --locale=C >/dev/null
as "$bin/pg_ctl" -D "$folder/data" -w -l "$folder/log" start \
  -o "-c listen_addresses='' -c unix_socket_directories='$folder' -c shared_buffers=1GB \
      -c work_mem=64MB -c maintenance_work_mem=512MB -c max_wal_size=4GB" >/dev/null
printf '#!/bin/sh\n"%s/pg_ctl" -D "%s/data" stop\n' "$bin" "$folder" >"$folder/stop"
chmod +x "$folder/stop"

psql="psql -h $folder -d postgres -AtqX"

# copy TABLE "COLUMN TYPE, ..." "SELECT of the catalogue's rows"
copy() {
  as $psql -c "CREATE TABLE $1 ($2)"
  sqlite3 -csv "$catalogue" "$3" | as $psql -c "COPY $1 FROM STDIN CSV"
}
# A stored day, yyyymmdd, as PostgreSQL reads it.
day() { echo "substr($1,1,4)||'-'||substr($1,5,2)||'-'||substr($1,7,2)"; }

copy sales "BillDate date, iCode bigint, iName varchar(60), mrp float, SaleRate float, Qty float" \
  "SELECT $(day BillDate), iCode, iName, mrp, SaleRate, Qty FROM Sales ORDER BY rowid"
copy purchase "BillDate date, iCode bigint, Qty float, FQty float" \
  "SELECT $(day BillDate), iCode, Qty, FQty FROM Purchase ORDER BY rowid"
copy stockadjust "AdjustDate date, iCode bigint, AdjustQty float" \
  "SELECT $(day AdjustDate), iCode, AdjustQty FROM StockAdjust ORDER BY rowid"
copy items "iCode bigint, iName varchar(60), OpStock float, CreatedDate date" \
  "SELECT iCode, iName, OpStock, $(day CreatedDate) FROM Items ORDER BY rowid"
as $psql -c "CREATE INDEX ON sales (BillDate) INCLUDE (iCode, iName, mrp, SaleRate, Qty)"
as $psql -c "CREATE INDEX ON sales (iCode, BillDate) INCLUDE (Qty)"
as $psql -c "CREATE INDEX ON purchase (iCode, BillDate) INCLUDE (Qty, FQty)"
as $psql -c "CREATE INDEX ON stockadjust (iCode, AdjustDate) INCLUDE (AdjustQty)"
as $psql -c "CREATE INDEX ON items (iCode) INCLUDE (iName, OpStock, CreatedDate)"
for table in sales purchase stockadjust items; do as $psql -c "VACUUM ANALYZE $table"; done
if [ "$(id -u)" = 0 ]; then echo "runuser -u postgres -- $psql"; else echo "$psql"; fi
