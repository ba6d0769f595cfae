// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/qt/layout.h"

#include <QWidget>

class QPushButton;

namespace qor::qt
{

/// A section with a title row and a content area; a click folds it to a low height, and opens it
/// again, by a slide that blocks.
///
/// It must stand in a cell of a `qor::qt::layout`: what slides is the height of its row there. That
/// cell is found through `clicked_cell`, a millisecond after construction too, so the section must
/// be made by a click on a widget of the kit whose own parent is the content of a cell. Where there
/// is no such cell the program ends.
class widget_fold : public QWidget
{
    Q_OBJECT

public:
    /// @param title        empty for none
    /// @param button       folds and opens; it becomes a child and keeps its text. Null: the
    ///                     section makes one, with the texts "fold" and "unfold"
    /// @param seconds      of the slide; 0 and less: the height jumps
    /// @param fold_height  of the row when folded, in pixels
    widget_fold(QString title, QPushButton *button, double seconds, int fold_height);

    qor::qt::layout *main_layout;  ///< title row and content; this widget's, like the next two
    bool owns_button = false;      ///< the button is of its own making, so its text may change
    bool is_folded = false;
    int fold_height;
    int open_height = 25;         ///< pixels to go back to; taken from the row at each folding
    cell *parent_cell = nullptr;  ///< stays null: the cell is looked up when needed
    qor::qt::layout *title_layout;
    qor::qt::layout *content_layout;  ///< whoever makes the section adds the content here
    double seconds;
    QPushButton *button;

signals:
    /// Sent after the slide. The argument is the inverse of the state on purpose: folding sends
    /// false.
    void folded(bool closed);

private:
    void add_button();
    QString own_button_text() const;
    void add_title(const QString &title);
    void add_content();
    void schedule_late_step();
    void fit_content_to_row();
    void toggle();
};

}  // namespace qor::qt
