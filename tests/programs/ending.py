#!/usr/bin/env python3
"""Programs that are told to end: ending.py QOR_MEASURE QOR_SIM QOR

Over a real pseudo-terminal, whatever they are at: a signal has written what switches the carriers off and ended the
program within two seconds, and so has the end of --timeout on a line that has fallen silent. Ctrl-Z, and
pipes whose reader is gone, stop no program that has its carriers on.
"""
import itertools
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

MEASURE, SIM, QOR = sys.argv[1:4]
LIMIT = 2.5  # s: two, and what a busy machine takes to start and end a process
SIGNALS = itertools.cycle((signal.SIGHUP, signal.SIGTERM, signal.SIGINT, signal.SIGQUIT))
SWEEP = ("--band", "EGSM", "--method", "sweep")

# What it is at: the program, the command on the wire that says so, faults of the line, options.
STATES = {
    "in the search": (MEASURE, "#SR", ["silence"], ["--band", "EGSM"]),
    "in the chain": (MEASURE, "#KVTRE", [], ["--band", "EGSM"]),
    "idle": (MEASURE, "#SST?", [], ["--band", "EGSM", "--idle", "60"]),
    "in a 2-tone run": (MEASURE, "#M2T1", [], ["--band", "EGSM", "--seconds", "60"]),
    "in a sweep": (MEASURE, "#MSWL1", [], SWEEP),
    "in the pause of a series": (MEASURE, "#MSWL0", [], [*SWEEP, "--runs", "2", "--interval", "60"]),
    "in a spectrum": (MEASURE, "#IMP?", [], ["--band", "EGSM", "--method", "spectrum"]),
    "the window in its chain": (QOR, "#KVTRE", [], []),
    "the window, ready": (QOR, "#SST?", [], []),
}


def start(folder, program, faults, options, output=subprocess.DEVNULL):
    """The program on a simulated instrument, or as far as it comes."""
    link = folder / "analyser"
    sim = subprocess.Popen([SIM, "--link", link, *[f"--fault={f}" for f in faults]], stdout=subprocess.PIPE)
    sim.stdout.readline()
    wire = folder / "wire"
    process = subprocess.Popen([program, "--port", link, "--data-dir", folder / "data", "--wire", wire, *options],
                               env=dict(os.environ, QT_QPA_PLATFORM="offscreen"), stdout=output, stderr=output)
    return sim, process, wire


def sent(wire):
    lines = wire.read_text().splitlines() if wire.exists() else []
    return [line.split(" > ", 1)[1] for line in lines if " > " in line and not line.endswith("> \\r")]


def require(truth, words):
    if not truth:
        sys.exit(words)


def ends_in_order(name, process, since, status):
    ended = process.wait(timeout=20)
    took = time.monotonic() - since
    require(took < LIMIT, f"{name}: ended after {took:.1f} s")
    require(ended == status, f"{name}: status {ended}")


def told_to_end(name, number, program, sign, faults, options):
    with tempfile.TemporaryDirectory() as name_of_folder:
        folder = pathlib.Path(name_of_folder)
        sim, process, wire = start(folder, program, faults, options)
        try:
            begin = time.monotonic()
            while not any(text.startswith(sign) for text in sent(wire)):
                require(time.monotonic() - begin < 40 and process.poll() is None, f"{name}: {sign} did not come")
                time.sleep(0.05)
            time.sleep(0.3)
            process.send_signal(number)
            ends_in_order(f"{name}, {number.name}", process, time.monotonic(), 16 if program == QOR else 3)
            last = sent(wire)[-6:]
            off = {"#SPA0", "#SPB0"} & set(last)
            require(len(off) == (0 if "silence" in faults else 2), f"{name}, {number.name}: the last words were {last}")
            left = list((folder / "data").glob("carriers_on.*"))
            require(not left, f"{name}, {number.name}: {left} is left")
        finally:
            process.kill()
            sim.kill()


for state, (program, sign, faults, options) in STATES.items():
    told_to_end(state, next(SIGNALS), program, sign, faults, options)
for number in (signal.SIGHUP, signal.SIGTERM, signal.SIGINT):
    told_to_end("in a run", number, *STATES["in a 2-tone run"])

TIMEOUT = 6
with tempfile.TemporaryDirectory() as folder:
    since = time.monotonic() + TIMEOUT
    sim, process, _ = start(pathlib.Path(folder), MEASURE, ["silence:5"], ["--band", "EGSM", f"--timeout={TIMEOUT}"])
    try:
        ends_in_order("--timeout", process, since, 3)
    finally:
        process.kill()
        sim.kill()

# Its reader is gone, it is halted at the terminal: the run goes on to its end.
with tempfile.TemporaryDirectory() as folder:
    reader, writer = os.pipe()
    sim, process, wire = start(pathlib.Path(folder), MEASURE, [], ["--band", "EGSM", "--seconds=2", "--json"], writer)
    try:
        os.close(writer)
        since = time.monotonic()
        while "#M2T1" not in sent(wire):
            require(time.monotonic() - since < 30, "no run began")
            time.sleep(0.1)
        os.close(reader)
        process.send_signal(signal.SIGTSTP)
        status = process.wait(timeout=30)
        require(status == 5, f"without a reader: status {status}")
        require(sent(wire).count("#IMP?") > 20 and "#SPA0" in sent(wire)[-8:], "without a reader: the run did not end")
    finally:
        process.kill()
        sim.kill()

with tempfile.TemporaryDirectory() as folder:
    simulated = [MEASURE, "--simulate", "RT-DB22", "--band", "EGSM", "--seconds", "1", "--data-dir", folder]
    os.mkfifo(pathlib.Path(folder) / "wire")
    since = time.monotonic()
    status = subprocess.run([*simulated, "--wire", pathlib.Path(folder) / "wire"], stderr=subprocess.DEVNULL,
                            timeout=20).returncode
    require(status == 5 and time.monotonic() - since < LIMIT, f"a wire log that nobody reads: status {status}")
    with open("/dev/full", "w") as full:
        status = subprocess.run([*simulated, "--json"], stdout=full, stderr=subprocess.DEVNULL, timeout=60).returncode
    require(status == 5, f"an answer on a full disk: status {status}")
