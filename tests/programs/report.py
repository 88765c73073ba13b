#!/usr/bin/env python3
"""qor-report over a folder of simulated runs: every form, the statistics, and what goes wrong, looked at with other
programs and compared with the .txt of the same runs.

    report.py QOR_REPORT QOR_MEASURE FOLDER

PDFs are opened where poppler's tools and qpdf are installed.
"""
import csv
import json
import pathlib
import re
import shutil
import statistics
import subprocess
import sys

RUNS = 5
LIMIT = -101.0


def call(*words, status=0):
    done = subprocess.run([str(w) for w in words], capture_output=True, text=True, timeout=120)
    assert done.returncode == status, (words, done.returncode, done.stderr)
    return done


def close(a, b, room=0.0051):
    assert abs(float(a) - b) <= room, (a, b)


def measure(program, folder):
    for number in range(RUNS):
        method = ["2tone", "--seconds", "1"] if number < 3 else ["sweep"]
        call(program, "--simulate", "RT-DB22:6.2", "--band", "EGSM", "--limit", "-50", "--data-dir",
             folder / "stores", "--dut", f"dev {number}", "--comment", "of the line", "--method", *method,
             "--out", folder / f"r{number}.dat", "--out", folder / f"r{number}.txt")


def levels(path):
    rows = [re.fullmatch(r"(\d+\.\d+);(-?\d+\.\d+)", line) for line in path.read_text().splitlines()[6:]]
    return [float(row[2]) for row in rows if row and float(row[2]) != 0]


def check_page(pdf, number, worst):
    if not shutil.which("pdftotext") or not shutil.which("qpdf"):
        return
    call("qpdf", "--check", pdf)
    text = " ".join(call("pdftotext", pdf, "-").stdout.split())
    for said in ("PIM Test Results", f"dev {number}", "of the line", "EGSM 900/RT-DB22/SIM01", f"{worst:.1f}dBm"):
        assert said in text, (said, text)
    pictures = call("pdfimages", "-list", pdf).stdout.splitlines()[2:]
    assert len(pictures) == 1 and pictures[0].split()[3:5] == ["956", "1212"], pictures


def check_statistics(out, worst):
    rows = list(csv.DictReader((out / "all.csv").open(newline=""), strict=True))
    runs = {row["file"]: row for row in rows if row["row"] == "run"}
    assert sorted(runs) == [f"r{n}.dat" for n in range(RUNS)], runs.keys()
    for number in range(RUNS):
        row = runs[f"r{number}.dat"]
        assert row["device"] == f"dev {number}"
        close(row["worst_dbm"], worst[number])
        close(row["margin_db"], LIMIT - worst[number])
        assert row["verdict"] == ("failed" if worst[number] > LIMIT + 0.01 else "passed"), row
    for row, group in zip([r for r in rows if r["row"] == "series"], (worst[:3], worst[3:])):
        close(row["mean_dbm"], statistics.mean(group), 0.002)
        close(row["deviation_db"], statistics.stdev(group), 0.002)
        assert int(row["count"]) == len(group)
        if row["cpk"]:
            close(row["cpk"], (LIMIT - statistics.mean(group)) / (3 * statistics.stdev(group)), 0.02)
    series = json.loads((out / "all.json").read_text())["series"]
    assert [kind["method"] for kind in series] == ["2tone", "sweep"]
    assert sum(series[0]["histogram"]["counts"]) == 3
    assert all(place["low"] <= place["median"] <= place["high"] for kind in series for place in kind["curves"])
    assert max(place["high"] for place in series[1]["curves"]) == max(worst[3:])
    if shutil.which("pdftotext"):
        text = call("pdftotext", "-layout", out / "all.pdf", "-").stdout
        assert "Statistics of the series" in text and "EGSM 900, IM3, Sweep Mode" in text, text
        assert all(f"dev {number}" in text for number in range(RUNS))


def main():
    report, qor_measure, folder = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    measure(qor_measure, folder)
    inputs = {path: path.read_bytes() for path in folder.glob("r*")}
    worst = [max(levels(folder / f"r{number}.txt")) for number in range(RUNS)]
    out = folder / "out"
    summaries = [word for form in ("csv", "json", "pdf") for word in ("--summary", out / f"all.{form}")]
    done = call(report, folder, "--to", "pdf", "--to", "csv", "--to", "jpg", "--out-dir", out, "--limit", LIMIT, "--jobs", 2,
                "--report-language", "en", "--json", *summaries)
    answer = json.loads(done.stdout)
    assert answer["files"] == 2 * RUNS and not answer["problems"], answer
    assert len(answer["written"]) == 3 * 2 * RUNS + 3 and all(pathlib.Path(f).exists() for f in answer["written"])
    for number in range(RUNS):
        check_page(out / f"r{number}.dat.pdf", number, worst[number])  # collides with that of the .txt
    check_statistics(out, worst)

    # One bad file is named, the rest goes on; nothing that was read is overwritten.
    (folder / "bad.dat").write_bytes(b"\x12no result")
    done = call(report, folder, "--to", "txt", "--out-dir", folder, status=1)
    assert "bad.dat" in done.stderr and (folder / "r4.dat.txt").exists(), done.stderr
    assert all(path.read_bytes() == before for path, before in inputs.items())
    call(report, folder / "r0.dat", "--to", "csv", "--out-dir", folder / "bad.dat", status=5)
    for wrong in (["--to", "doc"], ["--to", "pdf", "--jobs", "0"], [], ["--summary", "x.xls"], ["--to", "csv", "--limit", "9"],
                  ["--to", "csv", "--data-dir", folder / "nowhere"], ["--to", "pdf", "--logo", folder / "bad.dat"]):
        call(report, folder / "r0.dat", *wrong, status=4)
    call(report, "--to", "pdf", status=4)
    call(report, folder / "r0.dat", "--to", "csv")
    r0 = (folder / "r0.csv").read_bytes()
    for words in ([folder / "r1.dat", "--to", "csv"], [folder / "r0.csv"], [folder]):  # no summary goes over a result
        call(report, *words, "--summary", folder / ("r1.csv" if len(words) > 1 else "r0.csv"), status=4)
    assert (folder / "r0.csv").read_bytes() == r0 and not (folder / "r1.csv").exists()
    stores = sorted(path.name for path in (folder / "stores").iterdir())
    call(report, folder / "r0.dat", "--to", "pdf", "--data-dir", folder / "stores")
    assert stores == sorted(path.name for path in (folder / "stores").iterdir())
    print(f"{RUNS} runs in {len(answer['written'])} files, worst {worst}")


main()
