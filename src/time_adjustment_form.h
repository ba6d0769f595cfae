// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>

#include <array>

class QGridLayout;
class QLabel;
class QWidget;

namespace orv
{
class lineedit;
}

/// The widgets of the `time_adjustment` panel. The panel owns them; their object names are the
/// names of the fields.
struct time_adjustment_form {
    Q_DECLARE_TR_FUNCTIONS(time_adjustment)

public:
    /// Builds everything inside `panel` and connects its slots by name.
    void build(QWidget *panel);

    /// All labels and all fields, from the year to the zone.
    std::array<QLabel *, 7> labels() const;
    std::array<orv::lineedit *, 7> fields() const;

    QGridLayout *gridLayout = nullptr;
    QWidget *widget_2 = nullptr;
    QGridLayout *gridLayout_2 = nullptr;
    QWidget *widget = nullptr;
    QGridLayout *gridLayout_3 = nullptr;
    QLabel *label = nullptr;
    QLabel *label_2 = nullptr;
    QLabel *label_3 = nullptr;
    QLabel *label_4 = nullptr;
    QLabel *label_5 = nullptr;
    QLabel *label_6 = nullptr;
    QLabel *label_7 = nullptr;
    orv::lineedit *lineedit_year = nullptr;
    orv::lineedit *lineedit_month = nullptr;
    orv::lineedit *lineedit_day = nullptr;
    orv::lineedit *lineedit_hour = nullptr;
    orv::lineedit *lineedit_minute = nullptr;
    orv::lineedit *lineedit_second = nullptr;
    orv::lineedit *lineedit_timezone = nullptr;

private:
    void build_frames(QWidget *panel);
    void add_column(int column, QLabel *&column_label, const QString &label_name,
                    const QString &text, orv::lineedit *&field, const QString &field_name);
};
