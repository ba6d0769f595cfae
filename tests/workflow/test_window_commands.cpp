// SPDX-License-Identifier: GPL-3.0-or-later

#include "centred_place.h"
#include "fake_tool_window.h"
#include "german_catalogues.h"
#include "loop_with.h"
#include "modal_watch.h"
#include "opened_urls.h"
#include "orv/clickable_label.h"
#include "orv/dialog_3rd_part_lib_info.h"
#include "orv/dialog_about.h"
#include "pick_languages.h"
#include "program_test_main.h"
#include "report_keys.h"

#include <QLabel>
#include <QScreen>
#include <QSettings>

namespace
{

const QString box_title = "Application language changed";
const QString box_text = "The application language has been changed.\n"
                         "The application needs to be restarted to use the new language.";

QString stored_language()
{
    return QSettings().value("lang").toString();
}

/// All texts of the window, including the style sheets that name its pictures.
QStringList all_texts(const MainWindow &window)
{
    QStringList texts = {window.windowTitle(), window.styleSheet()};
    for (const auto *widget : window.findChildren<QWidget *>())
        texts << widget->toolTip() << widget->styleSheet() << widget->windowTitle();
    for (const auto *label : window.findChildren<QLabel *>())
        texts << label->text();
    for (const auto *button : window.findChildren<QAbstractButton *>())
        texts << button->text();
    for (int column = 0; column < window.model->columnCount(); ++column)
        texts << window.model->headerData(column, Qt::Horizontal).toString();
    return texts;
}

/// The platform may put it elsewhere; only `window.geometry()` says where it is.
void move_window(MainWindow &window, const QPoint &corner)
{
    window.move(corner);
    QCoreApplication::processEvents();
}

/// Where a dialog is, and whether it was put there by something other than Qt.
struct shown_place {
    QRect place;
    bool was_chosen = false;
};

/// The platform reports its own choice of a place by an event.
shown_place place_of(const QDialog &dialog)
{
    QCoreApplication::processEvents();
    return {dialog.geometry(), dialog.testAttribute(Qt::WA_Moved)};
}

/// Clicks the about button and closes the dialog that opens.
shown_place place_of_about(const MainWindow &window)
{
    shown_place about;
    const when_modal<orv::dialog_about> answer(
        [&about](orv::dialog_about &dialog) { about = place_of(dialog); });
    click(window.button_about);
    if (!answer.answered())
        qFatal("no dialog came up");
    return about;
}

/// Where Qt puts a dialog of this size.
QRect place_of_plain_dialog(MainWindow &window, QSize size)
{
    shown_place plain;
    const when_modal<QDialog> answer([&plain](QDialog &dialog) { plain = place_of(dialog); });
    QDialog dialog(&window);
    dialog.setFixedSize(size);
    dialog.exec();
    return plain.place;
}

/// The test platform keeps the frames of windows on the screen.
QRect with_frame_on_screen(const QRect &place)
{
    constexpr int frame_px = 2;
    return {QPoint(qMax(place.left(), frame_px), qMax(place.top(), frame_px)), place.size()};
}

}  // namespace

/// The about and settings buttons of the real window.
class test_window_commands : public QObject
{
    Q_OBJECT

private slots:
    void init() { app.start(); }
    void cleanup();

    void about_is_centred_over_the_window_data();
    void about_is_centred_over_the_window();
    void about_is_centred_up_to_the_edge_of_the_screen_data();
    void about_is_centred_up_to_the_edge_of_the_screen();
    void about_belongs_to_the_window();
    void list_says_that_the_program_uses_the_tool();
    void closing_the_list_returns_to_the_about_dialog();

    void settings_open_over_the_window();
    void unchanged_language_asks_nothing_data();
    void unchanged_language_asks_nothing();
    void change_of_language_asks();
    void question_is_german_with_the_catalogue();
    void continue_working_leaves_everything_as_it_was();
    void dialogs_stay_in_the_old_language();
    void answer_decides_whether_the_program_quits_data();
    void answer_decides_whether_the_program_quits();
    void language_is_stored_whatever_the_answer_data();
    void language_is_stored_whatever_the_answer();

    void no_command_opens_an_address_on_its_own();
    void link_of_the_about_dialog_opens_its_address();

private:
    fake_tool_window app;
};

void test_window_commands::cleanup()
{
    app.end();
    set_identity();
}

void test_window_commands::about_is_centred_over_the_window_data()
{
    QTest::addColumn<QRect>("window_place");
    QTest::newRow("even sides") << QRect(0, 0, 800, 700);
    QTest::newRow("odd sides") << QRect(0, 0, 801, 701);
    QTest::newRow("odd corner") << QRect(7, 13, 800, 700);
    QTest::newRow("partly off the screen") << QRect(-51, -51, 800, 700);
}

/// Tries versions of several lengths, which make the dialog's width odd or even.
void test_window_commands::about_is_centred_over_the_window()
{
    QFETCH(QRect, window_place);
    app.window->resize(window_place.size());
    move_window(*app.window, window_place.topLeft());
    QSet<int> parities;
    for (int length = 50; length < 56; ++length) {
        QCoreApplication::setApplicationVersion(QString(length, '8'));
        const shown_place about = place_of_about(*app.window);
        QVERIFY(about.was_chosen);
        QCOMPARE(about.place,
                 centred_place(app.window->geometry(), orv::dialog_about(nullptr, true).size()));
        parities << about.place.width() % 2;
    }
    QCOMPARE(parities.size(), 2);
}

void test_window_commands::about_is_centred_up_to_the_edge_of_the_screen_data()
{
    QTest::addColumn<QPoint>("way_out");
    QTest::newRow("left") << QPoint(-1, 0);
    QTest::newRow("right") << QPoint(1, 0);
    QTest::newRow("top") << QPoint(0, -1);
    QTest::newRow("bottom") << QPoint(0, 1);
}

void test_window_commands::about_is_centred_up_to_the_edge_of_the_screen()
{
    QFETCH(QPoint, way_out);
    MainWindow &window = *app.window;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QSize size = orv::dialog_about(nullptr, true).size();
    const auto steps_to_the_edge = [&] {
        int steps = 0;
        while (screen.contains(
            centred_place(window.geometry(), size).translated(way_out * (steps + 1))))
            ++steps;
        return steps;
    };
    QPoint corner;
    for (int steps = steps_to_the_edge(); steps > 0; steps = steps_to_the_edge())
        move_window(window, corner += way_out * steps);
    const shown_place at_the_edge = place_of_about(window);
    QVERIFY(at_the_edge.was_chosen);
    QCOMPARE(at_the_edge.place, with_frame_on_screen(centred_place(window.geometry(), size)));

    move_window(window, corner + way_out);
    const shown_place beyond = place_of_about(window);
    QVERIFY(!beyond.was_chosen);
    QCOMPARE(beyond.place, place_of_plain_dialog(window, size));
}

void test_window_commands::about_belongs_to_the_window()
{
    const when_modal<orv::dialog_about> answer([this](orv::dialog_about &dialog) {
        QCOMPARE(dialog.parentWidget(), app.window.get());
        QVERIFY(dialog.isModal());
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    });
    click(app.window->button_about);
    QVERIFY(answer.answered());
    QVERIFY(app.window->isVisible());
    QVERIFY(!app.window->findChild<orv::dialog_about *>());
}

void test_window_commands::list_says_that_the_program_uses_the_tool()
{
    std::vector<orv::library_entry> entries;
    const when_modal<orv::dialog_about> user([&entries](orv::dialog_about &dialog) {
        const when_modal<orv::dialog_3rd_part_lib_info> answer(
            [&entries](orv::dialog_3rd_part_lib_info &list) { entries = list.libraries; });
        click(dialog.findChild<orv::clickable_label *>());
        QVERIFY(answer.answered());
    });
    click(app.window->button_about);
    QCOMPARE(entries.size(), std::size_t(2));
    QCOMPARE(entries[0].name, QString("Qt 5.6.2"));
    QCOMPARE(entries[1].name, QString("Exiftool"));
    QVERIFY(entries[1].license_resource.isEmpty());
    const QStringList lines = entries[1].note.split('\n');
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines[0].startsWith("Kelvra uses Exiftool "), qPrintable(lines[0]));
    QVERIFY2(lines[1].startsWith("https://"), qPrintable(lines[1]));
}

void test_window_commands::closing_the_list_returns_to_the_about_dialog()
{
    bool returned = false;
    const when_modal<orv::dialog_about> user([&returned](orv::dialog_about &dialog) {
        const when_modal<orv::dialog_3rd_part_lib_info> answer(
            [](orv::dialog_3rd_part_lib_info &list) { list.close(); });
        click(dialog.findChild<orv::clickable_label *>());
        returned = dialog.isVisible() && QApplication::activeModalWidget() == &dialog;
    });
    click(app.window->button_about);
    QVERIFY(returned);
}

void test_window_commands::settings_open_over_the_window()
{
    const box_answers answers;
    const when_modal<dialog_settings> answer([this](dialog_settings &dialog) {
        QCOMPARE(dialog.parentWidget(), app.window.get());
        QVERIFY(dialog.isModal());
    });
    click(app.window->button_settings);
    QVERIFY(answer.answered());
}

void test_window_commands::unchanged_language_asks_nothing_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("closed at once") << "en" << QList<int>();
    QTest::newRow("German, closed at once") << "de" << QList<int>();
    QTest::newRow("none stored, closed at once") << QString() << QList<int>();
    QTest::newRow("no catalogue, closed at once") << "fr" << QList<int>();
    QTest::newRow("there and back") << "en" << QList<int>({german_row, english_row});
    QTest::newRow("from German there and back") << "de" << QList<int>({english_row, german_row});
    QTest::newRow("back to the system's") << QString() << QList<int>({german_row, english_row});
    QTest::newRow("the same again") << "en" << QList<int>({english_row});
}

void test_window_commands::unchanged_language_asks_nothing()
{
    QFETCH(QString, stored);
    QFETCH(QList<int>, rows);
    if (!stored.isNull())
        QSettings().setValue("lang", stored);
    const box_answers answers;
    const int value = loop_with([&] { pick_languages(*app.window, rows); });
    QCOMPARE(answers.texts(), QStringList());
    QCOMPARE(value, loop_went_on);
}

void test_window_commands::change_of_language_asks()
{
    const box_answers answers({box_reply::yes});
    pick_languages(*app.window, {german_row});
    QCOMPARE(answers.boxes.size(), 1);
    const seen_box &box = answers.boxes.first();
    QCOMPARE(box.title, box_title);
    QCOMPARE(box.text, box_text);
    QCOMPARE(box.yes_text, QString("Continue working"));
    QCOMPARE(box.no_text, QString("Quit now"));
    QCOMPARE(box.default_text, QString("Continue working"));
    QCOMPARE(box.button_count, 2);
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.parent, app.window.get());
}

void test_window_commands::question_is_german_with_the_catalogue()
{
    const german_catalogues german;
    QSettings().setValue("lang", "de");
    const box_answers answers({box_reply::yes});
    pick_languages(*app.window, {english_row});
    QCOMPARE(answers.boxes.size(), 1);
    const seen_box &box = answers.boxes.first();
    QCOMPARE(box.title, QString("Anwendungssprache geändert"));
    QCOMPARE(box.text, QString("Die Sprache der Benutzeroberfläche wurde geändert.\nDie Anwendung "
                               "muss neu gestartet werden um die neue Sprache zu verwenden."));
    QCOMPARE(box.yes_text, QString("Weiterarbeiten"));
    QCOMPARE(box.no_text, QString("Anwendung jetzt beenden"));
    QCOMPARE(box.default_text, QString("Weiterarbeiten"));
}

void test_window_commands::continue_working_leaves_everything_as_it_was()
{
    app.load_dated_photo("a.jpg");
    type_shift(*app.window, "hour", "2");
    const QStringList texts = all_texts(*app.window);
    const QStringList times = shown_column(*app.window, 2);
    QVERIFY(texts.contains("Load images"));
    const box_answers answers({box_reply::yes});
    pick_languages(*app.window, {german_row});
    QCOMPARE(answers.texts(), QStringList(box_text));
    QCOMPARE(all_texts(*app.window), texts);
    QVERIFY(app.window->ui->widget->styleSheet().contains("drop_images_here_en.png"));
    QCOMPARE(shown_names(*app.window), QStringList("a.jpg"));
    QCOMPARE(shown_column(*app.window, 2), times);
    QVERIFY(app.window->isVisible());
}

void test_window_commands::dialogs_stay_in_the_old_language()
{
    const box_answers answers({box_reply::yes});
    pick_languages(*app.window, {german_row});
    QString title;
    const when_modal<orv::dialog_about> answer(
        [&title](orv::dialog_about &dialog) { title = dialog.windowTitle(); });
    click(app.window->button_about);
    QCOMPARE(title, QString("About"));
}

void test_window_commands::answer_decides_whether_the_program_quits_data()
{
    QTest::addColumn<int>("reply");
    QTest::addColumn<int>("value");
    QTest::newRow("Continue working") << int(box_reply::yes) << loop_went_on;
    QTest::newRow("Quit now") << int(box_reply::no) << 0;
    // Both count as the box's escape button, which is the one for No.
    QTest::newRow("escape key") << int(box_reply::escape) << 0;
    QTest::newRow("box closed by its frame") << int(box_reply::frame) << 0;
}

void test_window_commands::answer_decides_whether_the_program_quits()
{
    QFETCH(int, reply);
    QFETCH(int, value);
    const box_answers answers({static_cast<box_reply>(reply)});
    const int given = loop_with([this] { pick_languages(*app.window, {german_row}); });
    QCOMPARE(answers.texts(), QStringList(box_text));
    QCOMPARE(given, value);
}

void test_window_commands::language_is_stored_whatever_the_answer_data()
{
    QTest::addColumn<int>("reply");
    QTest::newRow("Continue working") << int(box_reply::yes);
    QTest::newRow("Quit now") << int(box_reply::no);
}

void test_window_commands::language_is_stored_whatever_the_answer()
{
    QFETCH(int, reply);
    const box_answers answers({static_cast<box_reply>(reply)});
    loop_with([this] { pick_languages(*app.window, {german_row}); });
    QCOMPARE(stored_language(), QString("de"));
}

void test_window_commands::no_command_opens_an_address_on_its_own()
{
    const opened_urls browser;
    {
        const box_answers answers({box_reply::yes});
        pick_languages(*app.window, {german_row});
        QCOMPARE(answers.texts(), QStringList(box_text));
    }
    QVERIFY(!report_of_keys(app.window.get()).text.isEmpty());
    const when_modal<orv::dialog_about> user([](orv::dialog_about &dialog) {
        const modal_watch list;
        click(dialog.findChild<orv::clickable_label *>());
        QCOMPARE(list.classes, QStringList("orv::dialog_3rd_part_lib_info"));
    });
    click(app.window->button_about);
    QVERIFY(user.answered());
    QCOMPARE(browser.urls, QList<QUrl>());
}

void test_window_commands::link_of_the_about_dialog_opens_its_address()
{
    const opened_urls browser;
    const when_modal<orv::dialog_about> user([](orv::dialog_about &dialog) {
        for (auto *label : dialog.findChildren<QLabel *>()) {
            if (label->openExternalLinks())
                QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(20, label->height() / 2));
        }
    });
    click(app.window->button_about);
    QVERIFY(user.answered());
    QCOMPARE(browser.urls.size(), 1);
    QCOMPARE(browser.urls.first().scheme(), QString("https"));
}

KELVRA_PROGRAM_TEST_MAIN(test_window_commands)
#include "test_window_commands.moc"
