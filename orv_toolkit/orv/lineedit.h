// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLineEdit>

namespace orv
{

/// An input field that style sheets can address as `orv--lineedit`.
class lineedit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

    /// The skin of an input field; the code that creates one has to set it.
    static const char sheet[];

protected:
    /// Like QLineEdit, but the menu has the program's skin regardless of the surrounding widgets'
    /// sheets.
    void contextMenuEvent(QContextMenuEvent *event) override;
};

}  // namespace orv
