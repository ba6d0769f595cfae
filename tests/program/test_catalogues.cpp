// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

namespace
{

struct catalogue_entry {
    QString context;
    QString source;
    QString german;
    QString state;  ///< such as "unfinished" or "vanished", empty for an entry in use
};

using catalogue = QList<catalogue_entry>;

/// Reads one message element to its end.
catalogue_entry read_entry(QXmlStreamReader &reader, const QString &context)
{
    catalogue_entry entry;
    entry.context = context;
    while (reader.readNextStartElement()) {
        if (reader.name() == "source") {
            entry.source = reader.readElementText();
        } else if (reader.name() == "translation") {
            entry.state = reader.attributes().value("type").toString();
            entry.german = reader.readElementText();
        } else {
            reader.skipCurrentElement();
        }
    }
    return entry;
}

catalogue read_catalogue(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("can't read %s", qPrintable(path));
    QXmlStreamReader reader(&file);
    catalogue entries;
    QString context;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == "name")
            context = reader.readElementText();
        else if (reader.isStartElement() && reader.name() == "message")
            entries << read_entry(reader, context);
    }
    if (reader.hasError())
        qFatal("%s: %s", qPrintable(path), qPrintable(reader.errorString()));
    return entries;
}

QString key_of(const catalogue_entry &entry)
{
    return entry.context + ": " + entry.source;
}

QStringList keys_of(const catalogue &entries)
{
    QStringList keys;
    for (const catalogue_entry &entry : entries)
        keys << key_of(entry);
    keys.sort();
    return keys;
}

/// The entries without a German text, and those that are unfinished or have lost their source.
QStringList not_in_use(const catalogue &entries)
{
    QStringList found;
    for (const catalogue_entry &entry : entries) {
        if (!entry.state.isEmpty() || entry.german.isEmpty())
            found << key_of(entry);
    }
    return found;
}

/// The placeholders of a text, sorted.
QStringList placeholders(const QString &text)
{
    static const QRegularExpression placeholder("%(\\d+|[vmp])");
    QStringList found;
    for (auto match = placeholder.globalMatch(text); match.hasNext();)
        found << match.next().captured();
    found.sort();
    return found;
}

QString tree_path(const QString &name)
{
    return QString(SOURCE_FOLDER) + "/resources/translations/" + name + ".ts";
}

/// Runs lupdate to bring the catalogue at `path` up to date with the sources. Returns what it
/// reports about texts in the context of a base class or in none, which no catalogue would
/// translate.
QStringList update(const QString &path, const QStringList &folders)
{
    QProcess tool;
    tool.setWorkingDirectory(SOURCE_FOLDER);
    tool.start(LUPDATE_PROGRAM, folders + QStringList({"-ts", path}));
    if (!tool.waitForFinished() || tool.exitStatus() != QProcess::NormalExit || tool.exitCode())
        return {"lupdate failed: " + tool.errorString()};
    const QStringList lines = QString::fromLocal8Bit(tool.readAllStandardError()).split('\n');
    static const QRegularExpression complaint("tr\\(\\)|Q_OBJECT");
    return lines.filter(complaint);
}

}  // namespace

/// Compares the German catalogues with the sources that they translate.
class test_catalogues : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void texts_are_those_of_the_sources();
    void each_entry_is_in_use();
    void no_text_occurs_twice();
    void placeholders_are_in_both_texts();
    void each_german_text_is_found();

private:
    QString name;
    catalogue entries;
};

void test_catalogues::initTestCase_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<QStringList>("left_english");
    // The program's name is the title of its window in all languages.
    QTest::newRow("program") << "de" << QStringList{"src"} << QStringList{"MainWindow: Kelvra"};
    QTest::newRow("toolkit") << "toolkit_de" << QStringList{"orv_toolkit", "qor"} << QStringList();
}

void test_catalogues::init()
{
    QFETCH_GLOBAL(QString, file);
    name = file;
    entries = read_catalogue(tree_path(name));
    QVERIFY(!entries.isEmpty());
}

/// A source text without an entry becomes an unfinished entry; an entry without a source text
/// becomes a vanished one.
void test_catalogues::texts_are_those_of_the_sources()
{
    QFETCH_GLOBAL(QStringList, folders);
    QFETCH_GLOBAL(QStringList, left_english);
    const QTemporaryDir folder;
    const QString copy = folder.filePath(name + ".ts");
    QVERIFY(QFile::copy(tree_path(name), copy));
    QCOMPARE(update(copy, folders).join('\n'), QString());

    const catalogue updated = read_catalogue(copy);
    QCOMPARE(not_in_use(updated).join('\n'), left_english.join('\n'));
    QStringList expected = keys_of(entries) + left_english;
    expected.sort();
    QCOMPARE(keys_of(updated).join('\n'), expected.join('\n'));
}

void test_catalogues::each_entry_is_in_use()
{
    QCOMPARE(not_in_use(entries).join('\n'), QString());
}

void test_catalogues::no_text_occurs_twice()
{
    QStringList keys = keys_of(entries);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void test_catalogues::placeholders_are_in_both_texts()
{
    for (const catalogue_entry &entry : qAsConst(entries))
        QVERIFY2(placeholders(entry.german) == placeholders(entry.source),
                 qPrintable(entry.german));
}

void test_catalogues::each_german_text_is_found()
{
    QTranslator translator;
    QVERIFY(translator.load(":/translations/" + name));
    for (const catalogue_entry &entry : qAsConst(entries))
        QCOMPARE(translator.translate(entry.context.toUtf8(), entry.source.toUtf8()), entry.german);
}

KELVRA_PROGRAM_TEST_MAIN(test_catalogues)
#include "test_catalogues.moc"
