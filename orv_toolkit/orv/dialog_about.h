// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

#include <functional>

namespace orv
{

/// Says what program this is: logo, version, the maker's address, a link to the list of libraries.
class dialog_about : public QDialog
{
    Q_OBJECT

public:
    /// @param list_metadata_tool  the list of libraries names the metadata tool too
    dialog_about(QWidget *parent, bool list_metadata_tool);

    /// Shows the libraries over `about` until the list is closed.
    /// @param tool_user  who is said to use the metadata tool, as the start of a sentence; empty:
    ///                   the tool isn't listed
    static void show_libraries(dialog_about *about, const QString &tool_user);

    /// Called at the click on the link; where it is empty, the link does nothing.
    std::function<void(dialog_about *)> third_party_info;

private:
    void lay_out();
    QWidget *make_libraries_link();
    QWidget *make_notice();
};

}  // namespace orv
