// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMessageBox>

namespace orv
{

/// The program's message boxes, in its skin; every question to the user goes through here.
///
/// All calls are modal and return the button pressed. Closing a box by its frame counts as its
/// escape button, such as No in a box with Yes and No. If no button can be determined, the result
/// is Cancel.
///
/// `parent` may be null. `buttons` is the mask of the buttons shown. `default_button` is one of
/// them, or 0 for the first button with the accept role, such as Ok.
///
/// No box is larger than its screen, including its frame. A box that would be larger, or that would
/// cut off a long word, shows its text in a `scrolled_text`. `text()` is always the whole text.
class message_box : public QMessageBox
{
    Q_OBJECT

public:
    using QMessageBox::QMessageBox;

    /// Shows a box with this icon; the next four do the same with the icon in their name.
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

    /// Asks with the buttons Yes and No, labelled with these texts.
    static StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                   const QString &yes_text, const QString &no_text,
                                   int default_button);

    /// Asks with the buttons Yes, No and Cancel, labelled with these texts.
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
