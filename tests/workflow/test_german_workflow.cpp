// SPDX-License-Identifier: GPL-3.0-or-later

#include "fake_tool_window.h"
#include "program_test_main.h"
#include "startup/program_setup.h"
#include "time_adjustment.h"
#include "when_modal.h"

#include <QFileDialog>
#include <QLabel>
#include <QSettings>

namespace
{

const QString zone_text =
    "%1 Dateien habe keine Zeitzoneninformationen zugeordnet und es wurde keine Zeitzone "
    "angeben.\nWenn du fortfährst wird die Zeitzone deines Computers verwendet.\n\nAchtung: Wurde "
    "die Zeitzone dem Bild hinzugefügt, kann sie nicht mehr entfernt werden.";
const QString early_text =
    "%1 Dateien würden ein Aufnahmedatum zugewiesen bekommen, das vor dem 01.01.1972 00:00:00 "
    "liegt.\nDie Zeiten des Dateisystems können nicht auf Werte vor diesem Zeitpunkt gesetzt "
    "werden.\nWenn du fortfährst ist die Zeit die dein Betriebssystem anzeigt möglicherweise nicht "
    "korrekt (z.B. wird ein Datum in der Zukunft angezeigt oder das Datum auf den 01.01.1972 "
    "gesetzt).\nDie EXIF-Zeitstempel können mit einem Aufnahmedatum vor dem 01.01.1972 00:00:00 "
    "umgehen und werden korrekt gespeichert.";
const QString failure_text = "Die folgenden 2 Dateien konnten nicht Angepasst werden:\n%1\n%2\n\n "
                             "Möchtest du die Änderungen in den anderen Dateien behalten";

}  // namespace

/// Loading, fixing and undoing photos in German.
class test_german_workflow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { app.end(); }

    void headers_and_labels_are_german();
    void tool_tips_are_german();
    void drop_picture_is_german();
    void progress_is_german();
    void file_dialog_is_german();
    void warnings_are_german();
    void failure_box_is_german();
    void photos_are_fixed_and_undone_as_in_english();

private:
    fake_tool_window app;
};

void test_german_workflow::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    install_translators("de");
}

/// The language is stored before the window is built, since its constructor reads it.
void test_german_workflow::init()
{
    app.start();
    QSettings().setValue("lang", "de");
    close_window(app.window);
    app.window = open_window();
    app.tool.forget();
}

void test_german_workflow::headers_and_labels_are_german()
{
    QStringList titles;
    for (int column = 0; column < app.window->model->columnCount(); ++column)
        titles << app.window->model->headerData(column, Qt::Horizontal).toString();
    QCOMPARE(titles, QStringList({"Foto", "Aufnahmezeitpunkt", "Neuer Aufnahmezeitpunkt"}));

    QStringList units;
    for (const char *name :
         {"label", "label_2", "label_3", "label_4", "label_5", "label_6", "label_7"}) {
        const auto *label = app.window->ui->widget_time_adjust->findChild<QLabel *>(name);
        QVERIFY(label);
        units << label->text();
    }
    QCOMPARE(units, QStringList(
                        {"Jahr", "Monat", "Tag", "Stunde", "Minute", "Sekunde", "Zeitzone (Std)"}));
}

void test_german_workflow::tool_tips_are_german()
{
    const MainWindow &window = *app.window;
    QCOMPARE(window.button_settings->toolTip(), QString("Anwendungseinstellungen ändern"));
    QCOMPARE(window.button_about->toolTip(), QString("Informationen über die Anwendung anzeigen"));
    QCOMPARE(window.button_help->toolTip(),
             QString("Informationen zur Benutzung des Programms anzeigen"));
    QCOMPARE(window.button_fix_time->toolTip(),
             QString("Änderungen an den Zeitstempeln in die Fotos speichern"));
    QCOMPARE(window.button_undo->toolTip(),
             QString("Letzte Änderungen an den Zeitstempeln rückgängig machen"));
    QCOMPARE(window.button_load_images->toolTip(), QString("Bilder Laden"));
    QCOMPARE(window.button_reset->toolTip(), QString("Liste geladener Bilder leeren"));
    QCOMPARE(
        shift_field(window, "hour")->toolTip(),
        QString("Ändert die Zeitstempel der Fotos um den hier angegebenen Wert (positive sowie "
                "negative Zahlen sind möglich)"));
    QCOMPARE(window.windowTitle(), QString("Kelvra"));
}

void test_german_workflow::drop_picture_is_german()
{
    const QString picture = ":/images/drop_images_here_de.png";
    QVERIFY(app.window->ui->widget->styleSheet().contains("url(" + picture + ")"));
    QVERIFY(QFile::exists(picture));
}

void test_german_workflow::progress_is_german()
{
    for (const auto &[dialog, label] :
         {qMakePair(app.window->progress_fix, QString("Ändere Zeitinformationen")),
          qMakePair(app.window->progress_load, QString("Lade Dateien"))}) {
        QCOMPARE(dialog->windowTitle(), QString("Bitte Warten"));
        QCOMPARE(dialog->labelText(), label);
        QCOMPARE(dialog->findChild<QProgressBar *>()->format(), QString("%v von %m"));
    }
}

void test_german_workflow::file_dialog_is_german()
{
    const when_modal<QFileDialog> dialog([](QFileDialog &box) {
        QCOMPARE(box.windowTitle(), QString("Dateien Auswählen"));
        QCOMPARE(box.nameFilters().size(), 1);
        QVERIFY(box.nameFilters().first().startsWith("Unterstützte Dateitypen (*.3g2 *.3gp "));
        QVERIFY(box.nameFilters().first().endsWith(" *.x3f *.xmp )"));
        box.reject();
    });
    click(app.window->button_load_images);
    QVERIFY(dialog.answered());
}

void test_german_workflow::warnings_are_german()
{
    app.load_photo("old.jpg",
                   {"ExifIFD:DateTimeOriginal=1960:05:03 12:00:00", "IPTC:DateCreated=1960:05:03"});
    const box_answers answers({box_reply::yes, box_reply::no});
    click(app.window->button_fix_time);
    QCOMPARE(answers.texts(), QStringList({zone_text.arg(1), early_text.arg(1)}));
    for (const seen_box &box : answers.boxes) {
        QCOMPARE(box.title, QString("Fortfahren?"));
        QCOMPARE(box.yes_text, QString("Fortfahren"));
        QCOMPARE(box.no_text, QString("Abbrechen"));
    }
}

void test_german_workflow::failure_box_is_german()
{
    for (const char *name : {"100%1.jpg", "b.jpg"}) {
        app.load_dated_photo(name);
        app.tool.refuse_writes(name);
    }
    const box_answers answers({box_reply::yes});
    click(app.window->button_fix_time);
    QCOMPARE(answers.texts(),
             QStringList{failure_text.arg(app.path_of("100%1.jpg"), app.path_of("b.jpg"))});
    QCOMPARE(answers.boxes.first().title, QString("Fortfahren?"));
    QCOMPARE(answers.boxes.first().yes_text, QString("Behalten"));
    QCOMPARE(answers.boxes.first().no_text, QString("Rückgängig machen"));
}

void test_german_workflow::photos_are_fixed_and_undone_as_in_english()
{
    app.load_dated_photo("größe.jpg");
    type_shift(*app.window, "hour", "1");
    QCOMPARE(shown_column(*app.window, table_data_model::new_recording_time_column),
             QStringList{"03.05.2017 - 13:00:00"});
    click(app.window->button_fix_time);
    click(app.window->button_undo);
    QCOMPARE(app.writes().size(), 2);
    QCOMPARE(app.writes()[0].second, QStringList{"-ExifIFD:DateTimeOriginal=2017:05:03 13:00:00"});
    QVERIFY(app.writes()[1].second.contains("-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00"));
}

KELVRA_PROGRAM_TEST_MAIN(test_german_workflow)
#include "test_german_workflow.moc"
