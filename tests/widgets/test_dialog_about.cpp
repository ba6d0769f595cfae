// SPDX-License-Identifier: GPL-3.0-or-later

#include "about_link.h"
#include "bracketed_texts.h"
#include "german_catalogues.h"
#include "grid_place.h"
#include "opened_urls.h"
#include "orv/build_report.h"
#include "orv/dialog_about.h"
#include "program_test_main.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>

#include <ctime>
#include <sys/time.h>

namespace
{

/// The second at which the system's clock is stopped; 0 lets it run.
std::time_t stopped_clock = 0;

constexpr std::time_t start_of_2100 = 4102444800;

}  // namespace

/// Overrides the C library's function, for Qt too.
extern "C" int gettimeofday(timeval *time, void *) noexcept
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = stopped_clock != 0 ? stopped_clock : now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return 0;
}

namespace
{

/// Sets the local time zone for its lifetime.
class local_zone
{
public:
    explicit local_zone(const QByteArray &name) : before(qgetenv("TZ")) { set(name); }
    ~local_zone() { set(before); }

    local_zone(const local_zone &) = delete;
    local_zone &operator=(const local_zone &) = delete;

private:
    static void set(const QByteArray &name)
    {
        qputenv("TZ", name);
        tzset();
    }

    const QByteArray before;
};

/// The dialog's label whose text begins with `start`.
QLabel *label_of(const QDialog &dialog, const QString &start)
{
    for (auto *label : dialog.findChildren<QLabel *>()) {
        if (label->text().startsWith(start))
            return label;
    }
    qFatal("the dialog has no label %s", qPrintable(start));
}

QLabel *website_of(const QDialog &dialog)
{
    return label_of(dialog, "<a ");
}

/// The complete text of the last line.
QString notice_of(const QDialog &dialog)
{
    const QLayout *root = dialog.layout();
    const auto *label = qobject_cast<QLabel *>(root->itemAt(root->count() - 1)->widget());
    return label ? label->text() : QString();
}

QVBoxLayout *root_of(const QDialog &dialog)
{
    auto *root = qobject_cast<QVBoxLayout *>(dialog.layout());
    if (!root)
        qFatal("the dialog has no column");
    return root;
}

QGridLayout *grid_of(const QDialog &dialog)
{
    auto *grid = qobject_cast<QGridLayout *>(root_of(dialog)->itemAt(1)->layout());
    if (!grid)
        qFatal("the dialog has no grid");
    return grid;
}

QWidget *header_of(const QDialog &dialog)
{
    return root_of(dialog)->itemAt(0)->widget();
}

}  // namespace

class test_dialog_about : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { add_fonts(); }
    void cleanup();
    void dialog_has_its_parent();
    void font_is_its_own();
    void dialog_has_its_sheet();
    void title_is_about();
    void frame_has_no_needless_buttons();
    void rows_follow_each_other();
    void header_has_the_logo_in_its_middle();
    void grid_holds_names_and_values();
    void left_column_is_bold();
    void version_ends_with_a_space_data();
    void version_ends_with_a_space();
    void website_is_a_coloured_link();
    void click_on_the_website_opens_the_browser();
    void link_has_the_hand_cursor();
    void notice_holds_year_and_build();
    void year_is_taken_from_greenwich_time_data();
    void year_is_taken_from_greenwich_time();
    void all_texts_are_translated();
    void texts_are_german_with_the_catalogue();
    void dialog_is_wider_than_its_content_needs();
    void dialog_cant_be_resized();
};

void test_dialog_about::cleanup()
{
    stopped_clock = 0;
    set_identity();
}

void test_dialog_about::dialog_has_its_parent()
{
    QWidget parent;
    const orv::dialog_about dialog(&parent, true);
    QCOMPARE(dialog.parentWidget(), &parent);
    QVERIFY(dialog.isWindow());
}

void test_dialog_about::font_is_its_own()
{
    const QFont font_before = QApplication::font();
    QApplication::setFont(QFont("FreeMono", 20));
    const orv::dialog_about dialog(nullptr, true);
    QApplication::setFont(font_before);
    QCOMPARE(dialog.font().family(), QString("FreeSans"));
    QCOMPARE(dialog.font().pointSize(), 9);
    QCOMPARE(dialog.font().weight(), static_cast<int>(QFont::Normal));
}

void test_dialog_about::dialog_has_its_sheet()
{
    const orv::dialog_about dialog(nullptr, true);
    QCOMPARE(dialog.styleSheet(),
             QString("background-color:rgb(47,47,47);color:rgb(198,213,210);"));
}

void test_dialog_about::title_is_about()
{
    const orv::dialog_about dialog(nullptr, true);
    QCOMPARE(dialog.windowTitle(), QString("About"));
}

void test_dialog_about::frame_has_no_needless_buttons()
{
    const Qt::WindowFlags needless = Qt::WindowContextHelpButtonHint |
                                     Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint;
    const QDialog plain;
    QVERIFY(plain.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    const orv::dialog_about dialog(nullptr, true);
    QCOMPARE(dialog.windowFlags(), plain.windowFlags() & ~needless);
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

void test_dialog_about::rows_follow_each_other()
{
    const orv::dialog_about dialog(nullptr, true);
    QVBoxLayout *root = root_of(dialog);
    QCOMPARE(root->contentsMargins(), QMargins(0, 0, 0, 10));
    QCOMPARE(root->count(), 5);
    QVERIFY(root->itemAt(0)->widget());
    QVERIFY(qobject_cast<QGridLayout *>(root->itemAt(1)->layout()));
    QVERIFY(root->itemAt(2)->spacerItem());
    QCOMPARE(root->itemAt(2)->sizeHint().height(), 20);
    QCOMPARE(root->itemAt(3)->widget(), link_of(dialog));
    QVERIFY(qobject_cast<QLabel *>(root->itemAt(4)->widget()));
    for (const int row : {0, 2, 3, 4})
        QCOMPARE(root->stretch(row), 0);
    QCOMPARE(root->stretch(1), 1);
    for (const int row : {3, 4})
        QCOMPARE(root->itemAt(row)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
}

void test_dialog_about::header_has_the_logo_in_its_middle()
{
    const orv::dialog_about dialog(nullptr, true);
    const QWidget *header = header_of(dialog);
    QCOMPARE(header->metaObject()->className(), "QWidget");
    QCOMPARE(header->minimumHeight(), 97);
    QCOMPARE(header->maximumHeight(), 97);
    QCOMPARE(header->styleSheet(), QString("background-image:url(:/images/Head.png);"));

    auto *row = qobject_cast<QHBoxLayout *>(header->layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->count(), 3);
    QVERIFY(row->itemAt(0)->spacerItem() && row->itemAt(2)->spacerItem());
    QCOMPARE(row->stretch(0), 1);
    QCOMPARE(row->stretch(1), 0);
    QCOMPARE(row->stretch(2), 1);
    const auto *logo = qobject_cast<QLabel *>(row->itemAt(1)->widget());
    QVERIFY(logo);
    QCOMPARE(logo->styleSheet(), QString("background-image:none; background-color:none;"));
    QCOMPARE(logo->pixmap(Qt::ReturnByValue).toImage(), QPixmap(":/images/logo.png").toImage());
    QVERIFY(!logo->pixmap(Qt::ReturnByValue).isNull());
}

void test_dialog_about::grid_holds_names_and_values()
{
    const orv::dialog_about dialog(nullptr, true);
    QGridLayout *grid = grid_of(dialog);
    QCOMPARE(grid->contentsMargins(), QMargins(20, 0, 20, 0));
    QCOMPARE(grid->count(), 4);
    QLabel *version = label_of(dialog, "2.0.2");
    QCOMPARE(place_in(grid, label_of(dialog, "Version:")), QVector<int>({0, 0, 1, 1}));
    QCOMPARE(place_in(grid, version), QVector<int>({0, 1, 1, 1}));
    QCOMPARE(place_in(grid, label_of(dialog, "Webseite:")), QVector<int>({1, 0, 1, 1}));
    QCOMPARE(place_in(grid, website_of(dialog)), QVector<int>({1, 1, 1, 1}));
    QCOMPARE(grid->itemAtPosition(0, 1)->alignment(), Qt::Alignment(Qt::AlignLeft));
}

void test_dialog_about::left_column_is_bold()
{
    const orv::dialog_about dialog(nullptr, true);
    for (const char *name : {"Version:", "Webseite:"}) {
        const QFont font = label_of(dialog, name)->font();
        QCOMPARE(font.family(), QString("FreeSansBold"));
        QCOMPARE(font.weight(), 75);
        QCOMPARE(font.pointSize(), 11);
        QCOMPARE(label_of(dialog, name)->text(), QString(name));
    }
}

void test_dialog_about::version_ends_with_a_space_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("shown");
    // clang-format off
    QTest::newRow("this one")          << "2.0.2" << "2.0.2 - 64 Bit ";
    QTest::newRow("another one")       << "3.14"  << "3.14 - 64 Bit ";
    QTest::newRow("placeholders stay") << "%1 %2" << "%1 %2 - 64 Bit ";
    // clang-format on
}

void test_dialog_about::version_ends_with_a_space()
{
    QFETCH(QString, version);
    QFETCH(QString, shown);
    QCoreApplication::setApplicationVersion(version);
    const orv::dialog_about dialog(nullptr, true);
    const auto *label = qobject_cast<QLabel *>(grid_of(dialog)->itemAtPosition(0, 1)->widget());
    QVERIFY(label);
    QCOMPARE(label->text(), shown);
}

void test_dialog_about::website_is_a_coloured_link()
{
    const orv::dialog_about dialog(nullptr, true);
    const QLabel *label = website_of(dialog);
    QCOMPARE(label->textFormat(), Qt::RichText);
    QVERIFY(label->openExternalLinks());
    QTextDocument document;
    document.setHtml(label->text());
    QCOMPARE(document.blockCount(), 1);
    int fragments = 0;
    for (auto i = document.begin().begin(); !i.atEnd(); ++i, ++fragments) {
        const QTextCharFormat format = i.fragment().charFormat();
        QVERIFY(format.isAnchor());
        QCOMPARE(format.foreground().color().name(), QString("#728a84"));
        QCOMPARE(format.anchorHref(), i.fragment().text());
    }
    QCOMPARE(fragments, 1);
}

void test_dialog_about::click_on_the_website_opens_the_browser()
{
    const opened_urls browser;
    orv::dialog_about dialog(nullptr, true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QLabel *label = website_of(dialog);
    QCOMPARE(browser.urls, QList<QUrl>());
    QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(20, label->height() / 2));
    QCOMPARE(browser.urls.size(), 1);
    QVERIFY(label->text().contains("\"" + browser.urls.first().toString() + "\""));
    QCOMPARE(browser.urls.first().scheme(), QString("https"));
}

void test_dialog_about::link_has_the_hand_cursor()
{
    const orv::dialog_about dialog(nullptr, true);
    QCOMPARE(link_of(dialog)->text(), QString("Click here for 3rd party library information"));
    QCOMPARE(link_of(dialog)->cursor().shape(), Qt::PointingHandCursor);
}

void test_dialog_about::notice_holds_year_and_build()
{
    stopped_clock = start_of_2100;
    const orv::dialog_about dialog(nullptr, true);
    const QString notice = notice_of(dialog);
    const QString build = " (" + QString::fromStdString(orv::version_string()) + ")";
    QVERIFY2(build.size() > 3 && notice.endsWith(build), qPrintable(notice));
    QVERIFY2(notice.left(notice.size() - build.size()).contains("2100"), qPrintable(notice));
}

void test_dialog_about::year_is_taken_from_greenwich_time_data()
{
    QTest::addColumn<qint64>("second");
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("year");
    QTest::newRow("next year in Berlin")
        << qint64(1924990200) << QByteArray("Europe/Berlin") << "2030";
    QTest::newRow("last year in New York")
        << qint64(1925000000) << QByteArray("America/New_York") << "2031";
    QTest::newRow("one year in Berlin")
        << qint64(1925000000) << QByteArray("Europe/Berlin") << "2031";
}

void test_dialog_about::year_is_taken_from_greenwich_time()
{
    QFETCH(qint64, second);
    QFETCH(QByteArray, zone);
    QFETCH(QString, year);
    const local_zone local(zone);
    stopped_clock = second;
    const orv::dialog_about dialog(nullptr, true);
    const QString notice = notice_of(dialog);
    QVERIFY2(notice.contains(year), qPrintable(notice));
}

void test_dialog_about::all_texts_are_translated()
{
    const bracketed_texts translation;
    const orv::dialog_about dialog(nullptr, true);
    QCOMPARE(dialog.windowTitle(), QString("[About]"));
    QVERIFY(label_of(dialog, "[Version:]"));
    QVERIFY(label_of(dialog, "[Webseite:]"));
    QCOMPARE(link_of(dialog)->text(), QString("[Click here for 3rd party library information]"));
    QVERIFY(notice_of(dialog).startsWith("["));
}

void test_dialog_about::texts_are_german_with_the_catalogue()
{
    stopped_clock = start_of_2100;
    const german_catalogues german;
    const orv::dialog_about dialog(nullptr, true);
    QCOMPARE(dialog.windowTitle(), QString("Über"));
    QCOMPARE(link_of(dialog)->text(), QString("Klicke hier um Informationen über Bibliotheken von "
                                              "Drittanbietern zu erhalten"));
    QVERIFY(label_of(dialog, "Version:"));
    QVERIFY(label_of(dialog, "Webseite:"));
    QVERIFY(notice_of(dialog).contains("2100"));
}

/// Tries versions of several lengths, since not every width has a fraction to cut off.
void test_dialog_about::dialog_is_wider_than_its_content_needs()
{
    double greatest_fraction = 0;
    for (int length = 50; length < 60; ++length) {
        QCoreApplication::setApplicationVersion(QString(length, '8'));
        const orv::dialog_about dialog(nullptr, true);
        const double wider = dialog.sizeHint().width() * 1.2;
        const int whole_px = static_cast<int>(wider);
        greatest_fraction = qMax(greatest_fraction, wider - whole_px);
        QCOMPARE(dialog.size(), QSize(whole_px, dialog.sizeHint().height()));
        QCOMPARE(dialog.minimumSize(), dialog.size());
        QCOMPARE(dialog.maximumSize(), dialog.size());
    }
    QVERIFY(greatest_fraction > 0.5);
}

void test_dialog_about::dialog_cant_be_resized()
{
    orv::dialog_about dialog(nullptr, true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QSize size = dialog.size();
    dialog.resize(size * 2);
    QCOMPARE(dialog.size(), size);
    dialog.resize(1, 1);
    QCOMPARE(dialog.size(), size);
}

KELVRA_PROGRAM_TEST_MAIN(test_dialog_about)
#include "test_dialog_about.moc"
