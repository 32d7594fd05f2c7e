// SPDX-License-Identifier: MIT
#include "cli/Facts.h"

#include "data/ChassisCatalogue.h"

namespace velquist::cli {

Json LayoutFact(const library::SetupFile& file)
{
  const auto layout = file.Layout();
  if (!layout) return nullptr;
  return *layout == setup::Layout::kLong ? "long" : "short";
}

Json YearsFact(const library::Identity& identity)
{
  auto years = Json::array();
  for (const auto year : identity.years) years.push_back(std::string(data::ModYearText(year)));
  return years;
}

Json ChassisFact(const library::Identity& identity)
{
  if (!identity.chassis) return nullptr;
  return {{"code", std::string(identity.chassis_code)},
          {"name", std::string(data::ChassisName(identity.read_as, *identity.chassis))}};
}

Json FormulaFact(const library::Identity& identity)
{
  if (!identity.formula_index) return nullptr;
  return *identity.formula_index + 1;
}

std::string LayoutText(const library::SetupFile& file)
{
  const auto layout = file.Layout();
  if (!layout) return "no layout";
  return *layout == setup::Layout::kLong ? "long" : "short";
}

std::string CarText(const library::Identity& identity)
{
  std::string text = "unknown car";
  if (identity.chassis) text = data::ChassisName(identity.read_as, *identity.chassis);
  if (identity.formula_index) text += " F" + std::to_string(*identity.formula_index + 1);
  return text;
}

std::string WithUnit(std::string text, std::string_view unit)
{
  if (!unit.empty()) text.append(" ").append(unit);
  return text;
}

}  // namespace velquist::cli
