#!/usr/bin/env bash
# Bills from spreadsheets as a user meets them, driven through the real program under Xvfb with a window
# manager, the keyboard and the clipboard (xdotool, xclip), each step's screen kept in
# docs/screens/sheets-*.png:
#   1. ten rows of a sheet on the clipboard, as a spreadsheet program puts them, pasted into the purchases
#      of March and added;
#   2. a workbook written by openpyxl (a title row, Indian grouping, date serials, a TOTAL line) imported
#      into the sales through its preview, and added;
#   3. the program started again: both read back; the month exported and read by openpyxl.
# Not run by CTest: it takes a minute and a display of its own. Usage: tests/practice/bill_sheets_practice.sh [build]
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build}
name=sheets
source tests/practice/session.sh
# From the main window to the return window on the book open: the state, the forms page, Go, Enter.
to_return() {
  typed Kerala; keys Return; wait_for "^Kerala$"
  local id; id=$(xdotool search --onlyvisible --name "^Kerala$" | tail -1)
  xdotool mousemove --window "$id" 452 26 click 1   # the toolbar's Forms
  wait_for "THE KERALA VALUE ADDED TAX FORMS"; keys Down alt+g; wait_for "SELECT YOUR OPTION"
  keys Return; wait_for "Form No. 52"
}
# March from the month list; a month with nothing stored says so twice.
march() { keys shift+Tab shift+Tab Return Home Down Down Return; sleep 0.5; keys Return Return; }
file_dialog() {   # the path typed into Qt's file dialog
  sleep 1; keys ctrl+a; typed "$1"; keys Return; sleep 1
}

say "1. ten rows pasted into the purchases of March"
start
# A dealer and the book of this financial year, made in the register and opened.
typed Kerala; keys Return; wait_for "^Kerala$"
id=$(xdotool search --onlyvisible --name "^Kerala$" | tail -1)
xdotool mousemove --window "$id" 452 26 click 1
wait_for "THE KERALA VALUE ADDED TAX FORMS"; keys Down alt+g; wait_for "SELECT YOUR OPTION"
keys alt+y; wait_for "Dealers and years"
keys alt+a; wait_for "New dealer"
typed "Malabar Agencies"; keys Tab; typed 32071234567; keys Tab; typed CST-7781; keys Tab
typed "12 Market Road, Ernakulam"; keys Tab; typed Kochi; keys Return; sleep 1
wait_for "Dealers and years"; keys ctrl+a; typed malabar; keys alt+n
wait_for "SELECT YOUR OPTION"; keys Return; wait_for "Form No. 52"
march
# March of the book open now, the financial year of today: its calendar year, and the rows of a sheet
# as a spreadsheet program copies them (tab-separated, CR LF), dates and amounts written every which way.
march_year=$(date +%Y); [ "$(date +%m)" -ge 4 ] && march_year=$((march_year + 1))
/usr/bin/python3 - "$march_year" > "$work/rows.tsv" <<'PY'
import sys, datetime
y = int(sys.argv[1]); yy = y % 100
serial = (datetime.date(y, 3, 5) - datetime.date(1899, 12, 30)).days
rows = [
    f"01-03-{yy:02d}\tMalabar Agencies\t32070123456\t1021\t4\t25,000.00\t1,000.00\t10",
    f"02-03-{yy:02d}\tCochin Traders\t32080765432\tB-77\t12.50%\t8,000\t1000\t10",
    f"3 Mar {y}\tKollam Stores\t32090111222\t553\t0\t1200\t0\t",
    f"{y}-03-04\tThrissur Bakers\t32050999888\tS-12\t4\t15,000.00\t600\t",
    f"{serial}\tPalakkad Steels\t32040111333\tP-5\t12.5 %\t1,25,000.00\t15,625.00\t125",
    f"06/03/{y}\tO'Brien & Sons\t32010222444\tO-1\t20\t2000\t400\t",
    f"07-03-{yy:02d}\tKannur Weavers\t32030333555\tK-9\t1\t10000\t100\t",
    f"08-03-{yy:02d}\tKottayam Rubber\t32060444666\tR-2\t4\t7,500.50\t300.02\t",
    f"09-03-{yy:02d}\tAlappuzha Coir\t32020555777\tC-3\t12.5\t4000\t500\t5",
    f"10-03-{yy:02d}\tIdukki Spices\t32090666888\tI-4\t0\t900\t0\t"]
sys.stdout.write("".join(r + "\r\n" for r in rows))
PY
xclip -selection clipboard -i "$work/rows.tsv"
keys ctrl+v
shot pasted "Form No. 52"
keys alt+a; sleep 1.5; keys Return

say "2. a workbook imported into the sales"
/usr/bin/python3 - "$HOME/sales.xlsx" "$march_year" <<'PY'
import sys, datetime, openpyxl
y = int(sys.argv[2])
wb = openpyxl.Workbook(); ws = wb.active
ws.append([f"Sales register, March {y}"]); ws.merge_cells("A1:H1")
ws.append(["Sl No", "Invoice Date", "Customer", "GSTIN", "Invoice No", "Tax Rate", "Taxable Value", "Output Tax"])
ws.append([1, (datetime.date(y, 3, 17) - datetime.date(1899, 12, 30)).days, "Madras Metals", "33010555444", "S-13", "CST", "4,000.00", 160])
ws.append([2, datetime.date(y, 3, 18), "Ernakulam Traders", "32070999000", "S-14", 4, "1,25,000", 5000])
ws.append([3, f"19-03-{y % 100:02d}", "Vypin Fisheries", "32070888111", "S-15", "0%", 12000, 0])
ws.append(["TOTAL", None, None, None, None, None, 141000, 5160])
wb.save(sys.argv[1])
PY
keys ctrl+i
file_dialog "$HOME/sales.xlsx"
wait_for "Import bills from sales.xlsx"
keys alt+i Down; sleep 0.5                 # Into: the sales
shot import-preview "Import bills from sales.xlsx"
keys alt+f; sleep 0.5
shot imported "Form No. 52"
keys alt+a; sleep 1.5; keys Return
stop

say "3. read back after a restart, and the month exported"
start
to_return
march
shot read-back "Form No. 52"
keys alt+s e
file_dialog "$HOME/march.xlsx"
keys Return
/usr/bin/python3 - "$HOME/march.xlsx" <<'PY'
import sys, openpyxl
wb = openpyxl.load_workbook(sys.argv[1])
for ws in wb.worksheets:
    print("--", ws.title)
    for row in ws.iter_rows(values_only=True):
        print(" | ".join("" if v is None else str(v) for v in row))
PY
stop
say "done: docs/screens/sheets-*.png"
