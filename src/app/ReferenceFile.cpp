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

std::optional<edit::Reference> ReadReference(const edit::CarSetup& car,
                                             std::string_view installation, const Outside& outside,
                                             edit::ReferenceSource source, const std::string& path)
{
  edit::CarSetup other;
  {
    auto tables = car.Snapshot();
    tables.SetupBuffer = std::make_shared<const setup::Bytes>();
    tables.history = std::make_shared<edit::History>();
    tables.mark = {};
    other.Restore(std::move(tables));
  }
  if (!other.ReadFile(outside.files, path)) {
    outside.dialogs.ShowMessage("This is not a valid GPL setup file.  Please select another file.",
                                Icon::kInformation, Buttons::kOk);
    return std::nullopt;
  }
  const auto name = platform::FileNameOf(path);
  if (source == edit::ReferenceSource::kFile) {
    auto year = car.ModYearIndex();
    if (!ModYearFromFile(name, other.SetupBuffer(), installation, outside.files, outside.dialogs,
                         year))
      return std::nullopt;
    other.SetModYear(year);
  }
  if (other.ModYearIndex() != car.ModYearIndex() &&
      other.ReadDataFiles(outside.files, outside.program_directory)) {
    outside.dialogs.ShowMessage(
        "You are missing the program's data files for this mod year.  Please reinstall Velquist.",
        Icon::kCritical, Buttons::kOk);
    return std::nullopt;
  }
  other.LoadValues();
  other.LoadLists();
  // Every gear must be one that can be shown.
  for (int gear = 0; gear < data::kMostGears; ++gear)
    (void)edit::GearRowOf(other.SetupData(), setup::kFirstGear + gear);
  std::optional<int> gear_count;
  const auto chassis = setup::ChassisIndexOf(other.ModYearIndex(), setup::ChassisCodeOf(name));
  if (source == edit::ReferenceSource::kFile && chassis) {
    other.SetChassis(*chassis);
    other.SetFormula(setup::FormulaIndexOf(name).value_or(0));
    gear_count = other.GearCount();
  }
  return edit::ReferenceOf(
      other, source, source == edit::ReferenceSource::kFile ? path : std::string(), gear_count);
}

}  // namespace velquist::app
