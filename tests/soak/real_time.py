"""Measurements from the shell on pseudo-terminals, in real time: one long one whose memory is watched, and beside it
short ones on an instrument whose line fails, each of which has to end in time with a verdict that its status bears out.

Usage: real_time.py BIN SEED SECONDS"""
import json
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

FAULTS = ("silence", "garble", "pieces", "early-end", "endless", "syntax-error", "out-of-range", "pll", "slow", "unplug",
          "loose-contact")
STATUS_OF = {"passed": (0, 5), "failed": (1, 5), "error": (2,), "none": (3, 4, 5)}
TIMEOUT = 40
LEAVING = 3  # seconds that may go by behind the time-out
GROWTH = 8  # MiB


class Failure(Exception):
    """What somebody at a production line would complain about."""


def resident(process):
    return int(pathlib.Path(f"/proc/{process.pid}/statm").read_text().split()[1]) * os.sysconf("SC_PAGE_SIZE") / 2**20


def simulator(programs, link, *faults):
    words = [programs / "qor-sim", "--model", "RT-DB22", "--link", link]
    for fault in faults:
        words += ["--fault", fault]
    process = subprocess.Popen(words, stdout=subprocess.PIPE, text=True)
    process.stdout.readline()  # it is there
    return process


def measure(programs, folder, link, *options):
    words = [programs / "qor-measure", "--port", link, "--data-dir", folder / f"stores-{link.name}", "--band", "EGSM", *options]
    return subprocess.Popen(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)


def short_one(programs, folder, dice):
    """Returns its verdict."""
    link = folder / "faulty"
    faults = [f"{dice.choice(FAULTS)}:{dice.randrange(120)}" for _ in range(dice.choice((0, 1, 1, 2)))]
    instrument = simulator(programs, link, *faults)
    options = dice.choice((("--method", "2tone", "--seconds", "2"), ("--method", "sweep"), ("--method", "sweep", "--runs", "2")))
    job = measure(programs, folder, link, *options, "--json", "--timeout", str(TIMEOUT))
    try:
        if dice.random() < 0.2:  # somebody presses Ctrl+C, or the terminal goes
            time.sleep(dice.uniform(0, 6))
            job.send_signal(dice.choice((signal.SIGINT, signal.SIGTERM, signal.SIGHUP)))
            output, _ = job.communicate(timeout=LEAVING)
        else:
            output, _ = job.communicate(timeout=TIMEOUT + LEAVING)
    except subprocess.TimeoutExpired:
        raise Failure(f"{options} with {faults} does not end") from None
    finally:
        job.kill()
        instrument.kill()
        instrument.wait()
        link.unlink(missing_ok=True)
    verdict = json.loads(output)["verdict"] if output.strip() else "none"
    if job.returncode >= 0 and job.returncode not in STATUS_OF[verdict]:
        raise Failure(f"{options} with {faults}: {verdict}, and the status is {job.returncode}")
    return verdict


def main():
    programs, seed, seconds = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]), float(sys.argv[3])
    dice = random.Random(seed)
    verdicts = {}
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        instrument = simulator(programs, folder / "steady", "slow:5")
        long_one = measure(programs, folder, folder / "steady", "--method", "sweep", "--runs", "1000", "--interval", "1",
                           "--timeout", str(int(seconds) + 600))
        try:
            end = time.monotonic() + seconds
            time.sleep(min(20, seconds / 3))
            before = [resident(long_one), resident(instrument)]
            while time.monotonic() < end:
                verdict = short_one(programs, folder, dice)
                verdicts[verdict] = verdicts.get(verdict, 0) + 1
                if long_one.poll() is not None:
                    raise Failure(f"the long measurement has ended with {long_one.returncode}")
            after = [resident(long_one), resident(instrument)]
            if any(late > early + GROWTH for early, late in zip(before, after)):
                raise Failure(f"memory grows: {before} MiB to {after} MiB")
            long_one.send_signal(signal.SIGTERM)
            if long_one.wait(LEAVING) not in (1, 3):
                raise Failure(f"stopped, it ended with {long_one.returncode}")
        finally:
            long_one.kill()
            instrument.kill()
    print(f"seed {seed}: {verdicts}, {before[0]:.0f} to {after[0]:.0f} MiB; every measurement has ended in time.")


main()
