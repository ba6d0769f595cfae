// SPDX-License-Identifier: GPL-3.0-or-later

#include "bracketed_texts.h"
#include "german_catalogues.h"
#include "orv/dialog_3rd_part_lib_info.h"
#include "program_test_main.h"
#include "when_modal.h"

#include <QFile>
#include <QFontMetrics>
#include <QLabel>
#include <QTemporaryDir>
#include <QTextEdit>

#include <functional>
#include <memory>

namespace
{

constexpr int margin_px = 5;

constexpr char heading_sheet[] = "font-size:16px;";
constexpr char name_sheet[] = "font-size:14px; font-weight:bold;";
constexpr char note_sheet[] = "font-size:12px;";

/// The size of a text in a font size that no style sheet changes.
QSize measured(const QString &text, int size_px, int weight)
{
    QFont font("FreeSans");
    font.setPixelSize(size_px);
    font.setWeight(weight);
    return QFontMetrics(font).size(0, text);
}

QSize name_size(const QString &name)
{
    return measured(name, 14, 75);
}

QSize note_size(const QString &note)
{
    return measured(note, 12, 50);
}

/// The widget in this row of a layout with one column.
QWidget *widget_in_row(const qor::qt::layout &layout, int row)
{
    const auto found = layout.cells.find({0, row});
    if (found == layout.cells.end() || !found->second.content)
        qFatal("nothing in row %d", row);
    return found->second.content;
}

template <class Widget>
Widget *find_in_row(const qor::qt::layout &layout, int row)
{
    auto *widget = qobject_cast<Widget *>(widget_in_row(layout, row));
    if (!widget)
        qFatal("something else in row %d", row);
    return widget;
}

/// An entry laid out on its own widget, as in the list.
struct laid_out_entry {
    explicit laid_out_entry(const orv::library_entry &new_entry) : entry(new_entry)
    {
        orv::dialog_3rd_part_lib_info list(nullptr);
        layout = list.entry_layout(entry).release();
        holder.setLayout(layout);
    }

    orv::library_entry entry;
    QWidget holder;
    qor::qt::layout *layout;  ///< owned by the holder
};

QString text_file(const QTemporaryDir &folder, const QByteArray &bytes)
{
    const QString path = folder.filePath("license.txt");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write the file");
    return path;
}

/// Shows the list with these entries after its own, runs `check` on it, and closes it.
void show_list(const std::vector<orv::library_entry> &entries,
               const std::function<void(orv::dialog_3rd_part_lib_info &)> &check)
{
    const when_modal<orv::dialog_3rd_part_lib_info> answer(check);
    orv::dialog_3rd_part_lib_info list(nullptr);
    for (const orv::library_entry &entry : entries)
        list.libraries.push_back(entry);
    list.exec();
    QVERIFY(answer.answered());
}

const orv::library_entry two_lines = {"Something", "It reads things.\nhttps://something.example/",
                                      QString()};

}  // namespace

class test_dialog_3rd_part_lib_info : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void dialog_has_its_parent();
    void first_entry_is_qt();
    void dialog_has_one_column_and_a_fixed_size();
    void heading_names_the_program();
    void heading_gets_more_room_than_it_needs();
    void heading_has_its_margin();
    void texts_are_translated();
    void texts_are_german_with_the_catalogue();
    void entry_has_its_name_above_its_note_data();
    void entry_has_its_name_above_its_note();
    void entry_is_as_big_as_its_texts_data();
    void entry_is_as_big_as_its_texts();
    void entry_is_measured_in_its_own_font();
    void license_is_shown_as_third_row_data();
    void license_is_shown_as_third_row();
    void license_may_be_in_the_resources();
    void license_that_cant_be_opened_says_so();
    void limits_of_a_license_are_swapped();
    void wide_texts_win_over_the_license();
    void list_shows_the_entries_in_order();
    void each_entry_has_a_widget_with_a_margin();
    void rows_are_as_high_as_their_entries();
    void list_is_as_wide_as_the_widest_data();
    void list_is_as_wide_as_the_widest();
    void list_is_as_high_as_its_rows();
    void no_text_is_cut_off();
    void list_waits_until_it_is_closed();
};

/// Sets the fonts as the program's window does.
void test_dialog_3rd_part_lib_info::initTestCase()
{
    add_fonts();
    QApplication::setFont(QFont("FreeSans", 9));
}

void test_dialog_3rd_part_lib_info::cleanup()
{
    QGuiApplication::setApplicationDisplayName(QCoreApplication::applicationName());
}

void test_dialog_3rd_part_lib_info::dialog_has_its_parent()
{
    QWidget parent;
    const orv::dialog_3rd_part_lib_info list(&parent);
    QCOMPARE(list.parentWidget(), &parent);
    QVERIFY(list.isWindow());
}

void test_dialog_3rd_part_lib_info::first_entry_is_qt()
{
    const orv::dialog_3rd_part_lib_info list(nullptr);
    QCOMPARE(list.libraries.size(), std::size_t(1));
    const orv::library_entry &qt = list.libraries.front();
    QCOMPARE(qt.name, QString("Qt 5.6.2"));
    QVERIFY(qt.license_resource.isEmpty());
    const QStringList lines = qt.note.split('\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(
        lines[0],
        QString("This software dynamically links to Qt which is licensed under the LGPL license."));
    QVERIFY2(lines[1].contains("source code of the Qt SDK") && lines[1].contains("https://"),
             qPrintable(lines[1]));
    QCOMPARE(lines[2], QString("The full text for the LGPL license was distributed as a text file "
                               "with this software."));
}

void test_dialog_3rd_part_lib_info::dialog_has_one_column_and_a_fixed_size()
{
    const orv::dialog_3rd_part_lib_info list(nullptr);
    QCOMPARE(list.layout, qobject_cast<qor::qt::layout *>(list.QDialog::layout()));
    QVERIFY(list.layout);
    QCOMPARE(list.layout->wrap, 1);
    QCOMPARE(list.layout->column_major, false);
    QCOMPARE(list.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(list.margin_px, 5);
}

void test_dialog_3rd_part_lib_info::heading_names_the_program()
{
    QGuiApplication::setApplicationDisplayName("Some Program");
    const orv::dialog_3rd_part_lib_info list(nullptr);
    const auto *heading = find_in_row<QLabel>(*list.layout, 0);
    QCOMPARE(heading->text(),
             QString("Some Program uses the following open source and/or 3rd party libraries:"));
    QCOMPARE(heading->styleSheet(), QString(heading_sheet));
}

void test_dialog_3rd_part_lib_info::heading_gets_more_room_than_it_needs()
{
    const orv::dialog_3rd_part_lib_info list(nullptr);
    const QString heading = "Kelvra uses the following open source and/or 3rd party libraries:";
    QCOMPARE(find_in_row<QLabel>(*list.layout, 0)->text(), heading);
    QCOMPARE(list.heading_size, measured(heading, 20, 50));
    QVERIFY(list.heading_size.width() > measured(heading, 16, 50).width());
}

void test_dialog_3rd_part_lib_info::heading_has_its_margin()
{
    const orv::dialog_3rd_part_lib_info list(nullptr);
    QCOMPARE(list.layout->cells.size(), std::size_t(1));
    const qor::qt::cell &heading = list.layout->cells.at({0, 0});
    for (const float side :
         {heading.margin_left, heading.margin_top, heading.margin_right, heading.margin_bottom})
        QCOMPARE(side, float(margin_px));
    QCOMPARE(list.layout->row_heights, std::vector<int>({0}));
}

void test_dialog_3rd_part_lib_info::texts_are_translated()
{
    const bracketed_texts translation;
    const orv::dialog_3rd_part_lib_info list(nullptr);
    QCOMPARE(find_in_row<QLabel>(*list.layout, 0)->text(),
             QString("[Kelvra uses the following open source and/or 3rd party libraries:]"));
    const orv::library_entry &qt = list.libraries.front();
    QVERIFY(qt.note.startsWith("[This software") && qt.note.endsWith("this software.]"));
    QCOMPARE(qt.name, QString("Qt 5.6.2"));
}

void test_dialog_3rd_part_lib_info::texts_are_german_with_the_catalogue()
{
    const german_catalogues german;
    const orv::dialog_3rd_part_lib_info list(nullptr);
    const QString heading = "Die Folgenden Open Source Bibliotheken und/oder Bibliotheken von "
                            "Drittanbietern werden in Kelvra verwendet:";
    QCOMPARE(find_in_row<QLabel>(*list.layout, 0)->text(), heading);
    QCOMPARE(list.heading_size, measured(heading, 20, 50));
    const QStringList lines = list.libraries.front().note.split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines[0].contains("dynamisch") && lines[0].contains("LGPL"), qPrintable(lines[0]));
    QVERIFY2(lines[1].contains("Quellcode") && lines[1].contains("https://"), qPrintable(lines[1]));
    QVERIFY2(lines[2].contains("Textdatei"), qPrintable(lines[2]));
}

void test_dialog_3rd_part_lib_info::entry_has_its_name_above_its_note_data()
{
    QTest::addColumn<QString>("note");
    QTest::newRow("one line") << "It reads things.";
    QTest::newRow("two lines") << two_lines.note;
    QTest::newRow("three lines") << "one\ntwo\nthree";
}

void test_dialog_3rd_part_lib_info::entry_has_its_name_above_its_note()
{
    QFETCH(QString, note);
    const laid_out_entry laid_out({"Something", note, QString()});
    const qor::qt::layout &rows = *laid_out.layout;
    QCOMPARE(rows.wrap, 1);
    QCOMPARE(rows.column_major, false);
    QCOMPARE(rows.cells.size(), std::size_t(2));
    QCOMPARE(find_in_row<QLabel>(rows, 0)->text(), QString("Something"));
    QCOMPARE(find_in_row<QLabel>(rows, 0)->styleSheet(), QString(name_sheet));
    QCOMPARE(find_in_row<QLabel>(rows, 1)->text(), note);
    QCOMPARE(find_in_row<QLabel>(rows, 1)->styleSheet(), QString(note_sheet));
    QCOMPARE(rows.row_heights,
             std::vector<int>({name_size("Something").height(), note_size(note).height()}));
}

void test_dialog_3rd_part_lib_info::entry_is_as_big_as_its_texts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("note");
    // clang-format off
    QTest::newRow("the name is wider") << "A name of quite some length" << "short";
    QTest::newRow("the note is wider") << "Name"
        << "A note of quite some length, wider than its name";
    QTest::newRow("the widest line counts") << "Name"
        << "short\nA line of quite some length\nshort";
    QTest::newRow("no note") << "Name" << QString();
    // clang-format on
}

void test_dialog_3rd_part_lib_info::entry_is_as_big_as_its_texts()
{
    QFETCH(QString, name);
    QFETCH(QString, note);
    const laid_out_entry laid_out({name, note, QString()});
    QCOMPARE(laid_out.entry.width, qMax(name_size(name).width(), note_size(note).width()));
    QCOMPARE(laid_out.entry.height, name_size(name).height() + note_size(note).height());
}

void test_dialog_3rd_part_lib_info::entry_is_measured_in_its_own_font()
{
    const QSize expected = name_size("Something");
    const QFont font_before = QApplication::font();
    QApplication::setFont(QFont("FreeMono", 30));
    const laid_out_entry laid_out({"Something", QString(), QString()});
    QApplication::setFont(font_before);
    QCOMPARE(laid_out.entry.width, expected.width());
}

void test_dialog_3rd_part_lib_info::license_is_shown_as_third_row_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    QTest::newRow("lines") << QByteArray("You may.\n\nYou may not.\n")
                           << "You may.\n\nYou may not.\n";
    QTest::newRow("beyond ASCII") << QByteArray("für alle €") << "für alle €";
    QTest::newRow("up to the first zero byte")
        << QByteArray("You may.\0You may not.\0", 22) << "You may.";
    QTest::newRow("a zero byte first") << QByteArray("\0You may.", 9) << "";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("markup stays as text") << QByteArray("<b>You</b> may.") << "<b>You</b> may.";
}

void test_dialog_3rd_part_lib_info::license_is_shown_as_third_row()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, shown);
    const QTemporaryDir folder;
    const laid_out_entry laid_out({"Something", "A note", text_file(folder, bytes)});
    QCOMPARE(laid_out.layout->cells.size(), std::size_t(3));
    const auto *text = find_in_row<QTextEdit>(*laid_out.layout, 2);
    QCOMPARE(text->toPlainText(), shown);
    QVERIFY(text->isReadOnly());
}

void test_dialog_3rd_part_lib_info::license_may_be_in_the_resources()
{
    const laid_out_entry laid_out({"Something", "A note", ":/help/index_en.html"});
    const auto *text = find_in_row<QTextEdit>(*laid_out.layout, 2);
    QVERIFY(text->toPlainText().startsWith("<!DOCTYPE html"));
}

void test_dialog_3rd_part_lib_info::license_that_cant_be_opened_says_so()
{
    const QString path = ":/no/such/%1 license.txt";
    const laid_out_entry laid_out({"Something", "A note", path});
    const auto *text = find_in_row<QTextEdit>(*laid_out.layout, 2);
    QCOMPARE(text->toPlainText(), "Could not open license text resource at " + path);
    QVERIFY(text->isReadOnly());
}

/// The limits are swapped: the width's limit of 300 sets the height, and the height's limit of 400
/// sets the width.
void test_dialog_3rd_part_lib_info::limits_of_a_license_are_swapped()
{
    const QTemporaryDir folder;
    const laid_out_entry laid_out({"Name", "Note", text_file(folder, "You may.")});
    const int texts_px = name_size("Name").height() + note_size("Note").height();
    QCOMPARE(laid_out.layout->row_heights,
             std::vector<int>({name_size("Name").height(), note_size("Note").height(), 300}));
    QCOMPARE(laid_out.entry.height, texts_px + 300);
    QCOMPARE(laid_out.entry.width, 400);
}

void test_dialog_3rd_part_lib_info::wide_texts_win_over_the_license()
{
    const QTemporaryDir folder;
    const QString note(100, 'm');
    const laid_out_entry laid_out({"Name", note, text_file(folder, "You may.")});
    QVERIFY(note_size(note).width() > 400);
    QCOMPARE(laid_out.entry.width, note_size(note).width());
}

void test_dialog_3rd_part_lib_info::list_shows_the_entries_in_order()
{
    show_list({two_lines, {"Another", "one", QString()}}, [](orv::dialog_3rd_part_lib_info &list) {
        QCOMPARE(list.layout->cells.size(), std::size_t(4));
        QStringList names;
        for (int row = 1; row < 4; ++row)
            names << widget_in_row(*list.layout, row)->findChildren<QLabel *>().first()->text();
        QCOMPARE(names, QStringList({"Qt 5.6.2", "Something", "Another"}));
        int y = -1;
        for (int row = 0; row < 4; ++row) {
            QVERIFY(widget_in_row(*list.layout, row)->isVisible());
            QVERIFY(widget_in_row(*list.layout, row)->y() > y);
            y = widget_in_row(*list.layout, row)->y();
        }
    });
}

void test_dialog_3rd_part_lib_info::each_entry_has_a_widget_with_a_margin()
{
    show_list({two_lines}, [](orv::dialog_3rd_part_lib_info &list) {
        for (const int row : {1, 2}) {
            const qor::qt::cell &entry = list.layout->cells.at({0, row});
            QCOMPARE(entry.content->metaObject()->className(), "QWidget");
            QVERIFY(qobject_cast<qor::qt::layout *>(entry.content->layout()));
            for (const float side :
                 {entry.margin_left, entry.margin_top, entry.margin_right, entry.margin_bottom})
                QCOMPARE(side, float(margin_px));
            QCOMPARE(entry.content->x(), margin_px);
            QCOMPARE(entry.content->width(), list.width() - 2 * margin_px);
        }
    });
}

void test_dialog_3rd_part_lib_info::rows_are_as_high_as_their_entries()
{
    show_list({two_lines}, [](orv::dialog_3rd_part_lib_info &list) {
        // The heading's row isn't fixed: it takes what the others leave over.
        std::vector<int> heights = {0};
        for (const orv::library_entry &entry : list.libraries) {
            QVERIFY(entry.height > 0);
            QCOMPARE(entry.height, name_size(entry.name).height() + note_size(entry.note).height());
            heights.push_back(entry.height + 2 * margin_px);
        }
        QCOMPARE(list.layout->row_heights, heights);
        QCOMPARE(widget_in_row(*list.layout, 0)->height(), list.heading_size.height());
        QCOMPARE(widget_in_row(*list.layout, 1)->height(), list.libraries[0].height);
        QCOMPARE(widget_in_row(*list.layout, 2)->height(), list.libraries[1].height);
    });
}

void test_dialog_3rd_part_lib_info::list_is_as_wide_as_the_widest_data()
{
    QTest::addColumn<int>("note_length");
    QTest::addColumn<bool>("entry_is_wider");
    QTest::newRow("the heading") << 10 << false;
    QTest::newRow("an entry") << 100 << true;
}

/// The heading has margins of its own, an entry has none.
void test_dialog_3rd_part_lib_info::list_is_as_wide_as_the_widest()
{
    QFETCH(int, note_length);
    QFETCH(bool, entry_is_wider);
    const QString note(note_length, 'm');
    show_list({{"Something", note, QString()}, {"Last", "short", QString()}},
              [&](orv::dialog_3rd_part_lib_info &list) {
                  const int heading_px = list.heading_size.width() + 2 * margin_px;
                  QCOMPARE(note_size(note).width() > heading_px, entry_is_wider);
                  QCOMPARE(list.width(), qMax(heading_px, note_size(note).width()) + 2 * margin_px);
              });
}

void test_dialog_3rd_part_lib_info::list_is_as_high_as_its_rows()
{
    show_list({two_lines}, [](orv::dialog_3rd_part_lib_info &list) {
        int height = list.heading_size.height() + 2 * margin_px;
        for (const orv::library_entry &entry : list.libraries)
            height += entry.height + 2 * margin_px;
        QCOMPARE(list.height(), height);
    });
}

void test_dialog_3rd_part_lib_info::no_text_is_cut_off()
{
    show_list({two_lines}, [](orv::dialog_3rd_part_lib_info &list) {
        const auto labels = list.findChildren<QLabel *>();
        QCOMPARE(labels.size(), 5);
        for (const QLabel *label : labels) {
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
            QVERIFY2(label->height() >= label->sizeHint().height(), qPrintable(label->text()));
        }
    });
}

void test_dialog_3rd_part_lib_info::list_waits_until_it_is_closed()
{
    show_list({}, [](orv::dialog_3rd_part_lib_info &list) {
        QCoreApplication::processEvents();
        QVERIFY(list.isVisible());
        QVERIFY(list.isModal());
        QTest::keyClick(&list, Qt::Key_Escape);
        QVERIFY(!list.isVisible());
    });
}

KELVRA_PROGRAM_TEST_MAIN(test_dialog_3rd_part_lib_info)
#include "test_dialog_3rd_part_lib_info.moc"
