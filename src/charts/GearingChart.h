// SPDX-License-Identifier: MIT
#pragma once

#include "charts/GearingPicture.h"
#include "platform/PictureSurface.h"

namespace velquist::charts {

/// Draws thrust at the tires against road speed: a curve a gear from idle to maximum rpm over the
/// line of the best gear, each best shift with its rpm, the car's maximum speed, and thin beneath
/// them the reference's curves.
void DrawThrust(platform::PictureSurface& surface, const GearingPicture& picture);

/// Draws engine speed against road speed through the gears, shifted at the best points, over what
/// each gear covers, with both bands of the engine beside the axis.
void DrawSawTooth(platform::PictureSurface& surface, const GearingPicture& picture);

}  // namespace velquist::charts
