// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/GearingPicture.h"
#include "charts/GearingRemarks.h"
#include "data/ModYear.h"
#include "edit/CarSetup.h"

namespace velquist::app {

/// All that the gearing of a car follows from: equal ones have the same gearing.
struct GearingInput {
  data::ModYear ModYearIndex{};
  int chassis = 0;
  int engine_slot = 0;
  edit::GearRatios ratios;
  std::optional<edit::GearRatios> reference;  ///< where they are others
  std::vector<std::string> teeth;             ///< of the gears, then of the final drive
  bool metric = false;
  friend bool operator==(const GearingInput&, const GearingInput&) = default;
};

/// `units` is 0 for English, 1 for metric.
[[nodiscard]] GearingInput GearingInputOf(const edit::CarSetup& car, int units);

/// The gearing of a car and what is said about it.
struct GearingView {
  charts::GearingPicture picture;
  std::vector<std::string> teeth;
  std::vector<charts::GearingRemark> remarks;
};
[[nodiscard]] GearingView ViewGearing(const GearingInput& input);

/// What there is at a road speed, mph or km/h, in one text with `between` its parts.
[[nodiscard]] std::string ReadingText(const GearingView& view, double speed,
                                      std::string_view between);

/// The remarks, each with its rule, one a line.
[[nodiscard]] std::string RemarksText(const GearingView& view);

/// Columns of the table of gears.
inline constexpr std::size_t kGearingColumns = 10;
using GearingRow = std::array<std::string, kGearingColumns>;
[[nodiscard]] GearingRow GearingHeadings(bool metric);
[[nodiscard]] std::vector<GearingRow> GearingRows(const GearingView& view);
/// The parameter slot of a row's gear.
[[nodiscard]] int SlotOfGearingRow(int row);

/// Which car, its final drive, and what the figures leave out.
[[nodiscard]] std::string GearingHeading(const GearingInput& input);

/// Both charts, in the order of their pages.
enum class GearingChart { kThrust, kSawTooth };
void DrawGearing(platform::PictureSurface& surface, const GearingView& view, GearingChart chart);

/// The table with its headings, cells divided by tabs, then what is said about it; lines end with a
/// line feed.
[[nodiscard]] std::string GearingText(const GearingView& view);

}  // namespace velquist::app
