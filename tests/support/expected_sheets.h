// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The style sheets that several widgets must have, to the byte.

inline constexpr char radio_sheet[] =
    "QRadioButton{spacing:4px;}QRadioButton::indicator:enabled:unchecked{image:url(:/gui/radio/"
    "unchecked.png);}QRadioButton::indicator:enabled:checked{image:url(:/gui/radio/"
    "checked.png);}QRadioButton::indicator:!enabled:unchecked{image:url(:/gui/radio/"
    "disabled_unchecked.png);}QRadioButton::indicator:!enabled:checked{image:url(:/gui/radio/"
    "disabled_checked.png);}QToolTip{border:1px solid "
    "rgb(99,99,99);background-image:none;background-color:rgb(47,47,47);}";

inline constexpr char scroll_bar_sheet[] =
    "QScrollBar:vertical {    border: none;    background-color:rgb(47,47,47);    width:11px;      "
    "  margin: 0px 0px 0px 0px;}QScrollBar::handle:vertical {    border: 1px solid black;    "
    "border-radius: 5px;    background: rgb(0,0,0);    min-height: "
    "20px;}QScrollBar::add-line:vertical {    background: black;    height: 0px;    "
    "subcontrol-position: bottom;    subcontrol-origin: margin;}QScrollBar::sub-line:vertical {    "
    "background: black;    height: 0px;    subcontrol-position: top;    subcontrol-origin: "
    "margin;}";
