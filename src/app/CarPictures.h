// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace velquist::app {

/// installation\cars\car set\car\GEMPic.jpg of a mod year's chassis; empty where there is none.
[[nodiscard]] std::string CarPicturePath(std::string_view installation, int ModYearIndex,
                                         int chassis);

}  // namespace velquist::app
