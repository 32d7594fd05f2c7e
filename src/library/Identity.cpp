// SPDX-License-Identifier: MIT
#include "library/Identity.h"

#include <algorithm>
#include <array>

#include "data/ChassisCatalogue.h"
#include "setup/Identification.h"

namespace velquist::library {
namespace {

using data::ModYear;

/// The code as the catalogue holds it, which lives as long as the program; empty for no code.
std::string_view KnownCode(std::string_view code)
{
  for (const auto year : data::kModYears)
    if (const auto chassis = setup::ChassisIndexOf(year, code))
      return setup::ChassisCodeTable(year)[static_cast<std::size_t>(*chassis)];
  return {};
}

/// The years that a code has cars of, when it is not one that most years share.
std::optional<ModYear> OnlyYearOf(std::string_view code)
{
  const auto identity = setup::Identify(std::string(code) + "1", {});
  return identity.ModYearIndex;
}

std::vector<ModYear> YearsOf(const SetupFile& file, std::string_view code)
{
  const auto only = OnlyYearOf(code);
  if (only) return {*only};
  if (file.unreadable) return {};
  const auto identity = setup::Identify(std::string(code) + "1", file.Bytes());
  if (identity.ModYearIndex) return {*identity.ModYearIndex};
  if (identity.question == setup::ModYearQuestion::kShortFile)
    return {ModYear::k1965, ModYear::k1967};
  return {ModYear::k1965, ModYear::k1966, ModYear::k1967, ModYear::k1969};
}

}  // namespace

std::optional<ModYear> Identity::Year() const
{
  return years.size() == 1 ? std::optional(years.front()) : std::nullopt;
}

std::optional<int> Identity::GearCount() const
{
  if (!chassis || !formula_index) return std::nullopt;
  const auto slot = data::EngineSlot(*chassis, *formula_index);
  return slot ? std::optional(data::GearCount(read_as, *slot)) : std::nullopt;
}

std::string YearsText(const Identity& identity)
{
  std::string text;
  for (const auto year : identity.years) {
    if (!text.empty()) text += '/';
    text += data::ModYearText(year);
  }
  return text;
}

Identity IdentityOf(const SetupFile& file, const Hints& hints)
{
  const auto name = FileNameOf(file.path);
  Identity identity;
  identity.chassis_code = KnownCode(setup::ChassisCodeOf(name));
  if (identity.chassis_code.empty() && hints.chassis_code)
    identity.chassis_code = KnownCode(*hints.chassis_code);
  identity.years = YearsOf(file, identity.chassis_code);
  if (identity.years.size() > 1 && hints.ModYearIndex) identity.years = {*hints.ModYearIndex};
  if (const auto year = identity.Year()) identity.read_as = *year;
  identity.chassis = setup::ChassisIndexOf(identity.read_as, identity.chassis_code);
  identity.formula_index = setup::FormulaIndexOf(name);
  if (!identity.formula_index) identity.formula_index = hints.formula_index;
  // Sports cars have one formula alone, whatever the name ends in.
  if (identity.read_as == ModYear::kGT) identity.formula_index = 0;
  return identity;
}

}  // namespace velquist::library
