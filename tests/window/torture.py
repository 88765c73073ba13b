"""An operator out of his mind: keys, clicks, drags, resizes and nonsense in every dialog, while the cable is
pulled and put back. Afterwards everything must still work, and the program must end in order.

Usage: torture.py QOR SEED SECONDS [QOR_SIM]
With QOR_SIM the instruments hang on pseudo-terminals, come and go, and spoil their answers; without it the
instrument is the one inside the program. A sanitizer build leaves its complaints in files, which are failures.
"""
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Failure, GLib, QorWindow, is_showing  # noqa: E402

ORDERLY = 16
WIDTH, HEIGHT = 1280, 1024
CHORDS = ("ctrl+m ctrl+m ctrl+m ctrl+m ctrl+3 ctrl+5 ctrl+7 ctrl+9 ctrl+n ctrl+l ctrl+t ctrl+c ctrl+z ctrl+h ctrl+q "
          "ctrl+a ctrl+s ctrl+e ctrl+v ctrl+x F10 alt+m alt+b alt+s alt+z alt+a alt+w alt+h alt+d").split()
PLAIN_KEYS = ("Tab Tab Tab shift+Tab Return Return Escape Escape Escape space Up Down Left Right Page_Up Page_Down "
              "Home End BackSpace plus minus").split()
NONSENSE = ("-90", "0", "-120", "-200", "46", "430", "1e308", "-1e308", "nan", "inf", "0x10", "99999999999999999999",
            "-0", "1,5", "  ", "%s%n%d", "'; rm", "925.0", "960", "935,2", "2", "0.00001", "a" * 300, ";;;;", "&&&", "<b>x</b>",
            "\u00e4\u00f6\u00fc", "run.dat", "run.txt", "conf.conf")
FAULTS = ("garble", "pieces", "early-end", "endless", "syntax-error", "out-of-range", "pll", "slow", "loose-contact", "silence")
# What the file dialog of the toolkit would do to files with these is no business of ours.
FILE_DIALOGS = ("Einfuehren", "Speichern", "Load", "Save")


class Bench:
    """The instruments: simulators on pseudo-terminals behind links that stay the same."""

    def __init__(self, program, folder, dice, count):
        self.program, self.dice = program, dice
        self.links = [folder / f"analyser{n}" for n in range(count)] if program else []
        self.running = {}
        for link in self.links:
            self.plug(link, healthy=True)

    def plug(self, link, healthy=False):
        words = [self.program, "--link", link, "--seed", str(self.dice.randrange(99))]
        words += ["--model", "RT-DB22", "--firmware", "6.2"]
        for _ in range(0 if healthy else self.dice.choice((0, 0, 1, 2))):
            words += ["--fault", f"{self.dice.choice(FAULTS)}:{self.dice.randrange(400)}"]
        self.running[link] = subprocess.Popen(words, stdout=subprocess.DEVNULL)

    def unplug(self, link):
        simulator = self.running.pop(link, None)
        if simulator:
            simulator.send_signal(self.dice.choice((signal.SIGTERM, signal.SIGKILL)))
            simulator.wait(10)
            link.unlink(missing_ok=True)

    def disturb(self):
        if self.links:
            link = self.dice.choice(self.links)
            if link in self.running:
                self.unplug(link)
            else:
                self.plug(link)

    def only_one_good(self):
        for link in self.links:
            self.unplug(link)
        if self.links:
            self.plug(self.links[0], healthy=True)

    def close(self):
        for link in list(self.running):
            self.unplug(link)


class Torture:
    def __init__(self, program, seed, simulator, folder):
        self.program, self.dice, self.folder = program, random.Random(seed), folder
        self.stores = folder / "stores"
        self.stores.mkdir()
        self.bench = Bench(simulator, folder, self.dice, self.dice.choice((1, 1, 2, 3)))
        self.actions = self.starts = self.orderly_ends = 0
        self.frame = []
        self.resident = []
        self.window = None
        self.start()

    def start(self):
        self.end_descendants()
        arguments = ["--data-dir", str(self.stores)]
        for link in self.bench.links:
            arguments += ["--port", str(link)]
        if not self.bench.links:
            arguments += ["--simulate", "RT-DB22:6.2"]
        sanitizer = f"quarantine_size_mb=32:log_path={self.folder}/complaint:" + os.environ.get("ASAN_OPTIONS", "")
        undefined = f"log_path={self.folder}/complaint:print_stacktrace=1"
        for store in ("user_EN.ccz", "Install_info.ccz"):  # no log-on, no other language
            (self.stores / store).unlink(missing_ok=True)
        self.window = QorWindow(self.program, *arguments, environment={
            "ASAN_OPTIONS": sanitizer, "UBSAN_OPTIONS": undefined, "PWD": str(self.folder)})
        self.starts += 1
        found = subprocess.run(("xdotool", "search", "--sync", "--onlyvisible", "--pid", str(self.window.process.pid), "--name",
                                "^QOR$"), check=False, capture_output=True, text=True, timeout=20)
        self.frame = found.stdout.split()[:1]

    def end_descendants(self):
        """A change of the language starts the program anew by itself; that one is not watched."""
        ended = 0
        for entry in pathlib.Path("/proc").iterdir():
            if not entry.name.isdigit():
                continue
            try:
                words = (entry / "cmdline").read_bytes()
            except OSError:
                continue
            own = self.window and self.window.process.poll() is None and int(entry.name) == self.window.process.pid
            if str(self.stores).encode() in words and words.startswith(self.program.encode()) and not own:
                os.kill(int(entry.name), signal.SIGTERM)
                ended += 1
        return ended

    def xdo(self, *words):
        subprocess.run(("xdotool", *map(str, words)), check=False, capture_output=True, timeout=20)

    def title(self):
        done = subprocess.run(("xdotool", "getactivewindow", "getwindowname"), check=False, capture_output=True, text=True,
                              timeout=20)
        return done.stdout.strip()

    # One thing an operator can do, each.
    def keys(self):
        self.xdo("key", "--delay", "5", *self.dice.choices(PLAIN_KEYS, k=self.dice.randrange(1, 8)))

    def chord(self):
        self.xdo("key", self.dice.choice(CHORDS))

    def menu(self):
        """Somewhere into the menu by the keyboard."""
        self.xdo("key", "--delay", "15", self.dice.choice(("alt+m", "alt+b", "alt+s", "alt+z", "alt+a", "alt+w", "alt+h")),
                 *["Down"] * self.dice.randrange(16), *["Right"] * self.dice.randrange(2),
                 *["Down"] * self.dice.randrange(8), "Return")

    def click(self):
        x, y = self.dice.randrange(WIDTH), self.dice.randrange(30, HEIGHT)
        self.xdo("mousemove", x, y, "click", "--repeat", self.dice.choice((1, 1, 1, 2)), "1")

    def drag(self):
        spots = [(self.dice.randrange(WIDTH), self.dice.randrange(30, HEIGHT)) for _ in range(3)]
        words = ["mousemove", *spots[0], "mousedown", "1"]
        for x, y in spots[1:]:
            words += ["mousemove", x, y]
        self.xdo(*words, "mouseup", "1")

    def wheel(self):
        self.xdo("mousemove", self.dice.randrange(WIDTH), self.dice.randrange(30, HEIGHT), "click", "--repeat", "3",
                 self.dice.choice(("4", "5")))

    def fill(self):
        """Nonsense into the field with the keyboard, and on to the next."""
        for _ in range(self.dice.randrange(1, 6)):
            self.xdo("key", "ctrl+a")
            self.xdo("type", "--delay", "2", "--", self.dice.choice(NONSENSE))
            self.xdo("key", self.dice.choice(("Tab", "Tab", "Return", "Escape")))

    def resize(self):
        for window in self.frame:
            for _ in range(self.dice.randrange(1, 5)):
                self.xdo("windowsize", window, self.dice.randrange(50, 1600), self.dice.randrange(40, 1200))
            self.xdo("windowmove", window, self.dice.randrange(-50, 300), self.dice.randrange(0, 200))

    def state(self):
        for window in self.frame:
            self.xdo(*self.dice.choice((("windowminimize", window), ("windowstate", "--toggle", "MAXIMIZED_VERT", window),
                                        ("windowstate", "--toggle", "FULLSCREEN", window))))
            self.xdo("windowmap", window)

    def way_out(self):
        """The exit by button, key and window; mostly No."""
        self.xdo("key", self.dice.choice(("ctrl+x", "alt+F4")))
        time.sleep(0.1)
        self.xdo("key", self.dice.choice(("alt+n",) * 9 + ("alt+j",)))

    def marker_and_list(self):
        name = self.dice.choice(("Marker 1", "Marker 2", "Marker 3", "Max 1", "Oben 2", "Unter 3", "m_FileRow1", "m_FileRow3",
                                 "|<", "<<", ">>", ">|", "X", "+", "-", "R", "Scannen Port", "Oeffnen Port", "Ausschalten Port",
                                 "Auswaehlen COM Port:", "Beginnen Messung", "Halten Messung", "m_AlarmText"))
        node = self.window.find(name)
        if node:
            x, y = self.window.centre(node)
            self.xdo("mousemove", x, y, "click", "1")

    def act(self):
        kinds = (self.keys, self.chord, self.menu, self.click, self.drag, self.wheel, self.fill, self.resize, self.state,
                 self.way_out, self.marker_and_list, self.bench.disturb)
        weights = (10, 10, 12, 10, 3, 2, 8, 2, 1, 0.5, 6, 1)
        action = self.dice.choices(kinds, weights)[0]
        if action in (self.click, self.drag, self.keys, self.fill) and self.title().startswith(FILE_DIALOGS):
            self.xdo("type", "--delay", "2", "--", self.dice.choice(("nowhere.dat", "run.dat", "run.txt", "run.conf")))
            action = self.confirm
        action()
        self.actions += 1

    def confirm(self):
        self.xdo("key", self.dice.choice(("Return", "Return", "Escape")))

    def watch(self):
        """Dead, hung, or complained about?"""
        status = self.window.process.poll()
        self.expect_no_complaint()
        if status is not None:
            if status != ORDERLY:
                raise Failure(f"qor has ended with {status}")
            self.orderly_ends += 1
            time.sleep(1)
            self.start()
        self.window.wait(self.alive, 20, "the window still answers")
        memory = pathlib.Path(f"/proc/{self.window.process.pid}/statm").read_text().split()
        self.resident.append(int(memory[1]) * os.sysconf("SC_PAGE_SIZE") // 2**20)

    def alive(self):
        try:
            return self.window.application.get_child_count() > 0
        except GLib.Error:
            return self.window.process.poll() is not None

    def expect_no_complaint(self):
        for complaint in self.folder.glob("complaint*"):
            raise Failure(complaint.read_text(errors="replace")[:6000])

    # Back to order.
    def close_everything(self):
        for _ in range(60):
            for window in self.frame:
                self.xdo("windowmap", window, "windowactivate", window)
            box = self.window.open_dialog()
            if not box and self.title() == "QOR":
                break
            self.xdo("key", "Escape")
            time.sleep(0.2)
        self.xdo("key", "Escape", "key", "Escape")
        self.window.wait(lambda: self.window.open_dialog() is None, 5, "every dialog is closed")

    def shown(self, name):
        node = self.window.find(name)
        return self.window.text(name) if node else ""

    def choose(self, cell, wanted, *menu):
        if self.shown(cell) != wanted:
            self.window.menu(*menu)
            self.answer_boxes()

    def answer_boxes(self):
        for _ in range(10):
            if not self.window.open_dialog():
                return
            self.xdo("key", "Return")
            time.sleep(0.3)

    def ready(self):
        """Pressed for a connection like a patient operator: by the port button, else by waiting."""
        if self.shown("Zustand") == "Bereit":
            return True
        for caption in ("Scannen Port", "Oeffnen Port"):
            button = self.window.find(caption)
            if button and is_showing(button) and self.shown("Zustand") == "Nicht verbunden":
                if self.window.find("Auswaehlen COM Port:"):  # among several the operator chooses
                    self.window.click("Auswaehlen COM Port:")
                    self.window.key("Home", "Return")
                self.window.click(caption)
                time.sleep(4)
        self.answer_boxes()
        return self.shown("Zustand") == "Bereit"

    def recover(self):
        self.bench.only_one_good()
        self.close_everything()
        for window in self.frame:
            self.xdo("windowmove", window, 0, 0, "windowsize", window, 1260, 980)
        time.sleep(1)
        way_out = self.window.find("Exit")  # beyond the screen with the plot alone
        if not way_out or self.window.centre(way_out)[1] > HEIGHT:
            self.window.menu("Anzeige", "Display Grafik Nur")
        if self.window.find("Halten Messung"):
            self.window.click("Halten Messung")
        self.window.wait(self.ready, 60, f'"Zustand" reads "Bereit", not "{self.shown("Zustand")}"')
        self.choose("m_Mode_sel", "2 Ton Modell", "Messung", "2 Ton")
        self.choose("m_Band_sel", "EGSM", "Breite", "EGSM 900")
        self.window.key("ctrl+3")
        time.sleep(1)
        self.answer_boxes()
        self.window.wait(self.ready, 20, "the band is set up")
        self.window.key("ctrl+m")
        self.window.wait_text("Zustand", "Messung laeuft")
        self.window.wait(lambda: self.shown("m_ReadingText") not in ("", "0.0"), 10, "levels come in")
        end = time.monotonic() + 60
        while self.shown("Zustand") != "Bereit" and time.monotonic() < end:
            time.sleep(0.5)
        if self.window.find("Halten Messung"):  # set to last longer, or for ever
            self.window.click("Halten Messung")
        self.window.wait_text("Zustand", "Bereit")
        self.expect_no_complaint()

    def leave(self):
        """By the button, by the window, or because the language is changed, which starts it anew."""
        way = self.dice.choice(("button", "window", "language"))
        if way == "language":
            self.window.menu("Anzeige", "Sprache(L)", "English")
        else:
            if way == "button":
                self.window.click("Exit")  # the key belongs to a text field that has the keyboard
            else:
                self.xdo("windowactivate", "--sync", *self.frame, "key", "alt+F4")
            self.window.dialog()
            self.window.key("alt+j")
        status = self.window.process.wait(30)
        self.expect_no_complaint()
        if status != ORDERLY:
            raise Failure(f"it ended with {status}")
        time.sleep(2)
        if (self.end_descendants() > 0) != (way == "language"):
            raise Failure(f"left by the {way}, and what is there now is wrong")

    def close(self):
        self.window.close()
        self.end_descendants()
        self.bench.close()


def main():
    program, seed, seconds = os.path.abspath(sys.argv[1]), int(sys.argv[2]), float(sys.argv[3])
    simulator = os.path.abspath(sys.argv[4]) if len(sys.argv) > 4 else None
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        os.chdir(folder)
        torture = Torture(program, seed, simulator, folder)
        try:
            end = time.monotonic() + seconds
            while time.monotonic() < end:
                for _ in range(10):
                    torture.act()
                torture.watch()
            torture.recover()
            torture.leave()
        except Failure:
            torture.window.screenshot(f"torture_{seed}.png")
            print(f"seed {seed}, after {torture.actions} actions:", file=sys.stderr)
            raise
        finally:
            torture.close()
    print(f"seed {seed}: {torture.actions} actions, {torture.starts} starts, {torture.orderly_ends} ends on the way, "
          f"{torture.resident[0]} to {torture.resident[-1]} MiB; measured and ended in order.")


main()
