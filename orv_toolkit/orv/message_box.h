// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMessageBox>

namespace orv
{

/// The program's message boxes, in its skin; every question to the user goes through here.
///
/// All calls are modal and return the button pressed. Closing a box by its frame counts as its
/// escape button: No in a box with Yes and No; a box that can't tell returns Cancel.
///
/// `parent` may be null. `buttons` is the mask of the buttons shown. `default_button` is one of
/// them or 0, with which the first button of the accept role, such as Ok, becomes the default.
///
/// No box is bigger than its screen, frame included: one that would be, or that would cut off a
/// long word, shows its text as a `scrolled_text`. `text()` is the whole text in all cases.
class message_box : public QMessageBox
{
    Q_OBJECT

public:
    using QMessageBox::QMessageBox;

    static StandardButton show_box(QWidget *parent, Icon icon, const QString &title,
                                   const QString &text, StandardButtons buttons,
                                   int default_button);
    static StandardButton information(QWidget *parent, const QString &title, const QString &text,
                                      StandardButtons buttons, int default_button);
    static StandardButton warning(QWidget *parent, const QString &title, const QString &text,
                                  StandardButtons buttons, int default_button);
    static StandardButton critical(QWidget *parent, const QString &title, const QString &text,
                                   StandardButtons buttons, int default_button);
    static StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                   StandardButtons buttons, int default_button);

    /// Asks with the buttons Yes and No under other words.
    static StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                   const QString &yes_text, const QString &no_text,
                                   int default_button);

    /// Asks with the buttons Yes, No and Cancel under other words.
    static StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                   const QString &yes_text, const QString &no_text,
                                   const QString &cancel_text, int default_button);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    message_box(QWidget *parent, Icon icon, const QString &title, const QString &text,
                StandardButtons buttons, int default_button);

    static void add_standard_buttons(QMessageBox &box, StandardButtons buttons, int default_button);
    StandardButton ask();
    bool fits(QSize room) const;
    void scroll_text(QSize room);
    void move_into(const QRect &room);
    void replace_label();
};

}  // namespace orv
