// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/build_components.h"

#include <string>

class QWidget;

namespace orv
{

/// The version of the application among `build_components`; empty if it isn't there.
std::string version_string();

/// A line for each of `build_components`, in the order of their names, in UTF-8.
std::string component_table();

/// Shows a message box that says for the support what runs here: the system, the ABI, the compiler
/// and the components. The same in every language. Returns when the user has closed it.
/// @param parent  may be null
void show_application_information(QWidget *parent);

}  // namespace orv
