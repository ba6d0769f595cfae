// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/to_int.h"
#include "core/zone_text.h"

#include "core_test_main.h"

#include <QRegularExpression>

#include <cstdlib>
#include <limits>
#include <stdexcept>

namespace
{

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();
constexpr float greatest = std::numeric_limits<float>::max();

}  // namespace

Q_DECLARE_METATYPE(std::string)

class test_zone_text : public QObject
{
    Q_OBJECT

private slots:
    void hours_become_a_zone_data();
    void hours_become_a_zone();
    void zone_becomes_hours_data();
    void zone_becomes_hours();
    void quarter_hours_survive_a_round_trip();
    void entry_is_added_to_the_zone_data();
    void entry_is_added_to_the_zone();
    void hours_beyond_all_zones_still_give_sign_hours_and_minutes_data();
    void hours_beyond_all_zones_still_give_sign_hours_and_minutes();

    void number_is_read_leniently_data();
    void number_is_read_leniently();
    void empty_text_gives_the_default_data();
    void empty_text_gives_the_default();
    void text_without_a_number_throws_data();
    void text_without_a_number_throws();
    void number_beyond_an_int_throws_data();
    void number_beyond_an_int_throws();
};

void test_zone_text::hours_become_a_zone_data()
{
    QTest::addColumn<float>("hours");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("zero has a plus") << 0.0F << "+00:00";
    QTest::newRow("negative zero is no less than zero") << -0.0F << "+00:00";
    QTest::newRow("whole hours") << 2.0F << "+02:00";
    QTest::newRow("negative hours") << -5.0F << "-05:00";
    QTest::newRow("half an hour") << 5.5F << "+05:30";
    QTest::newRow("negative half an hour") << -5.5F << "-05:30";
    QTest::newRow("sign without whole hours") << -0.5F << "-00:30";
    QTest::newRow("three quarters") << 5.75F << "+05:45";
    QTest::newRow("two digits") << 12.75F << "+12:45";
    QTest::newRow("minutes are cut off in single precision") << 5.1F << "+05:05";
    QTest::newRow("minutes are those of a float, not of a double") << 2.1F << "+02:05";
    QTest::newRow("negative minutes are cut off toward zero") << -5.1F << "-05:05";
    QTest::newRow("just below the next minute") << 1.0166666F << "+01:00";
    QTest::newRow("just below the next hour") << 1.9999999F << "+01:59";
    QTest::newRow("less than a minute keeps its sign") << -0.01F << "-00:00";
    QTest::newRow("more than a day isn't wrapped") << 30.0F << "+30:00";
    QTest::newRow("three digits") << -123.5F << "-123:30";
    // clang-format on
}

void test_zone_text::hours_become_a_zone()
{
    QFETCH(float, hours);
    QTEST(timezone_text(hours), "expected");
}

void test_zone_text::zone_becomes_hours_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<float>("expected");
    // clang-format off
    QTest::newRow("none") << "" << 0.0F;
    QTest::newRow("null") << QString() << 0.0F;
    QTest::newRow("plus") << "+02:00" << 2.0F;
    QTest::newRow("minus with minutes") << "-05:30" << -5.5F;
    QTest::newRow("quarters") << "+05:45" << 5.75F;
    QTest::newRow("minus without hours") << "-00:30" << -0.5F;
    QTest::newRow("any other first character is a plus") << "x02:00" << 2.0F;
    QTest::newRow("one minute, in single precision") << "+01:01" << 1.0F / 60.0F + 1.0F;
    QTest::newRow("without the leading zero") << "+2:00" << 0.0F;
    QTest::newRow("hours alone") << "+02" << 2.0F;
    QTest::newRow("without the colon the last digit is the minutes") << "+0230" << 2.0F;
    QTest::newRow("character after the hours is ignored") << "+02x30" << 2.5F;
    QTest::newRow("sign alone") << "-" << 0.0F;
    QTest::newRow("letters are zero") << "+ab:30" << 0.5F;
    QTest::newRow("letters for the minutes") << "+02:cd" << 2.0F;
    QTest::newRow("text after the minutes") << "+02:30:15" << 2.5F;
    QTest::newRow("sixty minutes and more count") << "+02:90" << 3.5F;
    // clang-format on
}

void test_zone_text::zone_becomes_hours()
{
    QFETCH(QString, zone);
    QFETCH(float, expected);
    QVERIFY2(zone_hours(zone) == expected, qPrintable(QString::number(double{zone_hours(zone)})));
}

void test_zone_text::quarter_hours_survive_a_round_trip()
{
    for (int quarters = -14 * 4; quarters <= 14 * 4; ++quarters) {
        const int minutes = std::abs(quarters) * 15;
        const QString zone = QString("%1%2:%3")
                                 .arg(quarters < 0 ? "-" : "+")
                                 .arg(minutes / 60, 2, 10, QLatin1Char('0'))
                                 .arg(minutes % 60, 2, 10, QLatin1Char('0'));
        QCOMPARE(timezone_text(zone_hours(zone)), zone);
        QCOMPARE(timezone_text(moved_zone_hours(zone, 0.0)), zone);
    }
}

void test_zone_text::entry_is_added_to_the_zone_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<double>("entry");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("whole hours") << "+02:00" << 3.0 << "+05:00";
    QTest::newRow("no zone") << "" << -5.5 << "-05:30";
    QTest::newRow("no zone and no entry") << "" << 0.0 << "+00:00";
    QTest::newRow("zone in normal form") << "+02:00x" << 0.0 << "+02:00";
    QTest::newRow("through zero") << "-00:30" << 1.0 << "+00:30";
    QTest::newRow("to zero") << "+02:00" << -2.0 << "+00:00";
    QTest::newRow("minutes add up") << "+05:45" << 0.25 << "+06:00";
    QTest::newRow("sum is narrowed before the minutes are cut") << "" << 5.1 << "+05:05";
    QTest::newRow("odd minutes lose one on the way") << "+01:01" << 0.0 << "+01:00";
    QTest::newRow("minutes are those of a float, not of a double") << "" << 2.1 << "+02:05";
    // clang-format on
}

void test_zone_text::entry_is_added_to_the_zone()
{
    QFETCH(QString, zone);
    QFETCH(double, entry);
    QTEST(timezone_text(moved_zone_hours(zone, entry)), "expected");
}

void test_zone_text::hours_beyond_all_zones_still_give_sign_hours_and_minutes_data()
{
    QTest::addColumn<float>("hours");
    QTest::addColumn<QString>("sign");
    QTest::newRow("infinity") << infinity << "+";
    QTest::newRow("negative infinity") << -infinity << "-";
    QTest::newRow("NaN isn't zero or more") << not_a_number << "-";
    QTest::newRow("greatest") << greatest << "+";
    QTest::newRow("least") << -greatest << "-";
    QTest::newRow("just beyond an int") << 2147483648.0F << "+";
    QTest::newRow("just beyond a negative int") << -2147483648.0F << "-";
}

void test_zone_text::hours_beyond_all_zones_still_give_sign_hours_and_minutes()
{
    QFETCH(float, hours);
    QFETCH(QString, sign);
    const QString text = timezone_text(hours);
    const QRegularExpression form("^\\" + sign + "\\d{2,}:\\d{2,}$");
    QVERIFY2(form.match(text).hasMatch(), qPrintable(text));
}

void test_zone_text::number_is_read_leniently_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<int>("expected");
    // clang-format off
    QTest::newRow("plain") << std::string("2014") << 2014;
    QTest::newRow("leading zero") << std::string("05") << 5;
    QTest::newRow("eight isn't octal") << std::string("08") << 8;
    QTest::newRow("zone with a plus") << std::string("+02:00") << 2;
    QTest::newRow("zone with a minus") << std::string("-05:30") << -5;
    QTest::newRow("fraction ends the number") << std::string("00.25") << 0;
    QTest::newRow("zone after a space") << std::string("17 +0200") << 17;
    QTest::newRow("minus after digits ends the number") << std::string("12-05") << 12;
    QTest::newRow("letters in front are skipped like spaces") << std::string("ab7c8") << 7;
    QTest::newRow("no hexadecimal") << std::string("0x1F") << 0;
    QTest::newRow("bytes of non-ASCII letters are skipped like spaces") << std::string("\xC3\xA4""3") << 3;
    QTest::newRow("NUL is skipped like a space") << std::string("\0""4", 2) << 4;
    QTest::newRow("greatest") << std::string("2147483647") << 2147483647;
    QTest::newRow("least") << std::string("-2147483648") << std::numeric_limits<int>::min();
    // clang-format on
}

void test_zone_text::number_is_read_leniently()
{
    QFETCH(std::string, text);
    QTEST(to_int(text, 99), "expected");
}

void test_zone_text::empty_text_gives_the_default_data()
{
    QTest::addColumn<std::string>("text");
    QTest::newRow("empty") << std::string();
    QTest::newRow("spaces") << std::string("  ");
    QTest::newRow("letters") << std::string("abc");
    QTest::newRow("plus") << std::string("+");
    QTest::newRow("colons") << std::string(":  :");
}

void test_zone_text::empty_text_gives_the_default()
{
    QFETCH(std::string, text);
    QCOMPARE(to_int(text, 0), 0);
    QCOMPARE(to_int(text, -17), -17);
}

void test_zone_text::text_without_a_number_throws_data()
{
    QTest::addColumn<std::string>("text");
    QTest::newRow("only a minus") << std::string("-");
    QTest::newRow("minuses") << std::string("----");
    QTest::newRow("minus before a space") << std::string("- 5");
    QTest::newRow("minus before a plus") << std::string("-+5");
    QTest::newRow("two minuses") << std::string("--5");
}

void test_zone_text::text_without_a_number_throws()
{
    QFETCH(std::string, text);
    QString message;
    try {
        to_int(text, 0);
    } catch (const std::invalid_argument &error) {
        message = error.what();
    }
    QCOMPARE(message, QString("stoi"));
}

void test_zone_text::number_beyond_an_int_throws_data()
{
    QTest::addColumn<std::string>("text");
    QTest::newRow("one more than the greatest") << std::string("2147483648");
    QTest::newRow("one less than the least") << std::string("-2147483649");
    QTest::newRow("more than a long") << std::string("99999999999999999999");
}

void test_zone_text::number_beyond_an_int_throws()
{
    QFETCH(std::string, text);
    QString message;
    try {
        to_int(text, 0);
    } catch (const std::out_of_range &error) {
        message = error.what();
    }
    QCOMPARE(message, QString("stoi"));
}

KELVRA_CORE_TEST_MAIN(test_zone_text)

#include "test_zone_text.moc"
