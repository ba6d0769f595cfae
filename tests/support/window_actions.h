// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "MainWindow.h"
#include "drop.h"
#include "drop_files_widget.h"
#include "file_bytes.h"
#include "main_window_form.h"
#include "orv/button_dark.h"
#include "orv/lineedit.h"
#include "orv/progress_dialog.h"
#include "table_data_model.h"

#include <QApplication>
#include <QCursor>
#include <QHeaderView>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QWindow>
#include <QtTest>

#include <functional>
#include <map>
#include <memory>

/// A user's actions in the real main window.

enum class box_reply { yes, no, escape, frame };

/// A message box as shown on the screen.
struct seen_box {
    QString title;
    QString text;
    QString yes_text;
    QString no_text;
    int button_count = 0;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QObject *parent = nullptr;
    QString default_text;  ///< of the default button
};

/// While it exists, answers each message box that opens with the next reply. A box for which no
/// reply is left is closed, and recorded like the others.
class box_answers
{
public:
    explicit box_answers(QList<box_reply> replies = {}) : replies(std::move(replies))
    {
        QObject::connect(&poll, &QTimer::timeout, &poll, [this] { look(); });
        poll.start(poll_ms);
    }

    QList<seen_box> boxes;

    QStringList texts() const
    {
        QStringList all;
        for (const seen_box &box : boxes)
            all << box.text;
        return all;
    }

private:
    static constexpr int poll_ms = 5;

    void look()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        boxes << seen_box{box->windowTitle(),
                          box->text(),
                          text_of(*box, QMessageBox::Yes),
                          text_of(*box, QMessageBox::No),
                          box->buttons().size(),
                          box->icon(),
                          box->parent(),
                          box->defaultButton() ? box->defaultButton()->text() : QString()};
        give(*box, replies.isEmpty() ? box_reply::frame : replies.takeFirst());
    }

    static QString text_of(const QMessageBox &box, QMessageBox::StandardButton button)
    {
        const QAbstractButton *found = box.button(button);
        return found ? found->text() : QString();
    }

    static void give(QMessageBox &box, box_reply reply)
    {
        if (reply == box_reply::yes)
            QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
        else if (reply == box_reply::no)
            QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
        else if (reply == box_reply::escape)
            QTest::keyClick(&box, Qt::Key_Escape);
        else
            box.close();
    }

    QList<box_reply> replies;
    QTimer poll;
};

/// While it exists, records what a progress dialog shows.
class progress_watch
{
public:
    explicit progress_watch(const orv::progress_dialog &dialog)
    {
        const auto *bar = dialog.findChild<QProgressBar *>();
        if (!bar)
            qFatal("the dialog has no bar");
        QObject::connect(bar, &QProgressBar::valueChanged, &context,
                         [this, bar, &dialog](int value) {
                             values << value;
                             minima << bar->minimum();
                             maxima << bar->maximum();
                             labels << dialog.labelText();
                             visible << dialog.isVisible();
                             if (actions.count(value) > 0)
                                 actions[value]();
                         });
    }

    /// Runs `action` each time the value becomes `value`, before any further events.
    void at(int value, std::function<void()> action) { actions[value] = std::move(action); }

    QList<int> values;
    QList<int> minima;  ///< this and the next three: one entry for each value
    QList<int> maxima;
    QStringList labels;
    QList<bool> visible;

private:
    std::map<int, std::function<void()>> actions;
    QObject context;
};

inline void click(QWidget *widget)
{
    QTest::mouseClick(widget, Qt::LeftButton);
}

/// Clicks into the middle of a column's header in the photo table.
inline void click_header(const MainWindow &window, int column)
{
    const QHeaderView &header = *window.ui->tableView->horizontalHeader();
    const QPoint place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                       header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

/// Clicks as soon as the program processes events again.
inline void click_soon(QWidget *widget)
{
    QTimer::singleShot(0, widget, [widget] { click(widget); });
}

/// While it exists, counts the mouse moves that a window gets: the simplest user input, and one
/// that waits in the platform's queue until the program takes input.
class mouse_watch : public QObject
{
public:
    explicit mouse_watch(QWidget &widget) : widget(widget)
    {
        widget.windowHandle()->installEventFilter(this);
    }

    /// Moves the mouse to another point in the window.
    void move()
    {
        const QPoint at = widget.mapFromGlobal(QCursor::pos());
        const QPoint inside = widget.rect().contains(at) ? at : QPoint();
        QCursor::setPos(widget.mapToGlobal(inside + QPoint(1, 1)));
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::MouseMove)
            ++moves;
        return QObject::eventFilter(watched, event);
    }

    int moves = 0;

private:
    QWidget &widget;
};

inline orv::lineedit *shift_field(const MainWindow &window, const QString &unit)
{
    auto *field = window.findChild<orv::lineedit *>("lineedit_" + unit);
    if (!field)
        qFatal("the window has no field for the %s", qPrintable(unit));
    return field;
}

/// @param unit  such as "hour" or "timezone"
inline void type_shift(const MainWindow &window, const QString &unit, const QString &text)
{
    QTest::keyClicks(shift_field(window, unit), text);
}

/// The texts of the seven shift fields.
inline QStringList shift_texts(const MainWindow &window)
{
    QStringList texts;
    for (const char *unit : {"year", "month", "day", "hour", "minute", "second", "timezone"})
        texts << shift_field(window, unit)->text();
    return texts;
}

inline const QStringList empty_shift = {"", "", "", "", "", "", ""};

inline void drop_photos(const MainWindow &window, const QStringList &paths)
{
    if (!drop_on(*window.ui->widget_dropper, paths))
        qFatal("the drop was refused");
}

/// The cells of a column as the table shows them, from the first row on.
inline QStringList shown_column(const MainWindow &window, int column)
{
    QStringList texts;
    for (int row = 0; row < window.model->rowCount(); ++row)
        texts << window.model->index(row, column).data().toString();
    return texts;
}

inline QStringList shown_names(const MainWindow &window)
{
    return shown_column(window, table_data_model::name_column);
}

/// A window on the screen with an empty list.
inline std::unique_ptr<MainWindow> open_window()
{
    auto window = std::make_unique<MainWindow>(nullptr);
    window->show();
    if (!QTest::qWaitForWindowExposed(window.get()))
        qFatal("the window doesn't show");
    return window;
}

/// Empties what windows share, so that the next one starts clean.
inline void close_window(std::unique_ptr<MainWindow> &window)
{
    window->on_button_reset_clicked();
    window.reset();
}
