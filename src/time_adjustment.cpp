// SPDX-License-Identifier: GPL-3.0-or-later

#include "time_adjustment.h"

#include "orv/lineedit.h"
#include "time_adjustment_form.h"

#include <QDoubleValidator>
#include <QIntValidator>
#include <QLabel>
#include <QLocale>
#include <QPalette>

namespace
{

constexpr double smallest_zone_hours = -12.0;
constexpr double greatest_zone_hours = 14.0;
constexpr int zone_decimals = 2;

/// The grey of the icons, lightened until it is easy to read on the fields (contrast 4.7 to 1).
const QColor placeholder_colour(138, 145, 142);

/// Accepts only what `take` can read. With the user's locale it would also accept group separators
/// and digits of other scripts.
QIntValidator *make_number_validator()
{
    QLocale plain = QLocale::c();
    plain.setNumberOptions(plain.numberOptions() | QLocale::RejectGroupSeparator);
    auto *validator = new QIntValidator;
    validator->setLocale(plain);
    return validator;
}

}  // namespace

time_adjustment::time_adjustment(QWidget *parent) : QWidget(parent), ui(new time_adjustment_form)
{
    ui->build(this);
    add_validators();
}

void time_adjustment::reset()
{
    for (orv::lineedit *field : ui->fields())
        field->setText(QString());
}

void time_adjustment::focus_first_field()
{
    ui->lineedit_year->setFocus(Qt::OtherFocusReason);
}

bool time_adjustment::timezone_given() const
{
    return !ui->lineedit_timezone->text().isEmpty();
}

void time_adjustment::emit_offset()
{
    emit time_offset_changed(year, month, day, hour, minute, second, timezone_given(), timezone);
}

void time_adjustment::set_tooltips(const QString &text)
{
    for (QLabel *label : ui->labels())
        label->setToolTip(text);
    for (orv::lineedit *field : ui->fields())
        field->setToolTip(text);
}

void time_adjustment::on_lineedit_year_textChanged(const QString &arg1)
{
    take(year, arg1);
}

void time_adjustment::on_lineedit_month_textChanged(const QString &arg1)
{
    take(month, arg1);
}

void time_adjustment::on_lineedit_day_textChanged(const QString &arg1)
{
    take(day, arg1);
}

void time_adjustment::on_lineedit_hour_textChanged(const QString &arg1)
{
    take(hour, arg1);
}

void time_adjustment::on_lineedit_minute_textChanged(const QString &arg1)
{
    take(minute, arg1);
}

void time_adjustment::on_lineedit_second_textChanged(const QString &arg1)
{
    take(second, arg1);
}

void time_adjustment::on_lineedit_timezone_textChanged(const QString &arg1)
{
    bool ok = false;
    timezone = arg1.toDouble(&ok);
    if (!ok)
        timezone = QLocale().toDouble(arg1);
    emit_offset();
}

/// A style sheet sets the placeholders to the text colour when the fields are polished, which has
/// happened by now.
void time_adjustment::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    for (orv::lineedit *field : ui->fields()) {
        QPalette palette = field->palette();
        palette.setColor(QPalette::PlaceholderText, placeholder_colour);
        field->setPalette(palette);
    }
}

/// The validators have no parent and live until the process ends.
void time_adjustment::add_validators()
{
    for (orv::lineedit *field : ui->fields()) {
        if (field != ui->lineedit_timezone)
            field->setValidator(make_number_validator());
    }
    auto *zone_validator = new QDoubleValidator;
    zone_validator->setNotation(QDoubleValidator::StandardNotation);
    zone_validator->setRange(smallest_zone_hours, greatest_zone_hours, zone_decimals);
    ui->lineedit_timezone->setValidator(zone_validator);
}

/// A text that isn't a number, such as a single sign, counts as 0.
void time_adjustment::take(int &field, const QString &text)
{
    field = text.toInt();
    emit_offset();
}
