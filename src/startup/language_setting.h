// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The key of the settings that holds the language.
constexpr char language_key[] = "lang";

/// The language stored under `key`, as it stands there; where nothing is stored, "de" on a German
/// system and "en" on any other. Nothing is written back.
QString language_setting(const QString &key);
