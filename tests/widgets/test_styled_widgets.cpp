// SPDX-License-Identifier: GPL-3.0-or-later

#include "expected_sheets.h"
#include "orv/checkbox.h"
#include "orv/clickable_label.h"
#include "orv/combobox.h"
#include "orv/lineedit.h"
#include "orv/message_box.h"
#include "orv/panel.h"
#include "orv/progress_dialog.h"
#include "orv/radio.h"
#include "orv/skin_scroll_bars.h"
#include "widget_test_main.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <QWheelEvent>

Q_DECLARE_METATYPE(const QMetaObject *)
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace
{

constexpr char lineedit_sheet[] =
    "orv--lineedit{    background:rgb(38,38,38);    color:rgb(198,213,210);    border: 1px solid "
    "rgb(99,99,99);    selection-background-color:rgb(198,213,210);    selection-color: "
    "#000;}orv--lineedit:disabled{    border: 1px solid rgb(75,75,75);    background: "
    "rgb(47,47,47);    color: rgb(100,100,100);}QToolTip{border:1px solid "
    "rgb(99,99,99);background-image:none;background-color:rgb(47,47,47);}";
constexpr char combobox_sheet[] =
    "QComboBox{padding-left:0.2em;margin-top:0px;margin-bottom:0px;outline:0px;selection-"
    "background-color:rgb(200,210,200);font-size:12px;background-color:rgb(36,36,36);border: 1px "
    "solid rgb(99,99,99);selection-color:#000;}QComboBox "
    "QAbstractItemView{margin-top:0px;margin-bottom:0px;outline:0px;selection-background-color:rgb("
    "200,210,200);background-color:rgb(36,36,36);border: 1px solid "
    "rgb(99,99,99);selection-color:#000;}QComboBox "
    "QAbstractItemView::item{padding-left:0.5em;}QComboBox::drop-down{outline:0px;selection-"
    "background-color:rgb(200,210,200);border-width:0px;border-left:1px solid "
    "rgb(99,99,99);}QComboBox::down-arrow{image:url(:/gui/combobox/"
    "arrow.png);width:20;}QToolTip{border:1px solid "
    "rgb(99,99,99);background-image:none;background-color:rgb(47,47,47);}QScrollBar:vertical{"
    "border: none; background-color:rgb(47,47,47); width:11px; margin: 0px 0px 0px 0px; "
    "}QScrollBar::handle:vertical{border: 1px solid black; border-radius: 5px; background: "
    "rgb(0,0,0); min-height: 20px;}QScrollBar::add-line:vertical{background: black; height: 0px; "
    "subcontrol-position: bottom; subcontrol-origin: "
    "margin;}QScrollBar::sub-line:vertical{background: black; height: 0px; subcontrol-position: "
    "top; subcontrol-origin: margin;}";
constexpr char horizontal_sheet[] =
    "QScrollBar:horizontal {    border: none;    background-color:rgb(47,47,47);    height:11px;   "
    "     margin: 0px 0px 0px 0px;}QScrollBar::handle:horizontal {    border: 1px solid black;    "
    "border-radius: 5px;    background: rgb(0,0,0);    min-width: "
    "20px;}QScrollBar::add-line:horizontal {    background: black;    width: 0px;    "
    "subcontrol-position: left;    subcontrol-origin: margin;}QScrollBar::sub-line:horizontal {    "
    "background: black;    width: 0px;    subcontrol-position: right;    subcontrol-origin: "
    "margin;}";

/// Turns the mouse wheel one step down over the middle of the widget.
void turn_wheel(QWidget &widget)
{
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place.toPoint()), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

/// Counts the mouse presses that its children pass on to it.
class press_counter : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
};

void check_plain_layout(const QWidget *widget, int margin, const QWidget *only_child)
{
    const auto *layout = qobject_cast<QVBoxLayout *>(widget->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(margin, margin, margin, margin));
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), only_child);
    QCOMPARE(layout->stretch(0), 1);
}

}  // namespace

class test_styled_widgets : public QObject
{
    Q_OBJECT

private slots:
    void class_is_known_by_its_name_data();
    void class_is_known_by_its_name();
    void sheet_has_its_bytes_data();
    void sheet_has_its_bytes();
    void lineedit_is_matched_by_its_selector();
    void panel_frames_its_content_data();
    void panel_frames_its_content();
    void popup_has_twenty_pixels_per_row_data();
    void popup_has_twenty_pixels_per_row();
    void rows_fill_the_popup_data();
    void rows_fill_the_popup();
    void wheel_moves_the_choice_unless_disabled();
    void label_is_clicked_only_by_the_left_button_data();
    void label_is_clicked_only_by_the_left_button();
    void label_does_not_pass_presses_on();
    void scroll_bars_get_sheet_and_style_data();
    void scroll_bars_get_sheet_and_style();
};

void test_styled_widgets::class_is_known_by_its_name_data()
{
    QTest::addColumn<const QMetaObject *>("meta");
    QTest::addColumn<QByteArray>("base");
    const auto row = [](const char *name, const QMetaObject &meta, const char *base) {
        QTest::newRow(name) << &meta << QByteArray(base);
    };
    row("orv::message_box", orv::message_box::staticMetaObject, "QMessageBox");
    row("orv::progress_dialog", orv::progress_dialog::staticMetaObject, "QProgressDialog");
    row("orv::panel", orv::panel::staticMetaObject, "QWidget");
    row("orv::lineedit", orv::lineedit::staticMetaObject, "QLineEdit");
    row("orv::combobox", orv::combobox::staticMetaObject, "QComboBox");
    row("orv::checkbox", orv::checkbox::staticMetaObject, "QCheckBox");
    row("orv::radio", orv::radio::staticMetaObject, "QRadioButton");
    row("orv::clickable_label", orv::clickable_label::staticMetaObject, "QLabel");
}

void test_styled_widgets::class_is_known_by_its_name()
{
    QFETCH(const QMetaObject *, meta);
    QFETCH(QByteArray, base);
    QCOMPARE(meta->className(), QTest::currentDataTag());
    QCOMPARE(QByteArray(meta->superClass()->className()), base);
}

void test_styled_widgets::sheet_has_its_bytes_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("lineedit") << QByteArray(orv::lineedit::sheet) << QByteArray(lineedit_sheet);
    QTest::newRow("radio") << QByteArray(orv::radio::sheet) << QByteArray(radio_sheet);
    QTest::newRow("combobox") << QByteArray(orv::combobox::sheet) << QByteArray(combobox_sheet);
}

void test_styled_widgets::sheet_has_its_bytes()
{
    QFETCH(QByteArray, sheet);
    QFETCH(QByteArray, expected);
    QCOMPARE(sheet, expected);
}

void test_styled_widgets::lineedit_is_matched_by_its_selector()
{
    orv::lineedit field;
    field.setStyleSheet(orv::lineedit::sheet);
    field.ensurePolished();
    QCOMPARE(field.palette().color(QPalette::Text), QColor(198, 213, 210));
    QCOMPARE(field.palette().color(QPalette::Base), QColor(38, 38, 38));
    field.resize(80, 24);
    QCOMPARE(field.grab().toImage().pixelColor(40, 0), QColor(99, 99, 99));
    field.setEnabled(false);
    QCOMPARE(field.grab().toImage().pixelColor(40, 0), QColor(75, 75, 75));
}

void test_styled_widgets::panel_frames_its_content_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("whole frame") << ""
                                 << "#orv--panel {border-style:solid; border-width:3px; "
                                    "border-image:url(:/gui/panel/border.png) 3 stretch;}";
    QTest::newRow("frame without a top")
        << "_topless"
        << "#orv--panel_topless {border-style:solid; border-width:3px; "
           "border-image:url(:/gui/panel/border_topless.png) 3 stretch;}";
}

void test_styled_widgets::panel_frames_its_content()
{
    QFETCH(QString, suffix);
    QFETCH(QString, sheet);
    orv::panel panel;
    auto *content = new QLabel("content");
    panel.set_up(content, suffix);
    QCOMPARE(panel.styleSheet(), sheet);
    const auto *frame = panel.findChild<QWidget *>("orv--panel", Qt::FindDirectChildrenOnly);
    QVERIFY(frame);
    QCOMPARE(content->parentWidget(), frame);
    check_plain_layout(&panel, 0, frame);
    check_plain_layout(frame, 3, content);
}

void test_styled_widgets::popup_has_twenty_pixels_per_row_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("max_visible_items");
    QTest::newRow("one item") << 1 << 10;
    QTest::newRow("two languages") << 2 << 10;
    QTest::newRow("more items than may be visible") << 5 << 2;
    QTest::newRow("more items than Qt shows at once") << 15 << 10;
}

void test_styled_widgets::popup_has_twenty_pixels_per_row()
{
    QFETCH(int, items);
    QFETCH(int, max_visible_items);
    QComboBox plain;
    orv::combobox box;
    for (QComboBox *each : {&plain, static_cast<QComboBox *>(&box)}) {
        for (int i = 0; i < items; ++i)
            each->addItem(QString::number(i));
        each->setMaxVisibleItems(max_visible_items);
        each->show();
    }
    plain.showPopup();
    const int plain_width = plain.findChild<QFrame *>()->width();
    plain.hidePopup();
    QTest::mouseClick(&box, Qt::LeftButton);
    const auto *popup = box.findChild<QFrame *>();
    QVERIFY(popup);
    QVERIFY(popup->isVisible());
    QCOMPARE(popup->size(), QSize(plain_width, items * 20));
    box.hidePopup();
}

void test_styled_widgets::rows_fill_the_popup_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("chosen");
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("two languages") << 2 << 1;
    QTest::newRow("five") << 5 << 4;
    QTest::newRow("a hundred, from the first") << 100 << 0;
    QTest::newRow("a hundred, from the last") << 100 << 99;
}

/// The rows reach the border of the list, which the popup shows in its first and last row of
/// pixels.
void test_styled_widgets::rows_fill_the_popup()
{
    QFETCH(int, items);
    QFETCH(int, chosen);
    orv::combobox box;
    box.setStyleSheet(orv::combobox::sheet);
    for (int i = 0; i < items; ++i)
        box.addItem(QString::number(i));
    box.setCurrentIndex(chosen);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QTest::mouseClick(&box, Qt::LeftButton);
    const QAbstractItemView *list = box.view();
    const QWidget *popup = list->parentWidget();
    const auto place_of = [list, popup](int row) {
        const QRect place = list->visualRect(list->model()->index(row, 0));
        return place.translated(list->viewport()->mapTo(popup, QPoint()));
    };
    QTRY_COMPARE(place_of(0).top(), 1);
    QTRY_COMPARE(place_of(items - 1).bottom(), items * 20 - 2);
    for (int row = 1; row < items; ++row)
        QCOMPARE(place_of(row).top(), place_of(row - 1).bottom() + 1);
    box.hidePopup();
}

void test_styled_widgets::wheel_moves_the_choice_unless_disabled()
{
    orv::combobox box;
    box.addItems({"a", "b", "c"});
    QVERIFY(!box.wheel_disabled);
    turn_wheel(box);
    QCOMPARE(box.currentText(), QString("b"));
    box.wheel_disabled = true;
    turn_wheel(box);
    QCOMPARE(box.currentText(), QString("b"));
}

void test_styled_widgets::label_is_clicked_only_by_the_left_button_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("clicks");
    QTest::newRow("left") << Qt::LeftButton << 1;
    QTest::newRow("right") << Qt::RightButton << 0;
    QTest::newRow("middle") << Qt::MiddleButton << 0;
}

void test_styled_widgets::label_is_clicked_only_by_the_left_button()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, clicks);
    orv::clickable_label label("more");
    QSignalSpy clicked(&label, &orv::clickable_label::clicked);
    QTest::mousePress(&label, button);
    QCOMPARE(clicked.size(), clicks);
    QTest::mouseRelease(&label, button);
    QCOMPARE(clicked.size(), clicks);
}

/// QLabel's own handler would pass them on to the parent.
void test_styled_widgets::label_does_not_pass_presses_on()
{
    press_counter parent;
    orv::clickable_label label("more", &parent);
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mousePress(&label, Qt::RightButton);
    QCOMPARE(parent.presses, 0);
}

void test_styled_widgets::scroll_bars_get_sheet_and_style_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("vertical") << true << scroll_bar_sheet;
    QTest::newRow("horizontal") << false << horizontal_sheet;
}

void test_styled_widgets::scroll_bars_get_sheet_and_style()
{
    QFETCH(bool, vertical);
    QFETCH(QString, sheet);
    QApplication::setStyle(QStyleFactory::create("windows"));
    QScrollArea area;
    orv::skin_scroll_bars(&area);
    QScrollBar *bar = vertical ? area.verticalScrollBar() : area.horizontalScrollBar();
    QCOMPARE(bar->styleSheet(), sheet);
    // Without a style sheet the underlying style shows.
    bar->setStyleSheet(QString());
    QVERIFY(bar->style()->inherits("QFusionStyle"));
    QVERIFY(!area.style()->inherits("QFusionStyle"));
}

KELVRA_WIDGET_TEST_MAIN(test_styled_widgets)
#include "test_styled_widgets.moc"
