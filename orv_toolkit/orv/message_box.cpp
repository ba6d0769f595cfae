// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/message_box.h"

#include "orv/scrolled_text.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>

namespace orv
{

namespace
{

constexpr char box_sheet[] =
    "* {background-color: rgb(47,47,47);color: rgb(198,213,210); }"
    "/*QAbstractButton { background-color: rgb(36,36,36);background-image: none;"
    "border-image: none; }*/"
    "QAbstractButton{padding-left:0.5em; padding-top: 0.5ex; padding-right: 0.5em; "
    "padding-bottom: 0.25ex; border-style:none;border-width:3px;"
    "border-image:url(:/gui/button/dark_normal.png) 3 stretch;}"
    "QAbstractButton::pressed{border-style:none;border-width:3px;"
    "border-image:url(:/gui/button/dark_pressed.png) 3 stretch;}"
    "QAbstractButton::hover{color:#f0f0f0;}"
    "QAbstractButton::disabled{color:rgba(129,136,133,50%);}";

constexpr char icon_label_sheet[] =
    "background: none; background-color: rgb(47,47,47); color: rgb(184,196,191);";

constexpr char text_label_name[] = "qt_msgbox_label";

/// The frame that QDialog assumes when it places a dialog whose frame it doesn't know.
constexpr QMargins usual_frame_px(10, 40, 10, 10);

/// The frame that the window manager will put around a box; it isn't known before the box is on the
/// screen. The frame of the box's owner is the same, unless the owner isn't shown, or fills the
/// screen and so has no frame or a trimmed one.
QMargins expected_frame(const QWidget *owner)
{
    if (!owner || !owner->isVisible() || owner->isMaximized() || owner->isFullScreen())
        return usual_frame_px;
    const QRect inner = owner->geometry();
    const QRect outer = owner->frameGeometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

/// The screen on which QDialog shows a box.
const QScreen &screen_of_box(const QWidget *owner)
{
    const QScreen *screen = owner ? owner->screen() : QGuiApplication::screenAt(QCursor::pos());
    return screen ? *screen : *QGuiApplication::primaryScreen();
}

}  // namespace

QMessageBox::StandardButton message_box::show_box(QWidget *parent, Icon icon, const QString &title,
                                                  const QString &text, StandardButtons buttons,
                                                  int default_button)
{
    return message_box(parent, icon, title, text, buttons, default_button).ask();
}

QMessageBox::StandardButton message_box::information(QWidget *parent, const QString &title,
                                                     const QString &text, StandardButtons buttons,
                                                     int default_button)
{
    return show_box(parent, Information, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::warning(QWidget *parent, const QString &title,
                                                 const QString &text, StandardButtons buttons,
                                                 int default_button)
{
    return show_box(parent, Warning, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::critical(QWidget *parent, const QString &title,
                                                  const QString &text, StandardButtons buttons,
                                                  int default_button)
{
    return show_box(parent, Critical, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::question(QWidget *parent, const QString &title,
                                                  const QString &text, StandardButtons buttons,
                                                  int default_button)
{
    return show_box(parent, Question, title, text, buttons, default_button);
}

QMessageBox::StandardButton message_box::question(QWidget *parent, const QString &title,
                                                  const QString &text, const QString &yes_text,
                                                  const QString &no_text, int default_button)
{
    message_box box(parent, Question, title, text, Yes | No, default_button);
    box.button(Yes)->setText(yes_text);
    box.button(No)->setText(no_text);
    return box.ask();
}

QMessageBox::StandardButton message_box::question(QWidget *parent, const QString &title,
                                                  const QString &text, const QString &yes_text,
                                                  const QString &no_text,
                                                  const QString &cancel_text, int default_button)
{
    message_box box(parent, Question, title, text, Yes | No | Cancel, default_button);
    box.button(Yes)->setText(yes_text);
    box.button(No)->setText(no_text);
    box.button(Cancel)->setText(cancel_text);
    return box.ask();
}

message_box::message_box(QWidget *parent, Icon icon, const QString &title, const QString &text,
                         StandardButtons buttons, int default_button)
    : QMessageBox(icon, title, text, NoButton, parent,
                  Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint)
{
    setStyleSheet(box_sheet);
    add_standard_buttons(*this, buttons, default_button);
}

/// When the style changes, QMessageBox makes a new layout with its own label.
void message_box::changeEvent(QEvent *event)
{
    QMessageBox::changeEvent(event);
    if (event->type() == QEvent::StyleChange && findChild<scrolled_text *>())
        replace_label();
}

void message_box::showEvent(QShowEvent *event)
{
    QMessageBox::showEvent(event);
    const QWidget *owner = parentWidget() ? parentWidget()->window() : nullptr;
    const QRect screen = screen_of_box(owner).availableGeometry();
    const QSize room = screen.marginsRemoved(expected_frame(owner)).size();
    if (!fits(room)) {
        scroll_text(room);
        adjustPosition(parentWidget());  // centres the box in its final size
    }
    if (findChild<scrolled_text *>())
        move_into({screen.topLeft(), room});
}

void message_box::add_standard_buttons(QMessageBox &box, StandardButtons buttons,
                                       int default_button)
{
    if (auto *icon_label = box.findChild<QLabel *>("qt_msgboxex_icon_label"))
        icon_label->setStyleSheet(icon_label_sheet);
    const auto *button_box = box.findChild<QDialogButtonBox *>();
    for (int bit = FirstButton; bit <= LastButton; bit <<= 1) {
        const auto standard_button = static_cast<StandardButton>(bit);
        if (!buttons.testFlag(standard_button))
            continue;
        QPushButton *button = box.addButton(standard_button);
        button->setIcon(QIcon());  // some platforms set one that doesn't match the skin
        const bool accepts = button_box->buttonRole(button) == QDialogButtonBox::AcceptRole;
        if (!box.defaultButton() && (default_button == 0 ? accepts : default_button == bit))
            box.setDefaultButton(button);
    }
}

QMessageBox::StandardButton message_box::ask()
{
    if (exec() == -1)
        return Cancel;
    return standardButton(clickedButton());
}

/// A label narrower than its longest word cuts the word off.
bool message_box::fits(QSize room) const
{
    const auto *label = findChild<QLabel *>(text_label_name);
    return label->isHidden() ||
           (size().boundedTo(room) == size() && label->width() >= label->minimumSizeHint().width());
}

void message_box::scroll_text(QSize room)
{
    auto *label = findChild<QLabel *>(text_label_name);
    auto *text = new scrolled_text(*label, room - (size() - label->size()), this);
    label->hide();  // keeps the text for text() and for the clipboard
    text->show();
    replace_label();
}

/// QDialog leaves no room for the bottom and right edges of the frame.
void message_box::move_into(const QRect &room)
{
    const QSize spare = room.size() - size();
    move(qBound(room.left(), x(), room.left() + spare.width()),
         qBound(room.top(), y(), room.top() + spare.height()));
}

/// Replaces the label in the layout by the scrolled text, and makes QMessageBox compute its size
/// from that.
void message_box::replace_label()
{
    delete layout()->replaceWidget(findChild<QLabel *>(text_label_name),
                                   findChild<scrolled_text *>());
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(this, &request);
}

}  // namespace orv
