// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "main_window_form.h"
#include "orv/button_dark.h"
#include "orv/clickable_label.h"
#include "orv/dialog_3rd_part_lib_info.h"
#include "orv/dialog_about.h"
#include "orv/progress_dialog.h"
#include "program_test_main.h"
#include "table_data_model.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QSettings>
#include <QTranslator>

namespace
{

const char shift_tooltip[] = "Ändert die Zeitstempel der Fotos um den hier angegebenen Wert "
                             "(positive sowie negative Zahlen sind möglich)";

}  // namespace

/// The screen in German. Its translators live until the process ends, so it has a test program of
/// its own.
class test_german_texts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { delete window; }
    void button_has_its_tooltip_data();
    void button_has_its_tooltip();
    void label_of_the_shift_is_german_data();
    void label_of_the_shift_is_german();
    void fields_of_the_shift_have_the_tooltip();
    void radio_button_is_german_data();
    void radio_button_is_german();
    void headings_are_german();
    void table_headers_are_german();
    void progress_dialogs_are_german();
    void text_of_a_dialog_is_german_data();
    void text_of_a_dialog_is_german();
    void dialogs_show_the_german_texts();
    void title_stays_the_name();
    void everything_fits_into_the_window();

private:
    template <class Widget>
    Widget *find(const QString &panel, const QString &name)
    {
        auto *parent = window->findChild<QWidget *>(panel);
        auto *widget = parent ? parent->findChild<Widget *>(name) : nullptr;
        if (!widget)
            qFatal("no %s in %s", qPrintable(name), qPrintable(panel));
        return widget;
    }

    MainWindow *window = nullptr;
};

void test_german_texts::initTestCase()
{
    QSettings().setValue("lang", "de");
    install_translators("de");
    window = new MainWindow(nullptr);
}

void test_german_texts::button_has_its_tooltip_data()
{
    QTest::addColumn<QWidget *>("button");
    QTest::addColumn<QString>("tooltip");
    const auto row = [](const char *name, QWidget *button, const char *tooltip) {
        QTest::newRow(name) << button << QString::fromUtf8(tooltip);
    };
    row("settings", window->button_settings, "Anwendungseinstellungen ändern");
    row("about", window->button_about, "Informationen über die Anwendung anzeigen");
    row("help", window->button_help, "Informationen zur Benutzung des Programms anzeigen");
    row("fix", window->button_fix_time, "Änderungen an den Zeitstempeln in die Fotos speichern");
    row("undo", window->button_undo, "Letzte Änderungen an den Zeitstempeln rückgängig machen");
    row("load", window->button_load_images, "Bilder Laden");
    row("clear", window->button_reset, "Liste geladener Bilder leeren");
}

void test_german_texts::button_has_its_tooltip()
{
    QFETCH(QWidget *, button);
    QFETCH(QString, tooltip);
    QCOMPARE(button->toolTip(), tooltip);
}

void test_german_texts::label_of_the_shift_is_german_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("label") << "Jahr";
    QTest::newRow("label_2") << "Monat";
    QTest::newRow("label_3") << "Tag";
    QTest::newRow("label_4") << "Stunde";
    QTest::newRow("label_5") << "Minute";
    QTest::newRow("label_6") << "Sekunde";
    QTest::newRow("label_7") << "Zeitzone (Std)";
}

void test_german_texts::label_of_the_shift_is_german()
{
    QFETCH(QString, text);
    const auto *label = find<QLabel>("widget_time_adjust", QTest::currentDataTag());
    QCOMPARE(label->text(), text);
    QCOMPARE(label->toolTip(), QString::fromUtf8(shift_tooltip));
}

void test_german_texts::fields_of_the_shift_have_the_tooltip()
{
    for (const char *name : {"year", "month", "day", "hour", "minute", "second", "timezone"}) {
        const auto *field = find<QLineEdit>("widget_time_adjust", QString("lineedit_%1").arg(name));
        QCOMPARE(field->toolTip(), QString::fromUtf8(shift_tooltip));
    }
}

void test_german_texts::radio_button_is_german_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("tooltip");
    const QString date = QString::fromUtf8("Datumsanzeigeformat ändern");
    const QString time = QString::fromUtf8("Zeitanzeigeformat ändern");
    QTest::newRow("rb_ddmmyyyy_slash") << "TT/MM/JJJJ" << date;
    QTest::newRow("rb_ddmmyyyy_dot") << "TT.MM.JJJJ" << date;
    QTest::newRow("rb_ddmmyyyy_dash") << "TT-MM-JJJJ" << date;
    QTest::newRow("rb_yyyymmdd_slash") << "JJJJ/MM/TT" << date;
    QTest::newRow("rb_yyyymmdd_dot") << "JJJJ.MM.TT" << date;
    QTest::newRow("rb_yyyymmdd_dash") << "JJJJ-MM-TT" << date;
    QTest::newRow("rb_mmddyyyy_slash") << "MM/TT/JJJJ" << date;
    QTest::newRow("rb_hhmmss") << "Std:Min:Sek" << time;
    // It says seconds where minutes are meant: the catalogue has it that way, and it is kept.
    QTest::newRow("rb_hhmm") << "Std:Sek" << time;
}

void test_german_texts::radio_button_is_german()
{
    QFETCH(QString, label);
    QFETCH(QString, tooltip);
    const auto *button = find<QAbstractButton>("widget_datetime_format", QTest::currentDataTag());
    QCOMPARE(button->text(), label);
    QCOMPARE(button->toolTip(), tooltip);
}

void test_german_texts::headings_are_german()
{
    QCOMPARE(find<QLabel>("widget_datetime_format", "label")->text(), QString("Datumsformat"));
    QCOMPARE(find<QLabel>("widget_datetime_format", "label_2")->text(), QString("Zeitformat"));
}

void test_german_texts::table_headers_are_german()
{
    const auto title = [this](int section) {
        return window->model->headerData(section, Qt::Horizontal).toString();
    };
    QCOMPARE(title(0), QString("Foto"));
    QCOMPARE(title(1), QString("Aufnahmezeitpunkt"));
    QCOMPARE(title(2), QString("Neuer Aufnahmezeitpunkt"));
}

void test_german_texts::progress_dialogs_are_german()
{
    QCOMPARE(window->progress_fix->labelText(), QString::fromUtf8("Ändere Zeitinformationen"));
    QCOMPARE(window->progress_load->labelText(), QString("Lade Dateien"));
    for (orv::progress_dialog *dialog : {window->progress_fix, window->progress_load}) {
        QCOMPARE(dialog->windowTitle(), QString("Bitte Warten"));
        QCOMPARE(dialog->findChild<QProgressBar *>()->format(), QString("%v von %m"));
    }
}

/// The question after a change of the language, and the toolkit's dialogs.
void test_german_texts::text_of_a_dialog_is_german_data()
{
    QTest::addColumn<QString>("context");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("german");
    const QString about = "orv::dialog_about";
    const QString libraries = "orv::dialog_3rd_part_lib_info";
    // clang-format off
    QTest::newRow("title of the question")
        << "MainWindow" << "Application language changed" << "Anwendungssprache geändert";
    QTest::newRow("question")
        << "MainWindow"
        << "The application language has been changed.\nThe application needs to be restarted to "
           "use the new language."
        << "Die Sprache der Benutzeroberfläche wurde geändert.\nDie Anwendung muss neu gestartet "
           "werden um die neue Sprache zu verwenden.";
    QTest::newRow("continue button") << "MainWindow" << "Continue working" << "Weiterarbeiten";
    QTest::newRow("quit button") << "MainWindow" << "Quit now" << "Anwendung jetzt beenden";
    QTest::newRow("title") << about << "About" << "Über";
    QTest::newRow("the source is German") << about << "Webseite:" << "Webseite:";
    QTest::newRow("link")
        << about << "Click here for 3rd party library information"
        << "Klicke hier um Informationen über Bibliotheken von Drittanbietern zu erhalten";
    QTest::newRow("heading of the list")
        << libraries << "%1 uses the following open source and/or 3rd party libraries:"
        << "Die Folgenden Open Source Bibliotheken und/oder Bibliotheken von Drittanbietern "
           "werden in %1 verwendet:";
    // clang-format on
}

void test_german_texts::text_of_a_dialog_is_german()
{
    QFETCH(QString, context);
    QFETCH(QString, source);
    QFETCH(QString, german);
    QCOMPARE(QCoreApplication::translate(context.toUtf8(), source.toUtf8()), german);
}

void test_german_texts::dialogs_show_the_german_texts()
{
    const orv::dialog_about about(window, true);
    QCOMPARE(about.windowTitle(), QString("Über"));
    const auto *link = about.findChild<orv::clickable_label *>();
    QVERIFY(link);
    QVERIFY(link->text().startsWith("Klicke hier um Informationen "));
    const orv::dialog_3rd_part_lib_info list(window);
    const auto *heading = list.findChild<QLabel *>();
    QVERIFY(heading);
    QVERIFY(heading->text().endsWith(" werden in Kelvra verwendet:"));
    const QStringList note = list.libraries.front().note.split('\n');
    QCOMPARE(note.size(), 3);
    for (const QString &line : note)
        QVERIFY2(!line.contains(" the "), qPrintable(line));
}

void test_german_texts::title_stays_the_name()
{
    QCOMPARE(window->windowTitle(), QString("Kelvra"));
    QTranslator catalogue;
    QVERIFY(catalogue.load(":/translations/de"));
    QCOMPARE(catalogue.translate("MainWindow", "Kelvra"), QString());
}

/// German words are longer: none may be cut off when the window has its smallest size.
void test_german_texts::everything_fits_into_the_window()
{
    window->resize(window->minimumSize());
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    for (const QLabel *label : window->ui->centralWidget->findChildren<QLabel *>())
        QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    for (const QAbstractButton *button : window->findChildren<QAbstractButton *>()) {
        if (!button->text().isEmpty())
            QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
    }
}

KELVRA_PROGRAM_TEST_MAIN(test_german_texts)
#include "test_german_texts.moc"
