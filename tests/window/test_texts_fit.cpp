// SPDX-License-Identifier: GPL-3.0-or-later

#include "datetime_format.h"
#include "datetime_format_form.h"
#include "orv/radio.h"
#include "orv/wrapped_label.h"
#include "program_screens.h"
#include "program_test_main.h"
#include "shown_texts.h"
#include "startup/program_setup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRawFont>
#include <QRegion>
#include <QScrollArea>
#include <QTableView>

#include <functional>
#include <memory>

namespace
{

bool is_big_enough(const QSize &room, const QSize &needed)
{
    return room.width() >= needed.width() && room.height() >= needed.height();
}

QString described(const shown_text &shown)
{
    return QString("%1 \"%2\": %3 x %4 needed, %5 x %6 there")
        .arg(shown.widget->metaObject()->className(), shown.text)
        .arg(shown.needed.width())
        .arg(shown.needed.height())
        .arg(shown.room.width())
        .arg(shown.room.height());
}

/// The texts that have less room than they need.
QStringList cut_texts(const QList<shown_text> &texts)
{
    QStringList cut;
    for (const shown_text &shown : texts) {
        if (!is_big_enough(shown.room.size(), shown.needed))
            cut << described(shown);
    }
    return cut;
}

/// What must be visible of the widget: all of it, except what its scroll area has above and below.
QRect shown_part(const QWidget &widget)
{
    const QWidget *view = widget.parentWidget();
    const auto *area = view ? qobject_cast<QScrollArea *>(view->parentWidget()) : nullptr;
    if (!area || area->widget() != &widget)
        return widget.rect();
    QRect part = widget.rect();
    part.setTop(qMax(part.top(), -widget.y()));
    part.setBottom(qMin(part.bottom(), view->height() - 1 - widget.y()));
    return part;
}

/// The texts of widgets that are partly hidden, by the edge of their parent or by other widgets.
QStringList hidden_texts(const QList<shown_text> &texts)
{
    QStringList hidden;
    for (const shown_text &shown : texts) {
        const QWidget &widget = *shown.widget;
        if (!QRegion(shown_part(widget)).subtracted(widget.visibleRegion()).isEmpty())
            hidden << shown.text;
    }
    return hidden;
}

QRect place_of(const QWidget &widget)
{
    const QRect part = shown_part(widget);
    return {widget.mapTo(widget.window(), part.topLeft()), part.size()};
}

QStringList overlapping_texts(const QList<shown_text> &texts)
{
    QStringList overlapping;
    for (int i = 0; i < texts.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (place_of(*texts[i].widget).intersects(place_of(*texts[j].widget)))
                overlapping << texts[i].text + " / " + texts[j].text;
        }
    }
    return overlapping;
}

/// A face of the program's font.
struct font_face {
    font_face(const char *path, QFont::Weight new_weight)
        : weight(new_weight), names(QRawFont(QString(path), 1).fontTable("name"))
    {
    }

    QFont::Weight weight;
    QByteArray names;  ///< tells the file from a similar font of the system
};

const font_face &plain_face()
{
    static const font_face face(":/images/FreeSans.ttf", QFont::Normal);
    return face;
}

const font_face &bold_face()
{
    static const font_face face(":/images/FreeSansBold.ttf", QFont::Bold);
    return face;
}

/// True if the font uses the face itself, not a synthetic bold of another one.
bool shows_in(const QFont &font, const font_face &face)
{
    const QFontInfo info(font);
    return info.family() == "FreeSans" && info.weight() == face.weight &&
           QRawFont::fromFont(font).fontTable("name") == face.names;
}

QStringList texts_in(const font_face &face, const QList<shown_text> &texts)
{
    QStringList found;
    for (const shown_text &shown : texts) {
        if (shows_in(shown.font, face))
            found << shown.text;
    }
    return found;
}

QStringList texts_in_a_strange_face(const QList<shown_text> &texts)
{
    QStringList strange;
    for (const shown_text &shown : texts) {
        if (!shows_in(shown.font, plain_face()) && !shows_in(shown.font, bold_face()))
            strange << shown.text + ": " + QFontInfo(shown.font).family();
    }
    return strange;
}

/// The characters that the font of their text doesn't have.
QString missing_characters(const QList<shown_text> &texts)
{
    QString missing;
    for (const shown_text &shown : texts) {
        const QRawFont face = QRawFont::fromFont(shown.font);
        for (const uint character : shown.text.toUcs4()) {
            if (!QChar::isSpace(character) && !face.supportsCharacter(character))
                missing += QString::fromUcs4(&character, 1);
        }
    }
    return missing;
}

QStringList headings_of(const QString &screen, const QString &language)
{
    if (screen.contains("window"))
        return language == "de" ? QStringList{"Datumsformat", "Zeitformat"}
                                : QStringList{"Date Format", "Time Format"};
    if (screen == "about")
        return {"Version:", "Webseite:"};
    if (screen == "libraries")
        return {"Qt 5.6.2", "Exiftool"};
    return {};
}

void add_languages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("en") << "en";
    QTest::newRow("de") << "de";
}

using widget_maker = std::function<std::shared_ptr<QWidget>()>;

template <class Widget>
std::shared_ptr<QWidget> make_widget(const QString &text)
{
    return std::make_shared<Widget>(text);
}

std::shared_ptr<QWidget> make_wrapped_label()
{
    auto label = std::make_shared<QLabel>("some words");
    label->setWordWrap(true);
    return label;
}

/// The label is only as high as its words need on one line.
std::shared_ptr<QWidget> make_broken_label()
{
    auto label = std::make_shared<orv::wrapped_label>("some words", Qt::PlainText, nullptr);
    label->setFixedHeight(label->heightForWidth(400));
    return label;
}

std::shared_ptr<QWidget> make_combobox()
{
    auto box = std::make_shared<QComboBox>();
    box->addItem("some words");
    return box;
}

std::shared_ptr<QWidget> make_progress_bar()
{
    auto bar = std::make_shared<QProgressBar>();
    bar->setFormat("some words");
    bar->setValue(1);
    return bar;
}

std::shared_ptr<QWidget> make_list()
{
    auto list = std::make_shared<QListWidget>();
    list->addItem("some words");
    return list;
}

}  // namespace

Q_DECLARE_METATYPE(widget_maker)

/// No text of the program is cut off, hidden or shown in a font that isn't the program's.
class test_texts_fit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cut_text_is_noticed_data();
    void cut_text_is_noticed();
    void texts_of_a_screen_fit_data();
    void texts_of_a_screen_fit();
    void texts_show_in_the_faces_of_the_program_data() { add_screen_rows(); }
    void texts_show_in_the_faces_of_the_program();
    void titles_of_the_table_fit_beside_the_arrow_data() { add_languages(); }
    void titles_of_the_table_fit_beside_the_arrow();
    void titles_of_the_table_are_bold_data() { add_languages(); }
    void titles_of_the_table_are_bold();
    void longest_times_fit_into_their_columns_data();
    void longest_times_fit_into_their_columns();

private:
    fake_tool_window app;
};

void test_texts_fit::initTestCase()
{
    install_style();
    install_icons();
}

void test_texts_fit::cut_text_is_noticed_data()
{
    QTest::addColumn<widget_maker>("make");
    const auto row = [](const char *name, widget_maker make) { QTest::newRow(name) << make; };
    row("label", [] { return make_widget<QLabel>("some words"); });
    row("rich text", [] { return make_widget<QLabel>("some <b>words</b>"); });
    row("push button", [] { return make_widget<QPushButton>("some words"); });
    row("radio button", [] { return make_widget<QRadioButton>("some words"); });
    row("check box", [] { return make_widget<QCheckBox>("some words"); });
    row("wrapped label", make_wrapped_label);
    row("label that breaks words", make_broken_label);
    row("combo box", make_combobox);
    row("line", [] { return make_widget<QLineEdit>("some words"); });
    row("progress bar", make_progress_bar);
    row("list", make_list);
}

/// Shows that this test notices a cut text.
void test_texts_fit::cut_text_is_noticed()
{
    QFETCH(widget_maker, make);
    const std::shared_ptr<QWidget> widget = make();
    const auto cut_at = [&widget](int width) {
        widget->setFixedWidth(width);
        return cut_texts(shown_texts(*widget) + shown_cells(*widget)).size();
    };
    widget->show();
    QCOMPARE(cut_at(400), 0);
    QCOMPARE(cut_at(30), 1);
}

/// The file dialog is Qt's own, and cuts the list of extensions short.
void test_texts_fit::texts_of_a_screen_fit_data()
{
    add_screen_rows("file dialog");
}

void test_texts_fit::texts_of_a_screen_fit()
{
    QFETCH(QString, language);
    QFETCH(program_screen, screen);
    const language_run run(app, language);
    open_screen(screen, app, [](QWidget &shown) {
        const QList<shown_text> texts = shown_texts(shown);
        QCOMPARE(cut_texts(texts).join('\n'), QString());
        QCOMPARE(cut_texts(shown_cells(shown)).join('\n'), QString());
        QCOMPARE(hidden_texts(texts).join('\n'), QString());
        QCOMPARE(overlapping_texts(texts).join('\n'), QString());
    });
}

void test_texts_fit::texts_show_in_the_faces_of_the_program()
{
    QFETCH(QString, language);
    QFETCH(program_screen, screen);
    const language_run run(app, language);
    open_screen(screen, app, [&](QWidget &shown) {
        const QList<shown_text> texts = shown_texts(shown) + shown_cells(shown);
        QCOMPARE(texts_in_a_strange_face(texts).join('\n'), QString());
        QCOMPARE(texts_in(bold_face(), texts).join('\n'),
                 headings_of(screen.name, language).join('\n'));
        QCOMPARE(missing_characters(texts), QString());
    });
}

void test_texts_fit::titles_of_the_table_fit_beside_the_arrow()
{
    QFETCH(QString, language);
    const language_run run(app, language);
    app.window->resize(app.window->minimumSize());
    const QHeaderView &header = *app.window->ui->tableView->horizontalHeader();
    for (int column = 0; column < table_data_model::column_count; ++column)
        QCOMPARE(cut_texts(shown_titles(header, column)).join('\n'), QString());
}

void test_texts_fit::titles_of_the_table_are_bold()
{
    QFETCH(QString, language);
    const language_run run(app, language);
    const QHeaderView &header = *app.window->ui->tableView->horizontalHeader();
    const QList<shown_text> titles = shown_titles(header, table_data_model::name_column);
    QCOMPARE(texts_in(bold_face(), titles).size(), int{table_data_model::column_count});
    QCOMPARE(missing_characters(titles), QString());
}

void test_texts_fit::longest_times_fit_into_their_columns_data()
{
    QTest::addColumn<QString>("date_button");
    QTest::addColumn<QString>("time_button");
    for (const auto &date : datetime_format_form::date_choices) {
        for (const auto &time : datetime_format_form::time_choices)
            QTest::addRow("%s %s", date.format, time.format)
                << date.object_name << time.object_name;
    }
}

void test_texts_fit::longest_times_fit_into_their_columns()
{
    QFETCH(QString, date_button);
    QFETCH(QString, time_button);
    const language_run run(app, "en");
    for (const QString &name : {date_button, time_button}) {
        auto *button = app.window->findChild<orv::radio *>(name);
        click(button);
        QVERIFY(button->isChecked());
    }
    app.load_photo("a.jpg", {"ExifIFD:DateTimeOriginal=2008:08:28 20:08:28",
                             "IPTC:DateCreated=2008:08:28", "IPTC:TimeCreated=20:08:28-12:45"});
    type_shift(*app.window, "year", "-4000");
    type_shift(*app.window, "timezone", "-12");
    app.window->resize(app.window->minimumSize());
    QCOMPARE(shown_cells(*app.window).size(), int{table_data_model::column_count});
    QCOMPARE(cut_texts(shown_cells(*app.window)).join('\n'), QString());
}

KELVRA_PROGRAM_TEST_MAIN(test_texts_fit)
#include "test_texts_fit.moc"
