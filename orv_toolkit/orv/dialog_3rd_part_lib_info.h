// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/library_entry.h"
#include "qor/qt/layout.h"

#include <QDialog>
#include <QSize>

#include <memory>
#include <vector>

namespace orv
{

/// The dialog that lists the libraries that the program uses, Qt first.
class dialog_3rd_part_lib_info : public QDialog
{
    Q_OBJECT

public:
    explicit dialog_3rd_part_lib_info(QWidget *parent);

    /// Lays out the entries and shows the dialog until it is closed. Requires: called only once,
    /// since each call adds the entries.
    int exec() override;

    /// The rows of one entry, for a separate widget; sets the entry's `width` and `height`. If a
    /// license can't be opened, a text says so.
    std::unique_ptr<qor::qt::layout> entry_layout(library_entry &entry);

    std::vector<library_entry> libraries;  ///< may be appended to before `exec`
    qor::qt::layout *layout;               ///< this dialog's
    QSize heading_size;                    ///< pixels reserved for the heading, more than it needs
    int margin_px = 5;                     ///< around the heading and around each entry

private:
    void add_heading();
    void add_entry(library_entry &entry);
    static QString license_text(const QString &path);
};

}  // namespace orv
