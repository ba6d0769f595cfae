// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/lineedit.h"
#include "program_test_main.h"
#include "time_adjustment.h"

#include <QClipboard>
#include <QLocale>

#include <limits>

namespace
{

/// The arguments of the signal: six whole numbers, whether a zone is given, and the zone.
using offset = QVariantList;

offset unshifted()
{
    return {0, 0, 0, 0, 0, 0, false, 0.0};
}

offset zone(bool given, double hours)
{
    return {0, 0, 0, 0, 0, 0, given, hours};
}

/// Like QTest::keyClicks, which only knows the keys of ASCII characters.
void type_any(QWidget *field, const QString &text)
{
    for (const QChar &character : text)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character),
                            Qt::NoModifier);
}

}  // namespace

class test_time_adjustment_typing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nothing_is_sent_before_the_first_edit();
    void every_key_sends_the_shift();
    void each_field_fills_its_own_place_data();
    void each_field_fills_its_own_place();
    void all_fields_are_sent_together();
    void number_field_reads_the_text_that_it_accepts_data();
    void number_field_reads_the_text_that_it_accepts();
    void number_is_plain_in_any_language_data();
    void number_is_plain_in_any_language();
    void number_with_separators_isnt_pasted();
    void deleting_a_number_sends_zero();
    void text_decides_the_zone_data();
    void text_decides_the_zone();
    void zone_field_accepts_text_that_can_be_completed_data();
    void zone_field_accepts_text_that_can_be_completed();
    void zone_is_read_with_a_point_and_in_the_users_format_data();
    void zone_is_read_with_a_point_and_in_the_users_format();
    void comma_can_be_typed_on_a_german_system();
    void comma_elsewhere_is_unfinished_and_counts_as_zero();
    void deleting_the_zone_removes_it_from_the_shift();
    void reset_empties_the_fields_one_by_one();
    void reset_of_empty_fields_sends_nothing();
    void emit_offset_sends_the_current_values();

private:
    orv::lineedit *field(const QString &name);
    void type(const QString &name, const QString &text) { QTest::keyClicks(field(name), text); }

    time_adjustment *panel = nullptr;
    QSignalSpy *sent = nullptr;
};

orv::lineedit *test_time_adjustment_typing::field(const QString &name)
{
    auto *found = panel->findChild<orv::lineedit *>("lineedit_" + name);
    if (!found)
        qFatal("no field %s", qPrintable(name));
    return found;
}

void test_time_adjustment_typing::init()
{
    panel = new time_adjustment(nullptr);
    sent = new QSignalSpy(panel, &time_adjustment::time_offset_changed);
}

void test_time_adjustment_typing::cleanup()
{
    delete sent;
    delete panel;
    QLocale::setDefault(QLocale::c());
}

void test_time_adjustment_typing::nothing_is_sent_before_the_first_edit()
{
    panel->show();
    panel->focus_first_field();
    QTest::keyClick(field("year"), Qt::Key_Right);
    QCOMPARE(sent->size(), 0);
    QVERIFY(!panel->timezone_given());
    QCOMPARE(panel->year, 0);
    QCOMPARE(panel->timezone, 0.0);
}

void test_time_adjustment_typing::every_key_sends_the_shift()
{
    type("hour", "12");
    QCOMPARE(sent->size(), 2);
    QCOMPARE(sent->at(0), offset({0, 0, 0, 1, 0, 0, false, 0.0}));
    QCOMPARE(sent->at(1), offset({0, 0, 0, 12, 0, 0, false, 0.0}));
}

void test_time_adjustment_typing::each_field_fills_its_own_place_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("year") << 0;
    QTest::newRow("month") << 1;
    QTest::newRow("day") << 2;
    QTest::newRow("hour") << 3;
    QTest::newRow("minute") << 4;
    QTest::newRow("second") << 5;
}

void test_time_adjustment_typing::each_field_fills_its_own_place()
{
    QFETCH(int, place);
    type(QTest::currentDataTag(), "-7");
    offset expected = unshifted();
    QCOMPARE(sent->size(), 2);
    QCOMPARE(sent->at(0), expected);
    expected[place] = -7;
    QCOMPARE(sent->at(1), expected);
    const int values[] = {panel->year, panel->month,  panel->day,
                          panel->hour, panel->minute, panel->second};
    for (int i = 0; i < 6; ++i)
        QCOMPARE(values[i], i == place ? -7 : 0);
}

void test_time_adjustment_typing::all_fields_are_sent_together()
{
    type("year", "1");
    type("month", "-2");
    type("day", "400");
    type("hour", "25");
    type("minute", "-61");
    type("second", "3600");
    type("timezone", "-3.5");
    QCOMPARE(sent->last(), offset({1, -2, 400, 25, -61, 3600, true, -3.5}));
}

void test_time_adjustment_typing::number_field_reads_the_text_that_it_accepts_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    // clang-format off
    QTest::newRow("both signs: plus") << "+3" << "+3" << 3;
    QTest::newRow("both signs: minus") << "-3" << "-3" << -3;
    QTest::newRow("a lone minus") << "-" << "-" << 0;
    QTest::newRow("a lone plus") << "+" << "+" << 0;
    QTest::newRow("base ten despite a leading zero") << "010" << "010" << 10;
    QTest::newRow("letters are refused") << "1a2x" << "12" << 12;
    QTest::newRow("no exponent") << "1e3" << "13" << 13;
    QTest::newRow("no decimals") << "1.5" << "15" << 15;
    QTest::newRow("no space") << "1 2" << "12" << 12;
    QTest::newRow("no sign after a digit") << "1-2" << "12" << 12;
    QTest::newRow("more than a calendar has") << "25" << "25" << 25;
    QTest::newRow("greatest number") << "2147483647" << "2147483647" << 2147483647;
    QTest::newRow("smallest number") << "-2147483648" << "-2147483648"
        << std::numeric_limits<int>::min();
    QTest::newRow("digit beyond the greatest number is refused") << "21474836470" << "2147483647"
        << 2147483647;
    // clang-format on
}

void test_time_adjustment_typing::number_field_reads_the_text_that_it_accepts()
{
    QFETCH(QString, typed);
    QFETCH(QString, text);
    QFETCH(int, value);
    type("month", typed);
    QCOMPARE(field("month")->text(), text);
    QCOMPARE(sent->size(), text.size());
    QCOMPARE(sent->last().at(1).toInt(), value);
}

void test_time_adjustment_typing::number_is_plain_in_any_language_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    const struct {
        const char *name;
        QLocale locale;
    } languages[] = {{"plain", QLocale::c()},       {"American", QLocale("en_US")},
                     {"German", QLocale("de_DE")},  {"French", QLocale("fr_FR")},
                     {"Swiss", QLocale("de_CH")},   {"Indian", QLocale("hi_IN")},
                     {"Swedish", QLocale("sv_SE")}, {"Egyptian", QLocale("ar_EG")}};
    for (const auto &language : languages) {
        const auto row = [&language](const char *what, const QString &typed, const QString &text) {
            QTest::addRow("%s: %s", language.name, what) << language.locale << typed << text;
        };
        row("comma", "1,000", "1000");
        row("point", "1.000", "1000");
        row("apostrophe", "1'000", "1000");
        row("typographic apostrophe", u8"1\u2019000", "1000");
        row("space", "1 000", "1000");
        row("no-break space", u8"1\u00a0000", "1000");
        row("narrow no-break space", u8"1\u202f000", "1000");
        row("two separators", "-1,000,000", "-1000000");
        row("Arabic digit", u8"1000\u0661", "1000");
        row("plus", "+1000", "+1000");
        row("minus", "-1000", "-1000");
    }
}

/// The fields adopt the default locale when they are created.
void test_time_adjustment_typing::number_is_plain_in_any_language()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, typed);
    QFETCH(QString, text);
    QLocale::setDefault(locale);
    time_adjustment local_panel(nullptr);
    QSignalSpy local_sent(&local_panel, &time_adjustment::time_offset_changed);
    for (int place = 0; place < 6; ++place) {
        auto *field = local_panel.findChildren<orv::lineedit *>().at(place);
        type_any(field, typed);
        QCOMPARE(field->text(), text);
        QCOMPARE(local_sent.last().at(place).toInt(), text.toInt());
    }
}

void test_time_adjustment_typing::number_with_separators_isnt_pasted()
{
    QLocale::setDefault(QLocale("en_US"));
    time_adjustment local_panel(nullptr);
    auto *field = local_panel.findChild<orv::lineedit *>("lineedit_day");
    QVERIFY(field);
    QTest::keyClicks(field, "7");
    QApplication::clipboard()->setText("1,000");
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field->text(), QString("7"));
    QApplication::clipboard()->setText("1000");
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field->text(), QString("71000"));
}

void test_time_adjustment_typing::deleting_a_number_sends_zero()
{
    type("day", "4");
    QTest::keyClick(field("day"), Qt::Key_Backspace);
    QCOMPARE(sent->size(), 2);
    QCOMPARE(sent->last(), unshifted());
}

void test_time_adjustment_typing::text_decides_the_zone_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("given");
    QTest::addColumn<double>("hours");
    QTest::newRow("zero is a zone") << "0" << true << 0.0;
    QTest::newRow("a lone minus sign is one") << "-" << true << 0.0;
    QTest::newRow("half hours") << "5.5" << true << 5.5;
    QTest::newRow("west of Greenwich") << "-3" << true << -3.0;
}

void test_time_adjustment_typing::text_decides_the_zone()
{
    QFETCH(QString, text);
    QFETCH(bool, given);
    QFETCH(double, hours);
    type("timezone", text);
    QCOMPARE(sent->size(), text.size());
    QCOMPARE(sent->last(), zone(given, hours));
    QCOMPARE(panel->timezone_given(), given);
}

void test_time_adjustment_typing::zone_field_accepts_text_that_can_be_completed_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("hours");
    // clang-format off
    QTest::newRow("two decimals")                               << "5.75"  << "5.75" << 5.75;
    QTest::newRow("a third decimal is refused")                 << "5.755" << "5.75" << 5.75;
    QTest::newRow("letters are refused")                        << "1a"    << "1"    << 1.0;
    QTest::newRow("no exponent")                                << "1e1"   << "11"   << 11.0;
    QTest::newRow("greatest zone")                              << "14"    << "14"   << 14.0;
    QTest::newRow("smallest zone")                              << "-12"   << "-12"  << -12.0;
    QTest::newRow("out of range but unfinished, so it is sent") << "15"    << "15"   << 15.0;
    QTest::newRow("a lone point")                               << "."     << "."    << 0.0;
    QTest::newRow("a point at the end")                         << "2."    << "2."   << 2.0;
    QTest::newRow("three digits can't be finished")             << "123"   << "12"   << 12.0;
    // clang-format on
}

void test_time_adjustment_typing::zone_field_accepts_text_that_can_be_completed()
{
    QFETCH(QString, typed);
    QFETCH(QString, text);
    QFETCH(double, hours);
    type("timezone", typed);
    QCOMPARE(field("timezone")->text(), text);
    QCOMPARE(sent->size(), text.size());
    QCOMPARE(sent->last(), zone(true, hours));
}

void test_time_adjustment_typing::zone_is_read_with_a_point_and_in_the_users_format_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("hours");
    const QLocale german(QLocale::German, QLocale::Germany);
    QTest::newRow("point, plain") << QLocale::c() << "1.5" << 1.5;
    QTest::newRow("comma, plain: no number") << QLocale::c() << "1,5" << 0.0;
    QTest::newRow("point, German") << german << "1.5" << 1.5;
    QTest::newRow("comma, German") << german << "1,5" << 1.5;
    QTest::newRow("negative comma, German") << german << "-9,5" << -9.5;
}

/// The text is set, not typed, since a validator may refuse some of these keys.
void test_time_adjustment_typing::zone_is_read_with_a_point_and_in_the_users_format()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    QFETCH(double, hours);
    QLocale::setDefault(locale);
    time_adjustment local_panel(nullptr);
    QSignalSpy local_sent(&local_panel, &time_adjustment::time_offset_changed);
    auto *local_field = local_panel.findChild<orv::lineedit *>("lineedit_timezone");
    QVERIFY(local_field);
    local_field->setText(text);
    QCOMPARE(local_sent.size(), 1);
    QCOMPARE(local_sent.last(), zone(true, hours));
}

void test_time_adjustment_typing::comma_can_be_typed_on_a_german_system()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    time_adjustment german_panel(nullptr);
    QSignalSpy german_sent(&german_panel, &time_adjustment::time_offset_changed);
    QTest::keyClicks(german_panel.findChild<orv::lineedit *>("lineedit_timezone"), "1,5");
    QCOMPARE(german_sent.size(), 3);
    QCOMPARE(german_sent.last(), zone(true, 1.5));
}

void test_time_adjustment_typing::comma_elsewhere_is_unfinished_and_counts_as_zero()
{
    type("timezone", "1,5");
    QCOMPARE(field("timezone")->text(), QString("1,5"));
    QCOMPARE(sent->last(), zone(true, 0.0));
}

void test_time_adjustment_typing::deleting_the_zone_removes_it_from_the_shift()
{
    type("timezone", "2");
    QCOMPARE(sent->last(), zone(true, 2.0));
    QTest::keyClick(field("timezone"), Qt::Key_Backspace);
    QCOMPARE(sent->last(), unshifted());
    QVERIFY(!panel->timezone_given());
}

void test_time_adjustment_typing::reset_empties_the_fields_one_by_one()
{
    const QStringList names = {"year", "month", "day", "hour", "minute", "second", "timezone"};
    for (const QString &name : names)
        type(name, "5");
    sent->clear();
    panel->reset();
    offset expected = {5, 5, 5, 5, 5, 5, true, 5.0};
    QCOMPARE(sent->size(), 7);
    for (int i = 0; i < 6; ++i) {
        expected[i] = 0;
        QCOMPARE(sent->at(i), expected);
    }
    QCOMPARE(sent->at(6), unshifted());
    for (const QString &name : names)
        QCOMPARE(field(name)->text(), QString());
}

void test_time_adjustment_typing::reset_of_empty_fields_sends_nothing()
{
    panel->reset();
    QCOMPARE(sent->size(), 0);
    type("minute", "5");
    sent->clear();
    panel->reset();
    QCOMPARE(sent->size(), 1);
    QCOMPARE(sent->last(), unshifted());
}

void test_time_adjustment_typing::emit_offset_sends_the_current_values()
{
    type("second", "9");
    type("timezone", "0");
    sent->clear();
    panel->emit_offset();
    QCOMPARE(sent->size(), 1);
    QCOMPARE(sent->last(), offset({0, 0, 0, 0, 0, 9, true, 0.0}));
}

KELVRA_PROGRAM_TEST_MAIN(test_time_adjustment_typing)
#include "test_time_adjustment_typing.moc"
