// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCheckBox>

namespace orv
{

/// A check box that style sheets can address as `orv--checkbox`.
class checkbox : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;
};

}  // namespace orv
