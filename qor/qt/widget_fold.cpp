// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/widget_fold.h"

#include "qor/assertion.h"
#include "qor/qt/lambda.h"
#include "qor/qt/properties.h"
#include "qor/qt/slide.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

namespace qor::qt
{

namespace
{

constexpr int late_step_ms = 1;
constexpr int button_trim_px = 20;
constexpr int content_height_px = 400;

/// The cell whose content is the parent of the last clicked widget.
cell &cell_around_clicked_widget()
{
    QWidget *clicked = clicked_cell ? clicked_cell->widget() : nullptr;
    const auto found = widget_cells.find(clicked ? clicked->parentWidget() : nullptr);
    if (found == widget_cells.end())
        assertion_failed("found != widget_cells.end()", __FILE__, __LINE__,
                         "qor::qt::cell& qor::qt::cell_around_clicked_widget()");
    return *found->second;
}

int &row_height_of(const cell &placed)
{
    return placed.owner->row_height(placed.row);
}

}  // namespace

widget_fold::widget_fold(QString title, QPushButton *button, double seconds, int fold_height)
    : main_layout(new qor::qt::layout(2, false)), fold_height(fold_height),
      title_layout(new qor::qt::layout(1, false)), content_layout(new qor::qt::layout(1, false)),
      seconds(seconds), button(button)
{
    add_button();
    add_title(title);
    add_content();
    schedule_late_step();
    setLayout(main_layout);
    lay_out_anew(*window(), window()->size(), repainting::at_each_step);
}

void widget_fold::add_button()
{
    if (!button) {
        button = new QPushButton(own_button_text());
        owns_button = true;
    }
    main_layout->add<QPushButton>(button, [this] { toggle(); },
                                  {properties::row_height(fold_height)});
    const int hinted_width = button->sizeHint().width();
    main_layout->column_width() = hinted_width != 0 ? hinted_width - button_trim_px : fold_height;
}

/// lupdate, which collects the texts to translate, needs the full name of the class.
QString widget_fold::own_button_text() const
{
    return is_folded ? qor::qt::widget_fold::tr("unfold") : qor::qt::widget_fold::tr("fold");
}

void widget_fold::add_title(const QString &title)
{
    auto *holder = new QWidget;
    holder->setLayout(title_layout);
    main_layout->add_at(cell(holder), 1, 0, false);
    if (!title.isEmpty())
        title_layout->add(new QLabel(title), {}, {});
}

void widget_fold::add_content()
{
    main_layout->add(content_layout,
                     {properties::margin_top(0), properties::height(content_height_px),
                      properties::column_span(2)});
}

void widget_fold::schedule_late_step()
{
    const QPointer<widget_fold> section = this;
    auto *receiver = new lambda([section] {
        if (section)
            section->fit_content_to_row();
    });
    QTimer::singleShot(late_step_ms, receiver, "1call()");
}

void widget_fold::fit_content_to_row()
{
    main_layout->cells.at({0, 1}).height =
        static_cast<float>(row_height_of(cell_around_clicked_widget()));
}

void widget_fold::toggle()
{
    cell &section = cell_around_clicked_widget();
    is_folded = !is_folded;
    if (is_folded)
        open_height = row_height_of(section);
    if (owns_button)
        button->setText(own_button_text());
    section.animate_row_height(is_folded ? fold_height : open_height, static_cast<float>(seconds));
    emit folded(!is_folded);
}

}  // namespace qor::qt
