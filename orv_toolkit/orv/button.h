// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPushButton>
#include <QRect>

namespace orv
{

/// A flat button that flashes for a fifth of a second when it is clicked: with a frame in its style
/// sheet or, if it was given a rectangle, by painting that. It takes no keyboard focus.
///
/// Note: unlike in a push button, releasing the mouse anywhere counts as a click, and the button
/// stays down.
class button : public QPushButton
{
    Q_OBJECT

public:
    button(QString text, QWidget *parent);

    /// A button without text that paints its flash.
    /// @param rect  becomes `highlight_rect`, with 4 pixels added to left and top, 1 to right and
    ///              bottom
    button(QWidget *parent, QRect rect);

    bool highlight = false;  ///< the flash is visible
    QRect highlight_rect;    ///< where it is painted; if invalid, the style sheet flashes

public slots:
    /// Ends the flash.
    void deaktivate_highlight();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void merge_sheet(QString declarations);
};

}  // namespace orv
