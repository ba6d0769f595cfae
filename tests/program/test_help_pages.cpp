// SPDX-License-Identifier: GPL-3.0-or-later

#include "file_bytes.h"
#include "program_test_main.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <QXmlStreamReader>

#include <memory>

namespace
{

constexpr int left_margin_px = 20;
const QString text_colour = "#b8c4bf";
const QString link_colour = "#728a84";

/// Resolves HTML's entities for umlauts.
class umlauts : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString &name) override
    {
        static const QMap<QString, QString> texts = {{"auml", "ä"}, {"ouml", "ö"}, {"uuml", "ü"},
                                                     {"Auml", "Ä"}, {"Ouml", "Ö"}, {"Uuml", "Ü"},
                                                     {"szlig", "ß"}};
        return texts.value(name);
    }
};

/// A piece of text as a browser shows it.
struct shown_text {
    QString text;
    QString link;  ///< empty for none
    QString family;
    QString colour;
    int size_px = 0;
    int heading_level = 0;
    int left_margin_px = 0;  ///< of its table, if it is in one
    int table_row = -1;
    int table_column = -1;
};

shown_text shown(const QTextDocument &page, const QTextBlock &block, const QTextFragment &fragment)
{
    const QTextCharFormat format = fragment.charFormat();
    shown_text piece;
    piece.text = fragment.text();
    piece.link = format.anchorHref();
    piece.family = format.fontFamily();
    piece.colour = format.foreground().color().name();
    piece.size_px = format.intProperty(QTextFormat::FontPixelSize);
    piece.heading_level = block.blockFormat().headingLevel();
    piece.left_margin_px = qRound(block.blockFormat().leftMargin());
    const auto *table = qobject_cast<QTextTable *>(page.frameAt(block.position()));
    if (table) {
        const QTextTableCell cell = table->cellAt(block.position());
        piece.left_margin_px += qRound(table->format().leftMargin());
        piece.table_row = cell.row();
        piece.table_column = cell.column();
    }
    return piece;
}

QList<shown_text> shown_texts(const QTextDocument &page)
{
    QList<shown_text> pieces;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment)
            pieces << shown(page, block, fragment.fragment());
    }
    return pieces;
}

}  // namespace

class test_help_pages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void doctype_is_that_of_xhtml_transitional_data() { add_pages(); }
    void doctype_is_that_of_xhtml_transitional();
    void charset_is_utf8_data() { add_pages(); }
    void charset_is_utf8();
    void page_names_its_language_data() { add_pages(); }
    void page_names_its_language();
    void bytes_are_ascii_data() { add_pages(); }
    void bytes_are_ascii();
    void umlauts_are_entities_data();
    void umlauts_are_entities();
    void page_is_well_formed_data() { add_pages(); }
    void page_is_well_formed();
    void page_is_valid_data() { add_pages(); }
    void page_is_valid();
    void elements_are_in_order_data() { add_pages(); }
    void elements_are_in_order();
    void title_names_the_program_data();
    void title_names_the_program();
    void background_is_dark_data() { add_pages(); }
    void background_is_dark();
    void heading_has_its_text_and_size_data();
    void heading_has_its_text_and_size();
    void link_leads_to_the_help_folder_data();
    void link_leads_to_the_help_folder();
    void paragraph_ends_with_its_link_data();
    void paragraph_ends_with_its_link();
    void table_lists_the_shortcuts_data();
    void table_lists_the_shortcuts();
    void text_has_family_colour_and_margin_data() { add_pages(); }
    void text_has_family_colour_and_margin();

private:
    static void add_pages();

    QList<shown_text> paragraph(int number) const;

    QByteArray source;
    QString language;
    std::unique_ptr<QTextDocument> page;
    QList<shown_text> texts;
};

/// Each row's name starts with the language of its page.
void test_help_pages::init()
{
    language = QString(QTest::currentDataTag()).left(2);
    source = bytes_of(QString(":/help/index_%1.html").arg(language));
    page = std::make_unique<QTextDocument>();
    page->setHtml(QString::fromUtf8(source));
    texts = shown_texts(*page);
}

void test_help_pages::add_pages()
{
    QTest::addColumn<QString>("nothing");
    QTest::newRow("en") << QString();
    QTest::newRow("de") << QString();
}

void test_help_pages::doctype_is_that_of_xhtml_transitional()
{
    QXmlStreamReader reader(source);
    while (!reader.atEnd() && reader.tokenType() != QXmlStreamReader::DTD)
        reader.readNext();
    QCOMPARE(reader.dtdName().toString(), QString("html"));
    QCOMPARE(reader.dtdPublicId().toString(), QString("-//W3C//DTD XHTML 1.0 Transitional//EN"));
    QCOMPARE(reader.dtdSystemId().toString(),
             QString("http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd"));
    QVERIFY(source.startsWith("<!DOCTYPE html PUBLIC "));
}

void test_help_pages::charset_is_utf8()
{
    QXmlStreamReader reader(source);
    QStringList types;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == "meta" &&
            reader.attributes().value("http-equiv") == "Content-Type")
            types << reader.attributes().value("content").toString();
    }
    QCOMPARE(types, QStringList("text/html; charset=UTF-8"));
}

void test_help_pages::page_names_its_language()
{
    QXmlStreamReader reader(source);
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("html"));
    QCOMPARE(reader.namespaceUri().toString(), QString("http://www.w3.org/1999/xhtml"));
    QCOMPARE(reader.attributes().value("lang").toString(), language);
    QCOMPARE(reader.attributes().value("xml:lang").toString(), language);
}

/// No character that a wrong charset could garble, and no NUL, at which the page would end.
void test_help_pages::bytes_are_ascii()
{
    for (const char byte : qAsConst(source))
        QVERIFY2(byte == '\n' || (byte >= ' ' && byte <= '~'), QByteArray(1, byte).toHex());
}

void test_help_pages::umlauts_are_entities_data()
{
    QTest::addColumn<QString>("umlaut");
    QTest::newRow("de") << "ü";
}

void test_help_pages::umlauts_are_entities()
{
    QFETCH(QString, umlaut);
    QVERIFY(page->toPlainText().contains(umlaut));
    QCOMPARE(source.count("&uuml;"), page->toPlainText().count(umlaut));
}

void test_help_pages::page_is_well_formed()
{
    umlauts resolver;
    QXmlStreamReader reader(source);
    reader.setEntityResolver(&resolver);
    while (!reader.atEnd()) {
        reader.readNext();
        QVERIFY2(!reader.isEntityReference(), qPrintable(reader.name().toString()));
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
}

/// Validated against the doctype's own definition, from the system's catalogue of such definitions.
void test_help_pages::page_is_valid()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("page.html");
    QVERIFY(QFile::copy(QString(":/help/index_%1.html").arg(language), path));
    QProcess checker;
    checker.start("xmllint", {"--noout", "--nonet", "--valid", path});
    QVERIFY2(checker.waitForStarted(), "xmllint isn't installed");
    QVERIFY(checker.waitForFinished());
    const QByteArray complaints = checker.readAllStandardError();
    QVERIFY2(complaints.isEmpty(), complaints.constData());
    QCOMPARE(checker.exitCode(), 0);
}

void test_help_pages::elements_are_in_order()
{
    umlauts resolver;
    QXmlStreamReader reader(source);
    reader.setEntityResolver(&resolver);
    QStringList elements;
    bool in_body = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (in_body && reader.isStartElement())
            elements << reader.name().toString();
        in_body = in_body || (reader.isStartElement() && reader.name() == "body");
    }
    QCOMPARE(elements, QStringList({"h1", "p", "a", "p", "a", "h2", "table", "tr", "td", "td", "tr",
                                    "td", "td"}));
}

void test_help_pages::title_names_the_program_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("en") << "Help - Kelvra";
    QTest::newRow("de") << "Hilfe - Kelvra";
}

void test_help_pages::title_names_the_program()
{
    QFETCH(QString, title);
    QCOMPARE(page->metaInformation(QTextDocument::DocumentTitle), title);
}

void test_help_pages::background_is_dark()
{
    QVERIFY(source.contains("<body style=\"background-color:#222222\">"));
    QCOMPARE(page->rootFrame()->frameFormat().background().color().name(), QString("#222222"));
}

void test_help_pages::heading_has_its_text_and_size_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("en") << QStringList({"Help", "Keyboard Shortcuts"});
    QTest::newRow("de") << QStringList({"Hilfe", "Tastaturkürzel"});
}

void test_help_pages::heading_has_its_text_and_size()
{
    QFETCH(QStringList, expected);
    QStringList headings;
    QList<int> sizes;
    for (const shown_text &piece : qAsConst(texts)) {
        if (piece.heading_level > 0) {
            headings << piece.text;
            sizes << piece.size_px;
        }
    }
    QCOMPARE(headings, expected);
    QCOMPARE(sizes, QList<int>({22, 14}));
}

void test_help_pages::link_leads_to_the_help_folder_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("en video") << 0 << "introduction_en.webm";
    QTest::newRow("en manual") << 1 << "manual_en.pdf";
    QTest::newRow("de video") << 0 << "introduction_de.webm";
    QTest::newRow("de manual") << 1 << "manual_de.pdf";
}

void test_help_pages::link_leads_to_the_help_folder()
{
    QFETCH(int, number);
    QFETCH(QString, name);
    const QUrl address(paragraph(number).value(1).link);
    QCOMPARE(address.toLocalFile(), QString(HELP_FOLDER "/" + name));
}

void test_help_pages::paragraph_ends_with_its_link_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<QString>("link_text");
    // clang-format off
    QTest::newRow("en video") << 0
        << "For a first look watch the video tutorial Introduction to Kelvra."
        << "Introduction to Kelvra";
    QTest::newRow("en manual") << 1 << "A downloadable manual (PDF) is available here." << "here";
    QTest::newRow("de video") << 0
        << "Für den Einstieg gibt es ein Video-Tutorial: Einführung in Kelvra."
        << "Einführung in Kelvra";
    QTest::newRow("de manual") << 1 << "Ein Handbuch (PDF) zum Herunterladen gibt es hier."
        << "hier";
    // clang-format on
}

void test_help_pages::paragraph_ends_with_its_link()
{
    QFETCH(int, number);
    QFETCH(QString, sentence);
    QFETCH(QString, link_text);
    const QList<shown_text> pieces = paragraph(number);
    QCOMPARE(pieces.size(), 3);
    QCOMPARE(pieces[0].text + pieces[1].text + pieces[2].text, sentence);
    QCOMPARE(pieces[1].text, link_text);
    for (const shown_text &piece : pieces)
        QCOMPARE(piece.size_px, 12);
}

/// The shortcuts as the page lists them, whether the window handles them or not.
void test_help_pages::table_lists_the_shortcuts_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("en") << QStringList({"0 0 Ctrl + Q or Alt + F4", "0 1 Quit the application",
                                        "1 0 Ctrl + O", "1 1 Load images"});
    QTest::newRow("de") << QStringList(
        {"0 0 Strg + Q oder Alt + F4", "0 1 Programm beenden", "1 0 Strg + O", "1 1 Bilder laden"});
}

void test_help_pages::table_lists_the_shortcuts()
{
    QFETCH(QStringList, expected);
    QStringList cells;
    for (const shown_text &piece : qAsConst(texts)) {
        if (piece.table_row >= 0) {
            cells
                << QString("%1 %2 %3").arg(piece.table_row).arg(piece.table_column).arg(piece.text);
            QCOMPARE(piece.size_px, 12);
        }
    }
    QCOMPARE(cells, expected);
}

void test_help_pages::text_has_family_colour_and_margin()
{
    QVERIFY(!texts.isEmpty());
    for (const shown_text &piece : qAsConst(texts)) {
        QCOMPARE(piece.family, QString("verdana"));
        QCOMPARE(piece.colour, piece.link.isEmpty() ? text_colour : link_colour);
        QCOMPARE(piece.left_margin_px, left_margin_px);
    }
}

/// The pieces of the paragraph with this number, not counting headings and tables.
QList<shown_text> test_help_pages::paragraph(int number) const
{
    QList<shown_text> pieces;
    int seen = -1;
    for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
        const bool is_paragraph = block.blockFormat().headingLevel() == 0 && block.length() > 1 &&
                                  page->frameAt(block.position()) == page->rootFrame();
        if (!is_paragraph || ++seen != number)
            continue;
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment)
            pieces << shown(*page, block, fragment.fragment());
    }
    return pieces;
}

KELVRA_PROGRAM_TEST_MAIN(test_help_pages)
#include "test_help_pages.moc"
