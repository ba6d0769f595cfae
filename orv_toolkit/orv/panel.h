// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

namespace orv
{

/// A frame in the program's skin around one content widget.
class panel : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Builds the frame around `content`, which becomes a child. Requires: called only once.
    /// @param suffix  of the names of the border picture and the style rule: empty or "_topless"
    void set_up(QWidget *content, const QString &suffix);
};

}  // namespace orv
