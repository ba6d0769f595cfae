// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QString;

/// Sets the names under which the settings are stored, and the version. Needs no application
/// object.
void set_identity();

/// What goes ahead of the application object: the names, and how Qt is to draw.
void prepare_application();

/// Gives the application the style in which tool tips take two seconds to show, and dark colours
/// for what has no style sheet of its own, such as the file dialog. Needs the application object,
/// which owns the style.
void install_style();

/// Gives all windows the program's icon, and message boxes and Qt's file dialog icons of the skin's
/// own. The desktop's icons stand behind these. Needs the application object.
void install_icons();

/// Installs the texts of Qt, of the program and of the widget kit in a language such as "de". Texts
/// without a catalogue stay as they are in the source, which is English. The translators live to
/// the end of the process.
void install_translators(const QString &language);

/// Adds the program's fonts. The bold one calls itself "FreeSans" like the plain one, so its family
/// "FreeSansBold" is made known as another name of that. Needs the application object.
void add_fonts();
