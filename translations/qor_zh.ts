<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
  <context>
    <name>qor</name>
    <message>
      <source>&amp;Ja</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>&amp;Nein</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>--- Frequenz ---</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>--- fIM/dBm ---</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>----- Alarm Niveau------</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>----- Marker 1 ------</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>----- Marker 2 ------</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>----- Marker 3 ------</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>. Please choose another file.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>2 Ton Modell</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>2 Ton(&amp;2)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>2 Tone</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>: results are saved as .dat or .txt.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>=https://... eintragen.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Abbrechen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Abtasten Nummer(1-10):</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Addieren Anmerkung(&amp;C)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Administrator/Operator Mode Enable(&amp;E)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Aisa Pacific</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Aktivitaet</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Alarm Oeffnen/Schliessen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Alarm Stempel Oeffnen/Schliessen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Alarm(&amp;A)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Alle passenden Dateien</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>America</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Anschaulich</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Ansehend QOR(&amp;H)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Anzeige loeschen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Anzeige(&amp;Z)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Asche</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auf Bestellung Anfertigen...</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auf den hoechsten Punkt</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auf der fallenden Kurve</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auf der steigenden Kurve</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Ausschalten Port</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auswaehlen Breite</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auswaehlen COM Port:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auswaehlen IM</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auswaehlen Messung modell</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auswaehlen Uebergeben modell oder reflex modell.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Auto Save On/Off(&amp;A)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Beginnen Messung</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bereich Log(&amp;D)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bereit</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 1</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 10</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 2</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 3</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 4</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 5</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 6</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 7</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 8</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden 9</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden(&amp;B)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bilden...</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Bitte eine ganze Zahl von 0 bis 5000 eingeben.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Breite(&amp;B)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Breite/Power(&amp;B)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Breite:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Calibration</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Can not setup Alarm.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Can not setup DIG-DIV.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Can not setup LTE 700 L.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Can not setup LTE 700 U.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Can not setup Marker.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Cannot connect to device for incorrect port, please select correct port!</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Chinese</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Clear screen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Compensation(&amp;C)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Continuous Measurement Enable</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Continuous Measurement Setup</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Darstellung(&amp;A)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Datei(&amp;D)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Datenordner:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Deutsch</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Display Grafik Nur(&amp;I)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Do you select PCS band?  Yes--PCS, No--AWS</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Does not support the current selection!</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Drucken Direkt(&amp;P)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Drucken(&amp;V)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einbauen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einbauen misserfolg</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einen Eintrag weiter</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einen Eintrag zurueck</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einfuehren Daten</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einfuehren Daten(&amp;L)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einfuehren Firmenlogo(&amp;I)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Einheit: dBm/dBc(&amp;C)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Eintrag aus der Liste nehmen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Endless</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>English</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Entsprechen Bildschirm</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Equipment type</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Europe</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Exit</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Extern</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Firmware:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Geraet:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Grenzwert, 0 bis -200</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Halten Messung</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Halten Messung erst!</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Hilfe(&amp;H)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Histogramm(&amp;H)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Hoch</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Hoehe:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>IM3(&amp;3)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>IM5(&amp;5)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>IM7(&amp;7)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>IM9(&amp;9)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Initialisieren</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Initialisieren, bitte warten!</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Inter-band Measurement(&amp;O)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Intern</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Intervall:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Kein Geraet verbunden.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Kein Handbuch gefunden. Bitte QOR_Handbook.pdf in den Datenordner legen oder in qor.ini die Zeile handbook=... eintragen.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Keine Seite fuer Updates eingetragen. Bitte in qor.ini die Zeile</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Klein</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Laenge einer 2-Ton-Messung, 1 bis 2147483 Sekunden</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Lautstaerke</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Leise</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Load Configure</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Load Rx Loss</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Marker 1 Bilden</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Marker 2 Bilden</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Marker 3 Bilden</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Marker ein- und ausschalten</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Max</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Measurement Mode Setup(&amp;M)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Messung laeuft</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Messung(&amp;M)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Mesurement Einbauen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Mitte</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Multi-times</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nicht verbunden</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts Breite Selektiert</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts auswaehlen das breite.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen AMPS.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen AWS.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen DCS.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen EGSM.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen LTE.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen PCS.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen TD-SCDMA.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen UMTS.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen UMTS2.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen WIFI.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nichts einbauen WiMax.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Niveau</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Not Supported</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Nummer (0 vertreten unendlich):</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Oben</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Oeffnen Port</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Oeffnen file Misserfolg</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Oeffnen port erst!</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Okey</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>One of its data rows is damaged.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>PIM</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Path Cable Loss(&amp;L)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Pause zwischen zwei Durchlaeufen</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Pegelachse vergroessern</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Pegelachse verkleinern</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Pixel</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Please choose another file.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Please select band after initailization completed.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Port muessen kleiner als 17</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Programm beenden</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Programm wird beendet</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>QOR Device SN(&amp;Z)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>QOR Handbuch(&amp;Q)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>R/S Analysator Setup(&amp;A)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Receiver Ports(&amp;P)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Reflex Modell</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Reflex(&amp;R)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Replace data</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Route Verlust Einbauen(&amp;X)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Route Verlust(&amp;V)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>SA Enclosed</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Save Configure</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Scannen Modell</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Scannen Port</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Scannen(&amp;S)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Schnittstelle Entwurf(&amp;Z)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Sek.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Selec PCS/AWS</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Serien:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Seriennummer des Prueflings</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Seriennummer(&amp;N)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Seriennummer:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Setup(&amp;S)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Sich</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Sich(&amp;X)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Sich?</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Single</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Spectrum Analyze Enclosed</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Spectrum Analyzer(&amp;N)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Spectrum Mode</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern BMP(&amp;B)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern DATen File</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern Daten</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern Daten(&amp;T)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern Excel(&amp;X)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern Graph(&amp;G)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern JPG(&amp;J)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern PDF(&amp;S)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Speichern file misserfolg</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Sprache(&amp;L)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Start/Stop Measurement(&amp;M)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Stelle des Markers: Zeit oder Frequenz</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Steuerprogramm fuer einen Zweiton-Analysator der passiven Intermodulation</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Sweep</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>TD-SCDMA 2000</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Test</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The device is disconnect. Connect it now?</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The file ends before its limit line.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The file ends in the middle of its data.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The file has already existed. Do you want to replace it?</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The file holds no measured level.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The file is empty.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The file is too long for a result.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>The power of Tone 1 and Tone 2 is not the same, can not use dBc.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>This is not a result file, or its header is damaged.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>This is not a result file.</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Time:</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Uebergeben(&amp;T)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Uegerbegen Modell</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Under Limit Beep On/Off</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Unter</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Update(&amp;U)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Werkzeug(&amp;W)</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Zum Anfang der Liste</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Zum Ende der Liste</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>Zwei Durchlaeufe ohne Pause, der erste mit ausgeschalteten Traegern</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>dBm &lt;-&gt; mW &lt;-&gt; mV</source>
      <translation type="unfinished" />
    </message>
    <message>
      <source>ist keine Zahl. Bitte mit Dezimalpunkt eingeben.</source>
      <translation type="unfinished" />
    </message>
  </context>
</TS>
