// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/pixel_argb.h"

#include <QPushButton>
#include <QString>

#include <functional>

class QImage;
class QPainter;

namespace orv
{

/// The button of the main screens: a nine-slice face from the resources, and an icon whose colour
/// depends on the state. It takes no keyboard focus.
class button_dark : public QPushButton
{
    Q_OBJECT

public:
    /// An icon in three colours, one for each state of a button, made from one picture.
    ///
    /// The picture is either recoloured flat, so that only its alpha channel matters, or tinted:
    /// its colours are shifted by the difference between the normal and the hot colour.
    class img_highlighter
    {
    public:
        using paint_function = std::function<void(QPainter &, QPushButton *)>;

        img_highlighter() = default;
        ~img_highlighter();
        img_highlighter(const img_highlighter &) = delete;
        img_highlighter &operator=(const img_highlighter &) = delete;

        /// Sets colours and path. Note: rebuilds twice, first with the old path, then with the new
        /// one.
        void show(const QString &new_path, pixel_argb hot, pixel_argb normal);

        /// Loads the picture at `path` and colours it for each state; does nothing if the path is
        /// empty. A picture that can't be loaded paints nothing and has the width 0. If a screen
        /// has more than one device pixel per pixel, NAME@2x is loaded instead of NAME if it
        /// exists.
        void rebuild();

        /// A function that paints the icon in a `button_dark`; any other button ends the program.
        /// Requires: this object, which the function borrows, outlives it.
        /// @param x, y  the icon's top left corner in the button, -1 for centred on that axis
        paint_function get_custom_paint_ex(int x, int y);

        pixel_argb normal_colour;
        pixel_argb hot_colour;
        QString path;                    ///< of a resource
        QImage *image_normal = nullptr;  ///< owned, like the next two
        QImage *image_hot = nullptr;
        QImage *image_disabled = nullptr;
        int image_width = 0;  ///< device-independent pixels
        bool tinted = false;  ///< false: recoloured flat

    private:
        const QImage *image_for(const button_dark &button) const;
        void recolour();
        void tint();
    };

    explicit button_dark(QWidget *parent);
    button_dark(QString text, QWidget *parent);

    /// Changes the face.
    /// @param name  the start of its pictures' names: "dark" or "header"
    void set_skin(QString name);

    /// Aligns the text.
    /// @param align  a value of the style sheet property text-align
    void set_text_align(QString align);

    /// Fixes the width to that of the icon plus `left` and `right` pixels beside it.
    void fit_width(int left, int right);

    /// Sets `draw_frame_when_checked`, `use_checked_sheet` and `hot_when_checked`.
    void set_flags(bool draw_frame, bool use_checked, bool hot_checked);

    /// Shows the picture at the resource path `path`, in `hot` under the mouse, otherwise in
    /// `normal`.
    /// @param x, y  the icon's top left corner in the button, -1 for centred on that axis
    void set_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal);

    /// Like `set_icon`, but tinted.
    void set_tinted_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal);

    /// Shows another icon while the button is checked. From the next change of the style sheet on,
    /// the checked face isn't used. Requires: called after `set_icon`, which would replace the
    /// other icon.
    void set_checked_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal);

    /// Like `set_checked_icon`, but tinted.
    void set_tinted_checked_icon(QString path, int x, int y, pixel_argb hot, pixel_argb normal);

    QString sheet_template;
    QString sheet_checked;
    QString default_skin = "dark";
    QString default_align = "center";
    QString skin = default_skin;
    QString text_align = default_align;
    img_highlighter icon;
    img_highlighter checked_icon;
    bool draw_frame_when_checked = false;  ///< the icon's painter adds a frame
    bool hot_when_checked = true;          ///< the icon is also hot while the button is checked
    bool use_checked_sheet = true;         ///< false: the face doesn't change when checked
    bool allow_uncheck = false;  ///< clicking the checked button of an exclusive group unchecks it
    std::function<void(QPainter &)> paint_callback;
    std::function<void(QPainter &, QPushButton *)> paint_callback_ex;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void rebuild_sheet();
    bool unchecks_on_click() const;
};

}  // namespace orv
