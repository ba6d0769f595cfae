// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <QSettings>

namespace orv
{
class combobox;
}

/// The dialog in which the user chooses the program's language, which takes effect at the next
/// start. A choice is stored immediately, so there is nothing to confirm and the result of `exec`
/// doesn't matter.
class dialog_settings : public QDialog
{
    Q_OBJECT

public:
    /// Shows the current setting. Stores nothing.
    explicit dialog_settings(QWidget *parent);

private:
    QWidget *make_content();
    orv::combobox *make_language_box();

    QSettings settings;
};
