#include "program_setup.h"

#include "orv/application_common.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QString>
#include <QTranslator>

namespace
{

constexpr int tooltip_delay_ms = 2000;

/// A catalogue that can't be loaded is no failure: the texts stay English.
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

void install_style()
{
    auto *style = new orv::proxy_style(nullptr);
    const QStyle *platform_style = QApplication::style();
    style->tooltip_delay = platform_style->styleHint(QStyle::SH_ToolTip_WakeUpDelay);
    style->tooltip_cooldown = platform_style->styleHint(QStyle::SH_ToolTip_FallAsleepDelay);
    style->set_tooltip_delay(tooltip_delay_ms);
    QApplication::setStyle(style);
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
