"""The cable is pulled and put back, and boxes stand open, while the window shows the truth.
Usage: cable.py QOR QOR_SIM SECONDS [SCENE]...
The scenes come one after the other until the time is up."""
import itertools
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Atspi, Failure, QorWindow, run  # noqa: E402

TRUTH = 6  # seconds after which the window must know that the instrument is gone
BACK = 20  # and be ready again, by itself


class Analyser:
    def __init__(self, program, link):
        self.program, self.link, self.process = program, link, None
        self.plug()

    def plug(self):
        words = [self.program, "--model", "RT-DB22", "--firmware", "6.2", "--link", self.link]
        self.process = subprocess.Popen(words, stdout=subprocess.DEVNULL)

    def pull(self):
        self.process.terminate()
        self.process.wait(10)


def expect(condition, complaint):
    if not condition:
        raise Failure(complaint)


def connect(window):
    """Where the machine has a port of its own, the operator chooses."""
    window.wait(lambda: window.text("Zustand") == "Bereit" or window.find("Oeffnen Port"), 40, "ready, or a choice")
    if window.find("Oeffnen Port"):
        time.sleep(4)  # until it has looked what hangs on each
        window.click("Auswaehlen COM Port:")
        window.key("Home", "Return")
        window.click("Oeffnen Port")
    window.wait_text("Zustand", "Bereit", 30)


def start_run(window):
    window.key("ctrl+m")
    window.wait_text("Zustand", "Messung laeuft", 5)
    time.sleep(1)


def gone(window):
    cell, begin = window.need("Zustand").get_text_iface(), time.monotonic()
    state = lambda: Atspi.Text.get_text(cell, 0, Atspi.Text.get_character_count(cell))  # noqa: E731
    window.wait(lambda: state() in ("Nicht verbunden", "Initialisieren"), 2 * TRUTH, "the window knows that it is gone")
    took = time.monotonic() - begin
    expect(took < TRUTH, f"the window knew it after {took:.1f} s")
    window.need("Beginnen Messung")
    expect(window.find("Halten Messung") is None, "the button does not offer to stop what is over")


def back(window, run_was_lost=False):
    window.wait_text("Zustand", "Bereit", BACK)
    if run_was_lost:
        expect("contact was lost during the run" in window.message(), "the operator is told")
        window.key("Return")
        window.wait(lambda: window.open_dialog() is None, 5, "the message closes")
    expect(window.open_dialog() is None, "no box is left over")


def pulled_in_mid_run(window, analyser):
    start_run(window)
    analyser.pull()
    gone(window)
    analyser.plug()
    back(window, run_was_lost=True)


def silent_in_mid_run(window, analyser):
    start_run(window)
    analyser.process.send_signal(signal.SIGSTOP)
    gone(window)
    analyser.process.send_signal(signal.SIGCONT)
    back(window, run_was_lost=True)


def dialog_open_meanwhile(window, analyser):
    """A run ends, and contact is lost and found, behind an open dialog."""
    start_run(window)
    window.menu("Werkzeug", "dBm <-> mW <-> mV")
    window.dialog()
    window.wait_text("Zustand", "Bereit", 30)
    analyser.pull()
    gone(window)
    analyser.plug()
    window.wait_text("Zustand", "Bereit", BACK)
    expect(window.open_dialog() is not None, "the dialog is still there")
    window.key("Escape")
    window.wait(lambda: window.open_dialog() is None, 5, "it closes")


def question_open_meanwhile(window, analyser):
    window.click("Exit")
    window.dialog()
    analyser.pull()
    gone(window)
    analyser.plug()
    window.wait_text("Zustand", "Bereit", BACK)
    window.key("alt+n")
    window.wait(lambda: window.open_dialog() is None, 5, "No stays")


def click_close(window):
    """Clicks the X at the right end of the title. A key that is made up for one window alone would not do: the window
    manager keeps the keyboard to itself behind it."""
    box = window.main_window().get_component_iface().get_extents(Atspi.CoordType.SCREEN)
    run("xdotool", "mousemove", str(box.x + box.width - 11), str(box.y - 11), "click", "1")


def closed_in_mid_run(window, _):
    """The X of the window is refused, twice, and the run goes on to its end behind the message."""
    start_run(window)
    click_close(window)
    expect("Halten Messung erst!" in window.message(), "it is refused")
    click_close(window)  # behind the message
    window.wait_text("Zustand", "Bereit", 30)
    expect(float(window.text("m_ReadingText")) < -60, "the run was whole")
    for _ in range(4):  # one message for each time
        if window.open_dialog():
            window.click("OK")
            time.sleep(0.5)
    expect(window.open_dialog() is None, "the messages close")


def resized_in_mid_run(window, _):
    frame = run("xdotool", "search", "--onlyvisible", "--pid", str(window.process.pid), "--name", "^QOR$").split()[0]
    start_run(window)
    for n in range(40):
        run("xdotool", "windowsize", frame, str(400 + 20 * (n * 7 % 40)), str(300 + 15 * (n * 11 % 40)))
        time.sleep(0.05)
    run("xdotool", "windowsize", frame, "1200", "900")
    window.wait_text("Zustand", "Bereit", 30)
    expect(float(window.text("m_ReadingText")) < -60, "the run was whole")


def refused_limit_under_a_menu(window, _):
    """The message of a refusal and a menu want the keyboard at the same time."""
    window.click("m_AlarmText")
    window.key("ctrl+a")
    window.type("5")
    window.key("alt+m")
    time.sleep(0.3)
    window.key("3")
    expect("should be in range" in window.message(), "the limit is refused")
    window.key("Return")
    window.wait(lambda: window.open_dialog() is None, 5, "the message closes")
    window.click("m_AlarmText")
    window.key("ctrl+a")
    window.type("-90")
    window.key("Tab")


def told_to_end_in_mid_run(window, stores, number):
    """Nobody is asked, and no carrier stays on: the instrument has echoed what switches them off."""
    start_run(window)
    expect(list(stores.glob("carriers_on.*")), "the run has left its mark")
    begin = time.monotonic()
    window.process.send_signal(number)
    status = window.process.wait(20)
    expect(time.monotonic() - begin < 2.5, f"{number.name}: it took {time.monotonic() - begin:.1f} s")
    expect(status == 16, f"{number.name}: it ended with {status}")
    expect(not list(stores.glob("carriers_on.*")), f"{number.name}: the carriers may be on")


def main():
    program, simulator = (os.path.abspath(path) for path in sys.argv[1:3])
    scenes = [scene for scene in (pulled_in_mid_run, silent_in_mid_run, dialog_open_meanwhile, question_open_meanwhile,
                                  closed_in_mid_run, resized_in_mid_run, refused_limit_under_a_menu)
              if not sys.argv[4:] or scene.__name__ in sys.argv[4:]]
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        analyser = Analyser(simulator, folder / "analyser")
        words = (program, "--data-dir", str(folder / "stores"), "--port", str(folder / "analyser"))
        window = QorWindow(*words)
        try:
            connect(window)
            end = time.monotonic() + float(sys.argv[3])
            for scene in itertools.cycle(scenes):
                begin = time.monotonic()
                scene(window, analyser)
                print(f"{scene.__name__}: {time.monotonic() - begin:.1f} s", flush=True)
                if time.monotonic() > end:
                    break
            pulled_in_mid_run(window, analyser)
            window.click("Exit")
            window.dialog()
            window.key("alt+j")
            status = window.process.wait(20)
            expect(status == 16, f"it ended with {status}")
            for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
                window = QorWindow(*words)
                connect(window)
                told_to_end_in_mid_run(window, folder / "stores", number)
        except Failure:
            window.screenshot("cable.png")
            raise
        finally:
            window.close()
            analyser.process.kill()
    print("The window has told the truth.")


main()
