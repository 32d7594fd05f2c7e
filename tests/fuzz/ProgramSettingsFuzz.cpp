// SPDX-License-Identifier: MIT
// The input is a settings file. What can be read is written and read again as the same settings.
#include <cstdint>
#include <optional>

#include "Fuzz.h"
#include "install/ProgramSettings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  using namespace velquist;
  std::optional<install::ProgramSettings> settings;
  try {
    settings = install::ParseProgramSettings(fuzz::TextOf(data, size));
  } catch (const install::SettingsError&) {
    return 0;
  }
  const auto text = install::ProgramSettingsText(*settings);
  fuzz::Require(install::ParseProgramSettings(text) == *settings, "written and read again alike");
  return 0;
}
