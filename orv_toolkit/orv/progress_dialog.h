// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProgressDialog>

namespace orv
{

/// The progress dialog of a batch, in the program's skin. It has no cancel button and no close
/// button, and is hidden until the batch sets a value.
class progress_dialog : public QProgressDialog
{
    Q_OBJECT

public:
    using QProgressDialog::QProgressDialog;

    /// Sets the skin, the texts and the bar, and fixes the size. Requires: called only once.
    /// @param bar_format  text in the bar, with %v for the value and %m for the maximum
    void set_up(const QString &title, const QString &label, const QString &bar_format);
};

}  // namespace orv
