// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/dialog_3rd_part_lib_info.h"

#include "qor/qt/properties.h"

#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QTextEdit>

#include <algorithm>

namespace orv
{

namespace
{

namespace properties = qor::qt::properties;

constexpr char qt_version[] = "5.6.2";

constexpr char heading_sheet[] = "font-size:16px;";
constexpr int heading_measure_px = 20;  // larger than the font shown, to leave some room

constexpr char name_sheet[] = "font-size:14px; font-weight:bold;";
constexpr int name_px = 14;
constexpr int name_weight = QFont::Bold;

constexpr char note_sheet[] = "font-size:12px;";
constexpr int note_px = 12;
constexpr int note_weight = QFont::Normal;

constexpr int license_width_limit_px = 300;
constexpr int license_height_limit_px = 400;

QSize measured(const QString &text, int size_px, int weight)
{
    QFont font("FreeSans");
    font.setPixelSize(size_px);
    font.setWeight(weight);
    return QFontMetrics(font).size(0, text);
}

void add_text(qor::qt::layout &rows, const QString &text, const QString &sheet, int height)
{
    auto *label = new QLabel(text);
    label->setStyleSheet(sheet);
    rows.add(label, {}, {});
    rows.row_height() = height;
}

/// Adds the text as the last row and returns the size that it takes. The sides are swapped on
/// purpose: the width is computed from the editor's height and its limit, and vice versa.
QSize add_license(qor::qt::layout &rows, const QString &text)
{
    auto *editor = new QTextEdit;
    editor->setReadOnly(true);
    editor->setPlainText(text);
    rows.add(editor, {}, {});
    const QSize size(std::min(editor->height(), license_height_limit_px),
                     std::min(editor->width(), license_width_limit_px));
    rows.row_height() = size.height();
    return size;
}

}  // namespace

dialog_3rd_part_lib_info::dialog_3rd_part_lib_info(QWidget *parent)
    : QDialog(parent), layout(new qor::qt::layout(1, false))
{
    libraries.push_back(
        {QString("Qt ") + qt_version,
         tr("This software dynamically links to Qt which is licensed under the LGPL license.\n"
            "The source code of the Qt SDK can be found at https://download.qt.io/archive/qt/\n"
            "The full text for the LGPL license was distributed as a text file with this "
            "software."),
         QString()});
    setLayout(layout);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    add_heading();
}

int dialog_3rd_part_lib_info::exec()
{
    const int margins_px = 2 * margin_px;
    int width = heading_size.width() + margins_px;
    int height = heading_size.height() + margins_px;
    for (library_entry &entry : libraries) {
        add_entry(entry);
        layout->row_height() = entry.height + margins_px;
        height += entry.height + margins_px;
        width = std::max(width, entry.width);
    }
    resize(width + margins_px, height);
    return QDialog::exec();
}

std::unique_ptr<qor::qt::layout> dialog_3rd_part_lib_info::entry_layout(library_entry &entry)
{
    auto rows = std::make_unique<qor::qt::layout>(1, false);
    const QSize name_size = measured(entry.name, name_px, name_weight);
    add_text(*rows, entry.name, name_sheet, name_size.height());
    const QSize note_size = measured(entry.note, note_px, note_weight);
    add_text(*rows, entry.note, note_sheet, note_size.height());
    QSize license_size(0, 0);
    if (!entry.license_resource.isEmpty())
        license_size = add_license(*rows, license_text(entry.license_resource));
    entry.width = std::max({name_size.width(), note_size.width(), license_size.width()});
    entry.height = name_size.height() + note_size.height() + license_size.height();
    return rows;
}

void dialog_3rd_part_lib_info::add_heading()
{
    const QString heading = tr("%1 uses the following open source and/or 3rd party libraries:")
                                .arg(QGuiApplication::applicationDisplayName());
    auto *label = new QLabel(heading);
    label->setStyleSheet(heading_sheet);
    heading_size = measured(heading, heading_measure_px, QFont::Normal);
    layout->add(label, {}, {properties::margin(margin_px)});
}

void dialog_3rd_part_lib_info::add_entry(library_entry &entry)
{
    layout->add(entry_layout(entry).release(), {properties::margin(margin_px)});
}

QString dialog_3rd_part_lib_info::license_text(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tr("Could not open license text resource at %1").arg(path);
    return QString::fromUtf8(file.readAll().constData());
}

}  // namespace orv
