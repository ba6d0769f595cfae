// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QString;

/// Sets the names under which the settings are stored, and the version. Needs no application
/// object.
void set_identity();

/// Makes UTF-8 the encoding in which names go to the metadata tool, whatever the code page: a
/// character that the code page lacks would become "?", which the tool takes for a pattern. Has no
/// effect except on Windows; elsewhere the locale decides.
void set_name_encoding();

/// Sets the names, their encoding, and how Qt draws. Requires: no application object exists yet.
void prepare_application();

/// Gives the application a style that shows tool tips after two seconds, and dark colours for
/// everything without its own style sheet, such as the file dialog. Requires: the application
/// object, which owns the style.
void install_style();

/// Gives all windows the program's icon, and message boxes and Qt's file dialog the skin's icons;
/// the desktop's icons are the fallback. Requires: the application object.
void install_icons();

/// Installs the translations of Qt, the program and the toolkit for a language such as "de". Texts
/// without a catalogue stay as in the source, in English. The translators live until the process
/// ends. Requires: the application object.
void install_translators(const QString &language);

/// Adds the program's fonts. The bold one names its family "FreeSans", as the regular one does, so
/// "FreeSansBold" is registered as another name for that family. Requires: the application object.
void add_fonts();
