// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/progress_dialog.h"

#include "orv/dialog_width.h"

#include <QProgressBar>

namespace orv
{

namespace
{

constexpr char dialog_sheet[] =
    "*{color: rgb(198,213,210);  background-color: rgb(47,47,47);}"
    "QProgressBar {border: 2px solid rgb(55,63,61); border-radius: 4px; text-align: center;}"
    "QProgressBar::chunk {background-color: rgb(91,91,91); width: 5px;}";

}  // namespace

void progress_dialog::set_up(const QString &title, const QString &label, const QString &bar_format)
{
    setStyleSheet(dialog_sheet);
    // A new dialog has both flags, so this removes both.
    setWindowFlags(windowFlags() ^ (Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint));
    setWindowTitle(title);
    setLabelText(label);
    setCancelButton(nullptr);
    setMinimumDuration(0);
    setFixedSize(dialog_width(width()), height());
    auto *bar = new QProgressBar(this);
    bar->setFormat(bar_format);
    bar->setAccessibleName(label);
    setBar(bar);
    reset();
}

}  // namespace orv
