"""Drives the window of qor from outside: real keys and clicks, and what assistive technology can read."""
import os
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


class Failure(Exception):
    """What an operator would complain about."""


def run(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True, timeout=20).stdout


def children(node):
    try:
        return [node.get_child_at_index(i) for i in range(node.get_child_count())]
    except GLib.Error:
        return []


def name_of(node):
    try:
        return node.get_name() or ""
    except GLib.Error:
        return ""


def role_of(node):
    try:
        return node.get_role()
    except GLib.Error:
        return None


def is_showing(node):
    try:
        return node.get_state_set().contains(Atspi.StateType.SHOWING)
    except GLib.Error:
        return False


class QorWindow:
    """One running qor. Its window is found by the process, its controls by their accessible names."""

    def __init__(self, program, *arguments, environment=None, log_on=None):
        """`log_on`: the key that closes the question who is there."""
        variables = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8", **(environment or {}))
        self.process = subprocess.Popen([program, *arguments], env=variables)
        self.application = None
        if log_on:
            self.wait(lambda: self._find_application() and self.open_dialog(), 30, "it is asked who is there")
            time.sleep(0.5)
            self.key(log_on)
        self.wait(lambda: self._find_application() and self.main_window(), 30, "the window comes up")

    def _find_application(self):
        desktop = Atspi.get_desktop(0)
        for application in children(desktop):
            try:
                if application and application.get_process_id() == self.process.pid:
                    self.application = application
            except GLib.Error:
                pass
        return self.application

    def main_window(self):
        windows = [w for w in children(self.application) if w and name_of(w) == "QOR"]
        return windows[0] if windows else None

    def wait(self, condition, seconds, what):
        """Waits until `condition()` holds; a window that has died or takes too long is a failure. A control that goes
        away while it is asked is asked again."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self.process.poll() is not None:
                raise Failure(f"qor has ended with {self.process.returncode} while waiting: {what}")
            try:
                if condition():
                    return
            except GLib.Error:
                pass
            time.sleep(0.05)
        raise Failure(f"not within {seconds} s: {what}")

    def nodes(self, root=None):
        pending = [root or self.application]
        while pending:
            node = pending.pop()
            if node is None:
                continue
            yield node
            pending.extend(reversed(children(node)))

    def find(self, name, root=None):
        """The showing control of that accessible name, or None."""
        for node in self.nodes(root):
            if name_of(node) == name and is_showing(node):
                return node
        return None

    def focused(self):
        """The control that has the keyboard, or None."""
        for node in self.nodes(self.main_window()):
            try:
                if node.get_state_set().contains(Atspi.StateType.FOCUSED):
                    return node
            except GLib.Error:
                pass
        return None

    def name_of(self, node):
        return name_of(node)

    def title(self):
        """Of the main window, as the window manager has it."""
        return run("xdotool", "search", "--onlyvisible", "--name", "^QOR", "getwindowname").strip()

    def need(self, name, seconds=5):
        """The showing control of that name: the one that was found, for a busy window may not answer twice."""
        found = []

        def is_found():
            found[:] = [self.find(name)]
            return found[0] is not None

        self.wait(is_found, seconds, f'"{name}" is shown')
        return found[0]

    def text(self, name):
        node = self.need(name)
        interface = node.get_text_iface()
        if interface is None:
            return name_of(node)
        return Atspi.Text.get_text(interface, 0, Atspi.Text.get_character_count(interface))

    def wait_text(self, name, wanted, seconds=10):
        self.wait(lambda: self.find(name) is not None and self.text(name) == wanted, seconds,
                  f'"{name}" reads "{wanted}"')

    def centre(self, node):
        box = node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def click(self, name, root=None):
        node = self.find(name, root) if root else self.need(name)
        x, y = self.centre(node)
        run("xdotool", "mousemove", str(x), str(y), "click", "1")

    def key(self, *keys):
        run("xdotool", "key", "--delay", "30", *keys)

    def type(self, text):
        run("xdotool", "type", "--delay", "15", "--", text)

    def menu(self, *path):
        """Goes down the menu by the mouse: menu, submenus, item. Captions without mnemonics."""
        for caption in path:
            self.click(caption)
            time.sleep(0.15)

    def open_dialog(self):
        """The dialog or message box that is open, or None."""
        found = [w for w in children(self.application)
                 if w and role_of(w) in (Atspi.Role.DIALOG, Atspi.Role.ALERT, Atspi.Role.FILE_CHOOSER)
                 and is_showing(w)]
        return found[-1] if found else None

    def dialog(self, seconds=5):
        self.wait(lambda: self.open_dialog() is not None, seconds, "a dialog opens")
        time.sleep(0.2)  # until it has the keyboard
        return self.open_dialog()

    def message(self):
        """Text of the message box that is open, all its labels."""
        return "\n".join(name_of(n) for n in self.nodes(self.dialog()) if role_of(n) == Atspi.Role.LABEL)

    def screenshot(self, name):
        """A picture for whoever looks for what went wrong, in the folder that the environment names."""
        folder = os.environ.get("QOR_SCREENSHOTS") or tempfile.mkdtemp()
        os.makedirs(folder, exist_ok=True)
        path = os.path.join(folder, name)
        subprocess.run(["import", "-window", "root", path], check=False, timeout=20)

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
            self.process.wait(10)
