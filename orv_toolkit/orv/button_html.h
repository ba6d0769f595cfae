// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/button.h"

namespace orv
{

/// A button that shows rich text, drawn once into its icon; it flashes with its style sheet.
class button_html : public button
{
    Q_OBJECT

public:
    /// @param html  in the subset that QTextDocument supports
    button_html(QString html, QWidget *parent);
    explicit button_html(QWidget *parent);
};

}  // namespace orv
