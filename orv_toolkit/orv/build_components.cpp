// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/build_components.h"

#include "orv/build_versions.h"

namespace orv
{

const std::map<std::string, std::string> build_components = {
    {"application", build_versions::application},
    {"orv_infrastructure", build_versions::orv_infrastructure},
    {"orv_toolkit", build_versions::orv_toolkit},
    {"qor", build_versions::qor}};

}  // namespace orv
