// SPDX-License-Identifier: GPL-3.0-or-later

#include "time_adjustment_form.h"

#include "form_parts.h"
#include "orv/lineedit.h"

#include <QGridLayout>
#include <QLabel>
#include <QSpacerItem>

namespace
{

constexpr char panel_sheet[] = "color: rgb(198,213,210);\nborder-style:solid;\nborder-width:3px;\n"
                               "border-image:url(:/gui/panel/border_topless.png) 3 stretch;";

constexpr char inner_sheet[] =
    "QToolTip{border: 1px solid rgb(99,99,99);\nborder-image: none;\nbackground-image: none;\n"
    "background-color: rgb(47,47,47);\n}\n"
    "*{\nborder: none;\nborder-image: none;\nbackground: rgb(47,47,47);\n}";

constexpr int label_row = 1;
constexpr int field_row = 2;
constexpr int spacer_column = 7;

QWidget *add_inner_widget(QWidget *parent, const QString &name)
{
    QWidget *widget = add_widget(parent, name);
    widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return widget;
}

}  // namespace

void time_adjustment_form::build(QWidget *panel)
{
    build_frames(panel);
    // The Tab key moves through the fields in the order of their creation.
    add_column(0, label, "label", tr("Year"), lineedit_year, "lineedit_year");
    add_column(1, label_2, "label_2", tr("Month"), lineedit_month, "lineedit_month");
    add_column(2, label_3, "label_3", tr("Day"), lineedit_day, "lineedit_day");
    add_column(3, label_4, "label_4", tr("Hour"), lineedit_hour, "lineedit_hour");
    add_column(4, label_5, "label_5", tr("Minute"), lineedit_minute, "lineedit_minute");
    add_column(5, label_6, "label_6", tr("Second"), lineedit_second, "lineedit_second");
    add_column(6, label_7, "label_7", tr("Timezone (h)"), lineedit_timezone, "lineedit_timezone");
    // An empty zone isn't the same as 0, so its field has no placeholder.
    lineedit_timezone->setPlaceholderText(QString());
    gridLayout_3->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum),
                          label_row, spacer_column);
    QMetaObject::connectSlotsByName(panel);
}

std::array<QLabel *, 7> time_adjustment_form::labels() const
{
    return {label, label_2, label_3, label_4, label_5, label_6, label_7};
}

std::array<orv::lineedit *, 7> time_adjustment_form::fields() const
{
    return {lineedit_year,   lineedit_month,  lineedit_day,     lineedit_hour,
            lineedit_minute, lineedit_second, lineedit_timezone};
}

void time_adjustment_form::build_frames(QWidget *panel)
{
    panel->setObjectName("time_adjustment");
    panel->resize(569, 73);
    panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    panel->setStyleSheet(panel_sheet);
    gridLayout = add_tight_grid(panel, "gridLayout");

    widget_2 = add_inner_widget(panel, "widget_2");
    gridLayout->addWidget(widget_2, 8, 0);
    gridLayout_2 = add_tight_grid(widget_2, "gridLayout_2");
    gridLayout_2->setContentsMargins(15, 15, 15, 15);

    widget = add_inner_widget(widget_2, "widget");
    widget->setMinimumSize(16, 16);
    widget->setStyleSheet(inner_sheet);
    gridLayout_2->addWidget(widget, 0, 0);
    gridLayout_3 = add_tight_grid(widget, "gridLayout_3");
    gridLayout_3->setHorizontalSpacing(10);
    gridLayout_3->setVerticalSpacing(5);
    gridLayout_3->setColumnStretch(spacer_column, 1);
}

void time_adjustment_form::add_column(int column, QLabel *&column_label, const QString &label_name,
                                      const QString &text, orv::lineedit *&field,
                                      const QString &field_name)
{
    column_label = new QLabel(text, widget);
    column_label->setObjectName(label_name);
    gridLayout_3->addWidget(column_label, label_row, column);

    field = new orv::lineedit(widget);
    field->setObjectName(field_name);
    field->setStyleSheet(QLatin1String(orv::lineedit::sheet));
    field->setPlaceholderText("0");
    gridLayout_3->addWidget(field, field_row, column);
    column_label->setBuddy(field);
}
