// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/build_components.h"

#include <string>

class QWidget;

namespace orv
{

/// The version of the application among `build_components`; empty if it isn't there.
std::string version_string();

/// One line for each of `build_components`, sorted by name, in UTF-8.
std::string component_table();

/// Shows a message box with the information that support needs: the system, the ABI, the compiler
/// and the components. It isn't translated. Returns when the user has closed it.
/// @param parent  may be null
void show_application_information(QWidget *parent);

}  // namespace orv
