// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <QSettings>

namespace orv
{
class combobox;
}

/// The dialog in which the user picks the language of the program, which takes effect at the next
/// start. A choice is stored at once, so there is nothing to confirm and no result to look at.
class dialog_settings : public QDialog
{
    Q_OBJECT

public:
    /// Shows the language in use. Stores nothing.
    explicit dialog_settings(QWidget *parent);

private:
    QWidget *make_content();
    orv::combobox *make_language_box();

    QSettings settings;
};
