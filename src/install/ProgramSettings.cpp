// SPDX-License-Identifier: MIT
#include "install/ProgramSettings.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/TextEncoding.h"

namespace velquist::install {
namespace {

/// Takes one value after the other from the text.
class Values {
 public:
  explicit Values(std::string_view text) : rest_(text) {}

  std::optional<std::string> Next()
  {
    if (rest_.empty()) return std::nullopt;
    const auto start = rest_.find_first_not_of(" \t");
    if (start != std::string_view::npos && rest_[start] == '"') {
      rest_.remove_prefix(start + 1);
      return Quoted();
    }
    const auto end = rest_.find_first_of(kEnds);
    auto value = std::string(Trimmed(rest_.substr(0, end)));
    SkipTo(end);
    return value;
  }

  std::string String()
  {
    auto value = Next();
    if (!value) throw SettingsError("value missing");
    return std::move(*value);
  }

  std::int16_t Whole()
  {
    const auto text = String();
    std::int16_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end) throw SettingsError("not a whole number: " + text);
    return number;
  }

 private:
  static constexpr std::string_view kEnds = ",\r\n";

  static std::string_view Trimmed(std::string_view text)
  {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
  }

  /// Up to the quote that ends the value, which only blanks may follow; a quote before other
  /// characters belongs to the value.
  std::string Quoted()
  {
    for (auto quote = rest_.find('"'); quote != std::string_view::npos;
         quote = rest_.find('"', quote + 1)) {
      const auto end = rest_.find_first_not_of(" \t", quote + 1);
      if (end != std::string_view::npos && kEnds.find(rest_[end]) == std::string_view::npos)
        continue;
      auto value = std::string(rest_.substr(0, quote));
      SkipTo(end);
      return value;
    }
    auto value = std::string(rest_);
    rest_ = {};
    return value;
  }

  /// Goes behind the comma or line end at `end`.
  void SkipTo(std::size_t end)
  {
    if (end == std::string_view::npos || end >= rest_.size()) {
      rest_ = {};
      return;
    }
    const bool pair = rest_[end] == '\r' && end + 1 < rest_.size() && rest_[end + 1] == '\n';
    rest_.remove_prefix(end + (pair ? 2 : 1));
  }

  std::string_view rest_;
};

bool IsForbidden(char c)
{
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\r' && c != '\n' && c != '\t') || byte == 0x7F;
}

}  // namespace

ProgramSettings ParseProgramSettings(std::string_view text)
{
  if (std::ranges::any_of(text, IsForbidden)) throw SettingsError("control character");
  const auto whole = platform::InUtf8(platform::WithoutByteOrderMark(text));
  Values values(whole);
  ProgramSettings settings;
  settings.installation = values.String();
  settings.player_index = values.Whole();
  settings.ModYearIndex = values.Whole();
  settings.format_flag = values.Whole();
  settings.chassis_index = values.Whole();
  settings.formula_index = values.Whole();
  settings.track_index = values.Whole();
  settings.units = values.Whole();
  while (auto installation = values.Next())
    if (!installation->empty()) settings.installations.push_back(std::move(*installation));
  return settings;
}

std::string ProgramSettingsText(const ProgramSettings& settings)
{
  std::string text;
  const auto write_string = [&](std::string_view value) {
    text += '"';
    text += platform::InUtf8(value);
    text += "\"\r\n";
  };
  const auto write_whole = [&](std::int16_t value) { text += std::to_string(value) + "\r\n"; };
  write_string(settings.installation);
  write_whole(settings.player_index);
  write_whole(settings.ModYearIndex);
  write_whole(settings.format_flag);
  write_whole(settings.chassis_index);
  write_whole(settings.formula_index);
  write_whole(settings.track_index);
  write_whole(settings.units);
  for (const auto& installation : settings.installations) write_string(installation);
  return text;
}

bool CanBeKept(const std::string& installation)
{
  const ProgramSettings settings{.installation = installation, .installations = {installation}};
  try {
    const auto again = ParseProgramSettings(ProgramSettingsText(settings));
    const auto whole = platform::InUtf8(installation);
    return again.installation == whole && again.installations == std::vector<std::string>{whole};
  } catch (const SettingsError&) {
    return false;
  }
}

std::vector<std::string> MergeInstallations(const std::vector<std::string>& read,
                                            const std::vector<std::string>& current,
                                            const std::vector<std::string>& on_disk)
{
  const auto holds = [](const std::vector<std::string>& list, const std::string& installation) {
    return std::ranges::find(list, installation) != list.end();
  };
  auto merged = current;
  for (const auto& installation : on_disk)
    if (!holds(read, installation) && !holds(merged, installation)) merged.push_back(installation);
  return merged;
}

}  // namespace velquist::install
