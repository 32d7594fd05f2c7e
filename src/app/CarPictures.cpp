// SPDX-License-Identifier: MIT
#include "app/CarPictures.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/ChassisCatalogue.h"

namespace velquist::app {
namespace {

/// The folder of a mod year's cars, by ModYearIndex.
constexpr std::array<std::string_view, data::kModYearCount> kCarSets = {
    "cars67",  // 1967
    "full65",  // 1965
    "cars66",  // 1966
    "69Hwng",  // 1969
    "carsGT",  // GT
};

}  // namespace

std::string CarPicturePath(std::string_view installation, data::ModYear ModYearIndex, int chassis)
{
  const auto cars = data::CarsOf(ModYearIndex);
  const auto slot = static_cast<std::size_t>(chassis);
  if (slot >= cars.size()) return {};
  return std::string(installation)
      .append("\\cars\\")
      .append(kCarSets[static_cast<std::size_t>(ModYearIndex)])
      .append("\\")
      .append(cars[slot].folder)
      .append("\\GEMPic.jpg");
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
