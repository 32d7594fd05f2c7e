// SPDX-License-Identifier: MIT
#include "app/CarPictures.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/ChassisCatalogue.h"
#include "platform/Errors.h"

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

void ShowCarPicture(MainForm& form, std::string_view installation, const edit::CarSetup& car,
                    const Outside& outside)
{
  const auto path = CarPicturePath(installation, car.ModYearIndex(), car.ChassisIndex());
  if (!path.empty() && outside.pictures.Load(path).width > 0) {
    form.car_picture = path;
    return;
  }
  form.car_picture.clear();
  const auto temporary = outside.program_directory + "\\MyPicture.tmp";
  try {
    const auto picture = outside.resources.Picture();
    outside.files.WriteText(temporary,
                            {reinterpret_cast<const char*>(picture.data()), picture.size()});
    form.car_picture = temporary;
  } catch (const FileError&) {
    // Without a place for the file the window takes the picture from the program itself.
  }
}

}  // namespace velquist::app
