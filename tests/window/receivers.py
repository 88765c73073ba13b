"""External receivers at the window, in three languages: the address and its test, the analyser's set-up with every
field's refusal, a scan that is cancelled, a receiver that is not there. Usage: receivers.py QOR STANDINS"""
import os
import pathlib
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Atspi, Failure, QorWindow, name_of  # noqa: E402

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
        if "(&" in text:
            text = text[:text.index("(&")] + text[text.index("(&") + 4:]
        return text.replace("&", "")


def closed(window):
    window.wait(lambda: window.open_dialog() is None, 10, "the dialog closes")


def shows(window, part, seconds=10):
    window.wait(lambda: any(part in name_of(node) for node in window.nodes()), seconds, f'"{part}" is shown')


def setup_menu(window, tr, *path):
    window.menu(tr("Setup(&S)"), *(tr(caption) for caption in path))


def put(window, field, text):
    window.click(field)
    window.key("ctrl+a", "BackSpace")
    if text:
        window.type(text)


def extern(window, tr, language):
    setup_menu(window, tr, "R/S Analysator Setup(&A)")
    if "select external receiver" not in window.message() and language != "zh":
        raise Failure("without an external receiver there is nothing to set up")
    window.key("Return")
    closed(window)
    setup_menu(window, tr, "Receiver Ports(&P)", "Extern")
    shows(window, "QOR,SIM-ANALYSER,SIM01,1.0")
    setup_menu(window, tr, "Receiver Ports(&P)", "Adresse(&D)")
    window.dialog()
    put(window, tr("VISA Adresse:"), "")
    window.click("Test")
    shows(window, tr("Bitte eine Adresse eingeben."))
    window.screenshot(f"address_refused_{language}.png")
    put(window, tr("VISA Adresse:"), "TCPIP0::analyser.lab::hislip0::INSTR")
    window.click("Test")
    shows(window, "QOR,SIM-ANALYSER,SIM01,1.0")
    window.screenshot(f"address_{language}.png")
    window.key("Escape")
    closed(window)


def analyser(window, tr, language):
    setup_menu(window, tr, "R/S Analysator Setup(&A)")
    window.dialog()
    window.screenshot(f"setup_{language}.png")
    wrong = {"Ref_Lev (dBm):": ("", "low", "-6 0"), "y_Scale (dB):": ("", "95", "0"),
             "Freq_span (Ref: 0) (kHz):": ("", "1.5", "-1")}
    for caption, texts in wrong.items():
        good = window.text(tr(caption))
        for text in texts:
            put(window, tr(caption), text)
            window.click(tr("Einbauen"))
            shows(window, tr("Falsch, dichtesortierung."))
            if text == "95":
                window.screenshot(f"setup_refused_{language}.png")
            window.key("Return")
            window.wait(lambda: tr("Falsch, dichtesortierung.") not in [name_of(n) for n in window.nodes()], 5,
                        "the refusal is gone")
        put(window, tr(caption), good)
    for caption in ("Resolution_Bandwidth:", "Video_Bandwidth:"):
        window.click(tr(caption))
        window.key("End", "Return")  # 10MHz
        window.click(tr("Einbauen"))
        shows(window, tr("Falsch, dichtesortierung."))
        window.key("Return")
        window.click(tr(caption))
        window.key("Home", "Down", "Down", "Down", "Down", "Return")
    put(window, tr("y_Scale (dB):"), "80")
    window.click(tr("Einbauen"))
    window.wait(lambda: not window.find(tr("Einbauen")).get_state_set().contains(Atspi.StateType.SENSITIVE), 5,
                "what is installed is not installed again")
    window.click("Standard")
    if window.text(tr("y_Scale (dB):")) != "100" or window.text(tr("Ref_Lev (dBm):")) != "-60":
        raise Failure("Standard puts the usual set-up in")
    window.click(tr("Sich"))
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
            if not store.endswith("#-60#80#0#0#4#4#"):
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
            shows(window, "Suche Empfaenger: GPIB0::1", 20)
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
