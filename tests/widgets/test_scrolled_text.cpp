// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/scrolled_text.h"

#include "orv/message_box.h"
#include "orv/skin_fonts.h"
#include "orv/wrapped_label.h"
#include "program_test_main.h"
#include "startup/program_setup.h"
#include "when_modal.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <functional>
#include <memory>

using orv::message_box;
using orv::scrolled_text;
using orv::wrapped_label;
using box_visit = std::function<void(message_box &)>;

namespace
{

constexpr int many = 200;
constexpr char question[] = " Do you want to keep the changes in the other files";
constexpr QMargins least_frame_px(10, 40, 10, 10);  // assumed by a box without a parent

QString name_of(int number)
{
    return QString("/home/anna/Pictures/holiday/IMG_%1.JPG").arg(number, 4, 10, QChar('0'));
}

QString list_of(int count)
{
    QStringList lines("The following files could not be fixed:");
    for (int number = 1; number <= count; ++number)
        lines << name_of(number);
    return lines.join('\n');
}

QString list_with_question(int count)
{
    return list_of(count) + "\n\n" + question;
}

/// A name in which no line can break between words.
QString long_name(int length)
{
    return QString(length, 'x');
}

/// Opens a box with this text and runs `visit` in it. Returns the button that was pressed.
int open_box(const QString &text, const box_visit &visit, QWidget *parent = nullptr)
{
    const when_modal<message_box> user([&visit](message_box &box) {
        QVERIFY(QTest::qWaitForWindowActive(&box));
        visit(box);
    });
    const int button = message_box::question(parent, "Continue?", text, "Keep changes",
                                             "Undo Changes", QMessageBox::NoButton);
    return user.answered() ? button : -1;
}

/// The same box as `open_box` shows, made by Qt alone.
std::unique_ptr<QMessageBox> make_plain_box(const QString &text, const QString &sheet)
{
    auto box = std::make_unique<QMessageBox>(QMessageBox::Question, "Continue?", text,
                                             QMessageBox::Yes | QMessageBox::No);
    box->setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    box->setStyleSheet(sheet);
    box->button(QMessageBox::Yes)->setText("Keep changes");
    box->button(QMessageBox::No)->setText("Undo Changes");
    for (QAbstractButton *button : box->buttons())
        button->setIcon(QIcon());
    box->show();
    return box;
}

QStringList widgets_of(const QMessageBox &box)
{
    QStringList widgets;
    for (const QWidget *widget : box.findChildren<QWidget *>())
        widgets << QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
    return widgets;
}

QLabel *qt_label(const QMessageBox &box)
{
    return box.findChild<QLabel *>("qt_msgbox_label");
}

QScrollBar *bar_of(const QMessageBox &box)
{
    const auto *area = box.findChild<QScrollArea *>();
    return area ? area->verticalScrollBar() : nullptr;
}

/// The labels of a box that doesn't fit, from the top.
QList<wrapped_label *> labels_of(const QMessageBox &box)
{
    QList<wrapped_label *> labels = box.findChildren<wrapped_label *>();
    std::sort(labels.begin(), labels.end(), [](const QWidget *left, const QWidget *right) {
        return left->mapToGlobal(QPoint()).y() < right->mapToGlobal(QPoint()).y();
    });
    return labels;
}

QRect area_for(const QMessageBox &box)
{
    const QRect whole = QGuiApplication::primaryScreen()->availableGeometry();
    return box.parentWidget() ? whole : whole.marginsRemoved(least_frame_px);
}

bool is_in_sight(const QWidget &widget)
{
    return widget.isVisible() && widget.visibleRegion() == QRegion(widget.rect()) &&
           widget.window()->rect().contains(
               QRect(widget.mapTo(widget.window(), QPoint()), widget.size()));
}

void check_is_within_the_screen(const message_box &box)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(screen.contains(box.frameGeometry()));
    const QSize room = area_for(box).size();
    QCOMPARE(box.size().boundedTo(room), box.size());
    for (const QAbstractButton *button : box.buttons())
        QVERIFY(is_in_sight(*button));
    QVERIFY(is_in_sight(*box.findChild<QLabel *>("qt_msgboxex_icon_label")));
}

/// The number of pixels that differ from the background.
int ink_of(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) != image.pixelColor(image.width() - 1, 0);
    }
    return count;
}

int ink_at_width(const QString &text, int width)
{
    wrapped_label label(text, Qt::PlainText, nullptr);
    QFont font = orv::text_font();
    font.setStyleStrategy(QFont::NoAntialias);  // each letter looks the same wherever it is
    label.setFont(font);
    label.resize(width, label.heightForWidth(width));
    return ink_of(label.grab().toImage());
}

/// Turns the mouse wheel over the middle of the widget's visible part, by an event that the
/// platform reports to the window.
void turn_wheel(QWidget &widget, int steps)
{
    const QPoint middle = widget.visibleRegion().boundingRect().center();
    const QPoint delta(0, -steps * QWheelEvent::DefaultDeltasPerStep);
    QWheelEvent event(widget.mapTo(widget.window(), middle), widget.mapToGlobal(middle), QPoint(),
                      delta, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);  // others aren't passed on to parent widgets
    qApp->notify(widget.window()->windowHandle(), &event);
}

void press(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

}  // namespace

/// Message boxes that are too big for their screen, which has 800 by 600 pixels in this test.
class test_scrolled_text : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void box_that_fits_is_qts_own_data();
    void box_that_fits_is_qts_own();
    void box_is_no_bigger_than_its_screen_data();
    void box_is_no_bigger_than_its_screen();
    void box_leaves_room_for_its_frame();
    void box_leaves_room_for_its_frame_over_a_maximized_window();
    void box_stays_on_the_screen_beside_its_owner();
    void start_and_question_are_visible();
    void text_without_a_question_scrolls_as_a_whole_data();
    void text_without_a_question_scrolls_as_a_whole();
    void question_of_a_rich_text_scrolls_with_it();
    void text_looks_as_in_a_box_that_fits();
    void bar_has_the_skin();
    void keys_scroll_data();
    void keys_scroll();
    void keys_scroll_to_the_last_name();
    void wheel_scrolls_data();
    void wheel_scrolls();
    void keys_of_the_buttons_answer_data();
    void keys_of_the_buttons_answer();
    void keyboard_stays_with_the_buttons();
    void wide_name_wraps_data();
    void wide_name_wraps();
    void no_letter_is_lost_where_a_name_wraps_data();
    void no_letter_is_lost_where_a_name_wraps();
    void widest_name_has_a_line_of_its_own();
    void markup_in_a_name_is_shown_as_it_is();
    void box_keeps_its_text();
    void box_survives_another_style();
    void box_can_be_shown_again();
};

void test_scrolled_text::initTestCase()
{
    add_fonts();
    // Each computer has another default font, and with some of them fewer names fit in a box.
    QApplication::setFont(QFont("FreeSans", 12));
    install_style();
    install_icons();
}

void test_scrolled_text::box_that_fits_is_qts_own_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << "Text";
    QTest::newRow("no text") << "";
    QTest::newRow("two names") << list_with_question(2);
    QTest::newRow("more names") << list_with_question(8);
    QTest::newRow("words that wrap") << QString("some words ").repeated(40);
    QTest::newRow("rich text") << "<b>some</b> words<br>" + QString("and more ").repeated(40);
    QTest::newRow("path that is just not too wide") << list_of(2) + "\n" + long_name(45);
}

void test_scrolled_text::box_that_fits_is_qts_own()
{
    QFETCH(QString, text);
    open_box(text, [&text](message_box &box) {
        const auto plain = make_plain_box(text, box.styleSheet());
        QVERIFY(!box.findChild<scrolled_text *>());
        QCOMPARE(widgets_of(box), widgets_of(*plain));
        QCOMPARE(box.size(), plain->size());
        box.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        QCOMPARE(box.grab().toImage(), plain->grab().toImage());
    });
}

void test_scrolled_text::box_is_no_bigger_than_its_screen_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("has_owner");
    const auto row = [](const char *name, const QString &text) {
        QTest::addRow("%s", name) << text << false;
        QTest::addRow("%s, with an owner", name) << text << true;
    };
    const QString words = QString("some words ").repeated(1000);
    row("names and a question", list_with_question(many));
    row("two thousand names", list_with_question(2000));
    row("only names", list_of(many));
    row("long question", "Names\n\n" + words);
    row("endless words", words);
    row("rich text", "<b>" + words + "</b>");
    row("a wide name", list_of(2) + "\n" + long_name(1000) + "\n\n" + question);
    row("a wide word in rich text", "<b>" + long_name(1000) + "</b>");
    row("wide and many names", list_of(many) + "\n" + long_name(1000) + "\n\n" + question);
    row("a wide question", list_of(2) + "\n\n" + long_name(1000));
    row("a huge name", list_of(2) + "\n" + long_name(10000) + "\n\n" + question);
}

void test_scrolled_text::box_is_no_bigger_than_its_screen()
{
    QFETCH(QString, text);
    QFETCH(bool, has_owner);
    QWidget owner;
    owner.resize(800, 600);
    owner.show();
    open_box(
        text,
        [](message_box &box) {
            check_is_within_the_screen(box);
            QCoreApplication::processEvents();
            check_is_within_the_screen(box);
            for (const wrapped_label *label : box.findChildren<wrapped_label *>())
                QCOMPARE(label->visibleRegion().boundingRect().width(), label->width());
        },
        has_owner ? &owner : nullptr);
}

/// Even if the box itself would fit, as QMessageBox makes it.
void test_scrolled_text::box_leaves_room_for_its_frame()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect room = screen.marginsRemoved(least_frame_px);
    int names = 1;
    while (make_plain_box(list_of(names), QString())->height() <= room.height())
        ++names;
    QVERIFY(make_plain_box(list_of(names), QString())->height() <= screen.height());
    open_box(list_of(names - 1),
             [](message_box &box) { QVERIFY(!box.findChild<scrolled_text *>()); });
    open_box(list_of(names), [&room](message_box &box) {
        QVERIFY(box.findChild<scrolled_text *>());
        QVERIFY(box.height() <= room.height());
    });
}

/// A window that fills the screen may have no frame, or a part of one.
void test_scrolled_text::box_leaves_room_for_its_frame_over_a_maximized_window()
{
    QWidget owner;
    owner.showMaximized();
    QVERIFY(QTest::qWaitForWindowExposed(&owner));
    open_box(
        list_of(many),
        [](message_box &box) {
            const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
            QCOMPARE(box.height(), screen.marginsRemoved(least_frame_px).height());
        },
        &owner);
}

/// QDialog only allows for the title bar when it moves a box up.
void test_scrolled_text::box_stays_on_the_screen_beside_its_owner()
{
    QWidget owner;
    owner.setGeometry(700, 700, 90, 90);
    owner.show();
    open_box(
        list_with_question(many), [](message_box &box) { check_is_within_the_screen(box); },
        &owner);
}

void test_scrolled_text::start_and_question_are_visible()
{
    open_box(list_with_question(many), [](message_box &box) {
        const QList<wrapped_label *> labels = labels_of(box);
        QCOMPARE(labels.size(), 2);
        QCOMPARE(labels[0]->text(), list_of(many));
        QCOMPARE(labels[1]->text(), QString(question));
        QCOMPARE(bar_of(box)->value(), 0);
        QVERIFY(labels[0]->visibleRegion().boundingRect().top() == 0);
        QVERIFY(labels[0]->visibleRegion().boundingRect().height() > 350);
        QVERIFY(is_in_sight(*labels[1]));
        const QWidget &view = *box.findChild<QScrollArea *>();
        const int gap =
            labels[1]->mapTo(&box, QPoint()).y() - view.mapTo(&box, QPoint(0, view.height())).y();
        QCOMPARE(gap, box.fontMetrics().lineSpacing());
    });
}

void test_scrolled_text::text_without_a_question_scrolls_as_a_whole_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one paragraph") << list_of(many);
    QTest::newRow("empty lines below it") << list_of(many) + "\n\n";
    QTest::newRow("question that fills the screen") << "Text\n\n" + list_of(many);
}

void test_scrolled_text::text_without_a_question_scrolls_as_a_whole()
{
    QFETCH(QString, text);
    open_box(text, [&text](message_box &box) {
        QCOMPARE(labels_of(box).size(), 1);
        QCOMPARE(labels_of(box).first()->text(), text);
        QCOMPARE(bar_of(box)->value(), 0);
        press(Qt::Key_End);
        const QRect seen = labels_of(box).first()->visibleRegion().boundingRect();
        QCOMPARE(seen.bottom(), labels_of(box).first()->rect().bottom());
    });
}

void test_scrolled_text::question_of_a_rich_text_scrolls_with_it()
{
    const QString text = "<b>" + QString("some words ").repeated(1000) + "</b>\n\nQuestion";
    open_box(text, [&text](message_box &box) {
        QCOMPARE(labels_of(box).size(), 1);
        QCOMPARE(labels_of(box).first()->text(), text);
        QCOMPARE(labels_of(box).first()->textFormat(), Qt::RichText);
    });
}

/// Compares the first lines, pixel by pixel.
void test_scrolled_text::text_looks_as_in_a_box_that_fits()
{
    const QRect start(0, 0, 380, 200);
    QImage fitting;
    QImage scrolled;
    open_box(list_of(8), [&](message_box &box) { fitting = box.grab(start).toImage(); });
    open_box(list_of(many), [&](message_box &box) {
        QVERIFY(bar_of(box));
        scrolled = box.grab(start).toImage();
    });
    QVERIFY(ink_of(fitting) > 1000);
    QCOMPARE(scrolled, fitting);
}

void test_scrolled_text::bar_has_the_skin()
{
    open_box(list_of(many), [](message_box &box) {
        const auto *area = box.findChild<QScrollArea *>();
        QVERIFY(bar_of(box)->isVisible());
        QVERIFY(!area->horizontalScrollBar()->isVisible());
        QCOMPARE(bar_of(box)->width(), 11);
        const QImage bar = bar_of(box)->grab().toImage();
        QCOMPARE(bar.pixelColor(5, 10), QColor(0, 0, 0));
        QCOMPARE(bar.pixelColor(5, bar.height() - 5), QColor(47, 47, 47));
        const QImage shown = box.grab().toImage();
        const QPoint corner = area->mapTo(&box, area->rect().bottomRight());
        for (int x = 0; x < 10; ++x)
            QCOMPARE(shown.pixelColor(corner - QPoint(x, 0)), QColor(47, 47, 47));
    });
}

void test_scrolled_text::keys_scroll_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("pages");
    using keys = QList<int>;
    QTest::newRow("Down") << keys{Qt::Key_Down} << 1 << 0;
    QTest::newRow("Down, three times") << keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down} << 3 << 0;
    QTest::newRow("Up") << keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Up} << 1 << 0;
    QTest::newRow("Up at the top") << keys{Qt::Key_Up} << 0 << 0;
    QTest::newRow("Page Down") << keys{Qt::Key_PageDown, Qt::Key_PageDown} << 0 << 2;
    QTest::newRow("Page Up") << keys{Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp} << 0 << 1;
    QTest::newRow("Home") << keys{Qt::Key_End, Qt::Key_Home} << 0 << 0;
    QTest::newRow("after a move to the other button")
        << keys{Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown} << 1 << 1;
}

void test_scrolled_text::keys_scroll()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, lines);
    QFETCH(int, pages);
    open_box(list_with_question(many), [&](message_box &box) {
        for (const int key : keys)
            press(static_cast<Qt::Key>(key));
        const QScrollBar &bar = *bar_of(box);
        QCOMPARE(bar.value(), lines * box.fontMetrics().lineSpacing() + pages * bar.pageStep());
        QCOMPARE(bar.pageStep(), box.findChild<QScrollArea *>()->viewport()->height());
    });
}

void test_scrolled_text::keys_scroll_to_the_last_name()
{
    open_box(list_with_question(many), [](message_box &box) {
        press(Qt::Key_End);
        const wrapped_label &names = *labels_of(box)[0];
        QCOMPARE(names.visibleRegion().boundingRect().bottom(), names.rect().bottom());
        QVERIFY(is_in_sight(*labels_of(box)[1]));
        check_is_within_the_screen(box);
    });
}

void test_scrolled_text::wheel_scrolls_data()
{
    QTest::addColumn<int>("label");
    QTest::newRow("over the names") << 0;
    QTest::newRow("over the question") << 1;
}

void test_scrolled_text::wheel_scrolls()
{
    QFETCH(int, label);
    open_box(list_with_question(many), [label](message_box &box) {
        const int step = QApplication::wheelScrollLines() * box.fontMetrics().lineSpacing();
        turn_wheel(*labels_of(box)[label], 2);
        QCOMPARE(bar_of(box)->value(), 2 * step);
        turn_wheel(*labels_of(box)[label], -1);
        QCOMPARE(bar_of(box)->value(), step);
        turn_wheel(*labels_of(box)[label], -9);
        QCOMPARE(bar_of(box)->value(), 0);
    });
}

void test_scrolled_text::keys_of_the_buttons_answer_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("answer");
    using keys = QList<int>;
    const int yes = QMessageBox::Yes;
    const int no = QMessageBox::No;
    QTest::newRow("Return") << keys{Qt::Key_Return} << yes;
    QTest::newRow("Return, scrolled") << keys{Qt::Key_End, Qt::Key_Up, Qt::Key_Return} << yes;
    QTest::newRow("Escape") << keys{Qt::Key_Escape} << no;
    QTest::newRow("Escape, scrolled") << keys{Qt::Key_PageDown, Qt::Key_Escape} << no;
    QTest::newRow("Space") << keys{Qt::Key_Space} << yes;
    QTest::newRow("Tab") << keys{Qt::Key_Tab, Qt::Key_Space} << no;
    QTest::newRow("Tab, twice") << keys{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space} << yes;
    QTest::newRow("Right") << keys{Qt::Key_Right, Qt::Key_Return} << no;
    QTest::newRow("Left") << keys{Qt::Key_Right, Qt::Key_Left, Qt::Key_Return} << yes;
}

/// The same keys work in a box with few names and in one with many.
void test_scrolled_text::keys_of_the_buttons_answer()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, answer);
    const auto press_keys = [&keys](message_box &) {
        for (const int key : keys)
            press(static_cast<Qt::Key>(key));
    };
    QCOMPARE(open_box(list_with_question(many), press_keys), answer);
    keys.erase(std::remove_if(keys.begin(), keys.end(),
                              [](int key) {
                                  return key == Qt::Key_End || key == Qt::Key_Up ||
                                         key == Qt::Key_PageDown;
                              }),
               keys.end());
    QCOMPARE(open_box(list_with_question(2), press_keys), answer);
}

void test_scrolled_text::keyboard_stays_with_the_buttons()
{
    open_box(list_with_question(many), [](message_box &box) {
        QVERIFY(box.button(QMessageBox::Yes)->hasFocus());
        press(Qt::Key_Down);
        press(Qt::Key_Up);
        QVERIFY(box.button(QMessageBox::Yes)->hasFocus());
        QTest::mouseClick(labels_of(box)[0], Qt::LeftButton, {}, QPoint(20, 20));
        QTest::mouseClick(bar_of(box), Qt::LeftButton);
        QVERIFY(box.button(QMessageBox::Yes)->hasFocus());
    });
}

void test_scrolled_text::wide_name_wraps_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("scrolls");
    QTest::newRow("one name") << long_name(300) + "\n\n" + question << false;
    QTest::newRow("one name and a long question")
        << long_name(120) + "\n\n" + QString("some words ").repeated(40) << false;
    QTest::newRow("few names") << list_of(2) + "\n" + long_name(300) + "\n\n" + question << false;
    QTest::newRow("many names") << list_of(many) + "\n" + long_name(300) + "\n\n" + question
                                << true;
}

void test_scrolled_text::wide_name_wraps()
{
    QFETCH(QString, text);
    QFETCH(bool, scrolls);
    open_box(text, [scrolls](message_box &box) {
        QCOMPARE(bar_of(box)->isVisible(), scrolls);
        const wrapped_label &names = *labels_of(box)[0];
        const int line = box.fontMetrics().lineSpacing();
        const int lines = names.text().count('\n') + 1;
        QVERIFY(names.height() >= (lines + 1) * line);
        QCOMPARE(names.visibleRegion().boundingRect().width(), names.width());
        if (!scrolls)
            QVERIFY(is_in_sight(names));
        for (const wrapped_label *label : labels_of(box))
            QVERIFY(label->height() >= label->heightForWidth(label->width()));
        QVERIFY(is_in_sight(*labels_of(box)[1]));
    });
}

void test_scrolled_text::no_letter_is_lost_where_a_name_wraps_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {900, 500, 211, 97, 40})
        QTest::addRow("%d pixels", width) << width;
}

/// The amount of ink is the same, on however many lines.
void test_scrolled_text::no_letter_is_lost_where_a_name_wraps()
{
    QFETCH(int, width);
    const QString name = QString("IMG_0123456789").repeated(10);
    QCOMPARE(ink_at_width(name, width), ink_at_width(name, 4000));
}

/// The bar takes no room away from the text. The widest name, which sets the width of the box,
/// therefore stays on one line.
void test_scrolled_text::widest_name_has_a_line_of_its_own()
{
    const QString text = list_of(many) + "\n" + long_name(60) + "\n\n" + question;
    open_box(text, [](message_box &box) {
        const wrapped_label &names = *labels_of(box)[0];
        QVERIFY(bar_of(box)->isVisible());
        const wrapped_label unbroken(names.text(), Qt::PlainText, &box);
        QCOMPARE(names.height(), unbroken.heightForWidth(4000));
    });
}

void test_scrolled_text::markup_in_a_name_is_shown_as_it_is()
{
    const QString name = "<b>bold</b> &amp; <i>&Tom.JPG";
    const QString text = list_of(many) + "\n" + name + "\n\n<b>" + question;
    open_box(text, [&](message_box &box) {
        QCOMPARE(labels_of(box)[0]->textFormat(), Qt::PlainText);
        QCOMPARE(labels_of(box)[1]->textFormat(), Qt::PlainText);
        QVERIFY(labels_of(box)[0]->text().endsWith(name));
    });
    QVERIFY(ink_at_width(name, 400) > ink_at_width("bold & Tom.JPG", 400));
}

void test_scrolled_text::box_keeps_its_text()
{
    const QString text = list_with_question(many);
    open_box(text, [&text](message_box &box) {
        QCOMPARE(box.text(), text);
        QCOMPARE(qt_label(box)->text(), text);
        QCOMPARE(box.windowTitle(), QString("Continue?"));
    });
}

/// A style change makes QMessageBox create its layout again.
void test_scrolled_text::box_survives_another_style()
{
    open_box(list_with_question(many), [](message_box &box) {
        const QSize size = box.size();
        QEvent change(QEvent::StyleChange);
        QCoreApplication::sendEvent(&box, &change);
        QCoreApplication::processEvents();
        QCOMPARE(box.size(), size);
        check_is_within_the_screen(box);
        QVERIFY(is_in_sight(*labels_of(box)[1]));
    });
}

void test_scrolled_text::box_can_be_shown_again()
{
    open_box(list_with_question(many), [](message_box &box) {
        const QRect place = box.geometry();
        box.hide();
        box.show();
        QCOMPARE(box.geometry(), place);
        QCOMPARE(box.findChildren<scrolled_text *>().size(), 1);
    });
}

KELVRA_PROGRAM_TEST_MAIN(test_scrolled_text)
#include "test_scrolled_text.moc"
