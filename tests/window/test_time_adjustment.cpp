// SPDX-License-Identifier: GPL-3.0-or-later

#include "grid_place.h"
#include "orv/lineedit.h"
#include "program_test_main.h"
#include "time_adjustment.h"

#include <QDoubleValidator>
#include <QGridLayout>
#include <QIntValidator>
#include <QLabel>

#include <cmath>
#include <limits>

namespace
{

const QColor placeholder_colour(138, 145, 142);

constexpr char panel_sheet[] = "color: "
                               "rgb(198,213,210);\nborder-style:solid;\nborder-width:3px;\nborder-"
                               "image:url(:/gui/panel/border_topless.png) 3 stretch;";
constexpr char inner_sheet[] =
    "QToolTip{border: 1px solid rgb(99,99,99);\nborder-image: none;\nbackground-image: "
    "none;\nbackground-color: rgb(47,47,47);\n}\n*{\nborder: none;\nborder-image: "
    "none;\nbackground: rgb(47,47,47);\n}";
constexpr char field_sheet[] =
    "orv--lineedit{    background:rgb(38,38,38);    color:rgb(198,213,210);    border: 1px solid "
    "rgb(99,99,99);    selection-background-color:rgb(198,213,210);    selection-color: "
    "#000;}orv--lineedit:disabled{    border: 1px solid rgb(75,75,75);    background: "
    "rgb(47,47,47);    color: rgb(100,100,100);}QToolTip{border:1px solid "
    "rgb(99,99,99);background-image:none;background-color:rgb(47,47,47);}";

const QStringList field_names = {"lineedit_year",    "lineedit_month",  "lineedit_day",
                                 "lineedit_hour",    "lineedit_minute", "lineedit_second",
                                 "lineedit_timezone"};
const QStringList label_names = {"label",   "label_2", "label_3", "label_4",
                                 "label_5", "label_6", "label_7"};

QVector<int> margins_of(const QLayout *layout)
{
    const QMargins margins = layout->contentsMargins();
    return {margins.left(), margins.top(), margins.right(), margins.bottom()};
}

/// Whether any pixel of the picture has roughly this colour.
bool has_colour(const QImage &picture, const QColor &colour)
{
    constexpr int tolerance = 12;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (qAbs(pixel.red() - colour.red()) < tolerance &&
                qAbs(pixel.green() - colour.green()) < tolerance &&
                qAbs(pixel.blue() - colour.blue()) < tolerance)
                return true;
        }
    }
    return false;
}

/// Relative luminance, as WCAG 2.1 defines it.
double luminance(const QColor &colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The contrast ratio of a colour to a darker one, as WCAG 2.1 defines it.
double contrast(const QColor &light, const QColor &dark)
{
    return (luminance(light) + 0.05) / (luminance(dark) + 0.05);
}

}  // namespace

class test_time_adjustment : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void panel_has_its_name_size_and_sheet();
    void frames_are_in_their_grids();
    void inner_grid_has_spacings_and_a_stretching_end();
    void column_has_label_and_field_data();
    void column_has_label_and_field();
    void numeric_fields_accept_any_whole_number_data();
    void numeric_fields_accept_any_whole_number();
    void zone_field_accepts_two_decimals_from_minus_12_to_14();
    void tooltip_goes_to_all_labels_and_fields();
    void placeholder_is_greyer_than_a_typed_number();
    void placeholder_has_enough_contrast_to_be_read();
    void empty_zone_shows_nothing();
    void tab_goes_from_the_year_to_the_zone();
    void first_field_gets_the_keyboard_focus();

private:
    template <class Widget>
    Widget *find(const QString &name)
    {
        auto *widget = panel->findChild<Widget *>(name);
        if (!widget)
            qFatal("no %s", qPrintable(name));
        return widget;
    }

    time_adjustment *panel = nullptr;
};

void test_time_adjustment::init()
{
    panel = new time_adjustment(nullptr);
}

void test_time_adjustment::cleanup()
{
    delete panel;
}

void test_time_adjustment::panel_has_its_name_size_and_sheet()
{
    QCOMPARE(panel->objectName(), QString("time_adjustment"));
    QCOMPARE(panel->size(), QSize(569, 73));
    QCOMPARE(panel->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(panel->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(panel->styleSheet(), QString(panel_sheet));
}

void test_time_adjustment::frames_are_in_their_grids()
{
    auto *outer = find<QWidget>("widget_2");
    auto *inner = find<QWidget>("widget");
    auto *grid = find<QGridLayout>("gridLayout");
    auto *grid_2 = find<QGridLayout>("gridLayout_2");
    QCOMPARE(outer->parentWidget(), panel);
    QCOMPARE(inner->parentWidget(), outer);
    QCOMPARE(panel->layout(), grid);
    QCOMPARE(outer->layout(), grid_2);
    QCOMPARE(place_in(grid, outer), QVector<int>({8, 0, 1, 1}));
    QCOMPARE(place_in(grid_2, inner), QVector<int>({0, 0, 1, 1}));
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(margins_of(grid), QVector<int>({0, 0, 0, 0}));
    QCOMPARE(grid_2->spacing(), 0);
    QCOMPARE(margins_of(grid_2), QVector<int>({15, 15, 15, 15}));
    for (const QWidget *widget : {outer, inner}) {
        QCOMPARE(widget->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(widget->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    }
    QCOMPARE(inner->minimumSize(), QSize(16, 16));
    QCOMPARE(inner->styleSheet(), QString(inner_sheet));
}

void test_time_adjustment::inner_grid_has_spacings_and_a_stretching_end()
{
    auto *grid = find<QGridLayout>("gridLayout_3");
    QCOMPARE(find<QWidget>("widget")->layout(), grid);
    QCOMPARE(grid->horizontalSpacing(), 10);
    QCOMPARE(grid->verticalSpacing(), 5);
    QCOMPARE(margins_of(grid), QVector<int>({0, 0, 0, 0}));
    for (int column = 0; column < 8; ++column)
        QCOMPARE(grid->columnStretch(column), column == 7 ? 1 : 0);
    QVERIFY(grid->itemAtPosition(1, 7));
    QSpacerItem *spacer = grid->itemAtPosition(1, 7)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
}

void test_time_adjustment::column_has_label_and_field_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("placeholder");
    // clang-format off
    QTest::newRow("year")   << 0 << "Year"         << "0";
    QTest::newRow("month")  << 1 << "Month"        << "0";
    QTest::newRow("day")    << 2 << "Day"          << "0";
    QTest::newRow("hour")   << 3 << "Hour"         << "0";
    QTest::newRow("minute") << 4 << "Minute"       << "0";
    QTest::newRow("second") << 5 << "Second"       << "0";
    QTest::newRow("zone")   << 6 << "Timezone (h)" << "";
    // clang-format on
}

void test_time_adjustment::column_has_label_and_field()
{
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, placeholder);
    auto *grid = find<QGridLayout>("gridLayout_3");
    auto *label = find<QLabel>(label_names[column]);
    auto *field = find<orv::lineedit>(field_names[column]);
    QCOMPARE(label->text(), text);
    QCOMPARE(label->parentWidget(), find<QWidget>("widget"));
    QCOMPARE(place_in(grid, label), QVector<int>({1, column, 1, 1}));
    QCOMPARE(field->placeholderText(), placeholder);
    QCOMPARE(field->text(), QString());
    QCOMPARE(field->styleSheet(), QString(field_sheet));
    QCOMPARE(field->parentWidget(), find<QWidget>("widget"));
    QCOMPARE(place_in(grid, field), QVector<int>({2, column, 1, 1}));
}

void test_time_adjustment::numeric_fields_accept_any_whole_number_data()
{
    QTest::addColumn<QString>("field");
    for (const QString &name : field_names.mid(0, 6))
        QTest::newRow(qPrintable(name)) << name;
}

void test_time_adjustment::numeric_fields_accept_any_whole_number()
{
    QFETCH(QString, field);
    const auto *validator =
        qobject_cast<const QIntValidator *>(find<orv::lineedit>(field)->validator());
    QVERIFY(validator);
    QVERIFY(!validator->parent());
    QCOMPARE(validator->bottom(), std::numeric_limits<int>::min());
    QCOMPARE(validator->top(), std::numeric_limits<int>::max());
}

void test_time_adjustment::zone_field_accepts_two_decimals_from_minus_12_to_14()
{
    const auto *validator = qobject_cast<const QDoubleValidator *>(
        find<orv::lineedit>("lineedit_timezone")->validator());
    QVERIFY(validator);
    QVERIFY(!validator->parent());
    QCOMPARE(validator->notation(), QDoubleValidator::StandardNotation);
    QCOMPARE(validator->bottom(), -12.0);
    QCOMPARE(validator->top(), 14.0);
    QCOMPARE(validator->decimals(), 2);
}

void test_time_adjustment::tooltip_goes_to_all_labels_and_fields()
{
    panel->set_tooltips("What to type");
    for (const QString &name : label_names)
        QCOMPARE(find<QLabel>(name)->toolTip(), QString("What to type"));
    for (const QString &name : field_names)
        QCOMPARE(find<orv::lineedit>(name)->toolTip(), QString("What to type"));
}

void test_time_adjustment::placeholder_is_greyer_than_a_typed_number()
{
    const QColor text_colour(198, 213, 210);
    panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    auto *field = find<orv::lineedit>("lineedit_month");
    const QRect inside = field->rect().adjusted(2, 2, -2, -2);
    const QImage empty = field->grab(inside).toImage();
    QVERIFY(has_colour(empty, placeholder_colour));
    QVERIFY(!has_colour(empty, text_colour));
    QTest::keyClicks(field, "8");
    QVERIFY(has_colour(field->grab(inside).toImage(), text_colour));
}

void test_time_adjustment::placeholder_has_enough_contrast_to_be_read()
{
    panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    const QPalette palette = find<orv::lineedit>("lineedit_month")->palette();
    QCOMPARE(palette.color(QPalette::Base), QColor(38, 38, 38));
    QVERIFY(contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)) >=
            4.5);
}

void test_time_adjustment::empty_zone_shows_nothing()
{
    panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    auto *field = find<orv::lineedit>("lineedit_timezone");
    const QImage shown = field->grab(field->rect().adjusted(2, 2, -2, -2)).toImage();
    QImage nothing(shown.size(), shown.format());
    nothing.fill(QColor(38, 38, 38));
    QCOMPARE(shown, nothing);
}

void test_time_adjustment::tab_goes_from_the_year_to_the_zone()
{
    panel->show();
    QVERIFY(QTest::qWaitForWindowActive(panel));
    panel->focus_first_field();
    QStringList visited;
    for (int i = 0; i < field_names.size(); ++i) {
        QVERIFY(QApplication::focusWidget());
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, field_names);
}

void test_time_adjustment::first_field_gets_the_keyboard_focus()
{
    panel->show();
    QVERIFY(QTest::qWaitForWindowActive(panel));
    find<orv::lineedit>("lineedit_day")->setFocus();
    panel->focus_first_field();
    QCOMPARE(QApplication::focusWidget(), find<orv::lineedit>("lineedit_year"));
}

KELVRA_PROGRAM_TEST_MAIN(test_time_adjustment)
#include "test_time_adjustment.moc"
