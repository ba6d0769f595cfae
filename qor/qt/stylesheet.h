// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <map>
#include <string>

class QWidget;

namespace qor::qt
{

/// A style sheet taken apart into declarations, of which the last one of a name wins.
///
/// Reading is for flat sheets, a run of declarations without selectors. Nothing is trimmed: a name
/// with a blank before it is another name.
class stylesheet
{
public:
    /// Reads the declarations of `sheet`.
    explicit stylesheet(const QString &sheet);

    /// Adds the declarations of `text`, in UTF-8. They replace those of the same names; a piece
    /// between semicolons that lacks the colon, the name or the value is dropped.
    void set(const std::string &text);

    /// The sheet in UTF-8, declarations sorted by name; a group with a selector is put in braces.
    std::string to_string() const;

    /// Replaces the widget's sheet.
    void apply_to(QWidget *widget) const;

    /// Puts the declarations of `addition` into the widget's sheet, each in the place of the first
    /// one of its name, or at the end.
    ///
    /// The name is searched as plain text with its colon, so "color:" is also found inside
    /// "background-color:". As soon as a declaration stands in the sheet already, all ends: the
    /// widget's sheet stays as it was, without the declarations before that one.
    /// @param addition  gets a semicolon at its end where it lacks one
    static void merge(QWidget *widget, QString &addition);

    using declarations = std::map<std::string, std::string>;  ///< name to value

    std::map<std::string, declarations> groups;  ///< by selector; reading fills that of ""
};

}  // namespace qor::qt
