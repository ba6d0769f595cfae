// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/build_report.h"
#include "orv/message_box.h"
#include "when_modal.h"

#include <QString>
#include <QtTest>

/// Opens the report on the running components, closes it by its key and returns its text.
inline QString shown_report()
{
    QString text;
    const when_modal<orv::message_box> answer([&text](orv::message_box &box) {
        text = box.text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    orv::show_application_information(nullptr);
    if (!answer.answered())
        qFatal("no report was shown");
    return text;
}
