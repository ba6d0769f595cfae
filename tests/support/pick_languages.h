// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "dialog_settings.h"
#include "orv/combobox.h"
#include "when_modal.h"
#include "window_actions.h"

constexpr int german_row = 0;
constexpr int english_row = 1;

/// Clicks the settings button, picks these rows one after another, and closes the dialog.
inline void pick_languages(const MainWindow &window, const QList<int> &rows)
{
    const when_modal<dialog_settings> user([&](dialog_settings &dialog) {
        auto *box = dialog.findChild<orv::combobox *>();
        for (const int row : rows)
            QTest::keyClick(box, row == german_row ? Qt::Key_Up : Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    click(window.button_settings);
    if (!user.answered())
        qFatal("no settings came up");
}
