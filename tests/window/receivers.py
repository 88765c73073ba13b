"""External receivers at the window, in three languages: the address and its test, the analyser's set-up with every
field's refusal, a scan that is cancelled, a receiver that is not there. Usage: receivers.py QOR STANDINS"""
import os
import pathlib
import re
import sys
import tempfile
import time
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Atspi, Failure, QorWindow, name_of, run  # noqa: E402

CATALOGUES = pathlib.Path(__file__).parents[2] / "translations"
LANGUAGES = {"en": "0", "de": "2", "zh": "1"}  # first character of Install_info.ccz


class Words:
    """A language: what stands in the window for a text of the source, without mnemonics."""

    def __init__(self, language):
        self.texts = {}
        if language != "de":
            for message in ElementTree.parse(CATALOGUES / f"qor_{language}.ts").iter("message"):
                self.texts[message.findtext("source")] = message.findtext("translation")

    def __call__(self, source):
        text = self.texts.get(source, source)
        bare = re.sub(r"\(&(.)\)$", lambda m: "" if m[1].lower() in text[:m.start()].lower() else m[0], text)
        return bare.replace("&", "")


def closed(window):
    window.wait(lambda: window.open_dialog() is None, 10, "the dialog closes")


def shows(window, part, seconds=10):
    window.wait(lambda: any(part in name_of(node) for node in window.nodes()), seconds, f'"{part}" is shown')


def refused(window, text):
    shown = window.message()
    if text not in shown:
        raise Failure(f'the message reads "{shown}", not "{text}"')
    window.key("Return")
    window.wait(lambda: not any(text in name_of(node) for node in window.nodes()), 5, "the message closes")


def setup_menu(window, tr, *path):
    window.menu(tr("Setup(&S)"), *(tr(caption) for caption in path))


def field(window, caption):
    """The field, not the label of the same name beside it."""
    return next(node for node in window.nodes() if name_of(node) == caption and node.get_role() != Atspi.Role.LABEL)


def click_at(window, node):
    x, y = window.centre(node)
    run("xdotool", "mousemove", str(x), str(y), "click", "1")


def put(window, caption, text):
    click_at(window, field(window, caption))
    window.key("ctrl+a", "BackSpace")
    if text:
        window.type(text)


def choose(window, place, *keys):
    """The name of a choice is what is chosen, its caption a label beside it: it is found by its place."""
    boxes = [node for node in window.nodes(window.open_dialog()) if node.get_role() == Atspi.Role.COMBO_BOX]
    click_at(window, boxes[place])
    time.sleep(0.3)  # until its list is open
    window.key(*keys, "Return")


def text_of(window, caption):
    interface = field(window, caption).get_text_iface()
    return Atspi.Text.get_text(interface, 0, Atspi.Text.get_character_count(interface))


def extern(window, tr, language):
    setup_menu(window, tr, "R/S Analysator Setup(&A)")
    refused(window, tr('Please select external receiver by menu "Setup->Receiver Ports->External"'))
    closed(window)
    setup_menu(window, tr, "Receiver Ports(&P)", "Extern")
    shows(window, "QOR,SIM-ANALYSER,SIM01,1.0")
    setup_menu(window, tr, "Receiver Ports(&P)", "Adresse(&D)")
    window.dialog()
    put(window, tr("VISA Adresse:"), "")
    window.click(tr("Test"))
    shows(window, tr("Bitte eine Adresse eingeben."))
    window.screenshot(f"address_refused_{language}.png")
    put(window, tr("VISA Adresse:"), "TCPIP0::analyser.lab::hislip0::INSTR")
    window.click(tr("Test"))
    shows(window, "QOR,SIM-ANALYSER,SIM01,1.0")
    window.screenshot(f"address_{language}.png")
    window.key("Escape")
    closed(window)


def analyser(window, tr, language):
    setup_menu(window, tr, "R/S Analysator Setup(&A)")
    window.dialog()
    window.screenshot(f"setup_{language}.png")
    wrong = {"Ref_Lev (dBm):": ("", "low", "-6 0"), "y_Scale (dB):": ("", "0", "95"),
             "Freq_span (Ref: 0) (kHz):": ("", "1.5", "-1")}
    for caption, texts in wrong.items():
        good = text_of(window, tr(caption))
        for text in texts if language == "de" else texts[-1:]:
            put(window, tr(caption), text)
            window.click(tr("Einbauen"))
            shows(window, tr("Falsch, dichtesortierung."))
            if text == "95":
                window.screenshot(f"setup_refused_{language}.png")
            refused(window, tr("Falsch, dichtesortierung."))
        put(window, tr(caption), good)
    for bandwidth in (2, 3):
        choose(window, bandwidth, "End")  # 10MHz
        window.click(tr("Einbauen"))
        shows(window, tr("Falsch, dichtesortierung."))
        refused(window, tr("Falsch, dichtesortierung."))
        choose(window, bandwidth, "Home", "Down", "Down", "Down", "Down")
    put(window, tr("y_Scale (dB):"), "80")
    window.click(tr("Einbauen"))
    window.wait(lambda: not window.find(tr("Einbauen")).get_state_set().contains(Atspi.StateType.SENSITIVE), 5,
                "what is installed is not installed again")
    window.click(tr("Standard"))
    if text_of(window, tr("y_Scale (dB):")) != "100" or text_of(window, tr("Ref_Lev (dBm):")) != "-60":
        raise Failure("Standard puts the usual set-up in")
    window.click(tr("Sich"), window.open_dialog())
    closed(window)


def in_language(program, language):
    tr = Words(language)
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "Install_info.ccz").write_text(LANGUAGES[language])
        window = QorWindow(program, "--data-dir", folder, "--simulate", "RT-DB22:6.2", "--simulate-receiver",
                           "analyser")
        try:
            window.need(tr("Setup(&S)"), 30)
            window.wait_text(tr("Zustand"), tr("Bereit"), 40)
            extern(window, tr, language)
            analyser(window, tr, language)
            store = (pathlib.Path(folder) / "rs_ANALYZER_setup.ccz").read_text()
            if not store.endswith("#0#80#0#0#4#4#"):
                raise Failure(f"installed as {store}")
        except Exception:
            window.screenshot(f"failed_{language}.png")
            raise
        finally:
            window.close()


def scan(program, standins):
    """With a library installed and nobody at its addresses: a scan with a progress that is cancelled."""
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "internalreceiver.ccz").write_text("1")
        window = QorWindow(program, "--data-dir", folder, "--simulate", "RT-DB22:6.2",
                           environment={"LD_LIBRARY_PATH": f"{standins}/whole", "QOR_STANDIN_ADDRESS": "none",
                                        "QOR_STANDIN_HANG": "viOpen", "QOR_STANDIN_HANG_MS": "60",
                                        "QOR_STANDIN_SENSOR": "-1"})
        tr = Words("de")
        try:
            window.wait_text("Zustand", "Bereit", 40)
            setup_menu(window, tr, "Receiver Ports(&P)", "Extern")
            shows(window, "Suche Empfaenger: GPIB", 20)
            window.screenshot("scan.png")
            window.click("Abbrechen")
            shows(window, "Kein Empfaenger: GPIB0::20::INSTR: nicht erreichbar")
            window.wait_text("Zustand", "Kein Empfaenger")
            window.screenshot("nobody.png")
            window.key("ctrl+m")
            shows(window, "Kein Empfaenger: GPIB0::20::INSTR: nicht erreichbar")
            window.wait(lambda: window.open_dialog() is not None, 5, "the start is refused")
            window.key("Return")
        except Exception:
            window.screenshot("failed_scan.png")
            raise
        finally:
            window.close()


def main():
    program, standins = sys.argv[1:3]
    for language in LANGUAGES:
        in_language(program, language)
    scan(program, standins)
    print("receivers: three languages, a scan")


if __name__ == "__main__":
    main()
