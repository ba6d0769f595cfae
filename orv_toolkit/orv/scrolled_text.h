// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QLabel;
class QScrollArea;

namespace orv
{

/// The text of a box that is too big for its screen, in the room that there is: words that are too
/// wide are broken, and what is too high scrolls.
///
/// It scrolls by the mouse wheel, by a bar in the skin and, wherever the keyboard is in the window,
/// by the keys Up, Down, Page Up, Page Down, Home and End. It never takes the keyboard itself. The
/// last paragraph of a plain text, such as the question below a list, stays in sight below the part
/// that scrolls, unless it leaves that part too little room.
class scrolled_text : public QWidget
{
    Q_OBJECT

public:
    /// @param label  shows the text now; its text and its width are taken over
    /// @param room   the most that this may ask for
    scrolled_text(const QLabel &label, QSize room, QWidget *parent);

    QSize sizeHint() const override { return needed; }
    QSize minimumSizeHint() const override { return needed; }

protected:
    /// From the question too, which has no wheel of its own.
    void wheelEvent(QWheelEvent *event) override;

private:
    void add_scrolling();

    QScrollArea *area;  ///< child of this
    QSize needed;
};

}  // namespace orv
