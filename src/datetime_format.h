// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

struct datetime_format_form;

namespace orv
{
class radio;
}

/// The radio buttons with which the user picks how dates and times show in the table. A choice is
/// stored and sent at once.
class datetime_format : public QWidget
{
    Q_OBJECT

public:
    /// Starts with the stored formats; the buttons show the closest that they can.
    explicit datetime_format(QWidget *parent);

    /// The format for QDateTime::toString: the date's, blank, hyphen, blank, the time's.
    QString format_string() const;

    /// Takes the formats of the settings, unchecked, and their buttons where there are any.
    void load_settings();
    void save_settings();

private:
    datetime_format_form *ui;  ///< owned; lives to the end of the process

public:
    QString date_format;
    QString time_format;

signals:
    void format_changed(QString format);

public slots:
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
