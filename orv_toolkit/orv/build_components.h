// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <map>
#include <string>

namespace orv
{

/// The source components of this build by name, with their versions. For "application" the version
/// is the tag, the number of commits since the tag, and the commit, such as "v2.0.2-0-g6765420".
/// For the others it is the last commit that touched them. In a build outside a repository the
/// commits are zeros.
extern const std::map<std::string, std::string> build_components;

}  // namespace orv
