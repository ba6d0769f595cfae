// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"

#include "dialog_settings.h"
#include "orv/build_report.h"
#include "orv/dialog_about.h"
#include "orv/message_box.h"
#include "startup/language_setting.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QKeySequence>
#include <QScreen>
#include <QShortcut>
#include <QTextStream>
#include <QUrl>

namespace
{

constexpr char report_keys[] = "Ctrl+Shift+G";
constexpr char help_resource[] = ":/help/index_%1.html";
constexpr char help_file[] = "/kelvra_help_%1.html";

/// Centres the dialog over the window, if it is then completely on the screen.
void centre_over(const QWidget &window, QDialog &dialog)
{
    QRect place = dialog.geometry();
    place.moveCenter(window.geometry().center());
    if (QGuiApplication::primaryScreen()->geometry().contains(place))
        dialog.setGeometry(place);
}

/// The help page of a language; empty if there is none. Links to "program:" lead to the program's
/// folder.
QString help_page(const QString &language)
{
    QFile page(QString(help_resource).arg(language));
    (void)page.open(QIODevice::ReadOnly);
    const QUrl folder = QUrl::fromLocalFile(QCoreApplication::applicationDirPath() + "/");
    const QString address = folder.toString(QUrl::FullyEncoded).toHtmlEscaped();
    return QString::fromUtf8(page.readAll().constData())
        .replace("href=\"program:", "href=\"" + address);
}

/// Writes the page to the temporary folder, overwriting that of an earlier call; returns its path.
/// Errors are ignored.
QString write_help_file(const QString &language, const QString &page)
{
    QFile file(QDir::tempPath() + QString(help_file).arg(language));
    (void)file.open(QIODevice::WriteOnly);
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    stream << page;
    stream.flush();
    return file.fileName();
}

}  // namespace

void MainWindow::on_button_settings_clicked()
{
    const QString before = language_setting(language_key);
    dialog_settings(this).exec();
    if (language_setting(language_key) != before && !ask_to_continue_working())
        QCoreApplication::quit();
}

void MainWindow::on_button_about_clicked()
{
    orv::dialog_about dialog(this, true);
    dialog.third_party_info = [](orv::dialog_about *about) {
        orv::dialog_about::show_libraries(about, QGuiApplication::applicationDisplayName());
    };
    centre_over(*this, dialog);
    dialog.exec();
}

void MainWindow::on_button_help_clicked()
{
    const QString language = language_setting(language_key);
    const QString path = write_help_file(language, help_page(language));
    QDesktopServices::openUrl(QUrl("file:///" + path, QUrl::TolerantMode));
}

void MainWindow::make_report_shortcut()
{
    auto *shortcut = new QShortcut(QKeySequence(report_keys), this);
    shortcut->setContext(Qt::ApplicationShortcut);
    connect(
        shortcut, &QShortcut::activated, this, [this] { orv::show_application_information(this); },
        Qt::DirectConnection);
}

bool MainWindow::ask_to_continue_working()
{
    const auto answer = orv::message_box::question(
        this, tr("Application language changed"),
        tr("The application language has been changed.\nThe application needs to be restarted to "
           "use the new language."),
        tr("Continue working"), tr("Quit now"), QMessageBox::Yes);
    return answer != QMessageBox::No;
}
