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

    /// Clears all fields; each field that held text sends the shift once.
    void reset();

    /// Gives the keyboard focus to the year field.
    void focus_first_field();

    /// Whether the zone field has any text, even if it isn't a number.
    bool timezone_given() const;

    /// Sends the current shift.
    void emit_offset();

    /// Sets the same tool tip on all labels and fields.
    void set_tooltips(const QString &text);

private:
    time_adjustment_form *ui;  ///< owned; lives until the process ends

public:
    int year = 0;  ///< as entered, like the next six; 0 if empty or incomplete
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    double timezone = 0.0;  ///< hours

signals:
    /// Sent with the whole shift when a field changes.
    /// @param alter_timezone  the zone field isn't empty
    /// @param timezone  hours
    void time_offset_changed(int year, int month, int day, int hour, int minute, int second,
                             bool alter_timezone, double timezone);

public slots:
    /// Each takes the new text of the field in its name and sends the shift.
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
