// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/time_offset.h"

#include "core_test_main.h"

#include <limits>

namespace
{

const QString date_time_format = "yyyy:MM:dd hh:mm:ss";
constexpr int greatest = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

/// @param text  a time that the clock doesn't skip
QDateTime time_of(const QString &text)
{
    const QDateTime time = QDateTime::fromString(text, date_time_format);
    if (!time.isValid())
        qFatal("%s is no time", qPrintable(text));
    return time;
}

/// Empty for an invalid time.
QString text_of(const QDateTime &time)
{
    return time.toString(date_time_format);
}

}  // namespace

Q_DECLARE_METATYPE(time_offset)

/// In the zone Europe/Berlin.
class test_time_offset : public QObject
{
    Q_OBJECT

private slots:
    void starts_without_a_shift();
    void shift_adds_unit_after_unit_data();
    void shift_adds_unit_after_unit();
    void shift_follows_the_local_clock_data();
    void shift_follows_the_local_clock();
    void seconds_of_hours_and_minutes_wrap_at_32_bits_data();
    void seconds_of_hours_and_minutes_wrap_at_32_bits();
    void extreme_shift_gives_a_time_data();
    void extreme_shift_gives_a_time();
    void invalid_time_stays_invalid();
};

void test_time_offset::starts_without_a_shift()
{
    const time_offset offset;
    const QList<int> units = {offset.year, offset.month,  offset.day,
                              offset.hour, offset.minute, offset.second};
    QCOMPARE(units, QList<int>({0, 0, 0, 0, 0, 0}));
    QCOMPARE(offset.alter_timezone, false);
    QCOMPARE(offset.timezone, 0.0);
}

void test_time_offset::shift_adds_unit_after_unit_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<time_offset>("offset");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("nothing") << "2017:05:03 12:34:56" << time_offset{} << "2017:05:03 12:34:56";
    QTest::newRow("one of each") << "2017:05:03 12:34:56" << time_offset{1, 1, 1, 1, 1, 1, false, 0.0} << "2018:06:04 13:35:57";
    QTest::newRow("minus one of each") << "2017:05:03 12:34:56" << time_offset{-1, -1, -1, -1, -1, -1, false, 0.0} << "2016:04:02 11:33:55";
    QTest::newRow("years before months") << "2016:02:29 12:00:00" << time_offset{1, 1, 0, 0, 0, 0, false, 0.0} << "2017:03:28 12:00:00";
    QTest::newRow("months before days") << "2016:01:31 12:00:00" << time_offset{0, 1, 1, 0, 0, 0, false, 0.0} << "2016:03:01 12:00:00";
    QTest::newRow("months before days, short February") << "2017:01:30 12:00:00" << time_offset{0, 1, 1, 0, 0, 0, false, 0.0} << "2017:03:01 12:00:00";
    QTest::newRow("months before hours") << "2017:01:30 23:30:00" << time_offset{0, 1, 0, 1, 0, 0, false, 0.0} << "2017:03:01 00:30:00";
    QTest::newRow("year clamps a leap day") << "2016:02:29 12:00:00" << time_offset{1, 0, 0, 0, 0, 0, false, 0.0} << "2017:02:28 12:00:00";
    QTest::newRow("four years keep a leap day") << "2016:02:29 12:00:00" << time_offset{4, 0, 0, 0, 0, 0, false, 0.0} << "2020:02:29 12:00:00";
    QTest::newRow("negative year clamps a leap day") << "2016:02:29 12:00:00" << time_offset{-1, 0, 0, 0, 0, 0, false, 0.0} << "2015:02:28 12:00:00";
    QTest::newRow("month clamps to its last day") << "2017:05:31 12:00:00" << time_offset{0, 1, 0, 0, 0, 0, false, 0.0} << "2017:06:30 12:00:00";
    QTest::newRow("negative month clamps to its last day") << "2017:05:31 12:00:00" << time_offset{0, -3, 0, 0, 0, 0, false, 0.0} << "2017:02:28 12:00:00";
    QTest::newRow("months beyond the year") << "2017:05:31 12:00:00" << time_offset{0, 14, 0, 0, 0, 0, false, 0.0} << "2018:07:31 12:00:00";
    QTest::newRow("days beyond the month") << "2017:05:31 12:00:00" << time_offset{0, 0, 400, 0, 0, 0, false, 0.0} << "2018:07:05 12:00:00";
    QTest::newRow("hours beyond the day") << "2017:05:31 12:00:00" << time_offset{0, 0, 0, 49, 0, 0, false, 0.0} << "2017:06:02 13:00:00";
    QTest::newRow("minutes beyond the hour") << "2017:05:31 12:00:00" << time_offset{0, 0, 0, 0, -121, 0, false, 0.0} << "2017:05:31 09:59:00";
    QTest::newRow("seconds over midnight") << "2017:05:03 23:59:30" << time_offset{0, 0, 0, 0, 0, 45, false, 0.0} << "2017:05:04 00:00:15";
    QTest::newRow("seconds over the end of the year") << "2017:12:31 23:59:59" << time_offset{0, 0, 0, 0, 0, 1, false, 0.0} << "2018:01:01 00:00:00";
    QTest::newRow("opposite units cancel out") << "2017:05:03 12:00:00" << time_offset{0, 0, 1, -24, 60, -3600, false, 0.0} << "2017:05:03 12:00:00";
    // clang-format on
}

void test_time_offset::shift_adds_unit_after_unit()
{
    QFETCH(QString, time);
    QFETCH(time_offset, offset);
    QTEST(text_of(shifted_time(time_of(time), offset)), "expected");
}

void test_time_offset::shift_follows_the_local_clock_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<time_offset>("offset");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("an hour over the spring gap") << "2016:03:27 01:30:00" << time_offset{0, 0, 0, 1, 0, 0, false, 0.0} << "2016:03:27 03:30:00";
    QTest::newRow("an hour back over the spring gap") << "2016:03:27 03:30:00" << time_offset{0, 0, 0, -1, 0, 0, false, 0.0} << "2016:03:27 01:30:00";
    QTest::newRow("24 hours over the spring gap") << "2016:03:26 12:00:00" << time_offset{0, 0, 0, 24, 0, 0, false, 0.0} << "2016:03:27 13:00:00";
    QTest::newRow("a day over the spring gap") << "2016:03:26 12:00:00" << time_offset{0, 0, 1, 0, 0, 0, false, 0.0} << "2016:03:27 12:00:00";
    QTest::newRow("a day into the spring gap") << "2016:03:26 02:30:00" << time_offset{0, 0, 1, 0, 0, 0, false, 0.0} << "2016:03:27 03:30:00";
    QTest::newRow("a day into the spring gap, then an hour") << "2016:03:26 02:30:00" << time_offset{0, 0, 1, 1, 0, 0, false, 0.0} << "2016:03:27 04:30:00";
    QTest::newRow("a month into the spring gap") << "2016:02:27 02:30:00" << time_offset{0, 1, 0, 0, 0, 0, false, 0.0} << "2016:03:27 03:30:00";
    QTest::newRow("a year into the spring gap") << "2015:03:27 02:30:00" << time_offset{1, 0, 0, 0, 0, 0, false, 0.0} << "2016:03:27 03:30:00";
    QTest::newRow("a year into the spring gap, then a day") << "2015:03:27 02:30:00" << time_offset{1, 0, 1, 0, 0, 0, false, 0.0} << "2016:03:28 03:30:00";
    QTest::newRow("two hours over the hour that comes twice") << "2016:10:30 01:30:00" << time_offset{0, 0, 0, 2, 0, 0, false, 0.0} << "2016:10:30 02:30:00";
    QTest::newRow("three hours over the hour that comes twice") << "2016:10:30 01:30:00" << time_offset{0, 0, 0, 3, 0, 0, false, 0.0} << "2016:10:30 03:30:00";
    // clang-format on
}

void test_time_offset::shift_follows_the_local_clock()
{
    shift_adds_unit_after_unit();
}

void test_time_offset::seconds_of_hours_and_minutes_wrap_at_32_bits_data()
{
    QTest::addColumn<time_offset>("offset");
    QTest::addColumn<qint64>("seconds");
    const auto hours = [](int count) { return time_offset{0, 0, 0, count, 0, 0, false, 0.0}; };
    const auto minutes = [](int count) { return time_offset{0, 0, 0, 0, count, 0, false, 0.0}; };
    const auto seconds = [](int count) { return time_offset{0, 0, 0, 0, 0, count, false, 0.0}; };
    // clang-format off
    QTest::newRow("last hour that fits") << hours(596523) << qint64{2147482800};
    QTest::newRow("first hour that wraps") << hours(596524) << qint64{-2147480896};
    QTest::newRow("last negative hour that fits") << hours(-596523) << qint64{-2147482800};
    QTest::newRow("first negative hour that wraps") << hours(-596524) << qint64{2147480896};
    QTest::newRow("greatest hour") << hours(greatest) << qint64{-3600};
    QTest::newRow("least hour") << hours(least) << qint64{0};
    QTest::newRow("last minute that fits") << minutes(35791394) << qint64{2147483640};
    QTest::newRow("first minute that wraps") << minutes(35791395) << qint64{-2147483596};
    QTest::newRow("greatest minute") << minutes(greatest) << qint64{-60};
    QTest::newRow("least minute") << minutes(least) << qint64{0};
    QTest::newRow("greatest second doesn't wrap") << seconds(greatest) << qint64{greatest};
    QTest::newRow("least second doesn't wrap") << seconds(least) << qint64{least};
    QTest::newRow("sum of the units doesn't wrap")
        << time_offset{0, 0, 0, 596523, 35791394, greatest, false, 0.0} << qint64{6442450087};
    // clang-format on
}

void test_time_offset::seconds_of_hours_and_minutes_wrap_at_32_bits()
{
    QFETCH(time_offset, offset);
    const QDateTime time = time_of("2017:05:03 12:00:00");
    QTEST(time.secsTo(shifted_time(time, offset)), "seconds");
}

void test_time_offset::extreme_shift_gives_a_time_data()
{
    QTest::addColumn<time_offset>("offset");
    QTest::addColumn<qint64>("year");
    // clang-format off
    QTest::newRow("greatest day") << time_offset{0, 0, greatest, 0, 0, 0, false, 0.0} << qint64{5881627};
    QTest::newRow("least day") << time_offset{0, 0, least, 0, 0, 0, false, 0.0} << qint64{-5877595};
    QTest::newRow("beyond four digits") << time_offset{8000, 0, 0, 0, 0, 0, false, 0.0} << qint64{10017};
    QTest::newRow("no year zero between 1 and -1") << time_offset{-2017, 0, 0, 0, 0, 0, false, 0.0} << qint64{-1};
    // clang-format on
}

void test_time_offset::extreme_shift_gives_a_time()
{
    QFETCH(time_offset, offset);
    const QDateTime time = shifted_time(time_of("2017:05:03 12:00:00"), offset);
    QVERIFY(time.isValid());
    QTEST(qint64{time.date().year()}, "year");
    QCOMPARE(time.time(), QTime(12, 0, 0));
}

void test_time_offset::invalid_time_stays_invalid()
{
    QVERIFY(!shifted_time(QDateTime(), {1, 1, 1, 1, 1, 1, true, 1.0}).isValid());
}

KELVRA_CORE_TEST_MAIN(test_time_offset)
#include "test_time_offset.moc"
