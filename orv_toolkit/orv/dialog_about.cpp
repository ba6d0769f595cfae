// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/dialog_about.h"

#include "orv/build_report.h"
#include "orv/clickable_label.h"
#include "orv/dialog_3rd_part_lib_info.h"
#include "orv/dialog_width.h"
#include "orv/picture_widget.h"
#include "orv/skin_fonts.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace orv
{

namespace
{

constexpr char dialog_sheet[] = "background-color:rgb(47,47,47);color:rgb(198,213,210);";
constexpr char header_sheet[] = "background-image:url(:/images/Head.png);";
constexpr char logo_sheet[] = "background-image:none; background-color:none;";

constexpr QSize logo_size(230, 70);
constexpr int header_height_px = 97;
constexpr int side_margin_px = 20;
constexpr int bottom_margin_px = 10;
constexpr int gap_px = 20;

constexpr int word_bits = 64;
constexpr char website_link[] =
    R"(<a href="https://vorrin.example/" style="color:#728a84;">https://vorrin.example/</a>)";

QLabel *make_heading(const QString &text)
{
    auto *label = new QLabel(text);
    label->setFont(heading_font());
    return label;
}

QWidget *make_header()
{
    auto *logo = new QLabel;
    logo->setPixmap(QIcon(":/images/logo.png").pixmap(logo_size));
    logo->setStyleSheet(logo_sheet);

    auto *header = new picture_widget;
    header->setFixedHeight(header_height_px);
    header->setStyleSheet(header_sheet);
    auto *row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch(1);
    row->addWidget(logo);
    row->addStretch(1);
    return header;
}

QLabel *make_version()
{
    // The text after the word size is empty.
    const QString build = QString(" - %1 Bit %2").arg(word_bits).arg(QString());
    return new QLabel(QCoreApplication::applicationVersion() + build);
}

QLabel *make_website()
{
    auto *label = new QLabel(website_link);
    label->setTextFormat(Qt::RichText);
    label->setOpenExternalLinks(true);
    return label;
}

}  // namespace

dialog_about::dialog_about(QWidget *parent, bool list_metadata_tool) : QDialog(parent)
{
    third_party_info = [list_metadata_tool](dialog_about *about) {
        show_libraries(about, list_metadata_tool ? tr("This application") : QString());
    };
    setFont(text_font());
    setStyleSheet(dialog_sheet);
    setWindowTitle(tr("About"));
    setWindowFlags(windowFlags() & ~(Qt::WindowContextHelpButtonHint |
                                     Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint));
    lay_out();
    setFixedHeight(sizeHint().height());
    setFixedWidth(dialog_width(sizeHint().width()));
}

void dialog_about::show_libraries(dialog_about *about, const QString &tool_user)
{
    auto *info = new dialog_3rd_part_lib_info(about);
    if (!tool_user.isEmpty()) {
        const QString note = tr("%1 uses Exiftool by Phil Harvey.\nhttps://exiftool.org/");
        info->libraries.push_back({"Exiftool", note.arg(tool_user), QString()});
    }
    info->exec();
}

void dialog_about::lay_out()
{
    auto *root = new QVBoxLayout(this);
    root->setContentsMargins(0, 0, 0, bottom_margin_px);
    root->addWidget(make_header());

    auto *grid = new QGridLayout;
    grid->setContentsMargins(side_margin_px, 0, side_margin_px, 0);
    root->addLayout(grid, 1);
    grid->addWidget(make_heading(tr("Version:")), 0, 0);
    grid->addWidget(make_version(), 0, 1, Qt::AlignLeft);
    root->addSpacing(gap_px);
    // The text is German in all languages.
    grid->addWidget(make_heading(tr("Webseite:")), 1, 0);
    grid->addWidget(make_website(), 1, 1);

    root->addWidget(make_libraries_link(), 0, Qt::AlignHCenter | Qt::AlignVCenter);
    root->addWidget(make_notice(), 0, Qt::AlignHCenter | Qt::AlignVCenter);
}

QWidget *dialog_about::make_libraries_link()
{
    auto *link = new clickable_label(tr("Click here for 3rd party library information"));
    link->setCursor(Qt::PointingHandCursor);
    connect(
        link, &clickable_label::clicked, this,
        [this] {
            if (third_party_info)
                third_party_info(this);
        },
        Qt::DirectConnection);
    return link;
}

QWidget *dialog_about::make_notice()
{
    const int year = QDateTime::currentDateTimeUtc().date().year();
    return new QLabel(tr("Copyright %1 Vorrin").arg(year) + " (" +
                      QString::fromStdString(version_string()) + ")");
}

}  // namespace orv
