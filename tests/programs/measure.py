#!/usr/bin/env python3
"""What qor-measure answers when nothing may be taken for passed: measure.py QOR_MEASURE QOR_SIM"""
import json
import pathlib
import subprocess
import sys
import tempfile

MEASURE, SIM = sys.argv[1:3]


def require(truth, words):
    if not truth:
        sys.exit(words)


def measure(folder, *options, source=("--simulate", "RT-DB22:6.2")):
    """Status, answer, what stands on standard error, and the commands on the wire."""
    wire = folder / "wire"
    wire.unlink(missing_ok=True)
    call = subprocess.run([MEASURE, *source, "--data-dir", folder / "data", "--wire", wire, "--json", *options],
                          capture_output=True, text=True, timeout=120)
    sent = [line.split(" > ", 1)[1] for line in wire.read_text().splitlines() if " > " in line] if wire.exists() else []
    return call.returncode, json.loads(call.stdout), call.stderr, [text for text in sent if text != "\\r"]


def stores(folder, **texts):
    (folder / "data").mkdir(exist_ok=True)
    for name, text in texts.items():
        (folder / "data" / f"{name}.ccz").write_text(text)


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)

    # The window's alarm is off: the call judges all the same.
    stores(folder, tagWarningOn="1", tagWarningStampOn="1")
    status, answer, _, _ = measure(folder, "--band", "EGSM", "--seconds", "1", "--limit=-150")
    require((status, answer["verdict"]) == (1, "failed"), f"alarm off: {status} {answer}")

    # Stores that are no record count as none, and are named once.
    stores(folder, egsm_pow_setup="00200", egsm_im3_setup="rubbish", pathloss2="9999", AlarmUp="xyz")
    status, answer, told, sent = measure(folder, "--band", "EGSM", "--seconds", "1", "--out", folder / "run.txt")
    require((status, answer["limit_dbm"]) == (0, -90), f"damaged stores: {status} {answer}")
    require("#SPWA00430" in sent and "#SPWB00430" in sent and "#SFA09350" in sent, f"damaged stores: {sent}")
    for store in ("egsm_pow_setup", "egsm_im3_setup", "pathloss2", "AlarmUp"):
        require(told.count(f"{store}.ccz: damaged, counts as none.") == 1, f"{store} is not named once: {told}")
    require("POWER +43.0 dBm" in (folder / "run.txt").read_text(), "its file states another power")

    # Spectrum measures IM3, and not every band has IM11: refused with the reason, before anything is sent.
    simulated = ("--simulate", "RT-C010:6.2")
    for options, words in ((("--band", "EGSM", "--method", "spectrum", "--order", "IM5"), "IM3, not IM5"),
                           (("--band", "TETRA 390", "--order", "IM11"), "TETRA 390 has no IM11"),
                           (("--band", "WiMax"), "WiMax is not carried by RT-C010")):
        status, answer, _, sent = measure(folder, *options, source=simulated)
        require(status == 4 and words in answer["message"] and answer["verdict"] == "none", f"{options}: {status} {answer}")
        require("#M2T1" not in sent and "#MSWL1" not in sent, f"{options}: {sent}")
    status, answer, _, _ = measure(folder, "--band", "EGSM", "--order", "IM11", "--seconds", "1", source=simulated)
    require((status, answer["order"]) == (0, "IM11"), f"IM11: {status} {answer}")

    # Readings that are spoilt, and a line that dies: no verdict is 3, with its reason and no file.
    for fault, files in (("garble:60", 1), ("silence:70", 0), ("unplug:70", 0)):
        link = folder / "analyser"
        with subprocess.Popen([SIM, "--link", link, "--fault", fault], stdout=subprocess.PIPE) as sim:
            sim.stdout.readline()
            status, answer, _, _ = measure(folder, "--band", "EGSM", "--method", "sweep", "--timeout", "60", "--out",
                                           folder / "none.dat", source=("--port", link))
            sim.terminate()
        require(status == 3 and answer["verdict"] == "none" and answer["message"], f"{fault}: {status} {answer}")
        require(("carriers may be on" in answer["message"]) == (fault != "garble:60"), f"{fault}: {answer}")
        require(len(answer["files"]) <= files and answer["points"] < answer["points_asked"], f"{fault}: {answer}")

    # AWS and PCS share a position of this model, which AWS has another one than: it measures in its own.
    with subprocess.Popen([SIM, "--model", "RT-L027", "--link", link], stdout=subprocess.PIPE) as sim:
        sim.stdout.readline()
        for band, position in (("PCS", "#SAB1"), ("AWS", "#SAB0"), ("PCS", "#SAB1")):
            status, answer, _, sent = measure(folder, "--band", band, "--seconds", "1", source=("--port", link))
            chosen = [text for text in sent if text.startswith("#SAB") and text != "#SAB?"]
            require(status == 0 and chosen[-1] == position and answer["band"] == band, f"{band}: {status} {answer} {chosen}")
        sim.terminate()
print("Nothing was taken for passed.")
