// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLineEdit>

namespace orv
{

/// An input line that style sheets can address as `orv--lineedit`.
class lineedit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

    /// The skin of an input line; whoever makes one sets it.
    static const char sheet[];

protected:
    /// As QLineEdit, in a menu of the program's skin whatever the sheets of the widgets around say.
    void contextMenuEvent(QContextMenuEvent *event) override;
};

}  // namespace orv
