// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/progress_dialog.h"
#include "widget_test_main.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace
{

constexpr char dialog_sheet[] =
    "*{color: rgb(198,213,210);  background-color: rgb(47,47,47);}QProgressBar {border: 2px solid "
    "rgb(55,63,61); border-radius: 4px; text-align: center;}QProgressBar::chunk {background-color: "
    "rgb(91,91,91); width: 5px;}";

/// The size of a plain Qt dialog after the steps that come before the size is fixed.
QSize size_by_qt(const QString &label)
{
    QProgressDialog plain;
    plain.setStyleSheet(dialog_sheet);
    plain.setLabelText(label);
    plain.setCancelButton(nullptr);
    return plain.size();
}

}  // namespace

class test_progress_dialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void shows_its_texts_in_the_dark_skin();
    void is_a_fifth_wider_than_qt_makes_it_data();
    void is_a_fifth_wider_than_qt_makes_it();
    void has_no_close_and_no_help_button();
    void cannot_be_cancelled();
    void stays_hidden_until_a_value_comes();
    void hides_at_the_maximum_and_starts_again();
    void bar_shows_the_count_as_text();

private:
    orv::progress_dialog *dialog = nullptr;
};

void test_progress_dialog::init()
{
    dialog = new orv::progress_dialog;
    dialog->set_up("Please Wait", "Loading files", "%v of %m");
}

void test_progress_dialog::cleanup()
{
    delete dialog;
}

void test_progress_dialog::shows_its_texts_in_the_dark_skin()
{
    QCOMPARE(dialog->styleSheet(), QString(dialog_sheet));
    QCOMPARE(dialog->windowTitle(), QString("Please Wait"));
    QCOMPARE(dialog->labelText(), QString("Loading files"));
    QCOMPARE(dialog->minimumDuration(), 0);
    const QList<QProgressBar *> bars = dialog->findChildren<QProgressBar *>();
    QCOMPARE(bars.size(), 1);
    QCOMPARE(bars.first()->format(), QString("%v of %m"));
    QCOMPARE(bars.first()->parentWidget(), dialog);
}

void test_progress_dialog::is_a_fifth_wider_than_qt_makes_it_data()
{
    QTest::addColumn<QString>("label");
    QTest::newRow("short label") << "Loading files";
    QTest::newRow("label that sets the width") << QString(80, 'w');
}

void test_progress_dialog::is_a_fifth_wider_than_qt_makes_it()
{
    QFETCH(QString, label);
    orv::progress_dialog fresh;
    fresh.set_up("Please Wait", label, "%v of %m");
    const QSize plain = size_by_qt(label);
    const QSize expected(static_cast<int>(plain.width() * 1.2), plain.height());
    QCOMPARE(fresh.size(), expected);
    QCOMPARE(fresh.minimumSize(), expected);
    QCOMPARE(fresh.maximumSize(), expected);
}

void test_progress_dialog::has_no_close_and_no_help_button()
{
    const orv::progress_dialog fresh;
    const Qt::WindowFlags both = Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint;
    QCOMPARE(fresh.windowFlags() & both, both);
    QCOMPARE(dialog->windowFlags(), fresh.windowFlags() & ~both);
}

void test_progress_dialog::cannot_be_cancelled()
{
    QVERIFY(dialog->findChildren<QPushButton *>().isEmpty());
    QSignalSpy canceled(dialog, &QProgressDialog::canceled);
    dialog->setMaximum(3);
    dialog->setValue(1);
    QVERIFY(dialog->isVisible());
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(!dialog->wasCanceled());
    QCOMPARE(canceled.size(), 0);
}

void test_progress_dialog::stays_hidden_until_a_value_comes()
{
    QVERIFY(!dialog->isVisible());
    dialog->setMaximum(3);
    // A new QProgressDialog has a timer that shows it some time later.
    for (const QTimer *timer : dialog->findChildren<QTimer *>())
        QVERIFY(!timer->isActive());
    QCoreApplication::processEvents();
    QVERIFY(!dialog->isVisible());
    dialog->setValue(0);
    QTRY_VERIFY(dialog->isVisible());
}

void test_progress_dialog::hides_at_the_maximum_and_starts_again()
{
    for (int batch = 0; batch < 2; ++batch) {
        dialog->setMaximum(2);
        dialog->setValue(1);
        QVERIFY(dialog->isVisible());
        dialog->setValue(2);
        QVERIFY(!dialog->isVisible());
    }
}

void test_progress_dialog::bar_shows_the_count_as_text()
{
    const auto *bar = dialog->findChild<QProgressBar *>();
    QVERIFY(bar);
    dialog->setMaximum(5);
    dialog->setValue(2);
    QCOMPARE(bar->text(), QString("2 of 5"));
}

KELVRA_WIDGET_TEST_MAIN(test_progress_dialog)
#include "test_progress_dialog.moc"
