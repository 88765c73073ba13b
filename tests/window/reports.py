"""Reports at the window: the page by hand, the preview, a series over the list panel, its statistics, and auto-save
over two runs. Usage: reports.py QOR"""
import os
import pathlib
import shutil
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(__file__))
from qor_window import Failure, QorWindow  # noqa: E402

FILES = 60


def closed(window):
    window.wait(lambda: window.open_dialog() is None, 10, "the dialog closes")


def choose(window, path):
    window.dialog()
    window.type(str(path))
    window.key("Return")


def session(window, folder):
    window.wait_text("Zustand", "Bereit", 40)
    window.menu("Breite", "EGSM 900")
    window.wait_text("m_Band_sel", "EGSM")
    window.menu("Datei", "Auto Save On/Off")
    window.dialog()
    window.screenshot("auto_save.png")
    window.key("ctrl+a")
    window.type(str(folder / "auto" / "x"))
    for form in ("PDF", "DAT"):
        window.click(form)
    window.key("Return")
    closed(window)
    window.menu("Datei", "Auto Save Namen", "Frefix Set")
    window.dialog()
    window.screenshot("prefix.png")
    window.type("line4")
    window.key("Tab")
    window.type("7x")
    window.key("Return")
    window.need("The start value of SN should be number symbol!")
    window.screenshot("prefix_refused.png")
    window.key("BackSpace", "Return")
    closed(window)
    for caption, picture in (("Ordner der Serie", "series_folder.png"), ("Excel Vorlagen", "templates.png")):
        window.menu("Datei", "Auto Save Namen", caption)
        window.dialog()
        window.screenshot(picture)
        window.key("Escape")
        closed(window)
    for run in range(2):
        window.key("ctrl+m")
        window.wait_text("Zustand", "Messung laeuft")
        window.wait(lambda: len(list((folder / "auto").glob("line4*.pdf"))) == run + 1, 60, "the run is filed")
    names = sorted(path.name[-13:] for path in (folder / "auto").iterdir())
    if names != [" SN 00007.dat", " SN 00007.pdf", " SN 00008.dat", " SN 00008.pdf"]:
        raise Failure(f"filed as {names}")

    window.key("ctrl+s")
    choose(window, folder / "page.pdf")
    window.wait((folder / "page.pdf").exists, 10, "the page is written")
    closed(window)
    window.menu("Datei", "Drucken(V)")
    window.dialog()
    window.screenshot("preview.png")
    window.key("Escape")
    closed(window)
    window.menu("Datei", "Drucken Direkt(P)")
    window.wait(lambda: "Drucken misserfolg." in window.message(), 5, "there is no printer")
    window.key("Return")
    closed(window)

    # The whole list, its statistics, and a click that is answered while a series runs.
    first = next((folder / "auto").glob("*.dat"))
    for number in range(FILES):
        shutil.copy(first, folder / f"{number:03}.dat")
    window.key("ctrl+l")
    window.dialog()
    window.type(f"{folder}/")
    window.key("Return")
    time.sleep(0.5)
    window.key("ctrl+a")
    for start in range(0, FILES, 20):
        window.type("".join(f'"{number:03}.dat" ' for number in range(start, start + 20)))
    window.key("Return")
    window.wait_text("m_FileRow1", "000.dat")
    closed(window)
    window.menu("Datei", "Statistik")
    window.dialog()
    time.sleep(0.5)
    window.screenshot("statistics.png")
    window.key("Escape")
    closed(window)
    window.key("ctrl+s")
    window.dialog()
    window.key("alt+j")
    time.sleep(0.5)
    window.key("Return")
    window.wait(lambda: len(list(folder.glob("0*.pdf"))) > 8, 20, "the series is on its way")
    window.screenshot("series.png")
    window.key("Escape")
    began = time.monotonic()
    closed(window)
    print(f"ended within {time.monotonic() - began:.2f} s")
    written = len(list(folder.glob("0*.pdf")))
    if not 8 < written < FILES:
        raise Failure(f"{written} of {FILES} pages were written")
    window.wait_text("m_FileRow1", "000.dat")


def main():
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as stores:
        (pathlib.Path(stores) / "2tone_time.ccz").write_text("2")
        window = QorWindow(sys.argv[1], "-ConfigStart", "--data-dir", stores, "--simulate", "RT-DB22:6.2")
        try:
            session(window, pathlib.Path(folder))
        except Failure:
            window.screenshot("failure.png")
            raise
        finally:
            window.close()
    print("The reports are as they should be.")


main()
