// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QAbstractScrollArea;

namespace orv
{

/// Gives both scroll bars of the area the program's skin.
void skin_scroll_bars(QAbstractScrollArea *area);

}  // namespace orv
