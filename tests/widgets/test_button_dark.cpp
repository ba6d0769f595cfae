// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_dark.h"
#include "widget_test_main.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>

using orv::button_dark;

namespace
{

constexpr char face_sheet[] =
    "QPushButton{border-style:none;border-width:3px;border-image:url(:/gui/button/%1_normal.png) 3 "
    "stretch;text-align:%2;}QPushButton::pressed{border-style:none;border-width:3px;border-image:"
    "url(:/gui/button/%1_pressed.png) 3 "
    "stretch;}QPushButton::hover{color:#f0f0f0;}QPushButton::disabled{color:rgba(129,136,133,50%);}"
    "QToolTip{border:1px solid "
    "rgb(99,99,99);background-image:none;background-color:rgb(47,47,47);}";
constexpr char checked_face_sheet[] = "QPushButton::checked{border-style:none;border-width:3px;"
                                      "border-image:url(:/gui/button/%1_pressed.png) 3 stretch;}";

QString filled(const QString &sheet, const QString &skin, const QString &align)
{
    return QString(sheet).replace("%1", skin).replace("%2", align);
}

/// Two checkable buttons in one group.
struct button_pair {
    button_pair()
    {
        auto *row = new QHBoxLayout(&window);
        for (button_dark *button : {&first, &second}) {
            button->setCheckable(true);
            row->addWidget(button);
            group.addButton(button);
        }
        window.show();
    }

    QWidget window;
    button_dark first{"first", &window};
    button_dark second{"second", &window};
    QButtonGroup group;
};

void click(button_dark &button)
{
    QTest::mouseClick(&button, Qt::LeftButton);
}

}  // namespace

class test_button_dark : public QObject
{
    Q_OBJECT

private slots:
    void starts_in_the_dark_skin();
    void takes_text_and_parent();
    void sheet_has_each_skin_and_alignment_data();
    void sheet_has_each_skin_and_alignment();
    void skin_may_name_the_alignment();
    void setters_keep_each_others_values();
    void flags_are_set_in_order_data();
    void flags_are_set_in_order();
    void flags_decide_the_checked_sheet();
    void width_is_the_icons_plus_margins();
    void takes_no_focus_by_a_click();
    void callbacks_run_in_order_after_the_face();
    void second_click_leaves_an_exclusive_button_checked();
    void second_click_unchecks_if_allowed();
    void first_click_checks_if_unchecking_is_allowed();
    void click_on_another_moves_the_check();
    void inclusive_group_is_left_unchanged();
    void button_without_a_group_just_toggles();
};

void test_button_dark::starts_in_the_dark_skin()
{
    const button_dark button(nullptr);
    QCOMPARE(button.sheet_template, QString(face_sheet));
    QCOMPARE(button.sheet_checked, QString(checked_face_sheet));
    QCOMPARE(button.default_skin, QString("dark"));
    QCOMPARE(button.default_align, QString("center"));
    QCOMPARE(button.skin, QString("dark"));
    QCOMPARE(button.text_align, QString("center"));
    QVERIFY(!button.draw_frame_when_checked);
    QVERIFY(button.hot_when_checked);
    QVERIFY(button.use_checked_sheet);
    QVERIFY(!button.allow_uncheck);
    QVERIFY(!button.paint_callback);
    QVERIFY(!button.paint_callback_ex);
    QCOMPARE(button.focusPolicy(), Qt::NoFocus);
    QCOMPARE(button.text(), QString());
    QCOMPARE(button.styleSheet(),
             filled(QString(face_sheet) + checked_face_sheet, "dark", "center"));
}

void test_button_dark::takes_text_and_parent()
{
    QWidget parent;
    const auto *with_text = new button_dark("Words", &parent);
    const auto *without_text = new button_dark(&parent);
    QCOMPARE(with_text->parentWidget(), &parent);
    QCOMPARE(with_text->text(), QString("Words"));
    QCOMPARE(without_text->parentWidget(), &parent);
    QCOMPARE(with_text->styleSheet(), without_text->styleSheet());
    QCOMPARE(with_text->focusPolicy(), Qt::NoFocus);
}

void test_button_dark::sheet_has_each_skin_and_alignment_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<QString>("align");
    // clang-format off
    QTest::newRow("the defaults")      << "dark"   << "center";
    QTest::newRow("big buttons")       << "header" << "center";
    QTest::newRow("another alignment") << "header" << "left";
    // clang-format on
}

void test_button_dark::sheet_has_each_skin_and_alignment()
{
    QFETCH(QString, skin);
    QFETCH(QString, align);
    button_dark button(nullptr);
    button.set_skin(skin);
    button.set_text_align(align);
    const QString sheet = button.styleSheet();
    QCOMPARE(sheet, filled(QString(face_sheet) + checked_face_sheet, skin, align));
    QCOMPARE(sheet.count("url(:/gui/button/" + skin + "_"), 3);
    button.set_flags(false, false, true);
    QCOMPARE(button.styleSheet(), filled(face_sheet, skin, align));
}

void test_button_dark::skin_may_name_the_alignment()
{
    button_dark button(nullptr);
    button.set_skin("%2/dark");
    button.set_text_align("left");
    QVERIFY(button.styleSheet().contains("url(:/gui/button/left/dark_normal.png)"));
}

void test_button_dark::setters_keep_each_others_values()
{
    button_dark button(nullptr);
    button.set_text_align("right");
    button.set_skin("header");
    QCOMPARE(button.text_align, QString("right"));
    QVERIFY(button.styleSheet().contains("text-align:right;"));
    button.set_text_align("left");
    QCOMPARE(button.skin, QString("header"));
    QVERIFY(button.styleSheet().contains("header_normal.png"));
    QCOMPARE(button.default_skin, QString("dark"));
    QCOMPARE(button.default_align, QString("center"));
}

void test_button_dark::flags_are_set_in_order_data()
{
    QTest::addColumn<bool>("draw_frame");
    QTest::addColumn<bool>("use_checked");
    QTest::addColumn<bool>("hot_checked");
    QTest::newRow("frame alone") << true << false << false;
    QTest::newRow("sheet alone") << false << true << false;
    QTest::newRow("hot alone") << false << false << true;
}

void test_button_dark::flags_are_set_in_order()
{
    QFETCH(bool, draw_frame);
    QFETCH(bool, use_checked);
    QFETCH(bool, hot_checked);
    button_dark button(nullptr);
    button.set_flags(draw_frame, use_checked, hot_checked);
    QCOMPARE(button.draw_frame_when_checked, draw_frame);
    QCOMPARE(button.use_checked_sheet, use_checked);
    QCOMPARE(button.hot_when_checked, hot_checked);
    QCOMPARE(button.styleSheet().contains("::checked"), use_checked);
}

void test_button_dark::flags_decide_the_checked_sheet()
{
    button_dark button(nullptr);
    const QString whole_sheet = button.styleSheet();
    button.set_flags(false, false, true);
    QCOMPARE(button.styleSheet(), filled(face_sheet, "dark", "center"));
    button.set_flags(false, true, true);
    QCOMPARE(button.styleSheet(), whole_sheet);
}

void test_button_dark::width_is_the_icons_plus_margins()
{
    button_dark button(nullptr);
    button.fit_width(5, 7);
    QCOMPARE(button.minimumWidth(), 12);
    button.set_icon(":/images/icon_settings.png", -1, -1, {}, {});
    button.fit_width(5, 7);
    QCOMPARE(button.minimumWidth(), 5 + 14 + 7);
    QCOMPARE(button.maximumWidth(), 5 + 14 + 7);
}

void test_button_dark::takes_no_focus_by_a_click()
{
    button_pair buttons;
    QVERIFY(QTest::qWaitForWindowActive(&buttons.window));
    QSignalSpy clicked(&buttons.first, &QPushButton::clicked);
    click(buttons.first);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(!buttons.first.hasFocus());
}

void test_button_dark::callbacks_run_in_order_after_the_face()
{
    button_dark button(nullptr);
    button.resize(20, 20);
    QStringList calls;
    bool antialiased = false;
    button.paint_callback_ex = [&](QPainter &painter, QPushButton *painted) {
        antialiased = painter.testRenderHint(QPainter::Antialiasing);
        painter.fillRect(0, 0, 20, 20, Qt::red);
        calls << (painted == &button ? "with the button" : "with another");
    };
    button.paint_callback = [&](QPainter &painter) {
        painter.fillRect(0, 0, 10, 20, Qt::blue);
        calls << "without";
    };
    const QImage picture = button.grab().toImage();
    QVERIFY(calls.size() >= 2);
    QCOMPARE(calls.mid(0, 2), QStringList({"with the button", "without"}));
    QVERIFY(antialiased);
    QCOMPARE(picture.pixelColor(5, 10), QColor(Qt::blue));
    QCOMPARE(picture.pixelColor(15, 10), QColor(Qt::red));
}

void test_button_dark::second_click_leaves_an_exclusive_button_checked()
{
    button_pair buttons;
    click(buttons.first);
    QVERIFY(buttons.first.isChecked());
    click(buttons.first);
    QVERIFY(buttons.first.isChecked());
    QCOMPARE(buttons.group.checkedButton(), &buttons.first);
}

void test_button_dark::second_click_unchecks_if_allowed()
{
    button_pair buttons;
    buttons.first.allow_uncheck = true;
    click(buttons.first);
    QVERIFY(buttons.first.isChecked());
    QSignalSpy clicked(&buttons.first, &QPushButton::clicked);
    click(buttons.first);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(!buttons.first.isChecked());
    QVERIFY(!buttons.group.checkedButton());
    QVERIFY(buttons.group.exclusive());
}

void test_button_dark::first_click_checks_if_unchecking_is_allowed()
{
    button_pair buttons;
    buttons.first.allow_uncheck = true;
    buttons.second.setChecked(true);
    click(buttons.first);
    QCOMPARE(buttons.group.checkedButton(), &buttons.first);
    QVERIFY(!buttons.second.isChecked());
    QVERIFY(buttons.group.exclusive());
}

void test_button_dark::click_on_another_moves_the_check()
{
    button_pair buttons;
    buttons.first.allow_uncheck = true;
    click(buttons.first);
    click(buttons.second);
    QVERIFY(!buttons.first.isChecked());
    click(buttons.second);
    QCOMPARE(buttons.group.checkedButton(), &buttons.second);
}

void test_button_dark::inclusive_group_is_left_unchanged()
{
    button_pair buttons;
    buttons.group.setExclusive(false);
    buttons.first.allow_uncheck = true;
    click(buttons.first);
    click(buttons.second);
    QVERIFY(buttons.first.isChecked() && buttons.second.isChecked());
    click(buttons.first);
    QVERIFY(!buttons.first.isChecked());
    QVERIFY(buttons.second.isChecked());
    QVERIFY(!buttons.group.exclusive());
}

void test_button_dark::button_without_a_group_just_toggles()
{
    button_dark button(nullptr);
    button.setCheckable(true);
    button.allow_uncheck = true;
    button.show();
    click(button);
    QVERIFY(button.isChecked());
    click(button);
    QVERIFY(!button.isChecked());
}

KELVRA_WIDGET_TEST_MAIN(test_button_dark)
#include "test_button_dark.moc"
