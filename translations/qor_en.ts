<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
  <context>
    <name>qor</name>
    <message>
      <source>%1 von %2</source>
      <translation>%1 of %2</translation>
    </message>
    <message>
      <source>%1 von %2 Punkten</source>
      <translation>%1 of %2 points</translation>
    </message>
    <message>
      <source>&amp;Ja</source>
      <translation>&amp;Yes</translation>
    </message>
    <message>
      <source>&amp;Nein</source>
      <translation>&amp;No</translation>
    </message>
    <message>
      <source>--- Frequenz ---</source>
      <translation>--- Frequency ---</translation>
    </message>
    <message>
      <source>--- fIM/dBm ---</source>
      <translation>--- fIM/dBm ---</translation>
    </message>
    <message>
      <source>----- Alarm Niveau------</source>
      <translation>----- Alarm Limit -----</translation>
    </message>
    <message>
      <source>----- Marker 1 ------</source>
      <translation>----- Marker 1 -----</translation>
    </message>
    <message>
      <source>----- Marker 2 ------</source>
      <translation>----- Marker 2 -----</translation>
    </message>
    <message>
      <source>----- Marker 3 ------</source>
      <translation>----- Marker 3 -----</translation>
    </message>
    <message>
      <source>0 bis 127</source>
      <translation>0 to 127</translation>
    </message>
    <message>
      <source>0 bis 1270</source>
      <translation>0 to 1270</translation>
    </message>
    <message>
      <source>1 bis 30 s</source>
      <translation>1 to 30 s</translation>
    </message>
    <message>
      <source>1. Password is needless for Operator mode.</source>
      <translation>1. Operator mode needs no password.</translation>
    </message>
    <message>
      <source>2 Ton Modell</source>
      <translation>2-Tone</translation>
    </message>
    <message>
      <source>2 Ton(&amp;2)</source>
      <translation>2-Tone(&amp;2)</translation>
    </message>
    <message>
      <source>2 Tone</source>
      <translation>2-Tone</translation>
    </message>
    <message>
      <source>2 Tone Mode Set</source>
      <translation>2-Tone Mode</translation>
    </message>
    <message>
      <source>2 Tone time (Sec.):</source>
      <translation>2 Tone time (Sec.):</translation>
    </message>
    <message>
      <source>2. Please modify password for adminitrator mode, please type "740261" in "old password" field if no old password.</source>
      <translation>2. Please change the password of administrator mode; if there is no old password, type "740261" into the field "Old password".</translation>
    </message>
    <message>
      <source>20 bis 47 dBm</source>
      <translation>20 to 47 dBm</translation>
    </message>
    <message>
      <source>&lt;&lt;&lt;2-Ton&gt;&gt;&gt;</source>
      <translation>&lt;&lt;&lt;2-Tone&gt;&gt;&gt;</translation>
    </message>
    <message>
      <source>&lt;&lt;Oben Scannen&gt;&gt;</source>
      <translation>&lt;&lt;Sweep Up&gt;&gt;</translation>
    </message>
    <message>
      <source>&lt;The graph is invalid for official report as it's not loaded from DAT file&gt;</source>
      <translation>&lt;Not valid for an official report: not loaded from a DAT file&gt;</translation>
    </message>
    <message>
      <source>&lt;Unter Scannen&gt;</source>
      <translation>&lt;&lt;Sweep Down&gt;&gt;</translation>
    </message>
    <message>
      <source>A result between bands cannot be shown.</source>
      <translation>A result between bands cannot be shown.</translation>
    </message>
    <message>
      <source>AMPS Einbauen</source>
      <translation>AMPS Setup</translation>
    </message>
    <message>
      <source>AWS Setup</source>
      <translation>AWS Setup</translation>
    </message>
    <message>
      <source>Abbestellen</source>
      <translation>Cancel</translation>
    </message>
    <message>
      <source>Abbrechen</source>
      <translation>Cancel</translation>
    </message>
    <message>
      <source>Abstand dB</source>
      <translation>Margin dB</translation>
    </message>
    <message>
      <source>Abtasten Nummer(1-10):</source>
      <translation>Number of sweeps (1-10):</translation>
    </message>
    <message>
      <source>Addieren</source>
      <translation>Add</translation>
    </message>
    <message>
      <source>Addieren Anmerkung</source>
      <translation>Comment</translation>
    </message>
    <message>
      <source>Addieren Anmerkung(&amp;C)</source>
      <translation>Add Comment(&amp;C)</translation>
    </message>
    <message>
      <source>Address:</source>
      <translation>Address:</translation>
    </message>
    <message>
      <source>Administrator Mode</source>
      <translation>Administrator Mode</translation>
    </message>
    <message>
      <source>Administrator/Operator Mode Enable(&amp;E)</source>
      <translation>Administrator/Operator Mode(&amp;O)</translation>
    </message>
    <message>
      <source>Adresse(&amp;D)</source>
      <translation>Address(&amp;D)</translation>
    </message>
    <message>
      <source>Adresse, 0 bis 255</source>
      <translation>Address, 0 to 255</translation>
    </message>
    <message>
      <source>Aisa Pacific</source>
      <translation>Asia Pacific</translation>
    </message>
    <message>
      <source>Aktivitaet</source>
      <translation>Active</translation>
    </message>
    <message>
      <source>Alarm Einbauen</source>
      <translation>Alarm Setup</translation>
    </message>
    <message>
      <source>Alarm Niveau</source>
      <translation>Alarm limit</translation>
    </message>
    <message>
      <source>Alarm Oeffnen/Schliessen</source>
      <translation>Alarm On/Off</translation>
    </message>
    <message>
      <source>Alarm Stempel Oeffnen/Schliessen</source>
      <translation>Pass/Fail Stamp On/Off</translation>
    </message>
    <message>
      <source>Alarm(&amp;A)</source>
      <translation>Alarm(&amp;A)</translation>
    </message>
    <message>
      <source>Alle passenden Dateien</source>
      <translation>All matching files</translation>
    </message>
    <message>
      <source>America</source>
      <translation>America</translation>
    </message>
    <message>
      <source>Anfang f1:</source>
      <translation>Start f1:</translation>
    </message>
    <message>
      <source>Anfang f2:</source>
      <translation>Start f2:</translation>
    </message>
    <message>
      <source>Anfang/Ende f1 falsch!!!</source>
      <translation>Start/stop f1 is wrong!</translation>
    </message>
    <message>
      <source>Anfang/Ende f2 falsch!!!</source>
      <translation>Start/stop f2 is wrong!</translation>
    </message>
    <message>
      <source>Anfang:</source>
      <translation>Top:</translation>
    </message>
    <message>
      <source>Anmerkung:</source>
      <translation>Comment:</translation>
    </message>
    <message>
      <source>Anschaulich</source>
      <translation>Vivid</translation>
    </message>
    <message>
      <source>Anschluss des Geraets</source>
      <translation>Port of the instrument</translation>
    </message>
    <message>
      <source>Anschluss suchen, oeffnen oder schliessen</source>
      <translation>Search, open or close the port</translation>
    </message>
    <message>
      <source>Ansehend QOR</source>
      <translation>About QOR</translation>
    </message>
    <message>
      <source>Ansehend QOR(&amp;H)</source>
      <translation>About QOR(&amp;A)</translation>
    </message>
    <message>
      <source>Antwort:</source>
      <translation>Answer:</translation>
    </message>
    <message>
      <source>Antworten von drei:</source>
      <translation>Answers out of three:</translation>
    </message>
    <message>
      <source>Anzeige loeschen</source>
      <translation>Clear display</translation>
    </message>
    <message>
      <source>Anzeige(&amp;Z)</source>
      <translation>Display(&amp;D)</translation>
    </message>
    <message>
      <source>Asche</source>
      <translation>Ash</translation>
    </message>
    <message>
      <source>Auf Bestellung Anfertigen</source>
      <translation>Custom Layout</translation>
    </message>
    <message>
      <source>Auf Bestellung Anfertigen...</source>
      <translation>Custom...</translation>
    </message>
    <message>
      <source>Auf den hoechsten Punkt</source>
      <translation>To the highest point</translation>
    </message>
    <message>
      <source>Auf der fallenden Kurve</source>
      <translation>On the falling curve</translation>
    </message>
    <message>
      <source>Auf der steigenden Kurve</source>
      <translation>On the rising curve</translation>
    </message>
    <message>
      <source>Ausschalten Port</source>
      <translation>Close Port</translation>
    </message>
    <message>
      <source>Ausserhalb von -99.9 bis 9.9 dB, zaehlt als 0:</source>
      <translation>Outside -99.9 to 9.9 dB, counts as 0:</translation>
    </message>
    <message>
      <source>Auswaehlen Breite</source>
      <translation>Select a band</translation>
    </message>
    <message>
      <source>Auswaehlen COM Port:</source>
      <translation>Select COM port:</translation>
    </message>
    <message>
      <source>Auswaehlen IM</source>
      <translation>Select an IM order</translation>
    </message>
    <message>
      <source>Auswaehlen Messung modell</source>
      <translation>Select a measurement mode</translation>
    </message>
    <message>
      <source>Auswaehlen Uebergeben modell oder reflex modell.</source>
      <translation>Select transmission or reflection mode.</translation>
    </message>
    <message>
      <source>Auto Save Namen(&amp;N)</source>
      <translation>Auto-save names(&amp;N)</translation>
    </message>
    <message>
      <source>Auto Save On/Off(&amp;A)</source>
      <translation>Auto Save On/Off(&amp;A)</translation>
    </message>
    <message>
      <source>Auto Save Setup</source>
      <translation>Auto-save setup</translation>
    </message>
    <message>
      <source>Befehl an das Geraet, wie er getippt ist; mit der Pfeiltaste nach oben die frueheren</source>
      <translation>Command to the instrument, as it is typed; the up key brings back earlier ones</translation>
    </message>
    <message>
      <source>Beginnen Messung</source>
      <translation>Start measurement</translation>
    </message>
    <message>
      <source>Begonnene Zyklen; einer mehr als verlangt beendet den Test</source>
      <translation>Cycles begun; one more than asked for ends the test</translation>
    </message>
    <message>
      <source>Bereich Log(&amp;D)</source>
      <translation>Level Range(&amp;R)</translation>
    </message>
    <message>
      <source>Bereich: 0-9.9</source>
      <translation>Range: 0-9.9</translation>
    </message>
    <message>
      <source>Bereit</source>
      <translation>Ready</translation>
    </message>
    <message>
      <source>Beschaedigt, zaehlt als nicht vorhanden:</source>
      <translation>Damaged, counts as absent:</translation>
    </message>
    <message>
      <source>Bilden</source>
      <translation>Trace</translation>
    </message>
    <message>
      <source>Bilden 1</source>
      <translation>Trace 1</translation>
    </message>
    <message>
      <source>Bilden 10</source>
      <translation>Trace 10</translation>
    </message>
    <message>
      <source>Bilden 2</source>
      <translation>Trace 2</translation>
    </message>
    <message>
      <source>Bilden 3</source>
      <translation>Trace 3</translation>
    </message>
    <message>
      <source>Bilden 4</source>
      <translation>Trace 4</translation>
    </message>
    <message>
      <source>Bilden 5</source>
      <translation>Trace 5</translation>
    </message>
    <message>
      <source>Bilden 6</source>
      <translation>Trace 6</translation>
    </message>
    <message>
      <source>Bilden 7</source>
      <translation>Trace 7</translation>
    </message>
    <message>
      <source>Bilden 8</source>
      <translation>Trace 8</translation>
    </message>
    <message>
      <source>Bilden 9</source>
      <translation>Trace 9</translation>
    </message>
    <message>
      <source>Bilden(&amp;B)</source>
      <translation>Trace(&amp;T)</translation>
    </message>
    <message>
      <source>Bilden...</source>
      <translation>Trace Number...</translation>
    </message>
    <message>
      <source>Bilden:</source>
      <translation>Trace:</translation>
    </message>
    <message>
      <source>Bitte eine Adresse eingeben.</source>
      <translation>Please enter an address.</translation>
    </message>
    <message>
      <source>Bitte eine ganze Zahl eingeben, hoechstens:</source>
      <translation>Please enter a whole number of at most</translation>
    </message>
    <message>
      <source>Bitte zuerst einen Port auswaehlen.</source>
      <translation>Please choose a port first.</translation>
    </message>
    <message>
      <source>Breite(&amp;B)</source>
      <translation>Band(&amp;B)</translation>
    </message>
    <message>
      <source>Breite/Power(&amp;B)</source>
      <translation>Band/Power(&amp;B)</translation>
    </message>
    <message>
      <source>Breite:</source>
      <translation>Width:</translation>
    </message>
    <message>
      <source>Browse...</source>
      <translation>Browse...</translation>
    </message>
    <message>
      <source>Cable Loss For Rx</source>
      <translation>Cable Loss For Rx</translation>
    </message>
    <message>
      <source>Cable loss for Rx:</source>
      <translation>Cable loss for Rx:</translation>
    </message>
    <message>
      <source>Calculate</source>
      <translation>Calculator</translation>
    </message>
    <message>
      <source>Calibration</source>
      <translation>Calibration</translation>
    </message>
    <message>
      <source>Calibration finished!</source>
      <translation>Calibration finished!</translation>
    </message>
    <message>
      <source>Calibration finished.</source>
      <translation>Calibration finished.</translation>
    </message>
    <message>
      <source>Can not open a session to the device.</source>
      <translation>Cannot open a session to the device.</translation>
    </message>
    <message>
      <source>Can not set attribute to the device.</source>
      <translation>Cannot set an attribute of the device.</translation>
    </message>
    <message>
      <source>Can not setup Alarm.</source>
      <translation>Cannot set up the alarm.</translation>
    </message>
    <message>
      <source>Can not setup DIG-DIV.</source>
      <translation>Cannot set up DIG-DIV.</translation>
    </message>
    <message>
      <source>Can not setup LTE 700 L.</source>
      <translation>Cannot set up LTE 700 L.</translation>
    </message>
    <message>
      <source>Can not setup LTE 700 U.</source>
      <translation>Cannot set up LTE 700 U.</translation>
    </message>
    <message>
      <source>Can not setup Marker.</source>
      <translation>Cannot set up the marker.</translation>
    </message>
    <message>
      <source>Cannot connect to device for incorrect port, please select correct port!</source>
      <translation>Cannot connect to the device on this port, please select the correct port!</translation>
    </message>
    <message>
      <source>Center_Freq (MHz):</source>
      <translation>Center frequency (MHz):</translation>
    </message>
    <message>
      <source>Check and do calibration again.</source>
      <translation>Check it and calibrate again.</translation>
    </message>
    <message>
      <source>Check power meter sensor.</source>
      <translation>Check the power meter sensor.</translation>
    </message>
    <message>
      <source>Chinese</source>
      <translation>Chinese</translation>
    </message>
    <message>
      <source>Clear screen</source>
      <translation>Clear screen</translation>
    </message>
    <message>
      <source>Command Response:</source>
      <translation>Command Response:</translation>
    </message>
    <message>
      <source>Command line</source>
      <translation>Command line</translation>
    </message>
    <message>
      <source>Communicate with R&amp;S Spectrum Analyzer failed.</source>
      <translation>Communication with the R&amp;S spectrum analyzer failed.</translation>
    </message>
    <message>
      <source>Compensation(&amp;C)</source>
      <translation>Compensation(&amp;C)</translation>
    </message>
    <message>
      <source>Confirm the Password:</source>
      <translation>Confirm password:</translation>
    </message>
    <message>
      <source>Continuous Measurement Enable</source>
      <translation>Continuous measurement</translation>
    </message>
    <message>
      <source>Continuous Measurement Setup</source>
      <translation>Continuous measurement setup</translation>
    </message>
    <message>
      <source>Could not open a session to the VISA Resource Manager!</source>
      <translation>Could not open a session to the VISA resource manager!</translation>
    </message>
    <message>
      <source>Create Config File</source>
      <translation>Create Config File</translation>
    </message>
    <message>
      <source>DAT</source>
      <translation>DAT</translation>
    </message>
    <message>
      <source>DCS Einbauen</source>
      <translation>DCS Setup</translation>
    </message>
    <message>
      <source>DIG-DIV Setup</source>
      <translation>DIG-DIV Setup</translation>
    </message>
    <message>
      <source>Darstellung(&amp;A)</source>
      <translation>Appearance(&amp;A)</translation>
    </message>
    <message>
      <source>Das Geraet hat die Einstellungen nicht angenommen.</source>
      <translation>The instrument has not accepted the settings.</translation>
    </message>
    <message>
      <source>Das Geraet hat einen Befehl abgelehnt: Die Kalibrierung ist zu Ende.</source>
      <translation>The instrument refused a command: the calibration is over.</translation>
    </message>
    <message>
      <source>Das Geraet hat nicht alle Stellen der Sicherung beantwortet:</source>
      <translation>The instrument has not answered for all places of the backup:</translation>
    </message>
    <message>
      <source>Das Umschaltgeraet hat keine Stellung fuer diese Breite:</source>
      <translation>The band switch unit has no position for this band:</translation>
    </message>
    <message>
      <source>Das Umschaltgeraet hat nicht geantwortet, seine Relais koennen falsch stehen.</source>
      <translation>The band switch unit has not answered, its relays may be in the wrong position.</translation>
    </message>
    <message>
      <source>Das ist das Umschaltgeraet, nicht der Analysator.</source>
      <translation>This is the band switch unit, not the analyser.</translation>
    </message>
    <message>
      <source>Das ist keine Sicherung eines Speichers, oder sie ist beschaedigt.</source>
      <translation>This is no backup of a memory, or it is damaged.</translation>
    </message>
    <message>
      <source>Das wird geschrieben (Adresse: jetzt -&gt; neu):</source>
      <translation>This will be written (address: now -&gt; new):</translation>
    </message>
    <message>
      <source>Datei (PDF)</source>
      <translation>File (PDF)</translation>
    </message>
    <message>
      <source>Datei(&amp;D)</source>
      <translation>File(&amp;F)</translation>
    </message>
    <message>
      <source>Datei:</source>
      <translation>File:</translation>
    </message>
    <message>
      <source>Dateien ohne Bericht:</source>
      <translation>Files without a report:</translation>
    </message>
    <message>
      <source>Dateiname:</source>
      <translation>File name:</translation>
    </message>
    <message>
      <source>Dateityp:</source>
      <translation>Files of type:</translation>
    </message>
    <message>
      <source>Datenordner:</source>
      <translation>Data folder:</translation>
    </message>
    <message>
      <source>Datum</source>
      <translation>Date</translation>
    </message>
    <message>
      <source>Default</source>
      <translation>Default</translation>
    </message>
    <message>
      <source>Den Wert aus dem Geraet lesen</source>
      <translation>Read the value from the instrument</translation>
    </message>
    <message>
      <source>Der Kontakt ist verloren: Die Kalibrierung ist zu Ende.</source>
      <translation>Contact is lost: the calibration is over.</translation>
    </message>
    <message>
      <source>Der Leistungssensor hoert nichts unter -73 dBm: Bei diesem Grenzwert hat die Messung kein Ergebnis.</source>
      <translation>The power sensor hears nothing below -73 dBm: with this limit the measurement has no verdict.</translation>
    </message>
    <message>
      <source>Der Name darf weder / noch \ enthalten.</source>
      <translation>The name must not contain / or \.</translation>
    </message>
    <message>
      <source>Der Pegel kommt an dem Port an, von dem die Traeger ausgehen.</source>
      <translation>The level arrives at the port that the carriers leave from.</translation>
    </message>
    <message>
      <source>Der Pegel kommt durch den Pruefling am anderen Port an.</source>
      <translation>The level arrives through the device at the other port.</translation>
    </message>
    <message>
      <source>Der Pegel wird nicht erreicht:</source>
      <translation>The level is not reached:</translation>
    </message>
    <message>
      <source>Der Speicher des Geraets antwortet nicht.</source>
      <translation>The memory of the instrument does not answer.</translation>
    </message>
    <message>
      <source>Der Speicher stimmt mit der Sicherung ueberein.</source>
      <translation>The memory agrees with the backup.</translation>
    </message>
    <message>
      <source>Deutsch</source>
      <translation>German</translation>
    </message>
    <message>
      <source>Die Adressen 200 bis 210, aus denen die Seriennummer gelesen wird, aendern sich nicht.</source>
      <translation>The addresses 200 to 210, where the serial number is read, are not changed.</translation>
    </message>
    <message>
      <source>Die Berichte werden noch gespeichert.</source>
      <translation>The reports are still being saved.</translation>
    </message>
    <message>
      <source>Die Breite des Geraets hat sich geaendert.</source>
      <translation>The band of the instrument has changed.</translation>
    </message>
    <message>
      <source>Die Datei nennt ihren Plan nicht genau.</source>
      <translation>The file does not state its plan exactly.</translation>
    </message>
    <message>
      <source>Die Datei nennt keine Einstellungen.</source>
      <translation>The file states no settings.</translation>
    </message>
    <message>
      <source>Die Datei nennt keine Grenze, es gilt die eingestellte.</source>
      <translation>The file states no limit, the one set holds.</translation>
    </message>
    <message>
      <source>Die Kalibrierung schreibt auch Eintraege anderer Breiten:</source>
      <translation>The calibration also writes entries of other bands:</translation>
    </message>
    <message>
      <source>Die Messkurve ist nicht gespeichert. Soll die Datei sie ersetzen?</source>
      <translation>The measured curve is not saved. Shall the file replace it?</translation>
    </message>
    <message>
      <source>Die Messung wird noch gespeichert.</source>
      <translation>The measurement is still being saved.</translation>
    </message>
    <message>
      <source>Die Sicherung ist von einem anderen Geraet:</source>
      <translation>The backup is of another instrument:</translation>
    </message>
    <message>
      <source>Die Verlusttabelle hat Felder ohne Zahl, sie wurde nicht geladen:</source>
      <translation>The loss table has fields without a number, it was not loaded:</translation>
    </message>
    <message>
      <source>Die Verlusttabelle ist zu kurz, sie wurde nicht geladen:</source>
      <translation>The loss table is too short, it was not loaded:</translation>
    </message>
    <message>
      <source>Die beiden neuen Passwoerter sind nicht gleich.</source>
      <translation>The two new passwords are not the same.</translation>
    </message>
    <message>
      <source>Diese Ablagen kennt die Konfiguration nicht, sie bleiben:</source>
      <translation>The configuration knows nothing of these stores, they stay:</translation>
    </message>
    <message>
      <source>Diese Stellen werden geschrieben (Seite Adresse: jetzt -&gt; Sicherung):</source>
      <translation>These places will be written (page address: now -&gt; backup):</translation>
    </message>
    <message>
      <source>Diese Werte passen nicht in die Verlusttabelle:</source>
      <translation>These values do not fit the loss table:</translation>
    </message>
    <message>
      <source>Diesen Wert ins Geraet schreiben</source>
      <translation>Write this value to the instrument</translation>
    </message>
    <message>
      <source>Display Grafik Nur(&amp;I)</source>
      <translation>Plot Only(&amp;O)</translation>
    </message>
    <message>
      <source>Do you have Re-powered your equipment?</source>
      <translation>Do you have Re-powered your equipment?</translation>
    </message>
    <message>
      <source>Do you select PCS band?  Yes--PCS, No--AWS</source>
      <translation>Select the PCS band?  Yes: PCS, No: AWS</translation>
    </message>
    <message>
      <source>Do you want to exit factory mode?</source>
      <translation>Do you want to exit factory mode?</translation>
    </message>
    <message>
      <source>Does not support the current selection!</source>
      <translation>The current selection is not supported!</translation>
    </message>
    <message>
      <source>Drucken</source>
      <translation>Print</translation>
    </message>
    <message>
      <source>Drucken Direkt(&amp;P)</source>
      <translation>Print Directly(&amp;P)</translation>
    </message>
    <message>
      <source>Drucken misserfolg.</source>
      <translation>Printing failed.</translation>
    </message>
    <message>
      <source>Drucken(&amp;V)</source>
      <translation>Print Preview(&amp;V)</translation>
    </message>
    <message>
      <source>Drucker:</source>
      <translation>Printer:</translation>
    </message>
    <message>
      <source>Durch</source>
      <translation>Pass</translation>
    </message>
    <message>
      <source>EEPROM Write</source>
      <translation>EEPROM Write</translation>
    </message>
    <message>
      <source>EGSM Einbauen</source>
      <translation>EGSM Setup</translation>
    </message>
    <message>
      <source>ERR0 - SYNTAX ERROR</source>
      <translation>ERR0 - SYNTAX ERROR</translation>
    </message>
    <message>
      <source>ERR1 - Parameter out of limits.</source>
      <translation>ERR1 - Parameter out of limits.</translation>
    </message>
    <message>
      <source>ERR2 - PLL not locket.</source>
      <translation>ERR2 - PLL not locked.</translation>
    </message>
    <message>
      <source>Eigene Einstellungen(&amp;E)</source>
      <translation>Own Settings(&amp;E)</translation>
    </message>
    <message>
      <source>Ein anderes Geraet als vorher ist angeschlossen.</source>
      <translation>Another instrument than before is connected.</translation>
    </message>
    <message>
      <source>Einbauen</source>
      <translation>Set</translation>
    </message>
    <message>
      <source>Einbauen misserfolg</source>
      <translation>Setup failed</translation>
    </message>
    <message>
      <source>Eine Sicherung des Speichers mit dem Geraet vergleichen und zurueckschreiben</source>
      <translation>Compare a backup of the memory with the instrument and write it back</translation>
    </message>
    <message>
      <source>Eine unterbrochene Wiederherstellung wurde zurueckgenommen.</source>
      <translation>A restore that was broken off has been taken back.</translation>
    </message>
    <message>
      <source>Einen Eintrag weiter</source>
      <translation>Next entry</translation>
    </message>
    <message>
      <source>Einen Eintrag zurueck</source>
      <translation>Previous entry</translation>
    </message>
    <message>
      <source>Einfuehren Daten</source>
      <translation>Load Data</translation>
    </message>
    <message>
      <source>Einfuehren Daten(&amp;L)</source>
      <translation>Load Data(&amp;L)</translation>
    </message>
    <message>
      <source>Einfuehren Firmenlogo</source>
      <translation>Load company logo</translation>
    </message>
    <message>
      <source>Einfuehren Firmenlogo(&amp;I)</source>
      <translation>Import Company Logo(&amp;I)</translation>
    </message>
    <message>
      <source>Einheit: dBm/dBc(&amp;C)</source>
      <translation>Unit: dBm/dBc(&amp;U)</translation>
    </message>
    <message>
      <source>Einstellungen koennen nicht gespeichert werden:</source>
      <translation>Settings cannot be saved:</translation>
    </message>
    <message>
      <source>Eintrag aus der Liste nehmen</source>
      <translation>Remove entry from the list</translation>
    </message>
    <message>
      <source>Eintrag der Ergebnisliste</source>
      <translation>Entry of the result list</translation>
    </message>
    <message>
      <source>Empfaenger</source>
      <translation>Receiver</translation>
    </message>
    <message>
      <source>Empfaenger Adresse</source>
      <translation>Receiver address</translation>
    </message>
    <message>
      <source>Ende f1:</source>
      <translation>Stop f1:</translation>
    </message>
    <message>
      <source>Ende f2:</source>
      <translation>Stop f2:</translation>
    </message>
    <message>
      <source>Ende:</source>
      <translation>Bottom:</translation>
    </message>
    <message>
      <source>Endless</source>
      <translation>Continuous</translation>
    </message>
    <message>
      <source>English</source>
      <translation>English</translation>
    </message>
    <message>
      <source>Entsprechen Bildschirm</source>
      <translation>Fit Screen</translation>
    </message>
    <message>
      <source>Equipment Type:</source>
      <translation>Equipment Type:</translation>
    </message>
    <message>
      <source>Equipment type</source>
      <translation>Equipment Type</translation>
    </message>
    <message>
      <source>Ergebnis der letzten Messung, ihre Punkte und ihr hoechster Pegel</source>
      <translation>Verdict of the last measurement, its points and its highest level</translation>
    </message>
    <message>
      <source>Europe</source>
      <translation>Europe</translation>
    </message>
    <message>
      <source>Excel Vorlagen</source>
      <translation>Excel templates</translation>
    </message>
    <message>
      <source>Excel Vorlagen(&amp;V)</source>
      <translation>Excel templates(&amp;V)</translation>
    </message>
    <message>
      <source>Exit</source>
      <translation>Exit</translation>
    </message>
    <message>
      <source>Exit Cal</source>
      <translation>Exit Cal</translation>
    </message>
    <message>
      <source>Exit Test</source>
      <translation>Exit Test</translation>
    </message>
    <message>
      <source>Extern</source>
      <translation>External</translation>
    </message>
    <message>
      <source>F1 Compensation</source>
      <translation>F1 compensation</translation>
    </message>
    <message>
      <source>F2 Compensation</source>
      <translation>F2 compensation</translation>
    </message>
    <message>
      <source>FACTORY MODE</source>
      <translation>FACTORY MODE</translation>
    </message>
    <message>
      <source>Failed to create folder!</source>
      <translation>Failed to create folder!</translation>
    </message>
    <message>
      <source>Falsch, dichtesortierung.</source>
      <translation>Invalid value, please check the input.</translation>
    </message>
    <message>
      <source>Fatigue Test Set</source>
      <translation>Fatigue Test Set</translation>
    </message>
    <message>
      <source>Fehler</source>
      <translation>Error</translation>
    </message>
    <message>
      <source>Fertige Zyklen:</source>
      <translation>Finished cycles:</translation>
    </message>
    <message>
      <source>Finished Times:</source>
      <translation>Finished Times:</translation>
    </message>
    <message>
      <source>Firmware:</source>
      <translation>Firmware:</translation>
    </message>
    <message>
      <source>Fix f1 falsch!!!</source>
      <translation>Fixed f1 is wrong!</translation>
    </message>
    <message>
      <source>Fix f1:</source>
      <translation>Fixed f1:</translation>
    </message>
    <message>
      <source>Fix f2 falsch!!!</source>
      <translation>Fixed f2 is wrong!</translation>
    </message>
    <message>
      <source>Fix f2:</source>
      <translation>Fixed f2:</translation>
    </message>
    <message>
      <source>Fixed f1:</source>
      <translation>Fixed f1:</translation>
    </message>
    <message>
      <source>Fixed f2:</source>
      <translation>Fixed f2:</translation>
    </message>
    <message>
      <source>Format Select</source>
      <translation>Format</translation>
    </message>
    <message>
      <source>Frefix Set</source>
      <translation>Prefix</translation>
    </message>
    <message>
      <source>Frefix Set(&amp;F)</source>
      <translation>Prefix(&amp;F)</translation>
    </message>
    <message>
      <source>Freier Befehl</source>
      <translation>Free command</translation>
    </message>
    <message>
      <source>Freq Schritt:</source>
      <translation>Freq step:</translation>
    </message>
    <message>
      <source>Freq Step:</source>
      <translation>Freq step:</translation>
    </message>
    <message>
      <source>Freq: MHz</source>
      <translation>Freq: MHz</translation>
    </message>
    <message>
      <source>Freq_span (Ref: 0) (kHz):</source>
      <translation>Frequency span (Ref: 0) (kHz):</translation>
    </message>
    <message>
      <source>Frequenz des Produkts in MHz</source>
      <translation>Frequency of the product in MHz</translation>
    </message>
    <message>
      <source>Frequenz von Ton 1 in MHz</source>
      <translation>Frequency of tone 1 in MHz</translation>
    </message>
    <message>
      <source>Frequenz von Ton 2 in MHz</source>
      <translation>Frequency of tone 2 in MHz</translation>
    </message>
    <message>
      <source>Gelesen, Seite/Adresse:</source>
      <translation>Read, page/address:</translation>
    </message>
    <message>
      <source>Gelesene Leistungen sind keine Messung: Sie stehen in ihrem Protokoll.</source>
      <translation>Powers read back are no measurement: they stand in their protocol.</translation>
    </message>
    <message>
      <source>Geraet:</source>
      <translation>Device:</translation>
    </message>
    <message>
      <source>Geraetefehler</source>
      <translation>instrument error</translation>
    </message>
    <message>
      <source>Geschrieben, Seite/Adresse:</source>
      <translation>Written, page/address:</translation>
    </message>
    <message>
      <source>Gewaehlte Breite</source>
      <translation>Band selected</translation>
    </message>
    <message>
      <source>Grenze dBm</source>
      <translation>Limit dBm</translation>
    </message>
    <message>
      <source>Grenzwert, 0 bis -200</source>
      <translation>Limit, 0 to -200</translation>
    </message>
    <message>
      <source>Grenzwert:</source>
      <translation>limit:</translation>
    </message>
    <message>
      <source>Halten Messung</source>
      <translation>Stop measurement</translation>
    </message>
    <message>
      <source>Halten Messung erst!</source>
      <translation>Stop the measurement first!</translation>
    </message>
    <message>
      <source>Hardware Initialization</source>
      <translation>Hardware Initialization</translation>
    </message>
    <message>
      <source>Hilfe(&amp;H)</source>
      <translation>Help(&amp;H)</translation>
    </message>
    <message>
      <source>Histogramm(&amp;H)</source>
      <translation>Histogram(&amp;H)</translation>
    </message>
    <message>
      <source>Hoch</source>
      <translation>High</translation>
    </message>
    <message>
      <source>Hoechstens so viele Zeichen, ohne Umlaute:</source>
      <translation>Without accented letters, and at most this many characters:</translation>
    </message>
    <message>
      <source>Hoechster Pegel aller Zyklen in dBm</source>
      <translation>Highest level of all cycles in dBm</translation>
    </message>
    <message>
      <source>Hoechster Pegel:</source>
      <translation>Highest level:</translation>
    </message>
    <message>
      <source>Hoehe:</source>
      <translation>Height:</translation>
    </message>
    <message>
      <source>IM3(&amp;3)</source>
      <translation>IM3(&amp;3)</translation>
    </message>
    <message>
      <source>IM5(&amp;5)</source>
      <translation>IM5(&amp;5)</translation>
    </message>
    <message>
      <source>IM7(&amp;7)</source>
      <translation>IM7(&amp;7)</translation>
    </message>
    <message>
      <source>IM9(&amp;9)</source>
      <translation>IM9(&amp;9)</translation>
    </message>
    <message>
      <source>Initialisieren</source>
      <translation>Initializing</translation>
    </message>
    <message>
      <source>Initialisieren, bitte warten!</source>
      <translation>Initializing, please wait!</translation>
    </message>
    <message>
      <source>Initialization finished.</source>
      <translation>Initialization finished.</translation>
    </message>
    <message>
      <source>Initialize</source>
      <translation>Initialize</translation>
    </message>
    <message>
      <source>Initialize finished.</source>
      <translation>Initialize finished.</translation>
    </message>
    <message>
      <source>Input_Attenuation:</source>
      <translation>Input attenuation:</translation>
    </message>
    <message>
      <source>Inter-band IM</source>
      <translation>Inter-band IM</translation>
    </message>
    <message>
      <source>Inter-band Measurement Off</source>
      <translation>Inter-band measurement off</translation>
    </message>
    <message>
      <source>Inter-band Measurement On</source>
      <translation>Inter-band measurement on</translation>
    </message>
    <message>
      <source>Inter-band Measurement(&amp;O)</source>
      <translation>Inter-band Measurement(&amp;I)</translation>
    </message>
    <message>
      <source>Inter-band Setup</source>
      <translation>Inter-band Setup</translation>
    </message>
    <message>
      <source>Intern</source>
      <translation>Internal</translation>
    </message>
    <message>
      <source>Intervall:</source>
      <translation>Interval:</translation>
    </message>
    <message>
      <source>Is the equipment based on 3-dB bridge?</source>
      <translation>Is the equipment based on 3-dB bridge?</translation>
    </message>
    <message>
      <source>Kein Empfaenger</source>
      <translation>No receiver</translation>
    </message>
    <message>
      <source>Kein Empfaenger:</source>
      <translation>No receiver:</translation>
    </message>
    <message>
      <source>Kein Geraet verbunden.</source>
      <translation>No device connected.</translation>
    </message>
    <message>
      <source>Kein Handbuch gefunden. Bitte QOR_Handbook.pdf in den Datenordner legen oder in qor.ini die Zeile handbook=... eintragen.</source>
      <translation>No manual found. Please put QOR_Handbook.pdf into the data folder, or add the line handbook=... to qor.ini.</translation>
    </message>
    <message>
      <source>Keine Antwort, Seite/Adresse:</source>
      <translation>No answer, page/address:</translation>
    </message>
    <message>
      <source>Keine Messpunkte zum Speichern!</source>
      <translation>There are no measured points to save.</translation>
    </message>
    <message>
      <source>Keine Nummer ist mehr frei.</source>
      <translation>No number is free any more.</translation>
    </message>
    <message>
      <source>Keine Seite fuer Updates eingetragen. Bitte in qor.ini diese Zeile eintragen:</source>
      <translation>No page for updates is known. Please add this line to qor.ini:</translation>
    </message>
    <message>
      <source>Keine angefangene Kalibrierung dieser Breite.</source>
      <translation>No unfinished calibration of this band.</translation>
    </message>
    <message>
      <source>Klein</source>
      <translation>Low</translation>
    </message>
    <message>
      <source>Kontakt zum Geraet verloren, der Vorgang ist abgebrochen.</source>
      <translation>Contact with the instrument is lost, the work is broken off.</translation>
    </message>
    <message>
      <source>Kontakt zum Geraet verloren, es wird gesucht.</source>
      <translation>Contact with the instrument is lost, it is being looked for.</translation>
    </message>
    <message>
      <source>Kurve</source>
      <translation>Curve</translation>
    </message>
    <message>
      <source>LTE 700 L Einbauen</source>
      <translation>LTE 700 L Setup</translation>
    </message>
    <message>
      <source>LTE 700 U Einbauen</source>
      <translation>LTE 700 U Setup</translation>
    </message>
    <message>
      <source>LTE Einbauen</source>
      <translation>LTE Setup</translation>
    </message>
    <message>
      <source>Laenge einer 2-Ton-Messung, 1 bis 2147483 Sekunden</source>
      <translation>Length of a 2-tone measurement, 1 to 2147483 seconds</translation>
    </message>
    <message>
      <source>Last Saved</source>
      <translation>Last saved</translation>
    </message>
    <message>
      <source>Lautstaerke</source>
      <translation>Volume</translation>
    </message>
    <message>
      <source>Leise</source>
      <translation>Mute</translation>
    </message>
    <message>
      <source>Level detector inserted</source>
      <translation>Level detector inserted</translation>
    </message>
    <message>
      <source>Level gauge mess-delay:</source>
      <translation>Level gauge meas. delay:</translation>
    </message>
    <message>
      <source>Load Configure</source>
      <translation>Load Configuration</translation>
    </message>
    <message>
      <source>Load Rx Loss</source>
      <translation>Load Rx Loss</translation>
    </message>
    <message>
      <source>Log On</source>
      <translation>Log on</translation>
    </message>
    <message>
      <source>Lower power limit (dBm):</source>
      <translation>Lower power limit (dBm):</translation>
    </message>
    <message>
      <source>Marker 1 Bilden</source>
      <translation>Marker 1 Trace</translation>
    </message>
    <message>
      <source>Marker 1 Einbauen</source>
      <translation>Marker 1 Setup</translation>
    </message>
    <message>
      <source>Marker 2 Bilden</source>
      <translation>Marker 2 Trace</translation>
    </message>
    <message>
      <source>Marker 2 Einbauen</source>
      <translation>Marker 2 Setup</translation>
    </message>
    <message>
      <source>-50dBm</source>
      <translation>-50dBm</translation>
    </message>
    <message>
      <source>-80dBm</source>
      <translation>-80dBm</translation>
    </message>
    <message>
      <source>Attenuation Cell:</source>
      <translation>Attenuation cell:</translation>
    </message>
    <message>
      <source>Ausgangspegel, 20 bis 46 dBm (bis Firmware 4.9: 33 bis 46)</source>
      <translation>Output level, 20 to 46 dBm (up to firmware 4.9: 33 to 46)</translation>
    </message>
    <message>
      <source>Beginnt mit dem ersten Punkt, der noch nicht geschrieben ist</source>
      <translation>Begins with the first point that is not written yet</translation>
    </message>
    <message>
      <source>Daempfung zwischen Ausgang und Empfaenger, ab 0.1 dB</source>
      <translation>Attenuation between port and receiver, from 0.1 dB</translation>
    </message>
    <message>
      <source>Delta:</source>
      <translation>Delta:</translation>
    </message>
    <message>
      <source>Den Detektor bei -50 dBm lesen</source>
      <translation>Read the detector at -50 dBm</translation>
    </message>
    <message>
      <source>Den Detektor bei -80 dBm lesen</source>
      <translation>Read the detector at -80 dBm</translation>
    </message>
    <message>
      <source>Diesen Ton kalibrieren</source>
      <translation>Calibrate this tone</translation>
    </message>
    <message>
      <source>Erste Frequenz, ganze MHz</source>
      <translation>First frequency, whole MHz</translation>
    </message>
    <message>
      <source>Erster Traeger in MHz, im Sendebereich der Breite</source>
      <translation>First carrier in MHz, within the transmit range of the band</translation>
    </message>
    <message>
      <source>Fortschritt</source>
      <translation>Progress</translation>
    </message>
    <message>
      <source>Fortsetzen</source>
      <translation>Continue</translation>
    </message>
    <message>
      <source>Frequenz in MHz, Pegel in dBm, Steuerspannung in V</source>
      <translation>Frequency in MHz, level in dBm, drive in V</translation>
    </message>
    <message>
      <source>Letzte Frequenz, ganze MHz</source>
      <translation>Last frequency, whole MHz</translation>
    </message>
    <message>
      <source>Level Delta:</source>
      <translation>Level delta:</translation>
    </message>
    <message>
      <source>Level Start:</source>
      <translation>Level start:</translation>
    </message>
    <message>
      <source>Level Stop:</source>
      <translation>Level stop:</translation>
    </message>
    <message>
      <source>Messwert:</source>
      <translation>Reading:</translation>
    </message>
    <message>
      <source>Misst, was bei jedem Pegel wirklich herauskommt</source>
      <translation>Measures what really comes out at each level</translation>
    </message>
    <message>
      <source>Power Calibration</source>
      <translation>Power calibration</translation>
    </message>
    <message>
      <source>Punkt:</source>
      <translation>Point:</translation>
    </message>
    <message>
      <source>Punkte</source>
      <translation>Points</translation>
    </message>
    <message>
      <source>Receiver Calibration</source>
      <translation>Receiver calibration</translation>
    </message>
    <message>
      <source>Restzeit:</source>
      <translation>Time left:</translation>
    </message>
    <message>
      <source>Schreibt Steigung und Versatz ins Geraet</source>
      <translation>Writes slope and offset into the instrument</translation>
    </message>
    <message>
      <source>Schritt der Pegel, ab 1 dB</source>
      <translation>Step of the levels, from 1 dB</translation>
    </message>
    <message>
      <source>Schritt, ab 1 MHz; RT-DB22 und RT-L027 ab 2 MHz</source>
      <translation>Step, from 1 MHz; RT-DB22 and RT-L027 from 2 MHz</translation>
    </message>
    <message>
      <source>Set        in signal generator.</source>
      <translation>Set        in signal generator.</translation>
    </message>
    <message>
      <source>Set %1 in signal generator.</source>
      <translation>Set %1 MHz in signal generator.</translation>
    </message>
    <message>
      <source>Start:</source>
      <translation>Start:</translation>
    </message>
    <message>
      <source>Steuerspannung:</source>
      <translation>Drive:</translation>
    </message>
    <message>
      <source>Stop Cal</source>
      <translation>Stop Cal</translation>
    </message>
    <message>
      <source>Stop:</source>
      <translation>Stop:</translation>
    </message>
    <message>
      <source>Sucht jeden Pegel und schreibt ihn ins Geraet</source>
      <translation>Looks for each level and writes it into the instrument</translation>
    </message>
    <message>
      <source>Write to EEPROM</source>
      <translation>Write to EEPROM</translation>
    </message>
    <message>
      <source>Zweiter Traeger in MHz, im Sendebereich der Breite</source>
      <translation>Second carrier in MHz, within the transmit range of the band</translation>
    </message>
    <message>
      <source>Marker 3 Bilden</source>
      <translation>Marker 3 Trace</translation>
    </message>
    <message>
      <source>Marker 3 Einbauen</source>
      <translation>Marker 3 Setup</translation>
    </message>
    <message>
      <source>Marker ein- und ausschalten</source>
      <translation>Switch marker on and off</translation>
    </message>
    <message>
      <source>Max</source>
      <translation>Max</translation>
    </message>
    <message>
      <source>Measurement Mode Setup(&amp;M)</source>
      <translation>Measurement Mode Setup(&amp;M)</translation>
    </message>
    <message>
      <source>Meist Posten:</source>
      <translation>Worst:</translation>
    </message>
    <message>
      <source>Messung beginnen oder anhalten</source>
      <translation>Start or stop the measurement</translation>
    </message>
    <message>
      <source>Messung laeuft</source>
      <translation>Measuring</translation>
    </message>
    <message>
      <source>Messung wie Datei(&amp;W)</source>
      <translation>Measure as File(&amp;W)</translation>
    </message>
    <message>
      <source>Messung(&amp;M)</source>
      <translation>Measurement(&amp;M)</translation>
    </message>
    <message>
      <source>Messungen:</source>
      <translation>Measurements:</translation>
    </message>
    <message>
      <source>Messverfahren</source>
      <translation>Method of measurement</translation>
    </message>
    <message>
      <source>Messweg</source>
      <translation>Path of measurement</translation>
    </message>
    <message>
      <source>Mesurement Einbauen</source>
      <translation>Measurement Setup</translation>
    </message>
    <message>
      <source>Misserfolg</source>
      <translation>Fail</translation>
    </message>
    <message>
      <source>Missing in:</source>
      <translation>Missing in:</translation>
    </message>
    <message>
      <source>Mitte</source>
      <translation>Medium</translation>
    </message>
    <message>
      <source>Modify Password</source>
      <translation>Change Password</translation>
    </message>
    <message>
      <source>Multi-times</source>
      <translation>Multiple</translation>
    </message>
    <message>
      <source>Naechste Messung:</source>
      <translation>Next measurement:</translation>
    </message>
    <message>
      <source>Naechste freie Nummer</source>
      <translation>Next free number</translation>
    </message>
    <message>
      <source>Name:</source>
      <translation>Name:</translation>
    </message>
    <message>
      <source>New Password:</source>
      <translation>New password:</translation>
    </message>
    <message>
      <source>Nicht bestaetigt, Seite/Adresse:</source>
      <translation>Not confirmed, page/address:</translation>
    </message>
    <message>
      <source>Nicht bestaetigt:</source>
      <translation>Not confirmed:</translation>
    </message>
    <message>
      <source>Nicht gelesene Dateien:</source>
      <translation>Files that could not be read:</translation>
    </message>
    <message>
      <source>Nicht uebernommen, Seite/Adresse:</source>
      <translation>Not taken over, page/address:</translation>
    </message>
    <message>
      <source>Nicht verbunden</source>
      <translation>Not connected</translation>
    </message>
    <message>
      <source>Nichts Breite Selektiert</source>
      <translation>No band selected</translation>
    </message>
    <message>
      <source>Nichts auswaehlen das breite.</source>
      <translation>This band cannot be selected.</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Frequenzen gehoeren zu keiner Breite.</source>
      <translation>Nothing of the file is in force: its frequencies belong to no band.</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Grenze liegt ausserhalb des Bereichs.</source>
      <translation>Nothing of the file is in force: its limit is out of range.</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Leistung liegt ausserhalb des Bereichs.</source>
      <translation>Nothing of the file is in force: its power is out of range.</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Ordnung ist unbekannt.</source>
      <translation>Nothing of the file is in force: its order is unknown.</translation>
    </message>
    <message>
      <source>Nichts einbauen AMPS.</source>
      <translation>Cannot set up AMPS.</translation>
    </message>
    <message>
      <source>Nichts einbauen AWS.</source>
      <translation>Cannot set up AWS.</translation>
    </message>
    <message>
      <source>Nichts einbauen DCS.</source>
      <translation>Cannot set up DCS.</translation>
    </message>
    <message>
      <source>Nichts einbauen EGSM.</source>
      <translation>Cannot set up EGSM.</translation>
    </message>
    <message>
      <source>Nichts einbauen LTE.</source>
      <translation>Cannot set up LTE.</translation>
    </message>
    <message>
      <source>Nichts einbauen PCS.</source>
      <translation>Cannot set up PCS.</translation>
    </message>
    <message>
      <source>Nichts einbauen TD-SCDMA.</source>
      <translation>Cannot set up TD-SCDMA.</translation>
    </message>
    <message>
      <source>Nichts einbauen UMTS.</source>
      <translation>Cannot set up UMTS.</translation>
    </message>
    <message>
      <source>Nichts einbauen UMTS2.</source>
      <translation>Cannot set up UMTS2.</translation>
    </message>
    <message>
      <source>Nichts einbauen WIFI.</source>
      <translation>Cannot set up WIFI.</translation>
    </message>
    <message>
      <source>Nichts einbauen WiMax.</source>
      <translation>Cannot set up WiMax.</translation>
    </message>
    <message>
      <source>Niveau</source>
      <translation>Level</translation>
    </message>
    <message>
      <source>No Function Menu</source>
      <translation>Without function menu</translation>
    </message>
    <message>
      <source>Noch:</source>
      <translation>Time left:</translation>
    </message>
    <message>
      <source>Not Supported</source>
      <translation>Not supported</translation>
    </message>
    <message>
      <source>Not enough resource for the bitmap. Either reduce the bitmap dimension or</source>
      <translation>Not enough resource for the bitmap. Either reduce the bitmap dimension or</translation>
    </message>
    <message>
      <source>Nothing was restored.</source>
      <translation>Nothing was restored.</translation>
    </message>
    <message>
      <source>Nummer (0 vertreten alle):</source>
      <translation>Number (0 = all):</translation>
    </message>
    <message>
      <source>Nummer (0 vertreten unendlich):</source>
      <translation>Number (0 = endless):</translation>
    </message>
    <message>
      <source>Nur was aus einer .dat stammt, wird wieder eine .dat.</source>
      <translation>Only what came from a .dat can become a .dat again.</translation>
    </message>
    <message>
      <source>OK</source>
      <translation>OK</translation>
    </message>
    <message>
      <source>Oben</source>
      <translation>Up</translation>
    </message>
    <message>
      <source>Oberes Ende der Pegelachse</source>
      <translation>Upper end of the level axis</translation>
    </message>
    <message>
      <source>Oeffnen</source>
      <translation>Open</translation>
    </message>
    <message>
      <source>Oeffnen Port</source>
      <translation>Open Port</translation>
    </message>
    <message>
      <source>Oeffnen file Misserfolg</source>
      <translation>Cannot open the file</translation>
    </message>
    <message>
      <source>Oeffnen port erst!</source>
      <translation>Open the port first!</translation>
    </message>
    <message>
      <source>Ohne sein Protokoll beginnt der Test nicht:</source>
      <translation>Without its protocol the test does not begin:</translation>
    </message>
    <message>
      <source>Okey</source>
      <translation>OK</translation>
    </message>
    <message>
      <source>Old Password:</source>
      <translation>Old password:</translation>
    </message>
    <message>
      <source>One of its cells is damaged.</source>
      <translation>One of its cells is damaged.</translation>
    </message>
    <message>
      <source>One of its data rows is damaged.</source>
      <translation>One of its data rows is damaged.</translation>
    </message>
    <message>
      <source>Operator Mode</source>
      <translation>Operator Mode</translation>
    </message>
    <message>
      <source>Ordner der Serie</source>
      <translation>Folder of the series</translation>
    </message>
    <message>
      <source>Ordner der Serie(&amp;O)</source>
      <translation>Folder of the series(&amp;O)</translation>
    </message>
    <message>
      <source>Ordner:</source>
      <translation>Folder:</translation>
    </message>
    <message>
      <source>Ordnung des Produkts</source>
      <translation>Order of the product</translation>
    </message>
    <message>
      <source>PA-Error-Check on</source>
      <translation>PA-Error-Check on</translation>
    </message>
    <message>
      <source>PCS Einbauen</source>
      <translation>PCS Setup</translation>
    </message>
    <message>
      <source>PDF</source>
      <translation>PDF</translation>
    </message>
    <message>
      <source>PIM</source>
      <translation>PIM</translation>
    </message>
    <message>
      <source>PIN-CODE</source>
      <translation>PIN-CODE</translation>
    </message>
    <message>
      <source>PIN-Code:</source>
      <translation>PIN-Code:</translation>
    </message>
    <message>
      <source>Page:</source>
      <translation>Page:</translation>
    </message>
    <message>
      <source>Password:</source>
      <translation>Password:</translation>
    </message>
    <message>
      <source>Path Cable Loss</source>
      <translation>Path Cable Loss</translation>
    </message>
    <message>
      <source>Path Cable Loss(&amp;L)</source>
      <translation>Path Cable Loss(&amp;P)</translation>
    </message>
    <message>
      <source>Path:</source>
      <translation>Path:</translation>
    </message>
    <message>
      <source>Pause zwischen zwei Durchlaeufen</source>
      <translation>Pause between two sweeps</translation>
    </message>
    <message>
      <source>Pegel am Marker</source>
      <translation>Level at the marker</translation>
    </message>
    <message>
      <source>Pegelachse vergroessern</source>
      <translation>Enlarge the level axis</translation>
    </message>
    <message>
      <source>Pegelachse verkleinern</source>
      <translation>Reduce the level axis</translation>
    </message>
    <message>
      <source>Pixel</source>
      <translation>pixels</translation>
    </message>
    <message>
      <source>Please check if your equipment is connected with your PC.</source>
      <translation>Please check that the instrument is connected to the PC.</translation>
    </message>
    <message>
      <source>Please choose another file.</source>
      <translation>Please choose another file.</translation>
    </message>
    <message>
      <source>Please confirm what you set be valid for the device.</source>
      <translation>Please make sure that these settings are valid for the device.</translation>
    </message>
    <message>
      <source>Please get volt of -50dBm firstly!</source>
      <translation>Please read the voltage at -50 dBm first!</translation>
    </message>
    <message>
      <source>Please get volt of -80dBm firstly!</source>
      <translation>Please read the voltage at -80 dBm first!</translation>
    </message>
    <message>
      <source>Please input "Attenuation Cell"</source>
      <translation>Please enter "Attenuation cell"</translation>
    </message>
    <message>
      <source>Please re-select the band or re-connect the device!</source>
      <translation>Please select the band again or reconnect the instrument!</translation>
    </message>
    <message>
      <source>Please select auto-save file path from [Auto-Save] menu at first!</source>
      <translation>Please select the auto-save file path in the [Auto-Save] menu first!</translation>
    </message>
    <message>
      <source>Please select band after initailization completed.</source>
      <translation>Please select the band after the initialization is complete.</translation>
    </message>
    <message>
      <source>Please select external receiver by menu "Setup-&gt;Receiver Ports-&gt;External"</source>
      <translation>Please select the external receiver by the menu "Setup-&gt;Receiver Ports-&gt;External"</translation>
    </message>
    <message>
      <source>Please select f1 or/and f2 to do calibration.</source>
      <translation>Please tick f1 and/or f2 to calibrate.</translation>
    </message>
    <message>
      <source>Please select f1 or/and f2 to read.</source>
      <translation>Please tick f1 and/or f2 to read.</translation>
    </message>
    <message>
      <source>Please select the correct directory for saving!</source>
      <translation>Please select the correct directory for saving!</translation>
    </message>
    <message>
      <source>Please stop calibration firstly.</source>
      <translation>Please stop the calibration first.</translation>
    </message>
    <message>
      <source>Please use 2MHz as delta for RT-DB22/RT-L027.</source>
      <translation>Please use a delta of 2 MHz for RT-DB22/RT-L027.</translation>
    </message>
    <message>
      <source>Port 1 To DUT Path Cable Loss:</source>
      <translation>Cable loss port 1 to DUT:</translation>
    </message>
    <message>
      <source>Port 2 To DUT Path Cable Loss:</source>
      <translation>Cable loss port 2 to DUT:</translation>
    </message>
    <message>
      <source>Port muessen kleiner als 17</source>
      <translation>The port number must be less than 17</translation>
    </message>
    <message>
      <source>Power (mW)</source>
      <translation>Power (mW)</translation>
    </message>
    <message>
      <source>Power 1:</source>
      <translation>Power 1:</translation>
    </message>
    <message>
      <source>Power 2:</source>
      <translation>Power 2:</translation>
    </message>
    <message>
      <source>Power Off Duration:</source>
      <translation>Power Off Duration:</translation>
    </message>
    <message>
      <source>Power On Duration:</source>
      <translation>Power On Duration:</translation>
    </message>
    <message>
      <source>Power Output f1:</source>
      <translation>Output power f1:</translation>
    </message>
    <message>
      <source>Power Output f2:</source>
      <translation>Output power f2:</translation>
    </message>
    <message>
      <source>Power Set</source>
      <translation>Power Setup</translation>
    </message>
    <message>
      <source>Preamplify On/Off:</source>
      <translation>Preamplifier on/off:</translation>
    </message>
    <message>
      <source>Programm beenden</source>
      <translation>Exit the program</translation>
    </message>
    <message>
      <source>Programm wird beendet</source>
      <translation>Exiting</translation>
    </message>
    <message>
      <source>Pruefling</source>
      <translation>Device</translation>
    </message>
    <message>
      <source>Prueflinge</source>
      <translation>Devices</translation>
    </message>
    <message>
      <source>QOR Device SN(&amp;Z)</source>
      <translation>Device Serial Number(&amp;S)</translation>
    </message>
    <message>
      <source>QOR Handbuch(&amp;Q)</source>
      <translation>QOR Manual(&amp;M)</translation>
    </message>
    <message>
      <source>QorTool ist nicht installiert:</source>
      <translation>QorTool is not installed:</translation>
    </message>
    <message>
      <source>R/S Analysator Setup(&amp;A)</source>
      <translation>R/S Analyzer Setup(&amp;A)</translation>
    </message>
    <message>
      <source>R/S Analysator Setup(&amp;A):</source>
      <translation>R/S Analyzer Setup:</translation>
    </message>
    <message>
      <source>RS Spektrum Analysator</source>
      <translation>RS spectrum analyzer</translation>
    </message>
    <message>
      <source>Range: 0-9.9</source>
      <translation>Range: 0-9.9</translation>
    </message>
    <message>
      <source>Re-power</source>
      <translation>Re-power</translation>
    </message>
    <message>
      <source>Re-power your equipment.</source>
      <translation>Switch the instrument off and on again.</translation>
    </message>
    <message>
      <source>Read</source>
      <translation>Read</translation>
    </message>
    <message>
      <source>Receive Band:</source>
      <translation>Receive band:</translation>
    </message>
    <message>
      <source>Receiver Error!</source>
      <translation>Receiver error!</translation>
    </message>
    <message>
      <source>Receiver Ports(&amp;P)</source>
      <translation>Receiver Ports(&amp;P)</translation>
    </message>
    <message>
      <source>Ref_Lev (dBm):</source>
      <translation>Reference level (dBm):</translation>
    </message>
    <message>
      <source>Reflex Modell</source>
      <translation>Reflection</translation>
    </message>
    <message>
      <source>Reflex(&amp;R)</source>
      <translation>Reflection(&amp;R)</translation>
    </message>
    <message>
      <source>Repeat Times:</source>
      <translation>Repeat Times:</translation>
    </message>
    <message>
      <source>Replace data</source>
      <translation>Replace data</translation>
    </message>
    <message>
      <source>Resolution_Bandwidth:</source>
      <translation>Resolution bandwidth:</translation>
    </message>
    <message>
      <source>Restore memory</source>
      <translation>Restore memory</translation>
    </message>
    <message>
      <source>Retry again.</source>
      <translation>Retry?</translation>
    </message>
    <message>
      <source>Route Verlust Einbauen</source>
      <translation>Path Loss Setup</translation>
    </message>
    <message>
      <source>Route Verlust Einbauen(&amp;X)</source>
      <translation>Path Loss Setup(&amp;S)</translation>
    </message>
    <message>
      <source>Route Verlust(&amp;V)</source>
      <translation>Path Loss(&amp;L)</translation>
    </message>
    <message>
      <source>SA Enclosed</source>
      <translation>With spectrum</translation>
    </message>
    <message>
      <source>SN:</source>
      <translation>SN:</translation>
    </message>
    <message>
      <source>Save Configure</source>
      <translation>Save Configuration</translation>
    </message>
    <message>
      <source>Save ERR</source>
      <translation>Saving failed</translation>
    </message>
    <message>
      <source>Save FAIL  file?</source>
      <translation>Save FAIL file?</translation>
    </message>
    <message>
      <source>Save all graphs?</source>
      <translation>Save all graphs?</translation>
    </message>
    <message>
      <source>Scan R&amp;S Spectrum Analyzer Device</source>
      <translation>Scan for the R&amp;S spectrum analyzer</translation>
    </message>
    <message>
      <source>Scannen Fix f1 falsch!!!</source>
      <translation>Sweep: fixed f1 is wrong!</translation>
    </message>
    <message>
      <source>Scannen Fix f2 falsch!!!</source>
      <translation>Sweep: fixed f2 is wrong!</translation>
    </message>
    <message>
      <source>Scannen Modell</source>
      <translation>Sweep</translation>
    </message>
    <message>
      <source>Scannen Port</source>
      <translation>Scan Ports</translation>
    </message>
    <message>
      <source>Scannen(&amp;S)</source>
      <translation>Sweep(&amp;S)</translation>
    </message>
    <message>
      <source>Schnittstelle Entwurf(&amp;Z)</source>
      <translation>Window Layout(&amp;W)</translation>
    </message>
    <message>
      <source>Schreiben?</source>
      <translation>Write?</translation>
    </message>
    <message>
      <source>Schreibt die Kennung und die Grenzen des Geraets, nach Vorschau und Frage</source>
      <translation>Writes identity and limits of the instrument, behind a preview and a question</translation>
    </message>
    <message>
      <source>Schreibt die Verluste in eine Datei .conf</source>
      <translation>Writes the losses to a file .conf</translation>
    </message>
    <message>
      <source>Schritt falsch!!!</source>
      <translation>Step is wrong!</translation>
    </message>
    <message>
      <source>Sec.</source>
      <translation>Sec.</translation>
    </message>
    <message>
      <source>Seite</source>
      <translation>Page</translation>
    </message>
    <message>
      <source>Seite des Speichers, 0 bis 127</source>
      <translation>Page of the memory, 0 to 127</translation>
    </message>
    <message>
      <source>Sek.</source>
      <translation>Sec.</translation>
    </message>
    <message>
      <source>Sekunden vom Halten bis zum naechsten Start, 1 bis 100</source>
      <translation>Carriers off: seconds from stop to the next start, 1 to 100</translation>
    </message>
    <message>
      <source>Sekunden vom Start bis zum Halten, 1 bis 100</source>
      <translation>Carriers on: seconds from start to stop, 1 to 100</translation>
    </message>
    <message>
      <source>Selec PCS/AWS</source>
      <translation>Select PCS/AWS</translation>
    </message>
    <message>
      <source>Send</source>
      <translation>Send</translation>
    </message>
    <message>
      <source>Serien:</source>
      <translation>SN:</translation>
    </message>
    <message>
      <source>Seriennummer des Prueflings</source>
      <translation>Serial number of the device under test</translation>
    </message>
    <message>
      <source>Seriennummer(&amp;N)</source>
      <translation>Serial Number(&amp;N)</translation>
    </message>
    <message>
      <source>Seriennummer, 0 bis 65535</source>
      <translation>Serial number, 0 to 65535</translation>
    </message>
    <message>
      <source>Seriennummer:</source>
      <translation>Serial number:</translation>
    </message>
    <message>
      <source>Set</source>
      <translation>Set</translation>
    </message>
    <message>
      <source>Setup(&amp;S)</source>
      <translation>Setup(&amp;S)</translation>
    </message>
    <message>
      <source>Sich</source>
      <translation>Exit</translation>
    </message>
    <message>
      <source>Sich(&amp;X)</source>
      <translation>Exit(&amp;X)</translation>
    </message>
    <message>
      <source>Sich?</source>
      <translation>Exit?</translation>
    </message>
    <message>
      <source>Single</source>
      <translation>Single</translation>
    </message>
    <message>
      <source>Spectrum Analyze Enclosed</source>
      <translation>With spectrum analysis</translation>
    </message>
    <message>
      <source>Spectrum Analyzer(&amp;N)</source>
      <translation>Spectrum Analyzer(&amp;A)</translation>
    </message>
    <message>
      <source>Spectrum Mode</source>
      <translation>Spectrum</translation>
    </message>
    <message>
      <source>Speicher gesichert:</source>
      <translation>Memory backed up:</translation>
    </message>
    <message>
      <source>Speicher nicht gesichert:</source>
      <translation>Memory not backed up:</translation>
    </message>
    <message>
      <source>Speicher wird geschrieben:</source>
      <translation>Writing the memory:</translation>
    </message>
    <message>
      <source>Speicher wird gesichert:</source>
      <translation>Backing up the memory:</translation>
    </message>
    <message>
      <source>Speicher wird verglichen:</source>
      <translation>Comparing the memory:</translation>
    </message>
    <message>
      <source>Speichern</source>
      <translation>Save</translation>
    </message>
    <message>
      <source>Speichern BMP(&amp;B)</source>
      <translation>Save BMP(&amp;B)</translation>
    </message>
    <message>
      <source>Speichern DATen File</source>
      <translation>Save Data File</translation>
    </message>
    <message>
      <source>Speichern Daten(&amp;T)</source>
      <translation>Save Data(&amp;D)</translation>
    </message>
    <message>
      <source>Speichern Excel(&amp;X)</source>
      <translation>Save Excel(&amp;E)</translation>
    </message>
    <message>
      <source>Speichern Graph BMP</source>
      <translation>Save graph as BMP</translation>
    </message>
    <message>
      <source>Speichern Graph(&amp;G)</source>
      <translation>Save Graph(&amp;G)</translation>
    </message>
    <message>
      <source>Speichern JPG(&amp;J)</source>
      <translation>Save JPG(&amp;J)</translation>
    </message>
    <message>
      <source>Speichern PDF(&amp;S)</source>
      <translation>Save PDF(&amp;S)</translation>
    </message>
    <message>
      <source>Speichern Standard</source>
      <translation>Save default</translation>
    </message>
    <message>
      <source>Speichern file misserfolg</source>
      <translation>Cannot save the file</translation>
    </message>
    <message>
      <source>Speichern...</source>
      <translation>Save...</translation>
    </message>
    <message>
      <source>Sprache des Berichts(&amp;R)</source>
      <translation>Language of the report(&amp;R)</translation>
    </message>
    <message>
      <source>Sprache(&amp;L)</source>
      <translation>Language(&amp;L)</translation>
    </message>
    <message>
      <source>Staerke  Ausfuhr f1:</source>
      <translation>Output power f1:</translation>
    </message>
    <message>
      <source>Staerke  Ausfuhr f2:</source>
      <translation>Output power f2:</translation>
    </message>
    <message>
      <source>Staerke Einbauen</source>
      <translation>Power Setup</translation>
    </message>
    <message>
      <source>Standard</source>
      <translation>Default</translation>
    </message>
    <message>
      <source>Start Fatigue Test</source>
      <translation>Start Fatigue Test</translation>
    </message>
    <message>
      <source>Start f1:</source>
      <translation>Start f1:</translation>
    </message>
    <message>
      <source>Start f2:</source>
      <translation>Start f2:</translation>
    </message>
    <message>
      <source>Start/Stop Measurement(&amp;M)</source>
      <translation>Start/Stop Measurement(&amp;M)</translation>
    </message>
    <message>
      <source>Statistik</source>
      <translation>Statistics</translation>
    </message>
    <message>
      <source>Statistik(&amp;K)</source>
      <translation>Statistics(&amp;K)</translation>
    </message>
    <message>
      <source>Status</source>
      <translation>Status</translation>
    </message>
    <message>
      <source>Stelle des Markers: Zeit oder Frequenz</source>
      <translation>Place of the marker: time or frequency</translation>
    </message>
    <message>
      <source>Stempel</source>
      <translation>Stamp</translation>
    </message>
    <message>
      <source>Steuerprogramm fuer einen Zweiton-Analysator der passiven Intermodulation</source>
      <translation>Control program of a two-tone analyzer of passive intermodulation</translation>
    </message>
    <message>
      <source>Stop Fatigue Test</source>
      <translation>Stop Fatigue Test</translation>
    </message>
    <message>
      <source>Stop f1:</source>
      <translation>Stop f1:</translation>
    </message>
    <message>
      <source>Stop f2:</source>
      <translation>Stop f2:</translation>
    </message>
    <message>
      <source>Stunden, Minuten und Sekunden bis zum Ende des Tests</source>
      <translation>Hours, minutes and seconds until the test ends</translation>
    </message>
    <message>
      <source>Suche Empfaenger</source>
      <translation>Looking for the receiver</translation>
    </message>
    <message>
      <source>Sweep</source>
      <translation>Sweep</translation>
    </message>
    <message>
      <source>Sweep Mode</source>
      <translation>Sweep Mode</translation>
    </message>
    <message>
      <source>Sweep delay:</source>
      <translation>Sweep delay:</translation>
    </message>
    <message>
      <source>Switch matrix attached</source>
      <translation>Switch matrix attached</translation>
    </message>
    <message>
      <source>Sync</source>
      <translation>Synchronous</translation>
    </message>
    <message>
      <source>Synchron</source>
      <translation>Synchronous</translation>
    </message>
    <message>
      <source>TD-A</source>
      <translation>TD-A</translation>
    </message>
    <message>
      <source>TD-E Setup</source>
      <translation>TD-E Setup</translation>
    </message>
    <message>
      <source>TD-F Setup</source>
      <translation>TD-F Setup</translation>
    </message>
    <message>
      <source>TD-SCDMA 2000</source>
      <translation>TD-SCDMA 2000</translation>
    </message>
    <message>
      <source>TXT</source>
      <translation>TXT</translation>
    </message>
    <message>
      <source>Test</source>
      <translation>Test</translation>
    </message>
    <message>
      <source>Tetra 390 Setup</source>
      <translation>Tetra 390 Setup</translation>
    </message>
    <message>
      <source>Tetra 392</source>
      <translation>Tetra 392</translation>
    </message>
    <message>
      <source>The configuration is incomplete, nothing was restored.</source>
      <translation>The configuration is incomplete, nothing was restored.</translation>
    </message>
    <message>
      <source>The device is disconnect. Connect it now?</source>
      <translation>The device is disconnected. Connect it now?</translation>
    </message>
    <message>
      <source>The file ends before its limit line.</source>
      <translation>The file ends before its limit line.</translation>
    </message>
    <message>
      <source>The file ends in the middle of its data.</source>
      <translation>The file ends in the middle of its data.</translation>
    </message>
    <message>
      <source>The file has already existed. Do you want to replace it?</source>
      <translation>The file exists already. Do you want to replace it?</translation>
    </message>
    <message>
      <source>The file holds no measured level.</source>
      <translation>The file holds no measured level.</translation>
    </message>
    <message>
      <source>The file is empty.</source>
      <translation>The file is empty.</translation>
    </message>
    <message>
      <source>The file is too large for a result.</source>
      <translation>The file is too large for a result.</translation>
    </message>
    <message>
      <source>The file is too long for a result.</source>
      <translation>The file is too long for a result.</translation>
    </message>
    <message>
      <source>The last run did not end in order.</source>
      <translation>The last run did not end in order.</translation>
    </message>
    <message>
      <source>The minimum value of not less than 0dbm</source>
      <translation>The value must not be less than 0 dBm</translation>
    </message>
    <message>
      <source>The power of Tone 1 and Tone 2 is not the same, can not use dBc.</source>
      <translation>The powers of tone 1 and tone 2 are not the same, dBc cannot be used.</translation>
    </message>
    <message>
      <source>The result is too long for this form.</source>
      <translation>The result is too long for this form.</translation>
    </message>
    <message>
      <source>The start value of SN should be number symbol!</source>
      <translation>The start value of SN must be a number!</translation>
    </message>
    <message>
      <source>The table holds several results.</source>
      <translation>The table holds several results.</translation>
    </message>
    <message>
      <source>The table is cut short.</source>
      <translation>The table is cut short.</translation>
    </message>
    <message>
      <source>The value of Alarm Lever cannot be empty!</source>
      <translation>The alarm limit must not be empty!</translation>
    </message>
    <message>
      <source>The value of Alarm Lever should be in range 0 ~ -200</source>
      <translation>The alarm limit must be in the range 0 to -200</translation>
    </message>
    <message>
      <source>The workbook has no sheet "QOR_Test": it is not a result.</source>
      <translation>The workbook has no sheet "QOR_Test": it is not a result.</translation>
    </message>
    <message>
      <source>The workbook is damaged.</source>
      <translation>The workbook is damaged.</translation>
    </message>
    <message>
      <source>The workbook is encrypted.</source>
      <translation>The workbook is encrypted.</translation>
    </message>
    <message>
      <source>The workbook is of an older form; please save it as Excel 97 or newer.</source>
      <translation>The workbook is of an older form; please save it as Excel 97 or newer.</translation>
    </message>
    <message>
      <source>There is no workbook in the file, or it is of an older form.</source>
      <translation>There is no workbook in the file, or it is of an older form.</translation>
    </message>
    <message>
      <source>This form wants a limit.</source>
      <translation>This form needs a limit.</translation>
    </message>
    <message>
      <source>This form wants the whole head of a result.</source>
      <translation>This form needs the whole head of a result.</translation>
    </message>
    <message>
      <source>This is not a result file, or its header is damaged.</source>
      <translation>This is not a result file, or its header is damaged.</translation>
    </message>
    <message>
      <source>This is not a result file.</source>
      <translation>This is not a result file.</translation>
    </message>
    <message>
      <source>Time:</source>
      <translation>Time:</translation>
    </message>
    <message>
      <source>Trotzdem zurueckschreiben?</source>
      <translation>Write it back nevertheless?</translation>
    </message>
    <message>
      <source>UMTS Einbauen</source>
      <translation>UMTS Setup</translation>
    </message>
    <message>
      <source>UMTS2/LTE Einbauen</source>
      <translation>UMTS2/LTE Setup</translation>
    </message>
    <message>
      <source>Uebergeben(&amp;T)</source>
      <translation>Transmission(&amp;T)</translation>
    </message>
    <message>
      <source>Ueberpruefen</source>
      <translation>Check</translation>
    </message>
    <message>
      <source>Uegerbegen Modell</source>
      <translation>Transmission</translation>
    </message>
    <message>
      <source>Under Limit Beep On/Off</source>
      <translation>Beep Below Limit On/Off</translation>
    </message>
    <message>
      <source>Unter</source>
      <translation>Down</translation>
    </message>
    <message>
      <source>Unteres Ende der Pegelachse</source>
      <translation>Lower end of the level axis</translation>
    </message>
    <message>
      <source>Update(&amp;U)</source>
      <translation>Update(&amp;U)</translation>
    </message>
    <message>
      <source>Upper power limit (dBm):</source>
      <translation>Upper power limit (dBm):</translation>
    </message>
    <message>
      <source>Urteil</source>
      <translation>Verdict</translation>
    </message>
    <message>
      <source>User Mode</source>
      <translation>User Mode</translation>
    </message>
    <message>
      <source>VISA Adresse:</source>
      <translation>VISA address:</translation>
    </message>
    <message>
      <source>Value:</source>
      <translation>Value:</translation>
    </message>
    <message>
      <source>Verbindung verloren</source>
      <translation>connection lost</translation>
    </message>
    <message>
      <source>Verlauf</source>
      <translation>History</translation>
    </message>
    <message>
      <source>Verlust in dB, -99.9 bis 9.9</source>
      <translation>Loss in dB, -99.9 to 9.9</translation>
    </message>
    <message>
      <source>Video_Bandwidth:</source>
      <translation>Video bandwidth:</translation>
    </message>
    <message>
      <source>Vorhandene Dateien ersetzen? Anzahl:</source>
      <translation>Replace existing files? Number:</translation>
    </message>
    <message>
      <source>Werkzeug(&amp;W)</source>
      <translation>Tools(&amp;T)</translation>
    </message>
    <message>
      <source>Wert, 0 bis 255</source>
      <translation>Value, 0 to 255</translation>
    </message>
    <message>
      <source>WiMax Setup</source>
      <translation>WiMax Setup</translation>
    </message>
    <message>
      <source>Wiederholung</source>
      <translation>Repetition</translation>
    </message>
    <message>
      <source>Wifi Einbauen</source>
      <translation>Wifi Setup</translation>
    </message>
    <message>
      <source>Write</source>
      <translation>Write</translation>
    </message>
    <message>
      <source>Wrong password.</source>
      <translation>Wrong password.</translation>
    </message>
    <message>
      <source>Ziet: Sek.</source>
      <translation>Time: Sec.</translation>
    </message>
    <message>
      <source>Zuletzt gelesener Pegel</source>
      <translation>Level read last</translation>
    </message>
    <message>
      <source>Zuletzt gemessen:</source>
      <translation>Last cycle:</translation>
    </message>
    <message>
      <source>Zum Anfang der Liste</source>
      <translation>To the top of the list</translation>
    </message>
    <message>
      <source>Zum Ende der Liste</source>
      <translation>To the end of the list</translation>
    </message>
    <message>
      <source>Zurueckgeschrieben und geprueft:</source>
      <translation>Written back and verified:</translation>
    </message>
    <message>
      <source>Zurueckschreiben?</source>
      <translation>Write it back?</translation>
    </message>
    <message>
      <source>Zustand des Geraets</source>
      <translation>State of the instrument</translation>
    </message>
    <message>
      <source>Zwei Durchlaeufe ohne Pause, der erste mit ausgeschalteten Traegern</source>
      <translation>Two sweeps without a pause, the first with the carriers off</translation>
    </message>
    <message>
      <source>Zyklen, 1 bis 100000</source>
      <translation>Cycles, 1 to 100000</translation>
    </message>
    <message>
      <source>Zyklen, deren Messung zu Ende ist</source>
      <translation>Cycles whose measurement is over</translation>
    </message>
    <message>
      <source>antwortet nicht</source>
      <translation>does not answer</translation>
    </message>
    <message>
      <source>bestanden</source>
      <translation>passed</translation>
    </message>
    <message>
      <source>braucht eine Zahl:</source>
      <translation>takes a number:</translation>
    </message>
    <message>
      <source>braucht eine ganze Zahl:</source>
      <translation>needs a whole number:</translation>
    </message>
    <message>
      <source>cannot be read.</source>
      <translation>cannot be read.</translation>
    </message>
    <message>
      <source>contact was lost during the run; the partial curve is kept</source>
      <translation>contact was lost during the run; the partial curve is kept</translation>
    </message>
    <message>
      <source>dBm &lt;-&gt; mW &lt;-&gt; mV</source>
      <translation>dBm &lt;-&gt; mW &lt;-&gt; mV</translation>
    </message>
    <message>
      <source>dBm Einbauen</source>
      <translation>Level Range</translation>
    </message>
    <message>
      <source>f1The maximum value cannot be greater than 46dbm</source>
      <translation>f1: the value must not be greater than 46 dBm</translation>
    </message>
    <message>
      <source>f1The minimum value of not less than 0dbm</source>
      <translation>f1: the value must not be less than 0 dBm</translation>
    </message>
    <message>
      <source>f2The maximum value cannot be greater than 46dbm</source>
      <translation>f2: the value must not be greater than 46 dBm</translation>
    </message>
    <message>
      <source>f2The minimum value of not less than 0dbm</source>
      <translation>f2: the value must not be less than 0 dBm</translation>
    </message>
    <message>
      <source>failed to load config file!</source>
      <translation>The configuration could not be loaded!</translation>
    </message>
    <message>
      <source>failed to save config file!</source>
      <translation>The configuration could not be saved!</translation>
    </message>
    <message>
      <source>falsch!!!</source>
      <translation>wrong!</translation>
    </message>
    <message>
      <source>is a folder.</source>
      <translation>is a folder.</translation>
    </message>
    <message>
      <source>is a store of the program.</source>
      <translation>is a store of the program.</translation>
    </message>
    <message>
      <source>ist keine Zahl. Bitte mit Dezimalpunkt eingeben.</source>
      <translation>is not a number. Please use a decimal point.</translation>
    </message>
    <message>
      <source>ist keine ganze Zahl von 0 bis 10000.</source>
      <translation>is not a whole number from 0 to 10000.</translation>
    </message>
    <message>
      <source>kein Urteil</source>
      <translation>no verdict</translation>
    </message>
    <message>
      <source>keine VISA-Bibliothek installiert</source>
      <translation>no VISA library is installed</translation>
    </message>
    <message>
      <source>keine gueltige Adresse</source>
      <translation>not a valid address</translation>
    </message>
    <message>
      <source>nicht bestanden</source>
      <translation>failed</translation>
    </message>
    <message>
      <source>nicht erreichbar</source>
      <translation>cannot be reached</translation>
    </message>
    <message>
      <source>not a regular file</source>
      <translation>not a regular file</translation>
    </message>
    <message>
      <source>not a saved configuration.</source>
      <translation>not a saved configuration.</translation>
    </message>
    <message>
      <source>ok</source>
      <translation>OK</translation>
    </message>
    <message>
      <source>schlechtester Punkt:</source>
      <translation>worst point:</translation>
    </message>
    <message>
      <source>switch to lower screen setting (e.g. 256-color mode), and try again.</source>
      <translation>switch to lower screen setting (e.g. 256-color mode), and try again.</translation>
    </message>
    <message>
      <source>the copy differs.</source>
      <translation>the copy differs.</translation>
    </message>
    <message>
      <source>the folder does not exist. Nothing was restored.</source>
      <translation>the folder does not exist. Nothing was restored.</translation>
    </message>
    <message>
      <source>xls(Details Templates)</source>
      <translation>xls (details template)</translation>
    </message>
    <message>
      <source>xls(Sweep  Templates)</source>
      <translation>xls (sweep template)</translation>
    </message>
    <message>
      <source>y_Scale (dB):</source>
      <translation>y scale (dB):</translation>
    </message>
  </context>
</TS>
