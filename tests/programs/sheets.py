#!/usr/bin/env python3
"""Results in every form, read by readers that are not ours and compared number by number with the .txt.

    sheets.py QOR_MEASURE FOLDER

One short measurement of each method and unit on the built-in simulated instrument. The .xls is read where
python3-xlrd is installed; .xlsx and .csv need the standard library alone.
"""
import csv
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ET
import zipfile

try:
    import xlrd
except ImportError:
    xlrd = None

MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
RUNS = {
    "two_tone_dbm": ["--method", "2tone", "--seconds", "1", "--band", "EGSM", "--unit", "dbm"],
    "two_tone_dbc": ["--method", "2tone", "--seconds", "1", "--band", "EGSM", "--unit", "dbc"],
    "sweep_dbm": ["--method", "sweep", "--band", "EGSM", "--unit", "dbm"],
    "sweep_dbc": ["--method", "sweep", "--band", "EGSM", "--unit", "dbc", "--runs", "2"],
}


def text_points(path):
    """x and level of each row, in the order of the file."""
    lines = path.read_text().splitlines()
    rows = [re.fullmatch(r"(\d+\.\d+);(-?\d+\.\d+)", line) for line in lines[6:]]
    return [(float(m[1]), float(m[2])) for m in rows if m], "dBc" if "UNIT dBc" in lines[2] else "dBm"


def xlsx_points(path):
    book = zipfile.ZipFile(path)
    texts = ["".join(t.itertext()) for t in ET.fromstring(book.read("xl/sharedStrings.xml"))]
    sheet = ET.fromstring(book.read("xl/worksheets/sheet1.xml"))
    assert any(view.find(MAIN + "pane") is not None for view in sheet.iter(MAIN + "sheetView")), "no frozen head"
    assert "xl/charts/chart1.xml" in book.namelist(), "no chart"
    rows = []
    for row in sheet.iter(MAIN + "row"):
        cells = {}
        for cell in row:
            value = cell.find(MAIN + "v").text
            cells[cell.get("r")[0]] = texts[int(value)] if cell.get("t") == "s" else float(value)
        rows.append(cells)
    timed = rows[0]["C"] == "Time, s"
    last = rows[-1]["A"]
    points = [(row["C" if timed else "F"], row["G"]) for row in rows[1:] if row["A"] == last and "G" in row]
    return points, rows[0]["G"][-3:], int(last)


def csv_points(path):
    with path.open(newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file, strict=True))
    last = rows[-1]["run"]
    points = [(float(row["time_s"] or row["im_mhz"]), float(row["level"]))
              for row in rows if row["run"] == last and row["level"]]
    return points, rows[-1]["unit"], int(last)


def xls_points(path):
    sheet = xlrd.open_workbook(path).sheet_by_name("QOR_Test")
    head = sheet.row_values(0)
    rows = [sheet.row_values(i) for i in range(2, sheet.nrows)]
    first = [(float(r[0]), float(r[1])) for r in rows if r[0].strip()]
    if "SWEEP" in head:
        first.reverse()
        first += [(float(r[2]), float(r[3])) for r in rows if r[2].strip()]
    return [p for p in first if p[1] != 0], "dBc" if "dBc" in head[3] else "dBm"


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    for name, arguments in RUNS.items():
        where = folder / name
        where.mkdir(parents=True, exist_ok=True)
        files = {form: where / f"run.{form}" for form in ("txt", "dat", "xls", "xlsx", "csv")}
        call = [program, "--simulate", "RT-DB22:6.2", "--data-dir", str(where / "stores"), "--limit", "-50"]
        for file in files.values():
            call += ["--out", str(file)]
        done = subprocess.run(call + arguments, capture_output=True, text=True, timeout=120)
        assert done.returncode == 0, done.stderr + done.stdout
        points, unit = text_points(files["txt"])
        points = [p for p in points if p[1] != 0]
        assert len(points) > 5, points
        runs = 2 if "--runs" in arguments else 1
        numbers = [xlsx_points(files["xlsx"]), csv_points(files["csv"])]
        if xlrd:
            numbers.append((*xls_points(files["xls"]), 1))
        for other, other_unit, other_runs in numbers:
            assert other_unit == unit, (other_unit, unit)
            assert other_runs in (1, runs), other_runs
            assert len(other) == len(points), (len(other), len(points))
            for (x, level), (x2, level2) in zip(points, other):
                assert abs(x - x2) < 0.0501 and abs(level - level2) < 0.00501, (name, x, level, x2, level2)
        print(f"{name}: {len(points)} points, the same in {len(numbers)} other readers")


main()
