#!/bin/sh
# Makes a private PostgreSQL in a new folder, copies the sale lines of a catalogue into it, and prints
# the command that starts a psql on it. Run as root it works as the user postgres.
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
as $psql -c "CREATE TABLE sales (BillDate date, iCode bigint, iName varchar(60),
  mrp float, SaleRate float, Qty float)"
sqlite3 -csv "$catalogue" \
  "SELECT substr(BillDate,1,4)||'-'||substr(BillDate,5,2)||'-'||substr(BillDate,7,2),
     iCode, iName, mrp, SaleRate, Qty FROM Sales ORDER BY rowid" |
  as $psql -c "COPY sales FROM STDIN CSV"
as $psql -c "CREATE INDEX sales_items ON sales (BillDate) INCLUDE (iCode, iName, mrp, SaleRate, Qty)"
as $psql -c "VACUUM ANALYZE sales"
if [ "$(id -u)" = 0 ]; then echo "runuser -u postgres -- $psql"; else echo "$psql"; fi
