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
};

}  // namespace orv
