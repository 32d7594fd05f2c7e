// SPDX-License-Identifier: MIT
#include "app/ModYearFromFile.h"

#include <algorithm>
#include <string>

#include "setup/Identification.h"

namespace velquist::app {

std::string_view ModYearMessage(ModYearForm form) noexcept
{
  return form == ModYearForm::kFrmModYear1
             ? "Velquist cannot determine which mod this setup file is for, but it is definitely "
               "in the new format.  Please select the mod year."
             : "Velquist cannot determine which mod this setup file is for, but it is definitely "
               "a 1965 or 1967 file in the old format.  Please select the mod year.";
}

bool IsInstalled(data::ModYear ModYearIndex, std::string_view installation,
                 const platform::FileSystem& files)
{
  return std::ranges::any_of(setup::ModMarkers(), [&](const setup::ModMarker& marker) {
    return marker.ModYearIndex == ModYearIndex &&
           files.Exists(std::string(installation) + std::string(marker.file));
  });
}

bool ModYearFromFile(std::string_view file_name, std::span<const std::byte> SetupBuffer,
                     std::string_view installation, const platform::FileSystem& files,
                     Dialogs& dialogs, data::ModYear& ModYearIndex)
{
  const auto identity = setup::Identify(file_name, SetupBuffer);
  if (identity.ModYearIndex) ModYearIndex = *identity.ModYearIndex;
  if (identity.question) {
    const auto form = *identity.question == setup::ModYearQuestion::kLongFile
                          ? ModYearForm::kFrmModYear1
                          : ModYearForm::kFrmModYear2;
    const auto button = dialogs.AskModYear(form, ModYearMessage(form));
    if (button) ModYearIndex = setup::ModYearOfButton(*button);
  }
  if (IsInstalled(ModYearIndex, installation, files)) return true;
  dialogs.ShowMessage("You are attempting to load a setup file for a mod that isn't installed.",
                      platform::Icon::kExclamation, platform::Buttons::kOk);
  return false;
}

std::string RemarkOnEnding(data::ModYear ModYearIndex, std::string_view file_name)
{
  if (setup::ChassisIndexOf(ModYearIndex, setup::ChassisCodeOf(file_name))) return {};
  return ", an ending that no car of " + std::string(data::ModYearText(ModYearIndex)) + " has";
}

}  // namespace velquist::app
