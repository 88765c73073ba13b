#!/usr/bin/env python3
"""The band switch unit over real pseudo-terminals: switch_unit.py QOR_MEASURE QOR_SIM

Found in either order of the ports, told the band before the instrument, reset at the end; told of when it does not
answer, when it has no position, and when there is none.
"""
import pathlib
import subprocess
import sys
import tempfile

MEASURE, SIM = sys.argv[1:3]


def require(truth, words):
    if not truth:
        sys.exit(words)


def serve(link, *options):
    sim = subprocess.Popen([SIM, "--link", link, *options], stdout=subprocess.PIPE)
    sim.stdout.readline()
    return sim


def measure(band, unit_options, unit_first=False):
    """Status, standard error and the commands on the wire of a measurement with two ports."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        ports = [folder / "analyser", folder / "unit"]
        sims = [serve(ports[0]), serve(ports[1], *unit_options)]
        try:
            options = [f"--port={p}" for p in (reversed(ports) if unit_first else ports)]
            done = subprocess.run([MEASURE, *options, "--band", band, "--seconds", "1", "--data-dir", folder / "data", "--wire",
                                   folder / "wire"], capture_output=True, text=True, timeout=90)
        finally:
            for sim in sims:
                sim.kill()
        wire = (folder / "wire").read_text().splitlines()
        return done.returncode, done.stderr, [line.split(" > ", 1)[1] for line in wire if " > " in line]


def position(sent, text):
    require(text in sent, f"{text} was not sent")
    return sent.index(text)


for unit_first in (False, True):
    for speed in ("9600", "115200"):
        status, told, sent = measure("DCS", [f"--switch-unit={speed}"], unit_first)
        case = f"unit first: {unit_first}, {speed} baud"
        require(status == 0, f"{case}: status {status}: {told}")
        require(position(sent, "#RELC0x0010") < position(sent, "#M2T1"), f"{case}: measured before the relays")
        last = [text for text in sent if text != "\\r"][-3:]
        require(last == ["#RELA0x0000", "#RELB0x0000", "#RELC0x0000"], f"{case}: the last words were {last}")

status, told, _ = measure("AWS", ["--switch-unit"])
require(status == 0 and "no position for AWS" in told, f"without a position: {status}: {told}")
status, told, _ = measure("DCS", ["--switch-unit", "--fault=silence:2"])
require(status == 0 and "Umschaltgeraet" in told, f"silent: {status}: {told}")
status, told, _ = measure("DCS", [])
require(status == 3 and "No band switch unit answers" in told, f"two instruments: {status}: {told}")

with tempfile.TemporaryDirectory() as folder:
    done = subprocess.run([MEASURE, "--simulate", "RT-DB22", "--simulate-switch-unit", "--band", "DCS", "--seconds", "1",
                           "--data-dir", folder, "--wire", f"{folder}/wire"], capture_output=True, text=True, timeout=90)
    require(done.returncode == 0, f"simulated: status {done.returncode}: {done.stderr}")
    require("#RELB0x0010" in pathlib.Path(folder, "wire").read_text(), "simulated: no relay was told")
