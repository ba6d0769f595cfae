// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QComboBox>

namespace orv
{

/// A combo box whose list is as tall as its items, addressed in style sheets as `orv--combobox`.
class combobox : public QComboBox
{
    Q_OBJECT

public:
    explicit combobox(QWidget *parent = nullptr);

    /// As QComboBox, then 20 pixels a row whatever `maxVisibleItems` says.
    void showPopup() override;

    /// The skin of a combo box; whoever makes one sets it.
    static const char sheet[];

    bool wheel_disabled = false;  ///< true: the mouse wheel doesn't change the choice

protected:
    void wheelEvent(QWheelEvent *event) override;
};

}  // namespace orv
