"""The service pages at the window, by keyboard and mouse: in by the PIN, a command, a byte, a preview that is refused,
and out. Usage: service.py QOR"""
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
    kinds = (Atspi.Role.TEXT, Atspi.Role.ENTRY, Atspi.Role.COMBO_BOX)
    found = [n for n in window.nodes() if name_of(n) == name and role_of(n) in kinds and is_showing(n)]
    expect(found, f'there is a field "{name}"')
    return found[0]


def text(window, name):
    interface = field(window, name).get_text_iface()
    return Atspi.Text.get_text(interface, 0, Atspi.Text.get_character_count(interface))


def click(window, name):
    run("xdotool", "mousemove", *map(str, window.centre(field(window, name))), "click", "1")


def enter(window, pin):
    window.key("Home")
    window.dialog()
    window.type(pin)
    window.key("Return")
    window.wait(lambda: window.open_dialog() is None, 5, "the PIN's dialog closes")


def open_page(window):
    window.wait_text("Zustand", "Bereit", 40)
    enter(window, "123456")
    time.sleep(0.5)
    expect(window.find("Test") is None, "a wrong PIN opens nothing")
    enter(window, "740261")
    window.need("Calibration")
    window.click("Test")
    window.need("Exit Test")
    expect(window.find("Beginnen Messung") is None, "what measures is out of sight")
    window.wait(lambda: "Speicher gesichert" in window.need("Status").get_description(), 20, "the memory is kept")


def test_page(window, stores):
    expect(window.name_of(window.focused()) == "Command line", "the keyboard is at the first field")
    window.type("#SAB?")
    window.key("Return")
    window.wait(lambda: "SAB0" in text(window, "Command Response:"), 5, "the reply is shown")
    window.key("Up")
    window.wait(lambda: text(window, "Command line") == "#SAB?", 5, "the up key brings it back")
    expect("> #SAB?" in text(window, "Verlauf"), "the history has it, too")

    click(window, "Page:")
    window.type("125")
    window.key("Tab")
    window.type("100")
    window.click("Read")
    window.wait(lambda: text(window, "Value:") == "200", 5, "the byte is read")
    click(window, "Value:")
    window.key("ctrl+a")
    window.type("256")
    window.click("Write")
    time.sleep(0.5)
    expect(not pathlib.Path(stores, "memory-record.csv").exists(), "no byte is 256")

    click(window, "Equipment Type:")
    window.key("Home", "Down", "Return")
    window.click("EGSM")
    window.click("Initialize")
    expect("3-dB bridge" in window.message(), "the bridge is asked for")
    window.key("alt+j")
    window.wait(lambda: "#KVTPD4" in window.message(), 5, "every command is shown")
    window.screenshot("preview.png")
    window.key("alt+n")
    window.wait(lambda: window.open_dialog() is None, 5, "it closes")
    expect(not pathlib.Path(stores, "memory-record.csv").exists(), "nothing was written")


def leave(window):
    window.click("Exit Test")
    window.need("Beginnen Messung")
    window.wait(lambda: window.name_of(window.focused()) == "Beginnen Messung", 5, "the keyboard is at the start")
    window.menu("Breite", "EGSM 900")
    window.wait_text("m_Band_sel", "EGSM")
    window.key("space")
    window.wait_text("Zustand", "Messung laeuft", 10)
    window.click("m_DutSerial")
    window.key("space")
    window.wait_text("Zustand", "Bereit", 10)
    window.key("Tab", "Tab")
    expect(window.text("m_DutSerial") == "", "the key that stops is no entry")
    window.click("Calibration")
    window.need("Exit Cal")
    window.screenshot("calibration.png")
    window.click("Exit Cal")
    window.need("Beginnen Messung")
    window.key("Home")
    expect("exit factory mode" in window.message(), "leaving is asked")
    window.key("alt+j")
    window.wait(lambda: window.find("Test") is None, 5, "its buttons go")


def main():
    program = sys.argv[1]
    with tempfile.TemporaryDirectory() as stores:
        window = QorWindow(program, "-ConfigStart", "--data-dir", stores, "--simulate", "RT-DB22:6.2")
        try:
            open_page(window)
            test_page(window, stores)
            window.screenshot("test_page.png")
            leave(window)
        except Failure:
            window.screenshot("failure.png")
            raise
        finally:
            window.close()
    print("The service is content.")


main()
