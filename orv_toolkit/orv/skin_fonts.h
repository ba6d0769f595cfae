// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>

namespace orv
{

/// The font of all text.
QFont text_font();

/// The font of headings.
QFont heading_font();

}  // namespace orv
