<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>orv::dialog_about</name>
    <message>
        <source>This application</source>
        <translation>Diese Anwendung</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>%1 uses Exiftool by Phil Harvey.
https://exiftool.org/</source>
        <translation>%1 verwendet Exiftool von Phil Harvey.
https://exiftool.org/</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>Webseite:</source>
        <translation>Webseite:</translation>
    </message>
    <message>
        <source>Click here for 3rd party library information</source>
        <translation>Klicke hier um Informationen über Bibliotheken von Drittanbietern zu erhalten</translation>
    </message>
    <message>
        <source>Copyright %1 Vorrin</source>
        <translation>Copyright %1 Vorrin</translation>
    </message>
</context>
<context>
    <name>orv::dialog_3rd_part_lib_info</name>
    <message>
        <source>This software dynamically links to Qt which is licensed under the LGPL license.
The source code of the Qt SDK can be found at https://download.qt.io/archive/qt/
The full text for the LGPL license was distributed as a text file with this software.</source>
        <translation>Diese Software ist dynamisch mit Qt gelinkt, das unter der LGPL lizenziert ist.
Der Quellcode des Qt SDK ist unter https://download.qt.io/archive/qt/ zu finden.
Der vollständige Text der LGPL wurde als Textdatei mit dieser Software ausgeliefert.</translation>
    </message>
    <message>
        <source>%1 uses the following open source and/or 3rd party libraries:</source>
        <translation>Die Folgenden Open Source Bibliotheken und/oder Bibliotheken von Drittanbietern werden in %1 verwendet:</translation>
    </message>
    <message>
        <source>Could not open license text resource at %1</source>
        <translation>Der Lizenztext unter %1 konnte nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>qor::qt::widget_fold</name>
    <message>
        <source>fold</source>
        <translation>Zuklappen</translation>
    </message>
    <message>
        <source>unfold</source>
        <translation>Aufklappen</translation>
    </message>
</context>
</TS>
