// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <map>
#include <string>

class QWidget;

namespace qor::qt
{

/// A style sheet parsed into declarations; the last one of each name wins.
///
/// Reads only flat sheets: declarations without selectors. Nothing is trimmed: a name with a space
/// before it is a different name.
class stylesheet
{
public:
    /// Reads the declarations of `sheet`.
    explicit stylesheet(const QString &sheet);

    /// Adds the declarations of `text`, in UTF-8, replacing those of the same names. A piece
    /// between semicolons that lacks the colon, the name or the value is dropped.
    void set(const std::string &text);

    /// The sheet in UTF-8, with declarations sorted by name; a group with a selector is put in
    /// braces.
    std::string to_string() const;

    /// Replaces the widget's sheet.
    void apply_to(QWidget *widget) const;

    /// Puts the declarations of `addition` into the widget's sheet: each replaces the first one of
    /// its name, or is added at the end.
    ///
    /// Note: the name is searched for as plain text with its colon, so "color:" is also found
    /// inside "background-color:". If the sheet already contains one of the declarations, nothing
    /// is changed: the widget's sheet doesn't get the declarations before that one either.
    /// @param addition  gets a semicolon at its end if it lacks one
    static void merge(QWidget *widget, QString &addition);

    using declarations = std::map<std::string, std::string>;  ///< name to value

    std::map<std::string, declarations> groups;  ///< by selector; reading fills only ""
};

}  // namespace qor::qt
