// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QLabel;
class QScrollArea;

namespace orv
{

/// The text of a box that is too big for its screen, fitted into the available room: words that are
/// too wide are broken, and a text that is too tall scrolls.
///
/// It scrolls with the mouse wheel, with a scroll bar in the program's skin and, whichever widget
/// in the window has the keyboard focus, with the keys Up, Down, Page Up, Page Down, Home and End.
/// It never takes the focus itself. The last paragraph of a plain text, such as the question below
/// a list, stays visible below the part that scrolls, unless it leaves that part too little room.
class scrolled_text : public QWidget
{
    Q_OBJECT

public:
    /// @param label  shows the text now; its text and its width are used
    /// @param room   the largest size that this may request
    scrolled_text(const QLabel &label, QSize room, QWidget *parent);

    QSize sizeHint() const override { return needed; }
    QSize minimumSizeHint() const override { return needed; }

protected:
    /// Also called when the mouse is over the question, which doesn't handle the wheel itself.
    void wheelEvent(QWheelEvent *event) override;

private:
    void add_scrolling();

    QScrollArea *area;  ///< child of this
    QSize needed;
};

}  // namespace orv
