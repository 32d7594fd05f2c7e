// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "app/MainForm.h"
#include "app/Outside.h"
#include "data/ModYear.h"
#include "edit/CarSetup.h"
#include "platform/System.h"

namespace velquist::app {

/// installation\cars\car set\car\GEMPic.jpg of a mod year's chassis; empty where there is none.
[[nodiscard]] std::string CarPicturePath(std::string_view installation, data::ModYear ModYearIndex,
                                         int chassis);

/// The size of a picture scaled by the one factor that makes it as large as `box` allows; at least
/// one pixel each way. `picture` is not empty.
[[nodiscard]] platform::PictureLoader::Size FittedPicture(platform::PictureLoader::Size picture,
                                                          platform::PictureLoader::Size box);

/// Shows the picture of the car, the built-in one where it has none that can be shown.
void ShowCarPicture(MainForm& form, std::string_view installation, const edit::CarSetup& car,
                    const Outside& outside);

}  // namespace velquist::app
