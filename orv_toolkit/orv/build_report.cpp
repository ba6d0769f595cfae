// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/build_report.h"

#include "orv/message_box.h"

#include <QString>
#include <QSysInfo>

namespace orv
{

namespace
{

constexpr int no_default_button = 0;

QString compiler_line()
{
    return QString("gcc Version: %1.%2.%3\n")
        .arg(__GNUC__)
        .arg(__GNUC_MINOR__)
        .arg(__GNUC_PATCHLEVEL__);
}

}  // namespace

std::string version_string()
{
    const auto application = build_components.find("application");
    return application == build_components.end() ? std::string() : application->second;
}

std::string component_table()
{
    std::string table;
    for (const auto &[name, version] : build_components)
        table += "Component: " + name + "\tVersion: " + version + "\n";
    return table;
}

void show_application_information(QWidget *parent)
{
    const QString text = QString("OS: %1\n").arg(QSysInfo::prettyProductName()) +
                         QString("ABI: %1\n").arg(QSysInfo::buildAbi()) + compiler_line() + "\n" +
                         QString::fromStdString(component_table());
    message_box::information(parent, "Application Information", text, QMessageBox::Ok,
                             no_default_button);
}

}  // namespace orv
