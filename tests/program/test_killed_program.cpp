// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "isolated_program.h"
#include "processes.h"
#include "running_program.h"
#include "sample_photos.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <memory>

namespace
{

using tag_values = QMap<QString, QString>;

constexpr int photo_count = 100;
constexpr int limit_ms = 60000;
constexpr char file_time[] = "2018:01:02 03:04:05+01:00";

/// The dates of a photo, before and after a shift of an hour.
struct photo_dates {
    const char *format;
    tag_values before;
    tag_values after;
};

const photo_dates all_dates[] = {{".jpg",
                                  {{"ExifIFD:DateTimeOriginal", "2017:05:03 12:00:00"},
                                   {"ExifIFD:CreateDate", "2016:01:01 01:01:01"},
                                   {"IFD0:ModifyDate", "2016:02:02 02:02:02"},
                                   {"IPTC:DateCreated", "2016:04:02"},
                                   {"IPTC:TimeCreated", "11:10:09+02:00"},
                                   {"System:FileModifyDate", file_time}},
                                  {{"ExifIFD:DateTimeOriginal", "2017:05:03 13:00:00"},
                                   {"ExifIFD:CreateDate", "2017:05:03 13:00:00"},
                                   {"IFD0:ModifyDate", "2017:05:03 13:00:00"},
                                   {"IPTC:DateCreated", "2017:05:03"},
                                   {"IPTC:TimeCreated", "13:00:00+02:00"},
                                   {"System:FileModifyDate", "2017:05:03 13:00:00+02:00"}}},
                                 {".png",
                                  {{"ExifIFD:DateTimeOriginal", "2017:05:03 22:30:00"},
                                   {"XMP-photoshop:DateCreated", "2016:03:03 03:03:03"},
                                   {"System:FileModifyDate", file_time}},
                                  {{"ExifIFD:DateTimeOriginal", "2017:05:03 23:30:00"},
                                   {"XMP-photoshop:DateCreated", "2017:05:03 23:30:00"},
                                   {"System:FileModifyDate", "2017:05:03 23:30:00+02:00"}}},
                                 {".tif",
                                  {{"ExifIFD:DateTimeOriginal", "2017:12:31 23:59:59"},
                                   {"ExifIFD:CreateDate", "2016:01:01 01:01:01"},
                                   {"XMP-photoshop:DateCreated", "2016:03:03 03:03:03"},
                                   {"System:FileModifyDate", file_time}},
                                  {{"ExifIFD:DateTimeOriginal", "2018:01:01 00:59:59"},
                                   {"ExifIFD:CreateDate", "2018:01:01 00:59:59"},
                                   {"XMP-photoshop:DateCreated", "2018:01:01 00:59:59"},
                                   {"System:FileModifyDate", "2018:01:01 00:59:59+01:00"}}}};

const photo_dates &dates_of(const QString &name)
{
    for (const photo_dates &dates : all_dates) {
        if (name.endsWith(dates.format))
            return dates;
    }
    qFatal("no dates for %s", qPrintable(name));
}

void make_photo(const QString &path)
{
    QStringList tags = {"IFD0:Make=Camera"};
    const tag_values &dates = dates_of(path).before;
    for (auto date = dates.begin(); date != dates.end(); ++date)
        tags << date.key() + "=" + date.value();
    if (path.endsWith(".jpg"))
        make_jpeg(path, tags);
    else if (path.endsWith(".png"))
        make_png(path, tags);
    else
        make_tiff(path, tags);
}

/// Copies a photo and sets the file's own date.
void copy_photo(const QString &source, const QString &target)
{
    QFile file(target);
    if (!QFile::copy(source, target) || !file.open(QIODevice::Append) ||
        !file.setFileTime(QDateTime(QDate(2018, 1, 2), QTime(3, 4, 5)),
                          QFileDevice::FileModificationTime))
        qFatal("can't make %s", qPrintable(target));
}

/// All tags of all files in a folder by file name, read by a single ExifTool run.
QMap<QString, tag_values> tags_in(const QString &folder)
{
    QMap<QString, tag_values> photos;
    const QByteArray reply = run_exiftool({"-json", "-a", "-G1", "-q", folder});
    for (const QJsonValue &photo : QJsonDocument::fromJson(reply).array()) {
        const QVariantMap fields = photo.toObject().toVariantMap();
        tag_values tags;
        for (auto field = fields.begin(); field != fields.end(); ++field)
            tags[field.key()] = field.value().toString();
        photos[QFileInfo(tags["SourceFile"]).fileName()] = tags;
    }
    return photos;
}

bool has_all(const tag_values &tags, const tag_values &wanted)
{
    for (auto tag = wanted.begin(); tag != wanted.end(); ++tag) {
        if (tags.value(tag.key()) != tag.value())
            return false;
    }
    return true;
}

/// Like `picture_data`, but without running the tool for each TIFF file.
QByteArray picture_of(const QString &path, const tag_values &tags)
{
    if (!path.endsWith(".tif"))
        return picture_data(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(tags["IFD0:StripOffsets"].toInt()))
        return QByteArray();
    return file.read(tags["IFD0:StripByteCounts"].toInt());
}

/// Waits until the process does nothing more: it has ended, or it keeps sleeping. Nothing reports
/// that a process will stay asleep, so it is looked at again and again for half a second.
bool settles(qint64 process)
{
    constexpr int pause_ms = 25;
    constexpr int enough_looks = 20;
    int asleep = 0;
    for (int looks = 0; looks < limit_ms / pause_ms && asleep < enough_looks; ++looks) {
        if (has_ended(process))
            return true;
        asleep = sleeps(process) ? asleep + 1 : 0;
        QThread::msleep(pause_ms);
    }
    return asleep == enough_looks;
}

/// Kills a process on destruction, even a stopped one: the tool that outlived its program.
class orphan
{
public:
    explicit orphan(qint64 process) : process(process) {}
    ~orphan()
    {
        if (!has_ended(process))
            kill(static_cast<pid_t>(process), SIGKILL);
    }

    orphan(const orphan &) = delete;
    orphan &operator=(const orphan &) = delete;

private:
    const qint64 process;
};

}  // namespace

/// The program is ended from outside in the middle of a batch, with the real tool and a hundred
/// photos of three formats. Whatever the moment, each photo is unchanged or completely fixed.
class test_killed_program : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void kill_during_a_fix_harms_no_photo_data();
    void kill_during_a_fix_harms_no_photo();
    void most_kills_hit_the_middle_of_the_batch();
    void killed_program_leaves_an_idle_tool();
    void signal_during_a_batch_harms_no_photo_data();
    void signal_during_a_batch_harms_no_photo();

private:
    QString fix_steps() const { return load_steps() + ";shift hour 1;values fix;click fix;close"; }
    QString load_steps() const { return "values load;open " + photos->path(); }
    qint64 tool_of(const running_program &program) const;
    int fixed_photos() const;

    QTemporaryDir originals;
    QStringList names;
    QMap<QString, QByteArray> pictures;  ///< by format
    std::unique_ptr<QTemporaryDir> photos;
    std::unique_ptr<isolated_program> folder;
    int kills_in_the_middle = 0;
};

void test_killed_program::initTestCase()
{
    for (const photo_dates &dates : all_dates)
        make_photo(originals.filePath(QString("photo") + dates.format));
    const auto tags = tags_in(originals.path());
    for (const photo_dates &dates : all_dates) {
        const QString name = QString("photo") + dates.format;
        pictures[dates.format] = picture_of(originals.filePath(name), tags[name]);
        QVERIFY(!pictures[dates.format].isEmpty());
    }
    for (int i = 0; i < photo_count; ++i)
        names << QString("%1%2")
                     .arg(i, 3, 10, QChar('0'))
                     .arg(all_dates[static_cast<std::size_t>(i) % std::size(all_dates)].format);
}

void test_killed_program::init()
{
    photos = std::make_unique<QTemporaryDir>();
    for (const QString &name : qAsConst(names))
        copy_photo(originals.filePath("photo" + name.mid(name.indexOf('.'))),
                   photos->filePath(name));
    folder = std::make_unique<isolated_program>(KELVRA_PROGRAM);
    folder->use_real_tool();
}

/// The only process that the program has started; 0 if there isn't exactly one.
qint64 test_killed_program::tool_of(const running_program &program) const
{
    const QList<qint64> children = children_of(program.process_id());
    return children.size() == 1 ? children.first() : 0;
}

/// How many photos are fixed; -1 if a photo is neither fixed nor unchanged, if a picture has
/// changed, or if the folder holds anything else.
int test_killed_program::fixed_photos() const
{
    const QDir::Filters everything = QDir::AllEntries | QDir::Hidden | QDir::System;
    if (QDir(photos->path()).entryList(everything | QDir::NoDotAndDotDot, QDir::Name) != names)
        return -1;
    const auto all_tags = tags_in(photos->path());
    int fixed = 0;
    for (const QString &name : qAsConst(names)) {
        const tag_values tags = all_tags.value(name);
        const photo_dates &dates = dates_of(name);
        const bool is_fixed = has_all(tags, dates.after);
        if (!is_fixed && !has_all(tags, dates.before))
            return -1;
        if (tags.value("IFD0:Make") != "Camera" || tags.contains("ExifTool:Error") ||
            tags.contains("ExifTool:Warning") ||
            picture_of(photos->filePath(name), tags) != pictures[dates.format])
            return -1;
        fixed += is_fixed;
    }
    return fixed;
}

void test_killed_program::kill_during_a_fix_harms_no_photo_data()
{
    QTest::addColumn<int>("done");
    QTest::addColumn<int>("delay_ms");
    // The delays are spread over the time that the tool takes for a photo.
    for (int i = 0; i < 10; ++i)
        QTest::addRow("after %d photos and %d ms", 1 + 10 * i, 3 * i) << 1 + 10 * i << 3 * i;
}

void test_killed_program::kill_during_a_fix_harms_no_photo()
{
    QFETCH(int, done);
    QFETCH(int, delay_ms);
    running_program program(folder->program_path(), fix_steps());
    QVERIFY(program.wait_until_printed("fix: " + QByteArray::number(done)));
    const qint64 tool = tool_of(program);
    const orphan end(tool);
    // A tool that rewrites a photo reports nothing, so only a delay can hit the middle of it.
    QThread::msleep(static_cast<unsigned long>(delay_ms));
    program.receive(SIGKILL);
    QVERIFY(program.wait_until_ended());
    QVERIFY(tool != 0);
    QVERIFY(settles(tool));

    const int fixed = fixed_photos();
    QVERIFY(fixed >= done);
    kills_in_the_middle += fixed < photo_count;
}

void test_killed_program::most_kills_hit_the_middle_of_the_batch()
{
    QVERIFY2(kills_in_the_middle >= 7, qPrintable(QString::number(kills_in_the_middle)));
}

void test_killed_program::killed_program_leaves_an_idle_tool()
{
    running_program program(folder->program_path(), load_steps() + ";rows");
    QVERIFY(program.wait_until_printed("rows: 100"));
    QVERIFY(program.wait_until_asleep());
    const qint64 tool = tool_of(program);
    QVERIFY(tool != 0);
    const orphan end(tool);
    program.receive(SIGKILL);
    QVERIFY(program.wait_until_ended());
    QVERIFY(settles(tool));
    QVERIFY(!has_ended(tool));
    QCOMPARE(children_of(tool), QList<qint64>());
    QCOMPARE(fixed_photos(), 0);
}

void test_killed_program::signal_during_a_batch_harms_no_photo_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("in_fix");
    const struct {
        int number;
        const char *name;
    } signal_rows[] = {{SIGTERM, "SIGTERM"}, {SIGINT, "SIGINT"}, {SIGSEGV, "SIGSEGV"}};
    for (const auto &row : signal_rows) {
        for (const bool in_fix : {false, true})
            QTest::addRow("%s in a %s", row.name, in_fix ? "fix" : "load")
                << row.number << QByteArray(row.name) << in_fix;
    }
}

void test_killed_program::signal_during_a_batch_harms_no_photo()
{
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    QFETCH(bool, in_fix);
    running_program program(folder->program_path(), in_fix ? fix_steps() : load_steps());
    QVERIFY(program.wait_until_printed(in_fix ? "fix: 40" : "load: 40"));
    const qint64 tool = tool_of(program);
    QVERIFY(tool != 0);
    const orphan end(tool);
    // While the tool can't answer, the program is in a request whenever the signal arrives.
    kill(static_cast<pid_t>(tool), SIGSTOP);
    QVERIFY(settles(program.process_id()));
    program.receive(number);
    kill(static_cast<pid_t>(tool), SIGCONT);
    QVERIFY(program.wait_until_ended());
    QCOMPARE(program.status(), failed_status);
    QVERIFY(program.errors.startsWith("ERROR: received signal " + name + "\n"));
    QTRY_VERIFY_WITH_TIMEOUT(has_ended(tool), limit_ms);

    const int fixed = fixed_photos();
    QVERIFY2(in_fix ? fixed >= 40 && fixed < photo_count : fixed == 0,
             qPrintable(QString::number(fixed)));
}

KELVRA_CORE_TEST_MAIN(test_killed_program)
#include "test_killed_program.moc"
