"""The fatigue test at the window, by keyboard alone once its page is open: fatigue.py QOR [CYCLES]

Each cycle is a second on and a second off. The page counts what it has begun and what is over, and every cycle has its
line in the protocol.
"""
import os
import pathlib
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Atspi, Failure, QorWindow, is_showing, name_of, role_of, run  # noqa: E402


def expect(condition, complaint):
    if not condition:
        raise Failure(complaint)


def field(window, name):
    """The field of that name, not the label beside it."""
    kinds = (Atspi.Role.TEXT, Atspi.Role.ENTRY)
    found = [n for n in window.nodes() if name_of(n) == name and role_of(n) in kinds and is_showing(n)]
    expect(found, f'there is a field "{name}"')
    return found[0]


def text(window, name):
    interface = field(window, name).get_text_iface()
    return Atspi.Text.get_text(interface, 0, Atspi.Text.get_character_count(interface))


def open_page(window):
    window.wait_text("Zustand", "Bereit", 40)
    window.key("Home")
    window.dialog()
    window.type("740261")
    window.key("Return")
    window.wait(lambda: window.open_dialog() is None, 5, "the PIN's dialog closes")
    window.click("Test")
    window.need("Exit Test")
    window.wait(lambda: "Speicher gesichert" in window.need("Status").get_description(), 20, "the memory is kept")


def fill(window, values):
    run("xdotool", "mousemove", *map(str, window.centre(field(window, "Power On Duration:"))), "click", "1")
    for value in values:
        window.key("ctrl+a")
        window.type(str(value))
        window.key("Tab")


def cycles_of(stores):
    files = list(pathlib.Path(stores).glob("fatigue-*.csv"))
    expect(len(files) == 1, f"one protocol, not {files}")
    lines = files[0].read_text().splitlines()
    return lines[lines.index("cycle,begun,seconds,verdict,points,points_asked,worst_dbm") + 1:]


def main():
    program, cycles = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 3
    with tempfile.TemporaryDirectory() as stores:
        window = QorWindow(program, "-ConfigStart", "--data-dir", stores, "--simulate", "RT-DB22:6.2")
        try:
            open_page(window)
            fill(window, [0, 1, cycles])
            window.wait(lambda: window.focused() and window.name_of(window.focused()) == "Start Fatigue Test", 5,
                        "the button comes behind the fields")
            window.key("space")
            time.sleep(0.5)
            expect(not list(pathlib.Path(stores).glob("fatigue-*")), "0 s is no on-time")
            window.screenshot("fatigue_refused.png")
            fill(window, [1, 1, cycles])
            window.key("space")
            window.need("Stop Fatigue Test")
            window.wait(lambda: text(window, "Finished Times:") == "2", 10, "two are begun")
            window.screenshot("fatigue_on.png")
            window.wait(lambda: window.find("Start Fatigue Test") is not None, cycles * 2 + 20, "it comes to its end")
            expect(text(window, "Finished Times:") == str(cycles + 1), "one more is begun than was asked for")
            window.wait(lambda: text(window, "Fertige Zyklen:") == str(cycles + 1), 5, "all of them are over")
            lines = cycles_of(stores)
            expect(len(lines) == cycles + 1, f"{len(lines)} lines")
            expect(all(",passed," in line for line in lines), "\n".join(lines))
            window.screenshot("fatigue_over.png")
            window.click("Exit Test")
            window.need("Beginnen Messung")
        except Failure:
            window.screenshot("failure.png")
            raise
        finally:
            window.close()
    print("The device is tired.")


main()
