// SPDX-License-Identifier: GPL-3.0-or-later

#include "datetime_format.h"
#include "expected_sheets.h"
#include "grid_place.h"
#include "orv/radio.h"
#include "program_test_main.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QSettings>

namespace
{

constexpr char panel_sheet[] = "color: "
                               "rgb(198,213,210);\nborder-style:solid;\nborder-width:3px;\nborder-"
                               "image:url(:/gui/panel/border.png) 3 stretch;";
constexpr char outer_sheet[] =
    "QToolTip{border:1px solid "
    "rgb(99,99,99);border-image:none;background-image:none;background-color:rgb(47,47,47);}";
constexpr char inner_sheet[] = "border: none;\nbackground-color: rgb(47,47,47);";

const QStringList date_buttons = {"rb_ddmmyyyy_slash", "rb_ddmmyyyy_dot", "rb_ddmmyyyy_dash",
                                  "rb_yyyymmdd_slash", "rb_yyyymmdd_dot", "rb_yyyymmdd_dash",
                                  "rb_mmddyyyy_slash"};
const QStringList time_buttons = {"rb_hhmmss", "rb_hhmm"};

void check_spacer(QGridLayout *grid, int row, int column, const QSize &size,
                  QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical)
{
    QVERIFY(grid->itemAtPosition(row, column));
    QSpacerItem *spacer = grid->itemAtPosition(row, column)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), size);
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), horizontal);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), vertical);
}

void store(const QString &date_format, const QString &time_format)
{
    QSettings settings;
    settings.setValue("date_format", date_format);
    settings.setValue("time_format", time_format);
}

QStringList stored()
{
    const QSettings settings;
    return {settings.value("date_format").toString(), settings.value("time_format").toString()};
}

void add_format_rows()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    // clang-format off
    QTest::newRow("rb_ddmmyyyy_slash") << "DD/MM/YYYY" << "dd/MM/yyyy" << 1 << 0;
    QTest::newRow("rb_ddmmyyyy_dot") << "DD.MM.YYYY" << "dd.MM.yyyy" << 2 << 0;
    QTest::newRow("rb_ddmmyyyy_dash") << "DD-MM-YYYY" << "dd-MM-yyyy" << 3 << 0;
    QTest::newRow("rb_yyyymmdd_slash") << "YYYY/MM/DD" << "yyyy/MM/dd" << 1 << 2;
    QTest::newRow("rb_yyyymmdd_dot") << "YYYY.MM.DD" << "yyyy.MM.dd" << 2 << 2;
    QTest::newRow("rb_yyyymmdd_dash") << "YYYY-MM-DD" << "yyyy-MM-dd" << 3 << 2;
    QTest::newRow("rb_mmddyyyy_slash") << "MM/DD/YYYY" << "MM/dd/yyyy" << 6 << 0;
    QTest::newRow("rb_hhmmss") << "hh:mm:ss" << "HH:mm:ss" << 1 << 4;
    QTest::newRow("rb_hhmm") << "hh:mm" << "HH:mm" << 2 << 4;
    // clang-format on
}

/// The panel, with access to its parts.
struct selector : datetime_format {
    selector() : datetime_format(nullptr) {}

    template <class Part>
    Part *part(const QString &name)
    {
        auto *found = findChild<Part *>(name);
        if (!found)
            qFatal("no %s", qPrintable(name));
        return found;
    }

    orv::radio *button(const QString &name) { return part<orv::radio>(name); }

    void click(const QString &name)
    {
        orv::radio *clicked = button(name);
        QTest::mouseClick(clicked, Qt::LeftButton, Qt::NoModifier, {8, clicked->height() / 2});
    }

    QStringList checked()
    {
        QStringList names;
        for (const QString &name : date_buttons + time_buttons) {
            if (button(name)->isChecked())
                names << name;
        }
        return names;
    }
};

}  // namespace

class test_datetime_format : public QObject
{
    Q_OBJECT

private slots:
    void init() { clear_settings(); }
    void panel_has_its_name_size_and_sheet();
    void frames_are_in_their_grids();
    void spacers_push_the_buttons_to_the_corner();
    void headings_are_bold_and_above_their_columns();
    void button_has_label_position_and_sheet_data() { add_format_rows(); }
    void button_has_label_position_and_sheet();
    void buttons_make_two_exclusive_groups();
    void starts_with_the_defaults_and_stores_nothing();
    void stored_format_is_shown_data() { add_format_rows(); }
    void stored_format_is_shown();
    void click_stores_and_sends_the_format_data() { add_format_rows(); }
    void click_stores_and_sends_the_format();
    void click_on_the_checked_button_stores_and_sends_again();
    void unknown_format_is_kept_and_leaves_the_default_checked();
    void single_stored_key_leaves_the_other_default_data();
    void single_stored_key_leaves_the_other_default();
    void unknown_format_survives_a_click_in_the_other_group();
    void formats_are_joined_in_one_step();
    void loading_again_uses_the_stored_formats();
    void tab_order_goes_down_the_columns();

private:
    static bool is_date(const char *name) { return date_buttons.contains(name); }
};

void test_datetime_format::panel_has_its_name_size_and_sheet()
{
    const selector panel;
    QCOMPARE(panel.objectName(), QString("datetime_format"));
    QCOMPARE(panel.size(), QSize(443, 144));
    QCOMPARE(panel.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(panel.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(panel.maximumSize(), QSize(QWIDGETSIZE_MAX, 144));
    QCOMPARE(panel.styleSheet(), QString(panel_sheet));
}

void test_datetime_format::frames_are_in_their_grids()
{
    selector panel;
    auto *outer = panel.part<QWidget>("widget_3");
    auto *inner = panel.part<QWidget>("widget_2");
    auto *grid = panel.part<QGridLayout>("gridLayout");
    auto *outer_grid = panel.part<QGridLayout>("gridLayout_3");
    auto *inner_grid = panel.part<QGridLayout>("gridLayout_2");
    QCOMPARE(panel.layout(), grid);
    QCOMPARE(outer->parentWidget(), &panel);
    QCOMPARE(outer->layout(), outer_grid);
    QCOMPARE(outer->styleSheet(), QString(outer_sheet));
    QCOMPARE(inner->parentWidget(), outer);
    QCOMPARE(inner->layout(), inner_grid);
    QCOMPARE(inner->styleSheet(), QString(inner_sheet));
    QCOMPARE(place_in(grid, outer), QVector<int>({5, 0, 1, 1}));
    QCOMPARE(place_in(outer_grid, inner), QVector<int>({0, 0, 1, 1}));
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(outer_grid->spacing(), 0);
    QCOMPARE(outer_grid->contentsMargins(), QMargins(15, 13, 15, 15));
    QCOMPARE(inner_grid->contentsMargins(), QMargins());
}

void test_datetime_format::spacers_push_the_buttons_to_the_corner()
{
    selector panel;
    auto *inner_grid = panel.part<QGridLayout>("gridLayout_2");
    auto *outer_grid = panel.part<QGridLayout>("gridLayout_3");
    check_spacer(inner_grid, 4, 0, {20, 5}, QSizePolicy::Minimum, QSizePolicy::Minimum);
    check_spacer(outer_grid, 0, 1, {40, 20}, QSizePolicy::Expanding, QSizePolicy::Minimum);
    check_spacer(outer_grid, 1, 0, {20, 40}, QSizePolicy::Minimum, QSizePolicy::Expanding);
    auto *gap = panel.part<QWidget>("widget_5");
    QCOMPARE(gap->minimumWidth(), 25);
    QCOMPARE(place_in(inner_grid, gap), QVector<int>({0, 3, 1, 1}));
    QCOMPARE(place_in(inner_grid, panel.part<QWidget>("widget")), QVector<int>({1, 1, 1, 1}));
    for (const char *name : {"widget_5", "widget"})
        QCOMPARE(panel.part<QWidget>(name)->parentWidget(), panel.part<QWidget>("widget_2"));
}

void test_datetime_format::headings_are_bold_and_above_their_columns()
{
    selector panel;
    auto *grid = panel.part<QGridLayout>("gridLayout_2");
    auto *date_heading = panel.part<QLabel>("label");
    auto *time_heading = panel.part<QLabel>("label_2");
    QCOMPARE(date_heading->text(), QString("Date Format"));
    QCOMPARE(time_heading->text(), QString("Time Format"));
    QCOMPARE(place_in(grid, date_heading), QVector<int>({0, 0, 1, 1}));
    QCOMPARE(place_in(grid, time_heading), QVector<int>({0, 4, 1, 1}));
    for (const QLabel *heading : {date_heading, time_heading}) {
        QCOMPARE(heading->font().family(), QString("FreeSansBold"));
        QCOMPARE(heading->font().weight(), 75);
        QCOMPARE(heading->font().pointSize(), 11);
        QCOMPARE(heading->parentWidget(), panel.part<QWidget>("widget_2"));
    }
}

void test_datetime_format::button_has_label_position_and_sheet()
{
    QFETCH(QString, label);
    QFETCH(int, row);
    QFETCH(int, column);
    selector panel;
    orv::radio *button = panel.button(QTest::currentDataTag());
    QCOMPARE(button->text(), label);
    QCOMPARE(button->styleSheet(), QString(radio_sheet));
    QCOMPARE(button->parentWidget(), panel.part<QWidget>("widget_2"));
    QCOMPARE(place_in(panel.part<QGridLayout>("gridLayout_2"), button),
             QVector<int>({row, column, 1, 1}));
    QCOMPARE(button->toolTip(), is_date(QTest::currentDataTag())
                                    ? QString("Change the date display format")
                                    : QString("Change the time display format"));
}

void test_datetime_format::buttons_make_two_exclusive_groups()
{
    selector panel;
    const auto names_in = [&panel](const char *group_name) {
        const auto *group = panel.part<QButtonGroup>(group_name);
        QStringList names;
        for (const QAbstractButton *button : group->buttons())
            names << button->objectName();
        names.sort();
        return group->exclusive() && group->parent() == &panel ? names : QStringList();
    };
    QStringList sorted_date_buttons = date_buttons;
    sorted_date_buttons.sort();
    QCOMPARE(names_in("buttongroup_date"), sorted_date_buttons);
    QCOMPARE(names_in("buttongroup_time"), QStringList({"rb_hhmm", "rb_hhmmss"}));
}

void test_datetime_format::starts_with_the_defaults_and_stores_nothing()
{
    selector panel;
    QCOMPARE(panel.checked(), QStringList({"rb_ddmmyyyy_dot", "rb_hhmmss"}));
    QCOMPARE(panel.date_format, QString("dd.MM.yyyy"));
    QCOMPARE(panel.time_format, QString("HH:mm:ss"));
    QCOMPARE(panel.format_string(), QString("dd.MM.yyyy - HH:mm:ss"));
    QCOMPARE(QSettings().allKeys(), QStringList());
}

void test_datetime_format::stored_format_is_shown()
{
    QFETCH(QString, format);
    const QString name = QTest::currentDataTag();
    const bool date = is_date(QTest::currentDataTag());
    store(date ? format : "yyyy-MM-dd", date ? "HH:mm" : format);
    selector panel;
    const QStringList expected =
        date ? QStringList({name, "rb_hhmm"}) : QStringList({"rb_yyyymmdd_dash", name});
    QCOMPARE(panel.checked(), expected);
    QCOMPARE(date ? panel.date_format : panel.time_format, format);
    QCOMPARE(panel.format_string(), date ? format + " - HH:mm" : "yyyy-MM-dd - " + format);
}

void test_datetime_format::click_stores_and_sends_the_format()
{
    QFETCH(QString, format);
    const bool date = is_date(QTest::currentDataTag());
    selector panel;
    panel.show();
    QSignalSpy sent(&panel, &datetime_format::format_changed);
    panel.click(QTest::currentDataTag());
    QVERIFY(panel.checked().contains(QTest::currentDataTag()));
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.last().first().toString(),
             date ? format + " - HH:mm:ss" : "dd.MM.yyyy - " + format);
    QCOMPARE(panel.format_string(), sent.last().first().toString());
    QCOMPARE(stored(),
             date ? QStringList({format, "HH:mm:ss"}) : QStringList({"dd.MM.yyyy", format}));
}

void test_datetime_format::click_on_the_checked_button_stores_and_sends_again()
{
    selector panel;
    panel.show();
    QSignalSpy sent(&panel, &datetime_format::format_changed);
    panel.click("rb_ddmmyyyy_dot");
    QCOMPARE(sent.size(), 1);
    QCOMPARE(stored(), QStringList({"dd.MM.yyyy", "HH:mm:ss"}));
    clear_settings();
    panel.click("rb_ddmmyyyy_dot");
    QCOMPARE(sent.size(), 2);
    QCOMPARE(stored(), QStringList({"dd.MM.yyyy", "HH:mm:ss"}));
    QCOMPARE(panel.checked(), QStringList({"rb_ddmmyyyy_dot", "rb_hhmmss"}));
}

void test_datetime_format::unknown_format_is_kept_and_leaves_the_default_checked()
{
    store("ddd d. MMMM", "H'h'");
    selector panel;
    QCOMPARE(panel.checked(), QStringList({"rb_ddmmyyyy_dot", "rb_hhmmss"}));
    QCOMPARE(panel.format_string(), QString("ddd d. MMMM - H'h'"));
    QCOMPARE(stored(), QStringList({"ddd d. MMMM", "H'h'"}));
}

void test_datetime_format::single_stored_key_leaves_the_other_default_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("joined");
    // clang-format off
    QTest::newRow("date_format") << "yyyy/MM/dd" << "yyyy/MM/dd - HH:mm:ss";
    QTest::newRow("time_format") << "HH:mm"      << "dd.MM.yyyy - HH:mm";
    // clang-format on
}

void test_datetime_format::single_stored_key_leaves_the_other_default()
{
    QFETCH(QString, value);
    QFETCH(QString, joined);
    QSettings().setValue(QTest::currentDataTag(), value);
    const selector panel;
    QCOMPARE(panel.format_string(), joined);
}

void test_datetime_format::unknown_format_survives_a_click_in_the_other_group()
{
    store("MMMM yyyy", "HH:mm:ss");
    selector panel;
    panel.show();
    panel.click("rb_hhmm");
    QCOMPARE(panel.format_string(), QString("MMMM yyyy - HH:mm"));
    QCOMPARE(stored(), QStringList({"MMMM yyyy", "HH:mm"}));
}

void test_datetime_format::formats_are_joined_in_one_step()
{
    selector panel;
    panel.date_format = "%2";
    panel.time_format = "%1";
    QCOMPARE(panel.format_string(), QString("%2 - %1"));
}

void test_datetime_format::loading_again_uses_the_stored_formats()
{
    selector panel;
    store("MM/dd/yyyy", "HH:mm");
    panel.load_settings();
    QCOMPARE(panel.checked(), QStringList({"rb_mmddyyyy_slash", "rb_hhmm"}));
    panel.date_format = "dd-MM-yyyy";
    panel.save_settings();
    QCOMPARE(stored(), QStringList({"dd-MM-yyyy", "HH:mm"}));
}

/// The tab key leaves a group of radio buttons, so only the focus chain shows the order within it.
void test_datetime_format::tab_order_goes_down_the_columns()
{
    selector panel;
    QStringList chain;
    for (QWidget *next = panel.button("rb_ddmmyyyy_slash"); chain.size() < 9;
         next = next->nextInFocusChain()) {
        if (qobject_cast<orv::radio *>(next))
            chain << next->objectName();
    }
    QCOMPARE(chain, date_buttons + time_buttons);
    panel.show();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.button("rb_ddmmyyyy_dot")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), panel.button("rb_hhmmss"));
}

KELVRA_PROGRAM_TEST_MAIN(test_datetime_format)
#include "test_datetime_format.moc"
