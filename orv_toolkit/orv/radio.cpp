// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/radio.h"

namespace orv
{

const char radio::sheet[] =
    "QRadioButton{spacing:4px;}"
    "QRadioButton::indicator:enabled:unchecked{image:url(:/gui/radio/unchecked.png);}"
    "QRadioButton::indicator:enabled:checked{image:url(:/gui/radio/checked.png);}"
    "QRadioButton::indicator:!enabled:unchecked{image:url(:/gui/radio/disabled_unchecked.png);}"
    "QRadioButton::indicator:!enabled:checked{image:url(:/gui/radio/disabled_checked.png);}"
    "QToolTip{border:1px solid rgb(99,99,99);background-image:none;"
    "background-color:rgb(47,47,47);}";

}  // namespace orv
