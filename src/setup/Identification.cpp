// SPDX-License-Identifier: MIT
#include "setup/Identification.h"

#include <algorithm>

#include "data/ChassisCatalogue.h"
#include "platform/Errors.h"
#include "setup/SetupRecord.h"
#include "setup/SlotTable.h"

namespace velquist::setup {
namespace {

using data::ModYear;

constexpr std::array kModMarkers = {
    ModMarker{ModYear::k1965, "\\gpla65.ini"}, ModMarker{ModYear::k1966, "\\gpla66.ini"},
    ModMarker{ModYear::k1967, "\\gpl_ai.ini"}, ModMarker{ModYear::k1969, "\\gpla69.ini"},
    ModMarker{ModYear::kGT, "\\gplaGT.ini"},
};

/// Steepest wing setting of the 1969 cars, degrees.
constexpr float kSteepestWing = 16.0F;

}  // namespace

std::span<const std::string_view> ChassisCodeTable(ModYear ModYearIndex) noexcept
{
  static const auto kCodes = [] {
    std::array<std::array<std::string_view, data::kMostChassis>, data::kModYearCount> codes;
    for (std::size_t year = 0; year < codes.size(); ++year)
      std::ranges::transform(data::CarsOf(data::kModYears[year]), codes[year].begin(),
                             &data::Car::code);
    return codes;
  }();
  const auto count = data::CarsOf(ModYearIndex).size();
  if (count == 0) return {};
  return std::span(kCodes[static_cast<std::size_t>(ModYearIndex)]).first(count);
}

std::string_view ChassisCodeOf(std::string_view file_name) noexcept
{
  if (file_name.empty()) return {};
  const auto end = file_name.size() - 1;
  return file_name.substr(end < 2 ? 0 : end - 2, std::min<std::size_t>(end, 2));
}

std::optional<int> ChassisIndexOf(ModYear ModYearIndex, std::string_view code) noexcept
{
  const auto codes = ChassisCodeTable(ModYearIndex);
  const auto found = std::ranges::find(codes, code);
  if (found == codes.end()) return std::nullopt;
  return static_cast<int>(found - codes.begin());
}

std::optional<int> FormulaIndexOf(std::string_view file_name) noexcept
{
  if (file_name.empty() || file_name.back() < '1' || file_name.back() > '3') return std::nullopt;
  return file_name.back() - '1';
}

std::string ExtensionOf(ModYear ModYearIndex, int chassis, int formula_index)
{
  const auto codes = ChassisCodeTable(ModYearIndex);
  if (chassis < 0 || static_cast<std::size_t>(chassis) >= codes.size())
    throw BoundsError("chassis " + std::to_string(chassis));
  return std::string(codes[static_cast<std::size_t>(chassis)]) + std::to_string(formula_index + 1);
}

std::span<const ModMarker> ModMarkers() noexcept
{
  return kModMarkers;
}

Identity Identify(std::string_view file_name, std::span<const std::byte> SetupBuffer)
{
  const auto code = ChassisCodeOf(file_name);
  const auto has_code = [&](ModYear year) { return ChassisIndexOf(year, code).has_value(); };
  // 1967, 1965 and 1969 have the same codes, 1966 those and its own, GT others.
  if (has_code(ModYear::k1966) && !has_code(ModYear::k1967)) return {ModYear::k1966, {}};
  if (has_code(ModYear::kGT)) return {ModYear::kGT, {}};
  if (SetupBuffer.size() != kLongLayoutSize) return {{}, ModYearQuestion::kShortFile};
  const float rear_wing = ReadSingleAt(
      SetupBuffer, static_cast<std::size_t>(SlotOffset[static_cast<std::size_t>(kRearWing)]));
  if (rear_wing == kNoWing) return {{}, ModYearQuestion::kLongFile};
  // Only 1969 cars carry wing values; any other value, NaN too, says nothing about the year.
  if (rear_wing >= 0 && rear_wing <= kSteepestWing) return {ModYear::k1969, {}};
  return {};
}

std::string_view DefaultSetupName(ModYear ModYearIndex) noexcept
{
  constexpr std::array<std::string_view, data::kModYearCount> kNames = {
      "67 Velquist Default.vqset", "65 Velquist Default.vqset", "66 Velquist Default.vqset",
      "69 Velquist Default.vqset", "GT Velquist Default.vqset"};
  const auto year = static_cast<std::size_t>(ModYearIndex);
  return year < kNames.size() ? kNames[year] : std::string_view();
}

ModYear ModYearOfButton(int button)
{
  constexpr std::array kYears = {ModYear::k1965, ModYear::k1966, ModYear::k1967, ModYear::k1969};
  return kYears.at(static_cast<std::size_t>(button));
}

}  // namespace velquist::setup
