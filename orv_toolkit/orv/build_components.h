// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <map>
#include <string>

namespace orv
{

/// The source components of this build by name, with their versions: for "application" the tag, the
/// number of commits since and the commit, such as "v2.0.2-0-g6765420", for the others the commit
/// that touched them last. A build from something else than a repository has zeros for a commit.
extern const std::map<std::string, std::string> build_components;

}  // namespace orv
