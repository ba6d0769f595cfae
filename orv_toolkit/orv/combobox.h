// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QComboBox>

namespace orv
{

/// A combo box whose list is as tall as its items. Style sheets can address it as `orv--combobox`.
class combobox : public QComboBox
{
    Q_OBJECT

public:
    explicit combobox(QWidget *parent = nullptr);

    /// Like QComboBox, but the list shows all rows, 20 pixels each, regardless of
    /// `maxVisibleItems`.
    void showPopup() override;

    /// The skin of a combo box; the code that creates one has to set it.
    static const char sheet[];

    bool wheel_disabled = false;  ///< true: the mouse wheel doesn't change the selection

protected:
    void wheelEvent(QWheelEvent *event) override;
};

}  // namespace orv
