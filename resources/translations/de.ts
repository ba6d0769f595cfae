<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>MainWindow</name>
    <message>
        <source>Change the timestamps of the photos by this value (positive and negative values can be used)</source>
        <translation>Ändert die Zeitstempel der Fotos um den hier angegebenen Wert (positive sowie negative Zahlen sind möglich)</translation>
    </message>
    <message>
        <source>Change application settings</source>
        <translation>Anwendungseinstellungen ändern</translation>
    </message>
    <message>
        <source>Show information about the application</source>
        <translation>Informationen über die Anwendung anzeigen</translation>
    </message>
    <message>
        <source>Show documentation, shortcuts and usage information</source>
        <translation>Informationen zur Benutzung des Programms anzeigen</translation>
    </message>
    <message>
        <source>Apply changes to the timestamps of the images</source>
        <translation>Änderungen an den Zeitstempeln in die Fotos speichern</translation>
    </message>
    <message>
        <source>Undo the last set of timestamp changes</source>
        <translation>Letzte Änderungen an den Zeitstempeln rückgängig machen</translation>
    </message>
    <message>
        <source>Load images</source>
        <translation>Bilder Laden</translation>
    </message>
    <message>
        <source>Clear list of loaded images</source>
        <translation>Liste geladener Bilder leeren</translation>
    </message>
    <message>
        <source>Fixing time</source>
        <translation>Ändere Zeitinformationen</translation>
    </message>
    <message>
        <source>Loading files</source>
        <translation>Lade Dateien</translation>
    </message>
    <message>
        <source>Please Wait</source>
        <translation>Bitte Warten</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
    <message>
        <source>%1 files do not have any timezone information set and you have not specified a timezone to use.
If you continue your computers local timezone will be used.

Warning: Adding the timezone to an image can not be undone.</source>
        <translation>%1 Dateien habe keine Zeitzoneninformationen zugeordnet und es wurde keine Zeitzone angeben.
Wenn du fortfährst wird die Zeitzone deines Computers verwendet.

Achtung: Wurde die Zeitzone dem Bild hinzugefügt, kann sie nicht mehr entfernt werden.</translation>
    </message>
    <message>
        <source>%1 files would be assigned a recording time prior to the 1st of January 1972 00:00:00.
The files system time can&apos;t be altered to times before this point.
If you continue the files date/time according to your operating system might not be correct (i.e. displayed as a date in the future or simply stuck at the 1st of January 1972).
The EXIF timestamps can handle this situation and dates prior to the 1st of January 1972 00:00:00 will be saved correctly.</source>
        <translation>%1 Dateien würden ein Aufnahmedatum zugewiesen bekommen, das vor dem 01.01.1972 00:00:00 liegt.
Die Zeiten des Dateisystems können nicht auf Werte vor diesem Zeitpunkt gesetzt werden.
Wenn du fortfährst ist die Zeit die dein Betriebssystem anzeigt möglicherweise nicht korrekt (z.B. wird ein Datum in der Zukunft angezeigt oder das Datum auf den 01.01.1972 gesetzt).
Die EXIF-Zeitstempel können mit einem Aufnahmedatum vor dem 01.01.1972 00:00:00 umgehen und werden korrekt gespeichert.</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>Fortfahren?</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The following %1 files could not be fixed:
%2

 Do you want to keep the changes in the other files</source>
        <translation>Die folgenden %1 Dateien konnten nicht Angepasst werden:
%2

 Möchtest du die Änderungen in den anderen Dateien behalten</translation>
    </message>
    <message>
        <source>Keep changes</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Undo Changes</source>
        <translation>Rückgängig machen</translation>
    </message>
    <message>
        <source>Select files</source>
        <translation>Dateien Auswählen</translation>
    </message>
    <message>
        <source>Supported Files(%1)</source>
        <translation>Unterstützte Dateitypen (%1)</translation>
    </message>
    <message>
        <source>Application language changed</source>
        <translation>Anwendungssprache geändert</translation>
    </message>
    <message>
        <source>The application language has been changed.
The application needs to be restarted to use the new language.</source>
        <translation>Die Sprache der Benutzeroberfläche wurde geändert.
Die Anwendung muss neu gestartet werden um die neue Sprache zu verwenden.</translation>
    </message>
    <message>
        <source>Continue working</source>
        <translation>Weiterarbeiten</translation>
    </message>
    <message>
        <source>Quit now</source>
        <translation>Anwendung jetzt beenden</translation>
    </message>
</context>
<context>
    <name>datetime_format</name>
    <message>
        <source>DD/MM/YYYY</source>
        <translation>TT/MM/JJJJ</translation>
    </message>
    <message>
        <source>DD.MM.YYYY</source>
        <translation>TT.MM.JJJJ</translation>
    </message>
    <message>
        <source>DD-MM-YYYY</source>
        <translation>TT-MM-JJJJ</translation>
    </message>
    <message>
        <source>YYYY/MM/DD</source>
        <translation>JJJJ/MM/TT</translation>
    </message>
    <message>
        <source>YYYY.MM.DD</source>
        <translation>JJJJ.MM.TT</translation>
    </message>
    <message>
        <source>YYYY-MM-DD</source>
        <translation>JJJJ-MM-TT</translation>
    </message>
    <message>
        <source>MM/DD/YYYY</source>
        <translation>MM/TT/JJJJ</translation>
    </message>
    <message>
        <source>hh:mm:ss</source>
        <translation>Std:Min:Sek</translation>
    </message>
    <message>
        <source>hh:mm</source>
        <translation>Std:Sek</translation>
    </message>
    <message>
        <source>Change the date display format</source>
        <translation>Datumsanzeigeformat ändern</translation>
    </message>
    <message>
        <source>Change the time display format</source>
        <translation>Zeitanzeigeformat ändern</translation>
    </message>
    <message>
        <source>Date Format</source>
        <translation>Datumsformat</translation>
    </message>
    <message>
        <source>Time Format</source>
        <translation>Zeitformat</translation>
    </message>
</context>
<context>
    <name>dialog_settings</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>Sprache:</translation>
    </message>
</context>
<context>
    <name>table_data_model</name>
    <message>
        <source>Photos</source>
        <translation>Foto</translation>
    </message>
    <message>
        <source>Recording Time</source>
        <translation>Aufnahmezeitpunkt</translation>
    </message>
    <message>
        <source>New Recording Time</source>
        <translation>Neuer Aufnahmezeitpunkt</translation>
    </message>
</context>
<context>
    <name>time_adjustment</name>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Hour</source>
        <translation>Stunde</translation>
    </message>
    <message>
        <source>Minute</source>
        <translation>Minute</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>Sekunde</translation>
    </message>
    <message>
        <source>Timezone (h)</source>
        <translation>Zeitzone (Std)</translation>
    </message>
</context>
</TS>
