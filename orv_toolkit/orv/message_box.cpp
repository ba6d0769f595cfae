// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/message_box.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

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
        button->setIcon(QIcon());  // some platforms bring one that isn't of this skin
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

}  // namespace orv
