// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

struct datetime_format_form;

namespace orv
{
class radio;
}

/// The radio buttons with which the user chooses how dates and times are shown in the table. A
/// choice is stored immediately and sent with `format_changed`.
class datetime_format : public QWidget
{
    Q_OBJECT

public:
    /// Starts with the stored formats. If no button has a stored format, a default button is
    /// checked.
    explicit datetime_format(QWidget *parent);

    /// The format for QDateTime::toString: the date format, " - ", the time format.
    QString format_string() const;

    /// Takes the formats from the settings without validating them, and checks their buttons if
    /// there are any.
    void load_settings();

    /// Stores both formats in the settings.
    void save_settings();

private:
    datetime_format_form *ui;  ///< owned; lives until the process ends

public:
    QString date_format;  ///< for QDateTime::toString, like the next one
    QString time_format;

signals:
    /// Sent after each choice, with the result of `format_string`.
    void format_changed(QString format);

public slots:
    /// Each selects the format of the button in its name, stores it and sends `format_changed`.
    void on_rb_ddmmyyyy_slash_clicked();
    void on_rb_ddmmyyyy_dot_clicked();
    void on_rb_ddmmyyyy_dash_clicked();
    void on_rb_yyyymmdd_slash_clicked();
    void on_rb_yyyymmdd_dot_clicked();
    void on_rb_yyyymmdd_dash_clicked();
    void on_rb_mmddyyyy_slash_clicked();
    void on_rb_hhmmss_clicked();
    void on_rb_hhmm_clicked();

private:
    void choose_date(const orv::radio *button);
    void choose_time(const orv::radio *button);
    void commit();
};
