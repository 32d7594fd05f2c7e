// SPDX-License-Identifier: MIT
#pragma once

#include "Canvas.h"

namespace velquist::pictures {

enum class Shape {
  kOpenEngine,   ///< monocoque up to the seat, engine and pipes in the wind
  kClosedTail,   ///< cigar with a covered engine, trumpets looking out
  kSportsCoupe,  ///< closed sports car
};

struct CarStyle {
  Shape shape = Shape::kOpenEngine;
  Color body;
  Color trim;  ///< band around the nose and along the flank
  Color helmet;
  Color rim;
  int number = 7;        ///< 1 to 9
  bool wings = false;    ///< high wings on struts, front and rear
  double tyre_size = 1;  ///< share of the full-size tyres
};

/// Draws a car from its left side, nose to the left. The ground is y = 0, upwards is negative;
/// the front axle stands at x = 0, the rear one at kWheelbase; the car reaches from kCarLeft to
/// kCarRight.
void DrawCar(Canvas& canvas, const CarStyle& style);

inline constexpr double kWheelbase = 520;
inline constexpr double kCarLeft = -178;
inline constexpr double kCarRight = 706;

}  // namespace velquist::pictures
