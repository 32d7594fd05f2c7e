// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "Canvas.h"
#include "Car.h"

namespace velquist::pictures {

/// The colours of a place and an hour.
struct Light {
  Color zenith;
  Color horizon;
  Color sun;
  Color far_hills;
  Color near_hills;
  Color trees;
  Color grass;
  Color track;
};

[[nodiscard]] Light Afternoon();
[[nodiscard]] Light Evening();
[[nodiscard]] Light Morning();

struct Scene {
  int width = 0;               ///< pixels
  int height = 0;              ///< pixels
  double car_share = 0.86;     ///< width of the car over the width of the picture
  double ground_share = 0.78;  ///< height of the tyres' foot in the picture, from the top
  Light light;
  CarStyle car;
  std::uint32_t seed = 1;  ///< where trees and clouds stand
};

/// Draws the car on a road before stand, trees and hills; no pixel stays clear.
[[nodiscard]] Canvas DrawScene(const Scene& scene);

}  // namespace velquist::pictures
