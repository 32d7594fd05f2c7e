// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "data/ModYear.h"
#include "setup/BinarySubs.h"

/// Telling from a setup file's name and bytes which mod year and which car it is for.
namespace velquist::setup {

/// Two-letter codes of the mod year's cars in the order of its chassis list.
[[nodiscard]] std::span<const std::string_view> ChassisCodeTable(
    data::ModYear ModYearIndex) noexcept;

/// The two characters before the last one of a file name, such as "lp" of "monza.lp1"; shorter
/// for names of fewer than three characters.
[[nodiscard]] std::string_view ChassisCodeOf(std::string_view file_name) noexcept;

/// Place of a chassis code in the mod year's chassis list.
[[nodiscard]] std::optional<int> ChassisIndexOf(data::ModYear ModYearIndex,
                                                std::string_view code) noexcept;

/// Formula index (0 to 2) by the last character of a file name, "1" to "3".
[[nodiscard]] std::optional<int> FormulaIndexOf(std::string_view file_name) noexcept;

/// "lp1": chassis code and formula digit. Throws BoundsError outside the mod year's chassis list.
[[nodiscard]] std::string ExtensionOf(data::ModYear ModYearIndex, int chassis, int formula_index);

/// The file that marks a mod year as installed, in the order in which mod years are listed.
struct ModMarker {
  data::ModYear ModYearIndex;
  std::string_view file;  ///< with leading backslash
};
[[nodiscard]] std::span<const ModMarker> ModMarkers() noexcept;

/// What only the user can tell: the mod year of a long file without wings, and that of a short one.
enum class ModYearQuestion { kLongFile, kShortFile };

/// Which question has to be asked about a file in the buffer, or which year it is for. Neither:
/// the year stays as it was.
struct Identity {
  std::optional<data::ModYear> ModYearIndex;
  std::optional<ModYearQuestion> question;
};
[[nodiscard]] Identity Identify(std::string_view file_name, std::span<const std::byte> SetupBuffer);

/// File name of the mod year's default setup, in the program's directory; empty outside kModYears.
[[nodiscard]] std::string_view DefaultSetupName(data::ModYear ModYearIndex) noexcept;

/// The mod year of button 0 to 3 of a mod year question.
[[nodiscard]] data::ModYear ModYearOfButton(int button);

}  // namespace velquist::setup
