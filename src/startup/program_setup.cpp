// SPDX-License-Identifier: GPL-3.0-or-later

#include "startup/program_setup.h"

#include "orv/application_common.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QIcon>
#include <QLibraryInfo>
#include <QPalette>
#include <QString>
#include <QTextCodec>
#include <QTranslator>

namespace
{

constexpr int tooltip_delay_ms = 2000;
constexpr int program_icon_sizes[] = {16, 24, 32, 48, 64, 128, 256};  ///< pixels

/// The file dialog inherits the main window's text colour, which would be unreadable on light
/// surfaces.
QPalette dark_palette()
{
    const QColor surface(47, 47, 47);
    const QColor input(38, 38, 38);
    const QColor text(198, 213, 210);
    const QColor disabled_text(100, 100, 100);
    const QColor link(114, 138, 132);

    QPalette palette(surface);
    palette.setColor(QPalette::Base, input);
    palette.setColor(QPalette::AlternateBase, QColor(68, 68, 68));
    palette.setColor(QPalette::Highlight, text);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::Link, link);
    palette.setColor(QPalette::LinkVisited, link);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled_text);
    }
    return palette;
}

/// A catalogue that can't be loaded isn't an error: the texts stay English.
void install_translator(const QString &catalogue, const QString &folder = QString())
{
    auto *translator = new QTranslator;
    (void)translator->load(catalogue, folder);
    QCoreApplication::installTranslator(translator);
}

}  // namespace

void set_identity()
{
    QCoreApplication::setOrganizationName("Vorrin");
    QCoreApplication::setOrganizationDomain("vorrin.example");
    QCoreApplication::setApplicationName("Kelvra");
    QCoreApplication::setApplicationVersion("2.0.2");
}

void set_name_encoding()
{
#ifdef Q_OS_WIN
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
}

void prepare_application()
{
    set_identity();
    set_name_encoding();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    // Nothing here is drawn with OpenGL; its drivers would double the memory use.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets, true);
}

void install_style()
{
    auto *style = new orv::proxy_style(nullptr);
    const QStyle *platform_style = QApplication::style();
    style->tooltip_delay = platform_style->styleHint(QStyle::SH_ToolTip_WakeUpDelay);
    style->tooltip_cooldown = platform_style->styleHint(QStyle::SH_ToolTip_FallAsleepDelay);
    style->set_tooltip_delay(tooltip_delay_ms);
    QApplication::setStyle(style);
    QApplication::setPalette(dark_palette());
}

void install_icons()
{
    QIcon::setFallbackThemeName(QIcon::themeName());
    QIcon::setThemeName("orv");
    QIcon program_icon;
    for (const int size : program_icon_sizes)
        program_icon.addFile(QString(":/program_icon/kelvra-%1.png").arg(size));
    QApplication::setWindowIcon(program_icon);
}

void install_translators(const QString &language)
{
    install_translator("qt_" + language, QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install_translator(":/translations/" + language);
    install_translator(":/translations/toolkit_" + language);
}

void add_fonts()
{
    QFontDatabase::addApplicationFont(":/images/FreeSans.ttf");
    QFontDatabase::addApplicationFont(":/images/FreeSansBold.ttf");
    QFont::insertSubstitution("FreeSansBold", "FreeSans");
}
