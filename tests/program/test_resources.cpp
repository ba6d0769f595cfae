// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "file_bytes.h"
#include "program_test_main.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QIcon>
#include <QImageReader>
#include <QLabel>
#include <QRawFont>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

class test_resources : public QObject
{
    Q_OBJECT

private slots:
    void picture_has_its_size_data();
    void picture_has_its_size();
    void picture_has_a_variant_of_double_density_data() { picture_has_its_size_data(); }
    void picture_has_a_variant_of_double_density();
    void program_icon_has_its_size_data();
    void program_icon_has_its_size();
    void themes_icon_has_its_size_data();
    void themes_icon_has_its_size();
    void icon_has_a_shape_data();
    void icon_has_a_shape();
    void font_is_the_named_one_data();
    void font_is_the_named_one();
    void catalogue_loads_data();
    void catalogue_loads();
    void german_catalogue_knows_the_context_data();
    void german_catalogue_knows_the_context();
    void english_has_no_catalogue();
    void pictures_named_in_the_program_exist();
    void pictures_named_on_the_screen_exist();
    void heading_shows_in_the_bold_face();
    void text_shows_in_the_plain_face();
};

namespace
{

/// The picture paths that `path` can mean: some of the program's style sheets leave a part open.
QStringList completed(const QString &path)
{
    static const QMap<QString, QStringList> values = {
        {":/gui/button/%1_normal.png", {"dark", "header"}},
        {":/gui/button/%1_pressed.png", {"dark", "header"}},
        {":/images/drop_images_here_%1.png", {"en", "de"}},
        {":/gui/panel/border%1.png", {"", "_topless"}}};
    if (!path.contains('%'))
        return {path};
    QStringList paths;
    for (const QString &value : values.value(path, {path}))
        paths << QString(path).replace("%1", value);
    return paths;
}

QSet<QString> named_pictures(const QString &text)
{
    static const QRegularExpression url("url\\(([^()]*)\\)");
    QSet<QString> paths;
    for (auto match = url.globalMatch(text); match.hasNext();) {
        for (const QString &path : completed(match.next().captured(1)))
            paths << path;
    }
    return paths;
}

/// The paths that aren't pictures in the resources: nothing may come from the disk.
QStringList missing(const QSet<QString> &paths)
{
    QStringList missing;
    for (const QString &path : paths) {
        if (!path.startsWith(':') || QImage(path).isNull())
            missing << path;
    }
    return missing;
}

}  // namespace

void test_resources::picture_has_its_size_data()
{
    QTest::addColumn<QSize>("size");
    // clang-format off
    QTest::newRow(":/images/head_medium_dark_without_shadow.png") << QSize(1200, 66);
    QTest::newRow(":/images/logo_small.png") << QSize(219, 48);
    QTest::newRow(":/images/Head.png") << QSize(800, 97);
    QTest::newRow(":/images/logo.png") << QSize(230, 70);
    QTest::newRow(":/images/drop_images_here_en.png") << QSize(185, 94);
    QTest::newRow(":/images/drop_images_here_de.png") << QSize(185, 94);
    QTest::newRow(":/images/icon_fix_time.png") << QSize(89, 27);
    QTest::newRow(":/images/icon_undo.png") << QSize(27, 23);
    QTest::newRow(":/images/icon_settings.png") << QSize(14, 13);
    QTest::newRow(":/images/icon_about.png") << QSize(5, 11);
    QTest::newRow(":/images/icon_help.png") << QSize(7, 11);
    QTest::newRow(":/images/icon_open.png") << QSize(13, 12);
    QTest::newRow(":/images/icon_undo_small.png") << QSize(14, 12);
    QTest::newRow(":/gui/panel/border.png") << QSize(9, 9);
    QTest::newRow(":/gui/panel/border_topless.png") << QSize(9, 9);
    QTest::newRow(":/gui/button/dark_normal.png") << QSize(9, 9);
    QTest::newRow(":/gui/button/dark_pressed.png") << QSize(9, 9);
    QTest::newRow(":/gui/button/header_normal.png") << QSize(9, 9);
    QTest::newRow(":/gui/button/header_pressed.png") << QSize(9, 9);
    QTest::newRow(":/gui/radio/unchecked.png") << QSize(13, 13);
    QTest::newRow(":/gui/radio/checked.png") << QSize(13, 13);
    QTest::newRow(":/gui/radio/disabled_unchecked.png") << QSize(13, 13);
    QTest::newRow(":/gui/radio/disabled_checked.png") << QSize(13, 13);
    QTest::newRow(":/gui/combobox/arrow.png") << QSize(24, 24);
    QTest::newRow(":/gui/fold_open.png") << QSize(15, 15);
    QTest::newRow(":/gui/fold_closed.png") << QSize(15, 15);
    // clang-format on
}

void test_resources::picture_has_its_size()
{
    QFETCH(QSize, size);
    QImageReader reader(QTest::currentDataTag());
    QCOMPARE(reader.format(), QByteArray("png"));
    QCOMPARE(reader.read().size(), size);
}

/// A nine-slice picture has no variant: its edge is three pixels on any screen.
void test_resources::picture_has_a_variant_of_double_density()
{
    QFETCH(QSize, size);
    const QString path = QString(QTest::currentDataTag()).replace(".png", "@2x.png");
    const bool is_nine_slice = size == QSize(9, 9);
    QCOMPARE(QImage(path).size(), is_nine_slice ? QSize(0, 0) : 2 * size);
}

void test_resources::program_icon_has_its_size_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void test_resources::program_icon_has_its_size()
{
    QFETCH(int, size);
    const QImage icon(QString(":/program_icon/kelvra-%1.png").arg(size));
    QCOMPARE(icon.size(), QSize(size, size));
    QVERIFY(icon.hasAlphaChannel());
}

void test_resources::themes_icon_has_its_size_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    for (const char *name :
         {"dialog-error", "dialog-information", "dialog-question", "dialog-warning"})
        QTest::newRow(name) << name << 48;
    for (const char *name : {"computer", "dialog-cancel", "drive-harddisk", "folder", "folder-new",
                             "folder-open", "go-next", "go-previous", "go-up", "text-x-generic",
                             "user-home", "view-list-details", "view-list-icons"})
        QTest::newRow(name) << name << 16;
}

void test_resources::themes_icon_has_its_size()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    const auto path = [&](const QString &density) {
        return QString(":/icons/orv/%1x%1%2/%3.png").arg(size).arg(density, name);
    };
    QCOMPARE(QImage(path("")).size(), QSize(size, size));
    QCOMPARE(QImage(path("@2")).size(), 2 * QSize(size, size));
    QIcon::setThemeName("orv");
    QCOMPARE(QIcon::fromTheme(name).pixmap(size, size).toImage(), QPixmap(path("")).toImage());
}

void test_resources::icon_has_a_shape_data()
{
    QTest::addColumn<QString>("path");
    for (const char *name : {"fix_time", "undo", "settings", "about", "help", "open", "undo_small"})
        QTest::newRow(name) << QString(":/images/icon_%1.png").arg(name);
}

/// Only an icon's alpha counts: if it were opaque or transparent everywhere, there would be no
/// icon.
void test_resources::icon_has_a_shape()
{
    QFETCH(QString, path);
    const QImage icon = QImage(path).convertToFormat(QImage::Format_ARGB32);
    int smallest = 255;
    int greatest = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            smallest = qMin(smallest, qAlpha(icon.pixel(x, y)));
            greatest = qMax(greatest, qAlpha(icon.pixel(x, y)));
        }
    }
    QVERIFY(smallest < 64);
    QVERIFY(greatest > 192);
}

void test_resources::font_is_the_named_one_data()
{
    QTest::addColumn<int>("weight");
    QTest::newRow(":/images/FreeSans.ttf") << static_cast<int>(QFont::Normal);
    QTest::newRow(":/images/FreeSansBold.ttf") << static_cast<int>(QFont::Bold);
}

void test_resources::font_is_the_named_one()
{
    QFETCH(int, weight);
    const QString path = QTest::currentDataTag();
    const QRawFont font(path, 12);
    QVERIFY(font.isValid());
    QCOMPARE(font.familyName(), QString("FreeSans"));
    QCOMPARE(font.weight(), weight);
    const int id = QFontDatabase::addApplicationFont(path);
    QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList("FreeSans"));
}

void test_resources::catalogue_loads_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("the program's") << ":/translations/de.qm";
    QTest::newRow("the widget toolkit's") << ":/translations/toolkit_de.qm";
}

void test_resources::catalogue_loads()
{
    QFETCH(QString, path);
    QVERIFY(!bytes_of(path).isEmpty());
    QTranslator translator;
    QVERIFY(translator.load(path));
}

void test_resources::german_catalogue_knows_the_context_data()
{
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("german");
    const QString program = ":/translations/de";
    const QString kit = ":/translations/toolkit_de";
    // clang-format off
    QTest::newRow("MainWindow") << program << "Load images" << "Bilder Laden";
    QTest::newRow("datetime_format") << program << "Date Format" << "Datumsformat";
    QTest::newRow("dialog_settings") << program << "Settings" << "Einstellungen";
    QTest::newRow("table_data_model") << program << "Photos" << "Foto";
    QTest::newRow("time_adjustment") << program << "Year" << "Jahr";
    QTest::newRow("orv::dialog_about") << kit << "About" << "Über";
    QTest::newRow("orv::dialog_3rd_part_lib_info")
        << kit << "%1 uses the following open source and/or 3rd party libraries:"
        << "Die Folgenden Open Source Bibliotheken und/oder Bibliotheken von Drittanbietern "
           "werden in %1 verwendet:";
    // clang-format on
}

void test_resources::german_catalogue_knows_the_context()
{
    QFETCH(QString, catalogue);
    QFETCH(QString, source);
    QFETCH(QString, german);
    QTranslator translator;
    QVERIFY(translator.load(catalogue));
    QCOMPARE(translator.translate(QTest::currentDataTag(), source.toUtf8().constData()), german);
}

void test_resources::english_has_no_catalogue()
{
    QVERIFY(!QFile::exists(":/translations/en.qm"));
    QVERIFY(!QFile::exists(":/translations/toolkit_en.qm"));
    install_translators("en");
    QCOMPARE(MainWindow::tr("Load images"), QString("Load images"));
}

/// All style sheets of the program are literals, so the executable contains them unchanged.
void test_resources::pictures_named_in_the_program_exist()
{
    const QByteArray program = bytes_of(KELVRA_PROGRAM);
    const QSet<QString> paths =
        named_pictures(QString::fromLatin1(program.constData(), program.size()));
    const QSet<QString> known = {":/gui/panel/border.png",
                                 ":/gui/panel/border_topless.png",
                                 ":/gui/button/dark_normal.png",
                                 ":/gui/button/dark_pressed.png",
                                 ":/gui/button/header_normal.png",
                                 ":/gui/button/header_pressed.png",
                                 ":/gui/radio/unchecked.png",
                                 ":/gui/radio/checked.png",
                                 ":/gui/radio/disabled_unchecked.png",
                                 ":/gui/radio/disabled_checked.png",
                                 ":/images/Head.png",
                                 ":/images/head_medium_dark_without_shadow.png",
                                 ":images/logo_small.png",
                                 ":/images/drop_images_here_en.png",
                                 ":/images/drop_images_here_de.png"};
    QCOMPARE(QStringList((known - paths).values()), QStringList());
    QCOMPARE(missing(paths), QStringList());
}

void test_resources::pictures_named_on_the_screen_exist()
{
    const MainWindow window(nullptr);
    QSet<QString> paths;
    for (const QWidget *widget : window.findChildren<QWidget *>())
        paths += named_pictures(widget->styleSheet());
    QVERIFY(paths.contains(":/gui/button/dark_normal.png"));
    QVERIFY(paths.contains(":/images/drop_images_here_en.png"));
    QCOMPARE(missing(paths), QStringList());
}

void test_resources::heading_shows_in_the_bold_face()
{
    const MainWindow window(nullptr);
    const auto *panel = window.findChild<QWidget *>("widget_datetime_format");
    QVERIFY(panel);
    const auto *heading = panel->findChild<QLabel *>("label");
    QVERIFY(heading);
    const QFontInfo shown(heading->font());
    QCOMPARE(shown.family(), QString("FreeSans"));
    QCOMPARE(shown.weight(), static_cast<int>(QFont::Bold));
    QCOMPARE(shown.pointSize(), 11);
    // The face itself, not a synthetic bold.
    QCOMPARE(QRawFont::fromFont(heading->font()).fontTable("name"),
             QRawFont(QString(":/images/FreeSansBold.ttf"), 11).fontTable("name"));
}

void test_resources::text_shows_in_the_plain_face()
{
    const MainWindow window(nullptr);
    const QFontInfo shown(window.font());
    QCOMPARE(shown.family(), QString("FreeSans"));
    QCOMPARE(shown.weight(), static_cast<int>(QFont::Normal));
    QCOMPARE(shown.pointSize(), 9);
    QCOMPARE(QRawFont::fromFont(window.font()).fontTable("name"),
             QRawFont(QString(":/images/FreeSans.ttf"), 9).fontTable("name"));
}

KELVRA_PROGRAM_TEST_MAIN(test_resources)
#include "test_resources.moc"
