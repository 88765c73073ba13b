#!/usr/bin/env python3
"""Programs that are told to end: ending.py QOR_MEASURE QOR_SIM

Over a real pseudo-terminal, in a run: each signal has written what switches the carriers off and ended the program
within two seconds, and so has the end of --timeout on a line that has fallen silent.
"""
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

MEASURE, SIM = sys.argv[1:3]
LIMIT = 2.5  # s: two, and what a busy machine takes to start and end a process


def measure(folder, faults, *options):
    """The program in a run on a simulated instrument, or as far as it comes."""
    link = folder / "analyser"
    sim = subprocess.Popen([SIM, "--link", link, *[f"--fault={f}" for f in faults]], stdout=subprocess.PIPE)
    sim.stdout.readline()
    wire = folder / "wire"
    program = subprocess.Popen([MEASURE, "--port", link, "--band", "EGSM", "--seconds", "60", "--data-dir", folder / "data",
                                "--wire", wire, *options], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return sim, program, wire


def sent(wire):
    lines = wire.read_text().splitlines() if wire.exists() else []
    return [line.split(" > ", 1)[1] for line in lines if " > " in line and not line.endswith("> \\r")]


def require(truth, words):
    if not truth:
        sys.exit(words)


def ends_in_order(name, program, wire, since):
    status = program.wait(timeout=20)
    took = time.monotonic() - since
    require(took < LIMIT, f"{name}: ended after {took:.1f} s")
    require(status == 3, f"{name}: status {status}")
    last = sent(wire)[-6:]
    require("#SPA0" in last and "#SPB0" in last, f"{name}: the last words were {last}")


for number in (signal.SIGHUP, signal.SIGTERM, signal.SIGINT):
    with tempfile.TemporaryDirectory() as folder:
        sim, program, wire = measure(pathlib.Path(folder), [])
        try:
            begin = time.monotonic()
            while "#M2T1" not in sent(wire):
                require(time.monotonic() - begin < 30, "no run began")
                time.sleep(0.1)
            time.sleep(0.5)
            since = time.monotonic()
            program.send_signal(number)
            ends_in_order(number.name, program, wire, since)
            left = list((pathlib.Path(folder) / "data").glob("carriers_on.*"))
            require(not left, f"{number.name}: {left} is left")
        finally:
            program.kill()
            sim.kill()

TIMEOUT = 6
with tempfile.TemporaryDirectory() as folder:
    since = time.monotonic() + TIMEOUT
    sim, program, wire = measure(pathlib.Path(folder), ["silence:5"], f"--timeout={TIMEOUT}")
    try:
        status = program.wait(timeout=TIMEOUT + 20)
        took = time.monotonic() - since
        require(took < LIMIT, f"--timeout: {took:.1f} s over")
        require(status == 3, f"--timeout: status {status}")
    finally:
        program.kill()
        sim.kill()
