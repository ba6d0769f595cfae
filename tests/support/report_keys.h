// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/message_box.h"
#include "when_modal.h"

#include <QtTest>

/// Presses keys in a widget after activating its window: shortcuts work only in the active window.
inline void press_keys(QWidget *widget, int key, Qt::KeyboardModifiers modifiers)
{
    widget->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(widget->window()))
        qFatal("the window isn't active");
    QTest::keyClick(widget, static_cast<Qt::Key>(key), modifiers);
}

/// The report as shown on the screen.
struct seen_report {
    QString title;
    QString text;
    QWidget *parent = nullptr;
};

/// Presses the report's keys in a widget and closes the box. Returns an empty report if none
/// opened.
inline seen_report report_of_keys(QWidget *widget)
{
    seen_report report;
    const when_modal<orv::message_box> answer([&report](orv::message_box &box) {
        report = {box.windowTitle(), box.text(), box.parentWidget()};
        QTest::keyClick(&box, Qt::Key_Return);
    });
    press_keys(widget, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    return report;
}
