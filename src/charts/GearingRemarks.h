// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "charts/Gearing.h"

namespace velquist::charts {

/// A plain sentence about the gears, and the rule that makes it true.
struct GearingRemark {
  std::string text;
  std::string rule;
};

/// What the numbers show: gears without a ratio or not below the one before, shifts that leave the
/// power band, and where top gear ends. No advice.
[[nodiscard]] std::vector<GearingRemark> GearingRemarks(const Gearing& gearing);

}  // namespace velquist::charts
