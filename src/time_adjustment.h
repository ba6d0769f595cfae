// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

struct time_adjustment_form;

/// The row of fields in which the user enters the shift. Each change of a text sends the whole
/// shift; the panel does no arithmetic and checks no ranges.
class time_adjustment : public QWidget
{
    Q_OBJECT

public:
    explicit time_adjustment(QWidget *parent);

    /// Empties all fields; each that held text sends the shift once more.
    void reset();

    /// Puts the keyboard into the year's field.
    void focus_first_field();

    /// Whether something stands in the zone's field, be it a number or not.
    bool timezone_given() const;

    /// Sends the shift as it stands.
    void emit_offset();

    /// Gives all labels and fields the same tool tip.
    void set_tooltips(const QString &text);

private:
    time_adjustment_form *ui;  ///< owned; lives to the end of the process

public:
    int year = 0;  ///< as entered, like the next six; 0 for an empty or unfinished number
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    double timezone = 0.0;  ///< hours

signals:
    /// @param alter_timezone  something stands in the zone's field
    /// @param timezone  hours
    void time_offset_changed(int year, int month, int day, int hour, int minute, int second,
                             bool alter_timezone, double timezone);

public slots:
    void on_lineedit_year_textChanged(const QString &arg1);
    void on_lineedit_month_textChanged(const QString &arg1);
    void on_lineedit_day_textChanged(const QString &arg1);
    void on_lineedit_hour_textChanged(const QString &arg1);
    void on_lineedit_minute_textChanged(const QString &arg1);
    void on_lineedit_second_textChanged(const QString &arg1);
    void on_lineedit_timezone_textChanged(const QString &arg1);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void add_validators();
    void take(int &field, const QString &text);
};
