// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/MainWindow.h"

namespace velquist::app {

/// A value beside that of the reference, as texts in the units and decimals shown.
struct ComparisonRow {
  int slot = 0;
  std::string_view group;  ///< what the frame around the value is called
  std::string parameter;   ///< "Left front wheel rate, lbs/in"
  std::string reference;   ///< "-" for what the reference's car does not have
  std::string now;
  std::string added;  ///< "+20"; empty where there is nothing to subtract
  bool differs = false;

  friend bool operator==(const ComparisonRow&, const ComparisonRow&) = default;
};

enum class ComparedRows { kDifferences, kAll };

/// The rows in the order of the window, those of a frame together: against what the current setup
/// is compared with, or against another one.
[[nodiscard]] std::vector<ComparisonRow> ComparisonTable(const MainWindow& window,
                                                         ComparedRows which);
[[nodiscard]] std::vector<ComparisonRow> ComparisonTable(const MainWindow& window,
                                                         const edit::Reference& reference,
                                                         ComparedRows which);

/// "Left front wheel rate, lbs/in": a slot with the unit that it is shown in.
[[nodiscard]] std::string ParameterName(const MainForm& form, int slot);

/// What the setup that the current one is compared with is called: "the setup as loaded", "the
/// default setup of 1967", "fast.lo1".
[[nodiscard]] std::string ReferenceName(const MainWindow& window);

/// The rows with a heading line, columns separated by tabs, lines ended by CR LF, each row with its
/// group.
[[nodiscard]] std::string ComparisonText(std::span<const ComparisonRow> rows,
                                         std::string_view reference_name);

/// The same as one HTML table with a caption and a line for each group.
[[nodiscard]] std::string ComparisonHtml(std::span<const ComparisonRow> rows,
                                         std::string_view reference_name);

}  // namespace velquist::app
