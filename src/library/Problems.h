// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/Identity.h"
#include "library/SetupFile.h"
#include "library/Tables.h"

namespace velquist::library {

/// What can be wrong with a setup, in the order in which it is told.
enum class ProblemCode {
  kUnreadable,
  kNotASetup,      ///< has not the first four bytes of one
  kSize,           ///< is in neither layout
  kHeader,         ///< the type or size field is not the layout's
  kNotANumber,     ///< a field holds none
  kOutsideLimits,  ///< of the data file of the year it is read as
  kGearId,         ///< names another ratio than the ratio number
  kGearOrder,      ///< a gear of the car is not below the one before it
  kSymmetry,       ///< the flag says equal, and a pair differs
  kWings           ///< a value in a year without wings
};

/// "gear-id": for other programs, never to be renamed.
[[nodiscard]] std::string_view CodeText(ProblemCode code) noexcept;

struct Problem {
  ProblemCode code = ProblemCode::kUnreadable;
  /// The ID slot of a gear, the left slot of a pair, the slot of a value; nothing for the file.
  std::optional<int> slot;
  std::string text;  ///< for people, without a full stop
};

/// Everything that is wrong, by code and rising slot. Of a file without tables what it needs no
/// tables for.
[[nodiscard]] std::vector<Problem> ProblemsOf(const SetupFile& file, const Identity& identity,
                                              const YearTables* tables);

}  // namespace velquist::library
