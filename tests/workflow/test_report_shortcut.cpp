// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "german_catalogues.h"
#include "loop_with.h"
#include "modal_watch.h"
#include "program_test_main.h"
#include "report_keys.h"

#include <QAction>
#include <QRadioButton>
#include <QSettings>
#include <QShortcut>
#include <QTableView>

namespace
{

/// The widget that the rows of a test call `name`.
QWidget *named_widget(const MainWindow &window, const QString &name)
{
    if (name == "table")
        return window.ui->tableView->viewport();
    if (name == "button")
        return window.button_load_images;
    if (name == "window")
        return window.button_fix_time->window();
    if (name == "radio button")
        return window.findChild<QRadioButton *>();
    return shift_field(window, name);
}

void add_widget_names()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"window", "year", "timezone", "table", "button", "radio button"})
        QTest::newRow(name) << name;
}

}  // namespace

/// The keys that the real window reacts to, and those that it ignores.
class test_report_shortcut : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup() { app.end(); }
    void keys_show_the_report_from_any_focused_widget_data() { add_widget_names(); }
    void keys_show_the_report_from_any_focused_widget();
    void keys_show_the_report_over_a_filled_table();
    void report_is_the_same_in_german();
    void keys_show_the_report_from_another_window();
    void other_keys_show_no_report_data();
    void other_keys_show_no_report();
    void report_is_the_only_shortcut();
    void listed_keys_do_nothing_data();
    void listed_keys_do_nothing();

private:
    fake_tool_window app;
};

void test_report_shortcut::keys_show_the_report_from_any_focused_widget()
{
    QFETCH(QString, name);
    QWidget *widget = named_widget(*app.window, name);
    QVERIFY(widget);
    widget->setFocus();
    const QStringList shift = shift_texts(*app.window);
    const seen_report report = report_of_keys(widget);
    QCOMPARE(report.title, QString("Application Information"));
    QVERIFY(report.text.startsWith("OS: "));
    QVERIFY(report.text.contains("\nComponent: application\tVersion: "));
    QCOMPARE(report.parent, app.window.get());
    QCOMPARE(shift_texts(*app.window), shift);
}

void test_report_shortcut::keys_show_the_report_over_a_filled_table()
{
    const seen_report over_empty = report_of_keys(app.window.get());
    QCOMPARE(app.window->model->rowCount(), 0);
    app.load_dated_photo("a.jpg");
    app.load_dated_photo("b.jpg");
    QCOMPARE(app.window->model->rowCount(), 2);
    const seen_report over_filled = report_of_keys(app.window.get());
    QVERIFY(!over_empty.text.isEmpty());
    QCOMPARE(over_filled.text, over_empty.text);
    QCOMPARE(shown_names(*app.window), QStringList({"a.jpg", "b.jpg"}));
}

void test_report_shortcut::report_is_the_same_in_german()
{
    const seen_report english = report_of_keys(app.window.get());
    const german_catalogues german;
    QSettings().setValue("lang", "de");
    close_window(app.window);
    app.window = open_window();
    QCOMPARE(app.window->button_load_images->toolTip(), QString("Bilder Laden"));
    const seen_report report = report_of_keys(app.window.get());
    QVERIFY(!report.text.isEmpty());
    QCOMPARE(report.text, english.text);
    QCOMPARE(report.title, english.title);
}

/// The shortcut belongs to the application, not just to one window.
void test_report_shortcut::keys_show_the_report_from_another_window()
{
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    other.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &other);
    const seen_report report = report_of_keys(&other);
    QCOMPARE(report.title, QString("Application Information"));
    QCOMPARE(report.parent, app.window.get());
}

void test_report_shortcut::other_keys_show_no_report_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("without Shift") << int(Qt::Key_G) << int(Qt::ControlModifier);
    QTest::newRow("without Ctrl") << int(Qt::Key_G) << int(Qt::ShiftModifier);
    QTest::newRow("with Alt too") << int(Qt::Key_G)
                                  << int(Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
    QTest::newRow("another letter")
        << int(Qt::Key_H) << int(Qt::ControlModifier | Qt::ShiftModifier);
}

void test_report_shortcut::other_keys_show_no_report()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    const modal_watch dialogs;
    press_keys(app.window.get(), key, Qt::KeyboardModifiers(modifiers));
    QCoreApplication::processEvents();
    QCOMPARE(dialogs.classes, QStringList());
}

void test_report_shortcut::report_is_the_only_shortcut()
{
    const auto shortcuts = app.window->findChildren<QShortcut *>();
    QCOMPARE(shortcuts.size(), 1);
    QCOMPARE(shortcuts.first()->key(), QKeySequence("Ctrl+Shift+G"));
    QCOMPARE(shortcuts.first()->context(), Qt::ApplicationShortcut);
    QCOMPARE(shortcuts.first()->parentWidget(), app.window.get());
    for (const auto *action : app.window->findChildren<QAction *>())
        QVERIFY2(action->shortcuts().isEmpty(), qPrintable(action->text()));
    for (const auto *button : app.window->findChildren<QAbstractButton *>())
        QVERIFY2(button->shortcut().isEmpty(), qPrintable(button->toolTip()));
}

void test_report_shortcut::listed_keys_do_nothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    for (const char *name : {"window", "year", "table", "button"}) {
        QTest::addRow("Ctrl+Q in %s", name) << name << int(Qt::Key_Q);
        QTest::addRow("Ctrl+O in %s", name) << name << int(Qt::Key_O);
    }
}

void test_report_shortcut::listed_keys_do_nothing()
{
    QFETCH(QString, name);
    QFETCH(int, key);
    QWidget *widget = named_widget(*app.window, name);
    widget->setFocus();
    const modal_watch dialogs;
    const int value =
        loop_with([&] { QTest::keyClick(widget, static_cast<Qt::Key>(key), Qt::ControlModifier); });
    QCOMPARE(value, loop_went_on);
    QCOMPARE(dialogs.classes, QStringList());
    QVERIFY(app.window->isVisible());
    QCOMPARE(app.window->model->rowCount(), 0);
    QCOMPARE(shift_texts(*app.window), empty_shift);
}

KELVRA_PROGRAM_TEST_MAIN(test_report_shortcut)
#include "test_report_shortcut.moc"
