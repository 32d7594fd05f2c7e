// SPDX-License-Identifier: MIT
#include "cli/OpenedSetup.h"

#include <utility>

#include "data/ChassisCatalogue.h"
#include "data/GearData.h"
#include "data/SetupData.h"
#include "platform/Errors.h"
#include "setup/SetupRecord.h"

namespace velquist::cli {
namespace {

void ReadDataFiles(const Session& session, edit::CarSetup& car)
{
  const auto missing = car.ReadDataFiles(session.DataFiles(), session.ProgramDirectory());
  if (!missing) return;
  const auto name = *missing == edit::DataFile::kSetupData
                        ? data::SetupDataFileName(car.ModYearIndex())
                        : data::GearDataFileName(car.ModYearIndex());
  throw FileError(session.ProgramDirectory() + "/" + std::string(name),
                  "The data file is missing or cannot be read; --program-directory says where it "
                  "lies");
}

void CheckBytes(const library::SetupFile& file, const library::Identity& identity)
{
  if (file.unreadable) throw FileError(file.path, *file.unreadable);
  if (!file.IsSetup()) throw FileError(file.path, "It is not a setup");
  if (file.size <= setup::kSymmetryOffset)
    throw FileError(file.path, "It is cut off after " + std::to_string(file.size) + " bytes");
  if (identity.read_as == data::ModYear::k1969 && file.size != setup::kLongLayoutSize)
    throw FileError(file.path, "A setup of 1969 has the long layout");
}

}  // namespace

std::string_view OpenedSetup::CarName() const
{
  return identity.chassis ? data::ChassisName(identity.read_as, *identity.chassis)
                          : std::string_view();
}

std::unique_ptr<OpenedSetup> OpenSetup(const Session& session, const std::string& path)
{
  auto setup = std::make_unique<OpenedSetup>();
  setup->file = library::ReadSetupFile(path);
  setup->identity = library::IdentityOf(setup->file, session.Options().hints);
  CheckBytes(setup->file, setup->identity);
  auto& car = setup->car;
  car.SetModYear(setup->identity.read_as);
  car.SetChassis(setup->identity.chassis.value_or(0));
  car.SetFormula(setup->identity.formula_index.value_or(0));
  ReadDataFiles(session, car);
  const auto bytes = setup->file.Bytes();
  car.TakeBytes({bytes.begin(), bytes.end()});
  try {
    car.LoadValues();
  } catch (const BoundsError& error) {
    throw FileError(path, std::string("A value has no meaning: ") + error.what());
  }
  return setup;
}

void NeedCar(const OpenedSetup& setup)
{
  if (!setup.identity.chassis)
    throw FileError(setup.file.path, "Its name does not tell the car; --chassis does");
  if (!setup.identity.formula_index)
    throw FileError(setup.file.path, "Its name does not tell the formula; --formula does");
}

void LoadLists(OpenedSetup& setup)
{
  try {
    setup.car.LoadLists();
  } catch (const BoundsError&) {
    throw FileError(setup.file.path,
                    "Final drive, an angle or the clutches are outside the limits of " +
                        std::string(data::ModYearText(setup.identity.read_as)));
  }
}

}  // namespace velquist::cli
