// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "data/ModYear.h"
#include "platform/System.h"

namespace velquist::app {

/// installation\cars\car set\car\GEMPic.jpg of a mod year's chassis; empty where there is none.
[[nodiscard]] std::string CarPicturePath(std::string_view installation, data::ModYear ModYearIndex,
                                         int chassis);

/// The size of a picture scaled by the one factor that makes it as large as `box` allows; at least
/// one pixel each way. `picture` is not empty.
[[nodiscard]] platform::PictureLoader::Size FittedPicture(platform::PictureLoader::Size picture,
                                                          platform::PictureLoader::Size box);

}  // namespace velquist::app
