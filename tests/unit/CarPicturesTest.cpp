// SPDX-License-Identifier: MIT
#include "app/CarPictures.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace velquist::app {
namespace {

using enum data::ModYear;

struct Row {
  data::ModYear ModYearIndex;
  std::string_view set;
  std::vector<std::string_view> folders;  ///< by chassis slot
};

const std::vector<std::string_view> kShared = {"brabham", "brm",   "coventry", "eagle",
                                               "ferrari", "lotus", "murasama"};

// clang-format off
const std::vector<Row> kRows = {
    {k1967, "cars67", kShared},
    {k1965, "full65", kShared},
    {k1966, "cars66", {"brabham", "c09", "c14", "c15", "brm", "c07", "coventry", "c10", "eagle",
                   "ferrari", "c11", "murasama", "lotus", "c08", "c13", "c12"}},
    {k1969, "69Hwng", kShared},
    {kGT, "carsGT", {"brabham", "brm", "coventry", "eagle", "ferrari", "lotus", "murasama",
                   "07ForMk1", "08Por910"}},
};
// clang-format on

std::string Expected(std::string_view set, std::string_view folder)
{
  return "C:\\GPL\\cars\\" + std::string(set) + "\\" + std::string(folder) + "\\GEMPic.jpg";
}

TEST(CarPictures, EveryChassisOfEveryYearHasItsOwnFolder)
{
  for (const auto& [year, set, folders] : kRows)
    for (std::size_t slot = 0; slot < folders.size(); ++slot)
      EXPECT_EQ(CarPicturePath("C:\\GPL", year, static_cast<int>(slot)),
                Expected(set, folders[slot]));
}

TEST(CarPictures, ThereIsNoPathBeyondTheChassisAndYears)
{
  for (const auto& [year, set, folders] : kRows) {
    EXPECT_EQ(CarPicturePath("C:\\GPL", year, static_cast<int>(folders.size())), "");
    EXPECT_EQ(CarPicturePath("C:\\GPL", year, -1), "");
  }
  EXPECT_EQ(CarPicturePath("C:\\GPL", data::ModYear{5}, 0), "");
  EXPECT_EQ(CarPicturePath("C:\\GPL", data::ModYear{-1}, 0), "");
}

struct Fit {
  int width, height;  ///< of the picture
  int box_width, box_height;
  int shown_width, shown_height;
};

// The factor is the smaller of both ratios, whether that shrinks or enlarges.
constexpr std::array kFits = {
    Fit{1024, 753, 236, 218, 236, 174},  // the built-in one as designed
    Fit{320, 240, 236, 218, 236, 177},   // width decides
    Fit{240, 320, 236, 218, 164, 218},   // height decides
    Fit{236, 218, 236, 218, 236, 218},   // fits as it is
    Fit{900, 100, 236, 218, 236, 26},    // wide
    Fit{100, 900, 236, 218, 24, 218},    // tall
    Fit{100, 100, 236, 218, 218, 218},   // square
    Fit{59, 20, 236, 218, 236, 80},      // enlarged four times
    Fit{10000, 1, 236, 218, 236, 1},     // never thinner than a pixel
    Fit{1, 10000, 236, 218, 1, 218},
};

TEST(CarPictures, ArePutIntoTheirBoxByOneFactor)
{
  for (const auto& fit : kFits) {
    const auto shown = FittedPicture({fit.width, fit.height}, {fit.box_width, fit.box_height});
    EXPECT_EQ(shown.width, fit.shown_width) << fit.width << " x " << fit.height;
    EXPECT_EQ(shown.height, fit.shown_height) << fit.width << " x " << fit.height;
  }
}

TEST(CarPictures, FillTheirBoxOneWayAndNeverLeaveIt)
{
  for (int width = 1; width < 2000; width += 37)
    for (int height = 1; height < 2000; height += 41) {
      const auto shown = FittedPicture({width, height}, {236, 218});
      EXPECT_LE(shown.width, 236);
      EXPECT_LE(shown.height, 218);
      EXPECT_TRUE(shown.width == 236 || shown.height == 218) << width << " x " << height;
    }
}

}  // namespace
}  // namespace velquist::app
