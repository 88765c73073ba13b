"""qor-measure with the libraries of makers, as stand-ins: the calls of a whole run, and that nothing waits for one
that hangs. Usage: receivers.py QOR-MEASURE STANDINS"""
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time


def fail(complaint):
    sys.exit(f"receivers: {complaint}")


class Call:
    """A measurement with what steers the stand-ins; `term_after` the call of that name it is told to end."""

    def __init__(self, program, standins, *arguments, term_after=None, library="whole", **standin):
        with tempfile.TemporaryDirectory() as folder:
            log = pathlib.Path(folder) / "calls"
            variables = dict(os.environ, LD_LIBRARY_PATH=f"{standins}/{library}", QOR_STANDIN_LOG=str(log),
                             **{f"QOR_STANDIN_{name}": value for name, value in standin.items()})
            process = subprocess.Popen(
                [program, "--data-dir", f"{folder}/data", "--simulate", "RT-DB22:6.2", "--band", "EGSM", "--seconds", "1",
                 "--json", "--receiver", "extern", *arguments], env=variables, stdout=subprocess.PIPE,
                stderr=subprocess.PIPE, text=True)
            if term_after:
                end = time.monotonic() + 60
                while term_after not in (log.read_text() if log.exists() else ""):
                    if time.monotonic() > end:
                        fail(f"{term_after} was never called")
                    time.sleep(0.05)
                time.sleep(0.3)
                process.send_signal(signal.SIGTERM)
            begin = time.monotonic()
            text, self.errors = process.communicate(timeout=120)
            self.seconds = time.monotonic() - begin
            self.status = process.returncode
            self.result = json.loads(text)
            self.calls = log.read_text().splitlines() if log.exists() else []
            self.stored = sorted(path.name for path in pathlib.Path(folder, "data").glob("*"))


def expect(call, status, verdict, what):
    if call.status != status or call.result["verdict"] != verdict:
        fail(f"{what}: status {call.status}, {call.result}, {call.errors}")


def main():
    program, standins = sys.argv[1:3]

    run = Call(program, standins, "--limit", "-60")
    expect(run, 0, "passed", "an analyser behind an installed library")
    if run.result["receiver"] != "LAB,FSP-3,1,1.0":
        fail(f"measured by {run.result['receiver']}")
    first = ["viOpenDefaultRM", "viOpen 70 GPIB0::20::INSTR 0 0", "viWrite 71 DISP:WIND:TRAC:Y:SPAC LOG", "viWrite 71 *IDN?",
             "viRead 71", "viSetAttribute 71 3FFF001A 5000", "viWrite 71 INIT:CONT OFF",
             "viWrite 71 FREQUENCY:CENTER 910000000Hz"]
    last = ["viWrite 71 CALC:MARK1:Y?", "viRead 71", "viWrite 71 INIT;*WAI", "viWrite 71 INIT:CONT ON", "viClose 71",
            "viClose 70"]
    if run.calls[:len(first)] != first or run.calls[-len(last):] != last:
        fail("\n".join(run.calls))
    if "gpib_addr.ccz" in run.stored or "internalreceiver.ccz" in run.stored:
        fail(f"a call from the shell keeps nothing of its receiver: {run.stored}")

    run = Call(program, standins, "--limit", "-40", ADDRESS="none")
    expect(run, 0, "passed", "a power sensor behind its maker's library")
    if run.calls[-1] != "rsnrpz_close 80" or any(call.startswith("viWrite 71") for call in run.calls):
        fail("\n".join(run.calls))

    run = Call(program, standins, library="old")
    expect(run, 3, "none", "libraries that lack an operation count as none")

    # Whatever hangs, the end does not wait for it; what was broken off has no verdict.
    for operation, after in (("viRead", "viRead"), ("viWrite", "viWrite"), ("viClose", "INIT:CONT OFF"),
                             ("rsnrpz_meass_readMeasurement", "rsnrpz_meass_readMeasurement")):
        run = Call(program, standins, "--limit", "-40", term_after=after, HANG=operation, HANG_MS="60000",
                   ADDRESS="none" if operation.startswith("rs") else "GPIB0::20::INSTR")
        expect(run, 3, "none", f"{operation} hangs and SIGTERM comes")
        if run.seconds > 2:
            fail(f"{operation} hangs: the end took {run.seconds:.1f} s")
    run = Call(program, standins, "--limit", "-60", HANG="viClose", HANG_MS="60000")
    expect(run, 0, "passed", "viClose hangs")
    print("receivers: makers' libraries in whole runs, and hanging")


if __name__ == "__main__":
    main()
