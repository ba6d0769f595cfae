// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>

#include <array>

class QButtonGroup;
class QGridLayout;
class QLabel;
class QWidget;

namespace orv
{
class radio;
}

/// The widgets of the `datetime_format` panel. The panel owns them; their object names are the
/// names of the fields.
struct datetime_format_form {
    Q_DECLARE_TR_FUNCTIONS(datetime_format)

public:
    /// A radio button and the format that it selects.
    struct choice {
        const char *object_name;
        const char *label;
        const char *format;  ///< for QDateTime::toString
        int row;
        int column;
        orv::radio *datetime_format_form::*button;
    };
    /// The Tab key moves through the dates in this order, then through the times.
    static const std::array<choice, 7> date_choices;
    static const std::array<choice, 2> time_choices;

    /// Builds everything inside `panel` and connects its slots by name.
    void build(QWidget *panel);

    /// The format of one of the radio buttons; empty for any other button.
    QString format_of(const orv::radio *button) const;

    QGridLayout *gridLayout = nullptr;
    QWidget *widget_3 = nullptr;
    QGridLayout *gridLayout_3 = nullptr;
    QWidget *widget_2 = nullptr;
    QGridLayout *gridLayout_2 = nullptr;
    QWidget *widget_5 = nullptr;
    QWidget *widget = nullptr;
    QLabel *label = nullptr;
    QLabel *label_2 = nullptr;
    orv::radio *rb_ddmmyyyy_slash = nullptr;
    orv::radio *rb_ddmmyyyy_dot = nullptr;
    orv::radio *rb_ddmmyyyy_dash = nullptr;
    orv::radio *rb_yyyymmdd_slash = nullptr;
    orv::radio *rb_yyyymmdd_dot = nullptr;
    orv::radio *rb_yyyymmdd_dash = nullptr;
    orv::radio *rb_mmddyyyy_slash = nullptr;
    orv::radio *rb_hhmmss = nullptr;
    orv::radio *rb_hhmm = nullptr;
    QButtonGroup *buttongroup_date = nullptr;
    QButtonGroup *buttongroup_time = nullptr;

private:
    void build_frames(QWidget *panel);
    void build_labels();
    void add_button(const choice &choice, QButtonGroup *group, const QString &tooltip);
};
