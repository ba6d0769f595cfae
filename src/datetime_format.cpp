// SPDX-License-Identifier: GPL-3.0-or-later

#include "datetime_format.h"

#include "datetime_format_form.h"
#include "orv/radio.h"
#include "orv/skin_fonts.h"

#include <QLabel>
#include <QSettings>

datetime_format::datetime_format(QWidget *parent) : QWidget(parent), ui(new datetime_format_form)
{
    ui->build(this);
    load_settings();
    ui->label->setFont(orv::heading_font());
    ui->label_2->setFont(orv::heading_font());
}

QString datetime_format::format_string() const
{
    return QString("%1 - %2").arg(date_format, time_format);
}

void datetime_format::load_settings()
{
    static const QSettings settings;
    date_format = settings.value("date_format", "dd.MM.yyyy").toString();
    time_format = settings.value("time_format", "HH:mm:ss").toString();
    // If no button has the stored format, the checked one stays checked: the groups are exclusive.
    for (const auto &choice : datetime_format_form::date_choices)
        (ui->*choice.button)->setChecked(date_format == QLatin1String(choice.format));
    for (const auto &choice : datetime_format_form::time_choices)
        (ui->*choice.button)->setChecked(time_format == QLatin1String(choice.format));
}

void datetime_format::save_settings()
{
    static QSettings settings;
    settings.setValue("date_format", date_format);
    settings.setValue("time_format", time_format);
}

void datetime_format::on_rb_ddmmyyyy_slash_clicked()
{
    choose_date(ui->rb_ddmmyyyy_slash);
}

void datetime_format::on_rb_ddmmyyyy_dot_clicked()
{
    choose_date(ui->rb_ddmmyyyy_dot);
}

void datetime_format::on_rb_ddmmyyyy_dash_clicked()
{
    choose_date(ui->rb_ddmmyyyy_dash);
}

void datetime_format::on_rb_yyyymmdd_slash_clicked()
{
    choose_date(ui->rb_yyyymmdd_slash);
}

void datetime_format::on_rb_yyyymmdd_dot_clicked()
{
    choose_date(ui->rb_yyyymmdd_dot);
}

void datetime_format::on_rb_yyyymmdd_dash_clicked()
{
    choose_date(ui->rb_yyyymmdd_dash);
}

void datetime_format::on_rb_mmddyyyy_slash_clicked()
{
    choose_date(ui->rb_mmddyyyy_slash);
}

void datetime_format::on_rb_hhmmss_clicked()
{
    choose_time(ui->rb_hhmmss);
}

void datetime_format::on_rb_hhmm_clicked()
{
    choose_time(ui->rb_hhmm);
}

void datetime_format::choose_date(const orv::radio *button)
{
    date_format = ui->format_of(button);
    commit();
}

void datetime_format::choose_time(const orv::radio *button)
{
    time_format = ui->format_of(button);
    commit();
}

void datetime_format::commit()
{
    save_settings();
    emit format_changed(format_string());
}
