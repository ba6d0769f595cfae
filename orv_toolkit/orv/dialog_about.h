// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

#include <functional>

namespace orv
{

/// The about dialog: logo, version, the maker's website, and a link to the list of libraries.
class dialog_about : public QDialog
{
    Q_OBJECT

public:
    /// @param list_metadata_tool  the list of libraries includes the metadata tool
    dialog_about(QWidget *parent, bool list_metadata_tool);

    /// Shows the list of libraries over `about` until the user closes it.
    /// @param tool_user  the name at the start of the sentence that says who uses the metadata
    ///                   tool; empty: the tool isn't listed
    static void show_libraries(dialog_about *about, const QString &tool_user);

    /// Called when the link is clicked; if it is empty, the link does nothing.
    std::function<void(dialog_about *)> third_party_info;

private:
    void lay_out();
    QWidget *make_libraries_link();
    QWidget *make_notice();
};

}  // namespace orv
