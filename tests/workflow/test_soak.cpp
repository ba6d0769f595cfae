// SPDX-License-Identifier: GPL-3.0-or-later

#include "captured_output.h"
#include "program_test_main.h"
#include "real_tool_window.h"

#include <algorithm>

namespace
{

constexpr int photo_count = 5000;
constexpr int round_count = 3;
constexpr double memory_growth_limit = 1.05;

const QStringList dates = {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
                           "ExifIFD:CreateDate=2017:05:03 12:00:01",
                           "IFD0:ModifyDate=2017:06:01 08:30:00", "IPTC:DateCreated=2017:05:03",
                           "IPTC:TimeCreated=12:00:00+02:00"};

/// Those of the dates above that have a time of day, and the file's own.
constexpr int fixed_date_count = 5;

/// The resident memory of this process in kilobytes ("VmRSS" in proc(5)).
int memory_kb()
{
    const QList<QByteArray> lines = bytes_of("/proc/self/status").split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ')[1].toInt();
    }
    return 0;
}

int open_descriptors()
{
    const QDir::Filters all = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    return QDir("/proc/self/fd").entryList(all).size();
}

}  // namespace

/// Thousands of photos through one window and one tool process, again and again.
class test_soak : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { app.end(); }
    void round_restores_every_photo_data();
    void round_restores_every_photo();
    void rounds_leak_nothing();

private:
    QList<QByteArray> written_dates() const;
    void fix_and_undo_all();

    real_tool_window app;
    QStringList paths;
    QList<QByteArray> old_dates;
    QByteArray picture;
    QList<int> memory;  ///< this and the next: one entry for each round
    QList<int> descriptors;
};

void test_soak::initTestCase()
{
    app.start();
    paths << app.make_photo("photo_0.jpg", dates);
    while (paths.size() < photo_count) {
        paths << app.path_of(QString("photo_%1.jpg").arg(paths.size()));
        QVERIFY(QFile::copy(paths.first(), paths.last()));
    }
    set_tags(app.folder->path(), {"System:FileModifyDate=2018:01:02 03:04:05+00:00"});
    old_dates = written_dates();
    QCOMPARE(old_dates.size(), photo_count);
    picture = picture_data(paths.first());
}

void test_soak::round_restores_every_photo_data()
{
    QTest::addColumn<int>("round");
    for (int round = 1; round <= round_count; ++round)
        QTest::addRow("round %d", round) << round;
}

void test_soak::round_restores_every_photo()
{
    fix_and_undo_all();
    memory << memory_kb();
    descriptors << open_descriptors();
}

void test_soak::rounds_leak_nothing()
{
    QCOMPARE(memory.size(), round_count);
    for (int round = 0; round < round_count; ++round)
        qInfo("round %d: %d photos, %d kB in memory, %d file descriptors", round + 1, photo_count,
              memory[round], descriptors[round]);
    qInfo("memory after the last round: %.3f of that after the first",
          1.0 * memory.last() / memory.first());
    QVERIFY(memory.last() <= memory.first() * memory_growth_limit);
    QCOMPARE(descriptors.last(), descriptors.first());
    QCOMPARE(app.names().size(), photo_count);
    for (const QString &path : qAsConst(paths))
        QVERIFY2(picture_data(path) == picture, qPrintable(path));
}

/// The dates of all photos, one photo per line, with the lines sorted.
QList<QByteArray> test_soak::written_dates() const
{
    QStringList arguments = {"-q", "-T", "-FileName", "-System:FileModifyDate"};
    for (const QString &date : dates)
        arguments << "-" + date.section('=', 0, 0);
    QList<QByteArray> lines = run_exiftool(arguments << app.folder->path()).trimmed().split('\n');
    std::sort(lines.begin(), lines.end());
    return lines;
}

void test_soak::fix_and_undo_all()
{
    // Where the file system keeps no creation dates, the tool prints a message at each undo.
    const captured_output tool_output;
    box_answers answers;
    drop_photos(*app.window, paths);
    QCOMPARE(app.window->model->rowCount(), photo_count);
    type_shift(*app.window, "hour", "1");
    click(app.window->button_fix_time);
    QCOMPARE(app.window->undo_map.size(), photo_count);
    for (const QByteArray &photo : written_dates())
        QCOMPARE(photo.count("13:00:00"), fixed_date_count);

    click(app.window->button_undo);
    QVERIFY(app.window->undo_map.isEmpty());
    QVERIFY(written_dates() == old_dates);
    QCOMPARE(answers.texts(), QStringList());
}

KELVRA_PROGRAM_TEST_MAIN(test_soak)
#include "test_soak.moc"
