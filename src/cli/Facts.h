// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/Json.h"
#include "library/Identity.h"
#include "library/SetupFile.h"

/// What commands say alike about a setup.
namespace velquist::cli {

/// "short" or "long"; null for a file of another size.
[[nodiscard]] Json LayoutFact(const library::SetupFile& file);
/// An array of the years that it may be for.
[[nodiscard]] Json YearsFact(const library::Identity& identity);
/// Code and name, null for a car that is not known.
[[nodiscard]] Json ChassisFact(const library::Identity& identity);
/// 1 to 3, or null.
[[nodiscard]] Json FormulaFact(const library::Identity& identity);

/// The same for people: "short layout", "Lotus 49-Ford V8 DFV F1".
[[nodiscard]] std::string LayoutText(const library::SetupFile& file);
[[nodiscard]] std::string CarText(const library::Identity& identity);

/// "22 psi".
[[nodiscard]] std::string WithUnit(std::string text, std::string_view unit);

}  // namespace velquist::cli
