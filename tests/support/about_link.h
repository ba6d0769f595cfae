// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/clickable_label.h"

#include <QDialog>

/// The about dialog's link to the list of libraries.
inline orv::clickable_label *link_of(const QDialog &dialog)
{
    const auto links = dialog.findChildren<orv::clickable_label *>();
    if (links.size() != 1)
        qFatal("the dialog has %d links", links.size());
    return links.first();
}
