// SPDX-License-Identifier: MIT
#include "app/ReferenceFile.h"

#include <memory>
#include <utility>

#include "app/ModYearFromFile.h"
#include "edit/Drivetrain.h"
#include "platform/Paths.h"
#include "setup/Identification.h"
#include "setup/SlotTable.h"

namespace velquist::app {

using platform::Buttons;
using platform::Icon;

std::unique_ptr<edit::CarSetup> ReadBeside(const edit::CarSetup& car, std::string_view installation,
                                           const Outside& outside, edit::ReferenceSource source,
                                           const std::string& path)
{
  auto other = std::make_unique<edit::CarSetup>();
  {
    auto tables = car.Snapshot();
    tables.SetupBuffer = std::make_shared<const setup::Bytes>();
    tables.history = std::make_shared<edit::History>();
    tables.mark = {};
    other->Restore(std::move(tables));
  }
  if (!other->ReadFile(outside.files, path)) {
    outside.dialogs.ShowMessage("This is not a valid GPL setup file.  Please select another file.",
                                Icon::kInformation, Buttons::kOk);
    return nullptr;
  }
  const auto name = platform::FileNameOf(path);
  if (source == edit::ReferenceSource::kFile) {
    auto year = car.ModYearIndex();
    if (!ModYearFromFile(name, other->SetupBuffer(), installation, outside.files, outside.dialogs,
                         year))
      return nullptr;
    other->SetModYear(year);
  }
  if (other->ModYearIndex() != car.ModYearIndex() &&
      other->ReadDataFiles(outside.files, outside.program_directory)) {
    outside.dialogs.ShowMessage(
        "You are missing the program's data files for this mod year.  Please reinstall Velquist.",
        Icon::kCritical, Buttons::kOk);
    return nullptr;
  }
  other->LoadValues();
  other->LoadLists();
  // Every gear must be one that can be shown.
  for (int gear = 0; gear < data::kMostGears; ++gear)
    (void)edit::GearRowOf(other->SetupData(), setup::kFirstGear + gear);
  if (source != edit::ReferenceSource::kFile) return other;
  const auto chassis = setup::ChassisIndexOf(other->ModYearIndex(), setup::ChassisCodeOf(name));
  if (chassis) other->SetChassis(*chassis);
  // GT cars have formula F1 alone, whatever the name ends in.
  const bool has_formulas = other->ModYearIndex() != data::ModYear::kGT;
  const auto formula = has_formulas ? setup::FormulaIndexOf(name) : std::nullopt;
  if (chassis || formula || !has_formulas) other->SetFormula(formula.value_or(0));
  return other;
}

std::optional<edit::Reference> ReadReference(const edit::CarSetup& car,
                                             std::string_view installation, const Outside& outside,
                                             edit::ReferenceSource source, const std::string& path)
{
  const auto other = ReadBeside(car, installation, outside, source, path);
  if (other == nullptr) return std::nullopt;
  if (source != edit::ReferenceSource::kFile)
    return edit::ReferenceOf(*other, source, {}, std::nullopt);
  const auto code = setup::ChassisCodeOf(platform::FileNameOf(path));
  const bool car_is_known = setup::ChassisIndexOf(other->ModYearIndex(), code).has_value();
  return edit::ReferenceOf(*other, source, path,
                           car_is_known ? std::optional(other->GearCount()) : std::nullopt);
}

}  // namespace velquist::app
