// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/message_box.h"
#include "when_modal.h"
#include "widget_test_main.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>

#include <functional>

using orv::message_box;
using box_call = std::function<int(QWidget *)>;
Q_DECLARE_METATYPE(box_call)

namespace
{

constexpr char box_sheet[] =
    "* {background-color: rgb(47,47,47);color: rgb(198,213,210); }/*QAbstractButton { "
    "background-color: rgb(36,36,36);background-image: none;border-image: none; "
    "}*/QAbstractButton{padding-left:0.5em; padding-top: 0.5ex; padding-right: 0.5em; "
    "padding-bottom: 0.25ex; "
    "border-style:none;border-width:3px;border-image:url(:/gui/button/dark_normal.png) 3 "
    "stretch;}QAbstractButton::pressed{border-style:none;border-width:3px;border-image:url(:/gui/"
    "button/dark_pressed.png) 3 "
    "stretch;}QAbstractButton::hover{color:#f0f0f0;}QAbstractButton::disabled{color:rgba(129,136,"
    "133,50%);}";
constexpr char icon_label_sheet[] =
    "background: none; background-color: rgb(47,47,47); color: rgb(184,196,191);";
constexpr int no_default = 0;

/// A platform style that shows icons in the buttons of its boxes, as Qt's own style does on Linux.
class style_with_icons : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *return_data) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 1;
        return QProxyStyle::styleHint(hint, option, widget, return_data);
    }
};

/// Opens a box and presses the key in it. Returns the box's result.
int answer_by_key(const box_call &open, Qt::Key key)
{
    when_modal<message_box> answer([key](message_box &box) { QTest::keyClick(&box, key); });
    const int result = open(nullptr);
    return answer.answered() ? result : -1;
}

box_call ask_with(QMessageBox::StandardButtons buttons, int default_button)
{
    return [=](QWidget *parent) {
        return message_box::question(parent, "Title", "Text", buttons, default_button);
    };
}

}  // namespace

class test_message_box : public QObject
{
    Q_OBJECT

private slots:
    void each_call_shows_its_icon_and_texts_data();
    void each_call_shows_its_icon_and_texts();
    void box_has_the_dark_skin();
    void box_is_a_dialog_of_fixed_size();
    void box_shows_exactly_the_requested_buttons_data();
    void box_shows_exactly_the_requested_buttons();
    void buttons_have_no_icons();
    void buttons_have_the_given_texts();
    void default_button_follows_the_rule_data();
    void default_button_follows_the_rule();
    void every_button_returns_itself_data();
    void every_button_returns_itself();
    void return_key_presses_the_default();
    void escape_gives_the_escape_button_data();
    void escape_gives_the_escape_button();
    void close_gives_the_escape_button();
    void box_without_an_escape_button_stays_open();
    void result_minus_one_counts_as_cancel_data();
    void result_minus_one_counts_as_cancel();
    void text_can_be_selected_once_the_style_allows_it();
};

void test_message_box::each_call_shows_its_icon_and_texts_data()
{
    QTest::addColumn<box_call>("open");
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("buttons");
    const QMessageBox::StandardButtons ok = QMessageBox::Ok;
    const auto row = [](const char *name, QMessageBox::Icon icon, int buttons,
                        const box_call &open) {
        QTest::newRow(name) << open << static_cast<int>(icon) << buttons;
    };
    row("show_box", QMessageBox::Warning, QMessageBox::Ok, [ok](QWidget *parent) {
        return message_box::show_box(parent, QMessageBox::Warning, "A title", "A <text>", ok, 0);
    });
    row("show_box without an icon", QMessageBox::NoIcon, QMessageBox::Ok, [ok](QWidget *parent) {
        return message_box::show_box(parent, QMessageBox::NoIcon, "A title", "A <text>", ok, 0);
    });
    row("information", QMessageBox::Information, QMessageBox::Ok, [ok](QWidget *parent) {
        return message_box::information(parent, "A title", "A <text>", ok, 0);
    });
    row("warning", QMessageBox::Warning, QMessageBox::Ok, [ok](QWidget *parent) {
        return message_box::warning(parent, "A title", "A <text>", ok, 0);
    });
    row("critical", QMessageBox::Critical, QMessageBox::Ok, [ok](QWidget *parent) {
        return message_box::critical(parent, "A title", "A <text>", ok, 0);
    });
    row("question", QMessageBox::Question, QMessageBox::Ok, [ok](QWidget *parent) {
        return message_box::question(parent, "A title", "A <text>", ok, 0);
    });
    row("question with two button texts", QMessageBox::Question, 0x14000, [](QWidget *parent) {
        return message_box::question(parent, "A title", "A <text>", "Aye", "Nay", QMessageBox::Yes);
    });
    row("question with three button texts", QMessageBox::Question, 0x414000, [](QWidget *parent) {
        return message_box::question(parent, "A title", "A <text>", "Aye", "Nay", "Later",
                                     QMessageBox::Yes);
    });
}

void test_message_box::each_call_shows_its_icon_and_texts()
{
    QFETCH(box_call, open);
    QFETCH(int, icon);
    QFETCH(int, buttons);
    QWidget parent;
    when_modal<message_box> answer([&](message_box &box) {
        QCOMPARE(static_cast<int>(box.icon()), icon);
        QCOMPARE(box.windowTitle(), QString("A title"));
        QCOMPARE(box.text(), QString("A <text>"));
        QCOMPARE(static_cast<int>(box.standardButtons()), buttons);
        QCOMPARE(box.parentWidget(), &parent);
        QVERIFY(box.isModal());
    });
    open(&parent);
    QVERIFY(answer.answered());
}

void test_message_box::box_has_the_dark_skin()
{
    when_modal<message_box> answer([](message_box &box) {
        QCOMPARE(box.styleSheet(), QString(box_sheet));
        const auto *icon_label = box.findChild<QLabel *>("qt_msgboxex_icon_label");
        QVERIFY(icon_label);
        QCOMPARE(icon_label->styleSheet(), QString(icon_label_sheet));
        QCOMPARE(box.metaObject()->className(), "orv::message_box");
    });
    ask_with(QMessageBox::Ok, no_default)(nullptr);
    QVERIFY(answer.answered());
}

void test_message_box::box_is_a_dialog_of_fixed_size()
{
    const Qt::WindowFlags flags(259);
    const QMessageBox plain(QMessageBox::NoIcon, "", "", QMessageBox::Ok, nullptr, flags);
    when_modal<message_box> answer([&](message_box &box) {
        QCOMPARE(box.windowFlags() & flags, flags);
        QCOMPARE(box.windowFlags(), plain.windowFlags());
    });
    ask_with(QMessageBox::Ok, no_default)(nullptr);
    QVERIFY(answer.answered());
}

void test_message_box::box_shows_exactly_the_requested_buttons_data()
{
    QTest::addColumn<int>("buttons");
    QTest::newRow("one") << static_cast<int>(QMessageBox::Ok);
    QTest::newRow("first and last bit")
        << static_cast<int>(QMessageBox::Ok | QMessageBox::RestoreDefaults);
    QTest::newRow("all eighteen") << 0x0FFFFC00;
}

void test_message_box::box_shows_exactly_the_requested_buttons()
{
    QFETCH(int, buttons);
    when_modal<message_box> answer([buttons](message_box &box) {
        QCOMPARE(static_cast<int>(box.standardButtons()), buttons);
        QCOMPARE(box.buttons().size(), static_cast<int>(qPopulationCount(uint(buttons))));
        box.done(-1);
    });
    ask_with(static_cast<QMessageBox::StandardButtons>(buttons), no_default)(nullptr);
    QVERIFY(answer.answered());
}

void test_message_box::buttons_have_no_icons()
{
    QApplication::setStyle(new style_with_icons);
    when_modal<message_box> answer([](message_box &box) {
        QCOMPARE(box.buttons().size(), 3);
        for (const QAbstractButton *button : box.buttons())
            QVERIFY(button->icon().isNull());
        box.close();
    });
    ask_with(QMessageBox::Ok | QMessageBox::No | QMessageBox::Cancel, no_default)(nullptr);
    QVERIFY(answer.answered());
}

void test_message_box::buttons_have_the_given_texts()
{
    when_modal<message_box> two([](message_box &box) {
        QCOMPARE(box.button(QMessageBox::Yes)->text(), QString("Aye"));
        QCOMPARE(box.button(QMessageBox::No)->text(), QString("Nay"));
    });
    message_box::question(nullptr, "", "", "Aye", "Nay", no_default);
    QVERIFY(two.answered());
    when_modal<message_box> three([](message_box &box) {
        QCOMPARE(box.button(QMessageBox::Yes)->text(), QString("Aye"));
        QCOMPARE(box.button(QMessageBox::No)->text(), QString("Nay"));
        QCOMPARE(box.button(QMessageBox::Cancel)->text(), QString("Later"));
    });
    message_box::question(nullptr, "", "", "Aye", "Nay", "Later", no_default);
    QVERIFY(three.answered());
}

void test_message_box::default_button_follows_the_rule_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("default_button");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, QMessageBox::StandardButtons buttons, int default_button,
                        int expected) {
        QTest::newRow(name) << static_cast<int>(buttons) << default_button << expected;
    };
    using box = QMessageBox;
    row("none named: Ok accepts", box::Ok | box::Cancel, 0, box::Ok);
    row("none named: Save accepts", box::Save | box::Discard | box::Cancel, 0, box::Save);
    row("none named: the first that accepts", box::Open | box::Save | box::Close, 0, box::Save);
    row("none named: Yes and No have other roles", box::Yes | box::No, 0, 0);
    row("none named: Cancel and Close don't accept", box::Cancel | box::Close, 0, 0);
    row("named", box::Ok | box::Cancel, box::Cancel, box::Cancel);
    row("Yes named", box::Yes | box::No, box::Yes, box::Yes);
    row("No named", box::Yes | box::No, box::No, box::No);
    row("named one is missing", box::Ok | box::Cancel, box::Yes, 0);
}

void test_message_box::default_button_follows_the_rule()
{
    QFETCH(int, buttons);
    QFETCH(int, default_button);
    QFETCH(int, expected);
    when_modal<message_box> answer([expected](message_box &box) {
        const int found =
            box.defaultButton() ? static_cast<int>(box.standardButton(box.defaultButton())) : 0;
        QCOMPARE(found, expected);
        box.done(-1);
    });
    ask_with(static_cast<QMessageBox::StandardButtons>(buttons), default_button)(nullptr);
    QVERIFY(answer.answered());
}

void test_message_box::every_button_returns_itself_data()
{
    QTest::addColumn<box_call>("open");
    QTest::addColumn<int>("button");
    const auto row = [](const char *name, int button, const box_call &open) {
        QTest::newRow(name) << open << button;
    };
    const box_call two_texts = [](QWidget *parent) {
        return message_box::question(parent, "", "", "Aye", "Nay", QMessageBox::No);
    };
    const box_call three_texts = [](QWidget *parent) {
        return message_box::question(parent, "", "", "Aye", "Nay", "Later", QMessageBox::No);
    };
    const box_call warning = [](QWidget *parent) {
        return message_box::warning(parent, "", "", QMessageBox::Ok | QMessageBox::Retry, 0);
    };
    row("Yes of two texts", QMessageBox::Yes, two_texts);
    row("No of two texts", QMessageBox::No, two_texts);
    row("Yes of three texts", QMessageBox::Yes, three_texts);
    row("No of three texts", QMessageBox::No, three_texts);
    row("Cancel of three texts", QMessageBox::Cancel, three_texts);
    row("Ok", QMessageBox::Ok, warning);
    row("Retry", QMessageBox::Retry, warning);
}

void test_message_box::every_button_returns_itself()
{
    QFETCH(box_call, open);
    QFETCH(int, button);
    when_modal<message_box> answer([button](message_box &box) {
        QTest::mouseClick(box.button(static_cast<QMessageBox::StandardButton>(button)),
                          Qt::LeftButton);
    });
    QCOMPARE(open(nullptr), button);
    QVERIFY(answer.answered());
}

void test_message_box::return_key_presses_the_default()
{
    QCOMPARE(answer_by_key(ask_with(QMessageBox::Yes | QMessageBox::No, QMessageBox::No),
                           Qt::Key_Return),
             static_cast<int>(QMessageBox::No));
    QCOMPARE(
        answer_by_key(ask_with(QMessageBox::Ok | QMessageBox::Cancel, no_default), Qt::Key_Return),
        static_cast<int>(QMessageBox::Ok));
}

void test_message_box::escape_gives_the_escape_button_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, QMessageBox::StandardButtons buttons,
                        QMessageBox::StandardButton expected) {
        QTest::newRow(name) << static_cast<int>(buttons) << static_cast<int>(expected);
    };
    using box = QMessageBox;
    row("Cancel", box::Yes | box::No | box::Cancel, box::Cancel);
    row("No, without a Cancel", box::Yes | box::No, box::No);
    row("a single button", box::Ok, box::Ok);
}

void test_message_box::escape_gives_the_escape_button()
{
    QFETCH(int, buttons);
    QFETCH(int, expected);
    const auto mask = static_cast<QMessageBox::StandardButtons>(buttons);
    QCOMPARE(answer_by_key(ask_with(mask, QMessageBox::Yes), Qt::Key_Escape), expected);
}

void test_message_box::close_gives_the_escape_button()
{
    when_modal<message_box> answer([](message_box &box) { box.close(); });
    QCOMPARE(message_box::question(nullptr, "", "", "Aye", "Nay", QMessageBox::Yes),
             QMessageBox::No);
    QVERIFY(answer.answered());
}

void test_message_box::box_without_an_escape_button_stays_open()
{
    when_modal<message_box> answer([](message_box &box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        QVERIFY(box.isVisible());
        box.close();
        QVERIFY(box.isVisible());
        QTest::mouseClick(box.button(QMessageBox::Save), Qt::LeftButton);
    });
    QCOMPARE(ask_with(QMessageBox::Ok | QMessageBox::Save, no_default)(nullptr),
             static_cast<int>(QMessageBox::Save));
    QVERIFY(answer.answered());
}

void test_message_box::result_minus_one_counts_as_cancel_data()
{
    QTest::addColumn<box_call>("open");
    QTest::newRow("one button") << ask_with(QMessageBox::Ok, no_default);
    QTest::newRow("without a Cancel") << ask_with(QMessageBox::Yes | QMessageBox::No, no_default);
    QTest::newRow("two button texts") << box_call([](QWidget *parent) {
        return message_box::question(parent, "", "", "Aye", "Nay", no_default);
    });
}

void test_message_box::result_minus_one_counts_as_cancel()
{
    QFETCH(box_call, open);
    when_modal<message_box> answer([](message_box &box) { box.done(-1); });
    QCOMPARE(open(nullptr), static_cast<int>(QMessageBox::Cancel));
    QVERIFY(answer.answered());
}

/// A box adopts another style while it is open, as any box of Qt does.
void test_message_box::text_can_be_selected_once_the_style_allows_it()
{
    when_modal<message_box> answer([](message_box &box) {
        const auto *label = box.findChild<QLabel *>("qt_msgbox_label");
        const Qt::TextInteractionFlags by_mouse = Qt::TextSelectableByMouse;
        QVERIFY(label->textInteractionFlags() != by_mouse);
        const QString flags = QString::number(by_mouse);
        box.setStyleSheet("QMessageBox{messagebox-text-interaction-flags:" + flags + "}");
        QCOMPARE(label->textInteractionFlags(), by_mouse);
        box.close();
    });
    ask_with(QMessageBox::Ok, no_default)(nullptr);
    QVERIFY(answer.answered());
}

KELVRA_WIDGET_TEST_MAIN(test_message_box)
#include "test_message_box.moc"
