// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRadioButton>

namespace orv
{

/// A radio button that style sheets can address as `orv--radio`.
class radio : public QRadioButton
{
    Q_OBJECT

public:
    using QRadioButton::QRadioButton;

    /// The skin of a radio button; the code that creates one has to set it.
    static const char sheet[];
};

}  // namespace orv
