// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_output.h"
#include "core_test_main.h"
#include "orv/exiftool.h"
#include "scripted_tool.h"
#include "tool_lines.h"

#include <QProcess>

using namespace tool_lines;

namespace
{

const QByteArray request = "\n/p/photo.jpg\n-overwrite_original_in_place\n-m\n-A=1\n-execute\n";
const int whole = request.size();

/// The scripted pipe: the result reported for each attempt to write, and the bytes that each
/// attempt offered. All bytes are really sent with the first attempt, so that the request is always
/// answered.
QList<int> results;
QList<QByteArray> offers;

}  // namespace

// The linker redirects QIODevice::write(const char *, qint64) to `write_by_script`.
qint64 real_write(QIODevice *device, const char *bytes,
                  qint64 size) asm("__real__ZN9QIODevice5writeEPKcx");
qint64 write_by_script(QIODevice *device, const char *bytes,
                       qint64 size) asm("__wrap__ZN9QIODevice5writeEPKcx");

qint64 write_by_script(QIODevice *device, const char *bytes, qint64 size)
{
    if (results.isEmpty() || !qobject_cast<QProcess *>(device))
        return real_write(device, bytes, size);
    if (offers.isEmpty())
        real_write(device, bytes, size);
    offers << QByteArray(bytes, static_cast<int>(size));
    // With more attempts than results, the comparison of their numbers fails.
    return offers.size() <= results.size() ? results[offers.size() - 1] : whole;
}

/// A pipe that accepts a request in pieces, or not at all.
class test_exiftool_pipe : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void attempts_are_counted_data();
    void attempts_are_counted();

private:
    scripted_tool tool;
};

void test_exiftool_pipe::cleanup()
{
    results.clear();
    offers.clear();
    tool.forget();
}

// clang-format off
void test_exiftool_pipe::attempts_are_counted_data()
{
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<QByteArray>("lines");
    const auto repeated = [](int count, int result) {
        QList<int> list;
        while (list.size() < count)
            list << result;
        return list;
    };
    const int most = 11;
    QTest::newRow("whole") << QList<int>{whole} << QByteArray();
    QTest::newRow("a piece and the exact rest") << QList<int>{10, whole - 10} << QByteArray();
    QTest::newRow("a piece and the whole again") << QList<int>{10, whole} << lost_bytes(whole + 10, whole);
    QTest::newRow("all but one, and the whole again") << QList<int>{whole - 1, whole} << lost_bytes(2 * whole - 1, whole);
    QTest::newRow("nothing, then the whole") << QList<int>{0, whole} << QByteArray();
    QTest::newRow("whole at the last attempt") << repeated(most - 1, 0) + QList<int>{whole} << QByteArray();
    QTest::newRow("exact rest at the last attempt") << repeated(most - 1, 1) + QList<int>{whole - 10} << QByteArray();
    QTest::newRow("always nothing") << repeated(most, 0) << lost_bytes(0, whole);
    QTest::newRow("always a byte") << repeated(most, 1) << lost_bytes(11, whole);
    QTest::newRow("always failed") << repeated(most, -1) << failed_write.repeated(11) + lost_bytes(-11, whole);
    QTest::newRow("failed, then the whole and the byte that the failure took")
        << QList<int>{-1, whole, 1} << failed_write;
    QTest::newRow("failed, then the whole, and the byte never comes")
        << QList<int>{-1, whole} + repeated(most - 2, 0) << failed_write + lost_bytes(whole - 1, whole);
    QTest::newRow("failed, then the whole twice")
        << QList<int>{-1, whole, whole} << failed_write + lost_bytes(2 * whole - 1, whole);
    QTest::newRow("a piece, then failed")
        << QList<int>{5} + repeated(most - 1, -1) << failed_write.repeated(10) + lost_bytes(-5, whole);
    QTest::newRow("failed between two pieces")
        << QList<int>{5, -1, whole - 4} << failed_write;
}
// clang-format on

/// Each attempt offers as many bytes as the whole request has, starting at the current count.
void test_exiftool_pipe::attempts_are_counted()
{
    QFETCH(QList<int>, answers);
    const auto exiftool = orv::exiftool::instance();
    const captured_output output;
    results = answers;
    QVERIFY(exiftool->write_tags("/p/photo.jpg", {{"A", "1"}}));
    QTEST(output.text(), "lines");
    QCOMPARE(offers.size(), answers.size());
    QCOMPARE(tool.input(), request);
    int written = 0;
    for (int i = 0; i < offers.size(); ++i) {
        QCOMPARE(offers[i].size(), whole);
        const int before = qMax(0, -written);
        const QByteArray expected = request.mid(qMax(0, written), whole - before);
        QCOMPARE(offers[i].mid(before, expected.size()), expected);
        written += answers[i];
    }
}

KELVRA_CORE_TEST_MAIN(test_exiftool_pipe)
#include "test_exiftool_pipe.moc"
