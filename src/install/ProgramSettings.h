// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::install {

/// In the program directory.
inline constexpr std::string_view kSettingsFileName = "Velquist Program Settings.ini";

/// What the program remembers from one run to the next. The numbers are those of the file: they may
/// lie beyond the lists that they are applied to.
struct ProgramSettings {
  std::string installation;  ///< current one, no trailing separator
  std::int16_t player_index = 0;
  std::int16_t ModYearIndex = 0;  ///< 0 = 1967, 1 = 1965, 2 = 1966, 3 = 1969, 4 = GT
  std::int16_t format_flag = 0;   ///< 0 = short layout, else long
  std::int16_t chassis_index = 0;
  std::int16_t formula_index = 0;
  std::int16_t track_index = 0;
  std::int16_t units = 0;                  ///< 0 = English, 1 = metric
  std::vector<std::string> installations;  ///< in list order

  friend bool operator==(const ProgramSettings&, const ProgramSettings&) = default;
};

/// The text is no settings file: too short, letters or too large a number where a whole number
/// belongs, or control characters other than line ends and tabs.
class SettingsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Values stand one a line, or divided by commas outside quotes; strings may be quoted. Empty
/// installations are dropped. A text that is not UTF-8 is taken as Windows-1252, a byte order mark
/// is skipped. Throws SettingsError.
[[nodiscard]] ProgramSettings ParseProgramSettings(std::string_view text);

/// The file's text: quoted strings, plain numbers, one value a line, CR LF. Valid UTF-8.
[[nodiscard]] std::string ProgramSettingsText(const ProgramSettings& settings);

/// Whether the file can hold an installation of that name: no control character, and no quote that
/// would end it. Other systems than Windows have such names.
[[nodiscard]] bool CanBeKept(const std::string& installation);

/// The installations to write when the file may have changed since it was read: `current` ones of
/// this window in their order, and behind them what the file gained since. What this window deleted
/// stays deleted.
[[nodiscard]] std::vector<std::string> MergeInstallations(const std::vector<std::string>& read,
                                                          const std::vector<std::string>& current,
                                                          const std::vector<std::string>& on_disk);

}  // namespace velquist::install
