// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProgressDialog>

namespace orv
{

/// The progress of a batch, in the program's skin: without a cancel button and without a close
/// button, hidden until the batch sets a value.
class progress_dialog : public QProgressDialog
{
    Q_OBJECT

public:
    using QProgressDialog::QProgressDialog;

    /// Gives a fresh dialog its skin, texts and bar, and fixes its size.
    /// @param bar_format  text in the bar, with %v for the value and %m for the maximum
    void set_up(const QString &title, const QString &label, const QString &bar_format);
};

}  // namespace orv
