// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The settings key of the language.
constexpr char language_key[] = "lang";

/// The language stored under `key`, unchanged. If none is stored: "de" on a German system, "en" on
/// any other. Nothing is written back.
QString language_setting(const QString &key);
