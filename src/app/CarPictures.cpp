// SPDX-License-Identifier: MIT
#include "app/CarPictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace velquist::app {
namespace {

using namespace std::string_view_literals;

// clang-format off
constexpr std::array kSharedFolders = {
    "\\brabham\\"sv, "\\brm\\"sv, "\\coventry\\"sv, "\\eagle\\"sv, "\\ferrari\\"sv, "\\lotus\\"sv,
    "\\murasama\\"sv};
constexpr std::array kFolders1966 = {
    "\\brabham\\"sv, "\\c09\\"sv, "\\c14\\"sv, "\\c15\\"sv, "\\brm\\"sv, "\\c07\\"sv,
    "\\coventry\\"sv, "\\c10\\"sv, "\\eagle\\"sv, "\\ferrari\\"sv, "\\c11\\"sv, "\\murasama\\"sv,
    "\\lotus\\"sv, "\\c08\\"sv, "\\c13\\"sv, "\\c12\\"sv};
constexpr std::array kFoldersGT = {
    "\\brabham\\"sv, "\\brm\\"sv, "\\coventry\\"sv, "\\eagle\\"sv, "\\ferrari\\"sv, "\\lotus\\"sv,
    "\\murasama\\"sv, "\\07ForMk1\\"sv, "\\08Por910\\"sv};
// clang-format on

struct CarSet {
  std::string_view name;
  std::span<const std::string_view> folders;  ///< by chassis slot
};
constexpr std::array<CarSet, data::kModYearCount> kCarSets = {{
    {"cars67", kSharedFolders},  // 1967
    {"full65", kSharedFolders},  // 1965
    {"cars66", kFolders1966},    // 1966
    {"69Hwng", kSharedFolders},  // 1969
    {"carsGT", kFoldersGT},      // GT
}};

}  // namespace

std::string CarPicturePath(std::string_view installation, data::ModYear ModYearIndex, int chassis)
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  const auto slot = static_cast<std::size_t>(chassis);
  if (year >= kCarSets.size() || slot >= kCarSets[year].folders.size()) return {};
  const auto& [set, folders] = kCarSets[year];
  return std::string(installation)
      .append("\\cars\\")
      .append(set)
      .append(folders[slot])
      .append("GEMPic.jpg");
}

platform::PictureLoader::Size FittedPicture(platform::PictureLoader::Size picture,
                                            platform::PictureLoader::Size box)
{
  const double factor = std::min(static_cast<double>(box.width) / picture.width,
                                 static_cast<double>(box.height) / picture.height);
  const auto scaled = [factor](int length) {
    return std::max(static_cast<int>(std::lround(length * factor)), 1);
  };
  return {scaled(picture.width), scaled(picture.height)};
}

}  // namespace velquist::app
