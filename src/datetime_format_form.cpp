// SPDX-License-Identifier: GPL-3.0-or-later

#include "datetime_format_form.h"

#include "form_parts.h"
#include "orv/radio.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QSpacerItem>

namespace
{

constexpr char panel_sheet[] = "color: rgb(198,213,210);\nborder-style:solid;\nborder-width:3px;\n"
                               "border-image:url(:/gui/panel/border.png) 3 stretch;";

constexpr char outer_sheet[] = "QToolTip{border:1px solid rgb(99,99,99);border-image:none;"
                               "background-image:none;background-color:rgb(47,47,47);}";

constexpr char inner_sheet[] = "border: none;\nbackground-color: rgb(47,47,47);";

constexpr int panel_height_px = 144;
constexpr int time_gap_px = 25;

QButtonGroup *add_group(QWidget *panel, const QString &name)
{
    auto *group = new QButtonGroup(panel);
    group->setObjectName(name);
    group->setExclusive(true);
    return group;
}

}  // namespace

// clang-format off
const std::array<datetime_format_form::choice, 7> datetime_format_form::date_choices = {{
    {"rb_ddmmyyyy_slash", QT_TRANSLATE_NOOP("datetime_format", "DD/MM/YYYY"), "dd/MM/yyyy", 1, 0,
     &datetime_format_form::rb_ddmmyyyy_slash},
    {"rb_ddmmyyyy_dot", QT_TRANSLATE_NOOP("datetime_format", "DD.MM.YYYY"), "dd.MM.yyyy", 2, 0,
     &datetime_format_form::rb_ddmmyyyy_dot},
    {"rb_ddmmyyyy_dash", QT_TRANSLATE_NOOP("datetime_format", "DD-MM-YYYY"), "dd-MM-yyyy", 3, 0,
     &datetime_format_form::rb_ddmmyyyy_dash},
    {"rb_yyyymmdd_slash", QT_TRANSLATE_NOOP("datetime_format", "YYYY/MM/DD"), "yyyy/MM/dd", 1, 2,
     &datetime_format_form::rb_yyyymmdd_slash},
    {"rb_yyyymmdd_dot", QT_TRANSLATE_NOOP("datetime_format", "YYYY.MM.DD"), "yyyy.MM.dd", 2, 2,
     &datetime_format_form::rb_yyyymmdd_dot},
    {"rb_yyyymmdd_dash", QT_TRANSLATE_NOOP("datetime_format", "YYYY-MM-DD"), "yyyy-MM-dd", 3, 2,
     &datetime_format_form::rb_yyyymmdd_dash},
    {"rb_mmddyyyy_slash", QT_TRANSLATE_NOOP("datetime_format", "MM/DD/YYYY"), "MM/dd/yyyy", 6, 0,
     &datetime_format_form::rb_mmddyyyy_slash},
}};

const std::array<datetime_format_form::choice, 2> datetime_format_form::time_choices = {{
    {"rb_hhmmss", QT_TRANSLATE_NOOP("datetime_format", "hh:mm:ss"), "HH:mm:ss", 1, 4,
     &datetime_format_form::rb_hhmmss},
    {"rb_hhmm", QT_TRANSLATE_NOOP("datetime_format", "hh:mm"), "HH:mm", 2, 4,
     &datetime_format_form::rb_hhmm},
}};
// clang-format on

void datetime_format_form::build(QWidget *panel)
{
    build_frames(panel);
    build_labels();
    buttongroup_date = add_group(panel, "buttongroup_date");
    for (const choice &date_choice : date_choices)
        add_button(date_choice, buttongroup_date, tr("Change the date display format"));
    buttongroup_time = add_group(panel, "buttongroup_time");
    for (const choice &time_choice : time_choices)
        add_button(time_choice, buttongroup_time, tr("Change the time display format"));
    rb_ddmmyyyy_dot->setChecked(true);
    rb_hhmmss->setChecked(true);
    QMetaObject::connectSlotsByName(panel);
}

QString datetime_format_form::format_of(const orv::radio *button) const
{
    for (const choice &date_choice : date_choices) {
        if (this->*date_choice.button == button)
            return QLatin1String(date_choice.format);
    }
    for (const choice &time_choice : time_choices) {
        if (this->*time_choice.button == button)
            return QLatin1String(time_choice.format);
    }
    return {};
}

void datetime_format_form::build_frames(QWidget *panel)
{
    panel->setObjectName("datetime_format");
    panel->resize(443, panel_height_px);
    panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    panel->setMaximumHeight(panel_height_px);
    panel->setStyleSheet(panel_sheet);
    gridLayout = add_tight_grid(panel, "gridLayout");

    widget_3 = add_widget(panel, "widget_3");
    widget_3->setStyleSheet(outer_sheet);
    gridLayout->addWidget(widget_3, 5, 0);
    gridLayout_3 = add_tight_grid(widget_3, "gridLayout_3");
    gridLayout_3->setContentsMargins(15, 13, 15, 15);

    widget_2 = add_widget(widget_3, "widget_2");
    widget_2->setStyleSheet(inner_sheet);
    gridLayout_3->addWidget(widget_2, 0, 0);
    gridLayout_3->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum), 0,
                          1);
    gridLayout_3->addItem(new QSpacerItem(20, 40, QSizePolicy::Minimum, QSizePolicy::Expanding), 1,
                          0);

    gridLayout_2 = add_grid(widget_2, "gridLayout_2");
    widget_5 = add_widget(widget_2, "widget_5");
    widget_5->setMinimumWidth(time_gap_px);
    gridLayout_2->addWidget(widget_5, 0, 3);
    widget = add_widget(widget_2, "widget");
    gridLayout_2->addWidget(widget, 1, 1);
    gridLayout_2->addItem(new QSpacerItem(20, 5, QSizePolicy::Minimum, QSizePolicy::Minimum), 4, 0);
}

void datetime_format_form::build_labels()
{
    label = new QLabel(tr("Date Format"), widget_2);
    label->setObjectName("label");
    gridLayout_2->addWidget(label, 0, 0);
    label_2 = new QLabel(tr("Time Format"), widget_2);
    label_2->setObjectName("label_2");
    gridLayout_2->addWidget(label_2, 0, 4);
}

void datetime_format_form::add_button(const choice &choice, QButtonGroup *group,
                                      const QString &tooltip)
{
    auto *button = new orv::radio(tr(choice.label), widget_2);
    button->setObjectName(QLatin1String(choice.object_name));
    button->setStyleSheet(QLatin1String(orv::radio::sheet));
    button->setToolTip(tooltip);
    gridLayout_2->addWidget(button, choice.row, choice.column);
    group->addButton(button);
    this->*choice.button = button;
}
