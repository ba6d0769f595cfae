// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/qt/layout.h"

#include <QWidget>

class QPushButton;

namespace qor::qt
{

/// A section with a title row and a content area. A click on its button folds it to a small height
/// or opens it again, in a slide that blocks.
///
/// Requires: it is in a cell of a `qor::qt::layout`; the height of that cell's row slides. The cell
/// is looked up at each click, and once a millisecond after construction: it is the one whose
/// content is the parent of the last clicked widget (`clicked_cell`). So the section must be
/// created by a click on a widget of the kit whose parent is the content of a cell. If no cell is
/// found, the program ends.
class widget_fold : public QWidget
{
    Q_OBJECT

public:
    /// @param title        empty for none
    /// @param button       folds and opens the section; it becomes a child and keeps its text.
    ///                     Null: the section makes one, with the texts "fold" and "unfold"
    /// @param seconds      duration of the slide; 0 or less: the height jumps
    /// @param fold_height  height of the row when folded, in pixels
    widget_fold(QString title, QPushButton *button, double seconds, int fold_height);

    qor::qt::layout *main_layout;  ///< title row and content; owned, like the other two layouts
    bool owns_button = false;      ///< the section made the button and may change its text
    bool is_folded = false;
    int fold_height;
    int open_height = 25;         ///< pixels to open to; read from the row when it folds
    cell *parent_cell = nullptr;  ///< stays null: the cell is looked up when needed
    qor::qt::layout *title_layout;
    qor::qt::layout *content_layout;  ///< the creator of the section adds the content here
    double seconds;
    QPushButton *button;

signals:
    /// Sent after the slide. Note: the argument is the inverse of the state on purpose; folding
    /// sends false.
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
