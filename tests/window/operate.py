"""An operator's session at the window, through keyboard and mouse: from the green lamp to saved and loaded
results, with the refusals on the way. Usage: operate.py QOR QOR_SIM"""
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Atspi, Failure, QorWindow  # noqa: E402


def expect(condition, complaint):
    if not condition:
        raise Failure(complaint)


def refused(window, text):
    shown = window.message()
    expect(text in shown, f'the message reads "{shown}", not "{text}"')
    window.key("Return")
    window.wait(lambda: window.open_dialog() is None, 5, "the message closes")


def measure(window, seconds=60):
    window.key("ctrl+m")
    window.wait_text("Zustand", "Messung laeuft")
    window.need("Halten Messung")
    window.wait_text("Zustand", "Bereit", seconds)
    expect(float(window.text("m_ReadingText")) < -60, "a level is shown")


def save(window, path):
    window.key("ctrl+t")
    window.dialog()
    window.type(str(path))
    window.key("Return")
    window.wait(path.exists, 10, f"{path} is written")
    window.wait(lambda: window.open_dialog() is None, 5, "the file dialog closes")


def session(window, folder):
    window.wait_text("Zustand", "Bereit", 40)

    # Band by the mouse, order by the keyboard; the panel follows. A second click on the band takes it back.
    for band in ("EGSM", "Nichts Breite Selektiert", "EGSM"):
        window.menu("Breite", "EGSM 900")
        window.wait_text("m_Band_sel", band)
    window.wait(lambda: window.title() == "QOR - RT-DB22 - SIM01 - EGSM - Bereit", 5, window.title())
    window.key("ctrl+5")
    window.wait_text("m_IM_sel", "IM5")
    window.key("ctrl+3")
    window.wait_text("m_IM_sel", "IM3")

    # A 2-tone run that passes; in the middle of it nothing else can be set up.
    window.click("m_DutSerial")
    window.key("ctrl+m")
    window.wait_text("Zustand", "Messung laeuft")
    expect(window.name_of(window.focused()) == "m_DutSerial", "a start leaves the keyboard where it is")
    window.key("ctrl+5")
    refused(window, "Halten Messung erst!")
    window.click("Exit")  # the key belongs to the field that has the keyboard
    refused(window, "Halten Messung erst!")
    window.wait_text("Zustand", "Bereit", 60)
    window.screenshot("two_tone.png")
    curve = window.need("Kurve").get_description()
    expect("bestanden" in curve and "schlechtester Punkt: -" in curve, f'the curve is told as "{curve}"')
    save(window, folder / "two_tone.dat")

    # A limit below what is measured: the next run fails. It is set in the panel's box.
    window.click("m_AlarmText")
    window.key("ctrl+a")
    window.type("-120")
    window.key("Tab")
    measure(window)
    window.screenshot("failed.png")
    window.click("m_AlarmText")
    window.key("ctrl+a")
    window.type("5")
    window.key("Tab")
    refused(window, "should be in range 0 ~ -200")
    window.key("ctrl+a")
    window.type("-90")
    window.key("Tab")

    # A sweep, stopped by the button and made again to its end.
    window.menu("Messung", "Scannen")
    window.wait_text("m_Mode_sel", "Scannen Modell")
    window.click("Beginnen Messung")
    window.wait_text("Zustand", "Messung laeuft")
    time.sleep(1)
    window.click("Halten Messung")
    window.wait_text("Zustand", "Bereit")
    measure(window)
    window.screenshot("sweep.png")
    save(window, folder / "sweep.dat")

    # Both files loaded again: the list shows them, and a click on the other row shows that one.
    window.key("ctrl+l")
    window.dialog()
    window.type(f'"{folder}/two_tone.dat" "{folder}/sweep.dat"')
    window.key("Return")
    window.wait_text("m_FileRow1", "two_tone.dat")
    window.wait_text("m_FileRow2", "sweep.dat")
    window.wait_text("m_Mode_sel", "2 Ton Modell")
    window.click("m_FileRow2")
    window.wait_text("m_Mode_sel", "Scannen Modell")
    window.screenshot("loaded.png")

    # A field takes what is typed, and refuses it by its name and range: no 55 seconds come of 5.5.
    window.menu("Setup", "Measurement Mode Setup")
    for typed in ("5.5", "-5", "9999999999", "5 s", ""):
        window.dialog()
        window.click("Time:")
        window.key("ctrl+a", "Delete")
        window.type(typed)
        expect(window.text("Time:") == typed, f'{typed} became {window.text("Time:")}')
        window.key("Return")
        window.need("Time braucht eine ganze Zahl: 1 .. 2147483")
    window.key("Escape")
    window.wait(lambda: window.open_dialog() is None, 5, "the dialog closes")

    # dBc and back, the plot alone and back.
    window.menu("Anzeige", "Einheit: dBm/dBc")
    window.wait_text("m_AlarmText", "-133.0")
    window.menu("Anzeige", "Einheit: dBm/dBc")
    window.wait_text("m_AlarmText", "-90.0")

    # A name without an ending takes that of the kind chosen.
    window.key("ctrl+t")
    window.dialog()
    window.type(str(folder / "without"))
    window.click("Alle passenden Dateien (*.txt *.dat *.xls *.xlsx *.csv)")
    window.key("Down", "Down", "Return")
    window.click("Speichern")
    window.wait((folder / "without.dat").exists, 10, "a .dat is written")
    window.wait(lambda: window.open_dialog() is None, 5, "the file dialog closes")

    # The tool that comes with the program runs beside it, and ends with it.
    window.menu("Werkzeug", "PIM")
    window.wait((folder / "tool").exists, 5, "the tool has begun")
    tool = pathlib.Path("/proc", (folder / "tool").read_text().strip())
    expect(tool.exists(), "the tool runs")

    # The way out asks; No stays, Yes ends in order.
    window.key("ctrl+x")
    window.dialog()
    window.key("alt+n")
    window.wait(lambda: window.open_dialog() is None, 5, "No stays")
    window.click("Exit")
    window.dialog()
    window.key("alt+j")
    status = window.process.wait(15)
    expect(status == 16, f"it ended with {status}")
    time.sleep(0.5)
    state = (tool / "stat").read_text().split(")")[1].split()[0] if tool.exists() else "gone"
    expect(state in ("gone", "Z"), f"the tool has not ended with the program: {state}")


def operator_session(window):
    """An operator at a small panel computer: no menu, but its keys; one store is damaged."""
    window.need("Beginnen Messung", 40)
    expect(window.find("Datei") is None, "an operator has no menu")
    window.wait(lambda: "Bereit" in window.title(), 40, "it is ready")
    window.need("Beschaedigt, zaehlt als nicht vorhanden: pathloss.ccz")
    window.key("ctrl+5")
    window.wait_text("m_IM_sel", "IM5")
    window.key("ctrl+l")
    window.dialog()
    window.key("Escape")
    window.wait(lambda: window.open_dialog() is None, 5, "the file dialog closes")

    # The tab key stops at what is in sight only.
    frame = window.main_window().get_component_iface().get_extents(Atspi.CoordType.SCREEN)
    for _ in range(5):
        window.key("Tab")
        time.sleep(0.1)
        x, y = window.centre(window.focused())
        expect(frame.x < x < frame.x + frame.width and frame.y < y < frame.y + frame.height,
               f"the tab key has stopped at {x}, {y}")
    window.key("ctrl+x")
    window.dialog()
    window.key("alt+j")
    expect(window.process.wait(15) == 16, "it ends in order")


def small_form(window, wire):
    """Where the panel has no room for the list of ports, they are offered in a dialog, once what hangs on them is
    known; the rest is done by the keyboard."""
    window.wait(lambda: window.open_dialog() is not None, 20, "the ports are offered")
    choice = [window.name_of(node) for node in window.nodes(window.open_dialog())]
    second = [name for name in choice if name.startswith("COM2 ")]
    expect(second and second[0].endswith(": RT-DB22"), f"offered are {choice}")
    window.key("Return")
    window.wait(lambda: "Bitte zuerst einen Port auswaehlen." in window.message(), 5, "nothing is chosen unasked")
    window.key("Return")
    window.wait(lambda: window.find(second[0], window.open_dialog()) is not None, 5, "the message closes")
    window.click(second[0], window.open_dialog())
    window.key("Return")
    window.wait(lambda: window.title() == "QOR - RT-DB22 - SIM02 - LTE - Bereit", 40, "it is connected")
    expect(window.open_dialog() is None, "the ports are offered once")
    stops = []
    while len(stops) < 10 and (not stops or stops[-1] != stops[0] or len(stops) == 1):
        window.key("Tab")
        time.sleep(0.15)
        stops.append(window.name_of(window.focused()))
    expect(stops == ["+", "-", "Beginnen Messung", "+"], f"the tab key stops at {stops}")
    window.key("ctrl+m")
    window.wait(lambda: window.title().endswith("Messung laeuft"), 5, "a run is on")
    window.wait(lambda: window.title().endswith("Bereit"), 30, "the run is over")
    window.screenshot("small_form.png")
    window.key("ctrl+m")
    window.wait(lambda: window.title().endswith("Messung laeuft"), 5, "a run is on")
    time.sleep(1)
    window.process.send_signal(signal.SIGHUP)
    expect(window.process.wait(3) == 16, "a signal in a run ends it in order")
    last = [line.split(" > ")[1] for line in wire.read_text().splitlines() if " > #" in line][-5:]
    expect({"#M2T0", "#SPA0", "#SPB0"} <= set(last), f"its last words were {last}")


def shell(program):
    """What a shell sees of it."""
    usage = subprocess.run([program, "--help"], capture_output=True, text=True, timeout=20)
    expect(usage.returncode == 0 and usage.stdout.startswith("Usage: qor ["), usage.stdout)
    blind = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
    lost = subprocess.run([program, "--simulate", "RT-DB22:6.2"], env=blind, capture_output=True, text=True, timeout=20)
    expect(lost.returncode == 4 and lost.stderr.startswith("qor: There is no display"),
           f"without a display: {lost.returncode}, {lost.stderr}")


def main():
    program, simulator = sys.argv[1:3]
    shell(program)
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as stores:
        pathlib.Path(stores, "QorTool.ccz").write_text(f"#!/bin/sh\necho $$ > {folder}/tool\nexec sleep 600\n")
        window = QorWindow(program, "--data-dir", stores, "--simulate", "RT-DB22:6.2")
        try:
            session(window, pathlib.Path(folder))
        except Failure:
            window.screenshot("failure.png")
            raise
        finally:
            window.close()
    with tempfile.TemporaryDirectory() as stores:
        for name, text in (("user_EN.ccz", "1"), ("Resolution.ccz", "8"), ("pathloss.ccz", "9999")):
            pathlib.Path(stores, name).write_text(text)
        window = QorWindow(program, "-ConfigStart", "--data-dir", stores, "--simulate", "RT-DB22:6.2", log_on="Escape")
        try:
            operator_session(window)
        except Failure:
            window.screenshot("failure.png")
            raise
        finally:
            window.close()
    with tempfile.TemporaryDirectory() as stores:
        pathlib.Path(stores, "Resolution.ccz").write_text("8")
        ports = [f"{stores}/analyser_{n}" for n in (1, 2)]
        instruments = [subprocess.Popen([simulator, "--link", port, "--serial", f"SIM0{n}"], stdout=subprocess.DEVNULL)
                       for n, port in enumerate(ports, 1)]
        wire = pathlib.Path(stores, "wire")
        window = QorWindow(program, "-ConfigStart", "--data-dir", stores, "--wire", wire, "--port", ports[0], "--port", ports[1])
        try:
            small_form(window, wire)
        except Failure:
            window.screenshot("failure.png")
            raise
        finally:
            window.close()
            for instrument in instruments:
                instrument.kill()
    print("The operator is content.")


main()
