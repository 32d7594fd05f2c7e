// The years as the tests of the shipped content know them: their files, and the engine and gears of
// their first chassis.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ContentFiles.h"

namespace velquist::content::testing {

/// The engine of a year's first chassis: a cubic of rpm, or points joined by straight lines,
/// gives the mean pressure, which torque is proportional to.
struct Engine {
  std::array<double, 4> cubic;
  std::vector<std::pair<double, double>> points;
  double maximum_rpm;
  int gears;

  [[nodiscard]] double Torque(double rpm) const
  {
    if (points.empty()) return ((cubic[3] * rpm + cubic[2]) * rpm + cubic[1]) * rpm + cubic[0];
    const auto above = std::find_if(points.begin(), points.end() - 1,
                                    [&](const auto& point) { return rpm < point.first; });
    const auto below = above == points.begin() ? above : above - 1;
    if (above == below) return above->second;
    const double share = (rpm - below->first) / (above->first - below->first);
    return below->second + share * (above->second - below->second);
  }
  [[nodiscard]] double Power(double rpm) const { return rpm * Torque(rpm); }
};

struct Year {
  std::string name;    ///< how the default setup's file begins
  std::string title;   ///< how people call it
  std::string family;  ///< how the setup data file begins
  std::string gears;   ///< how the gear data file begins
  bool is_long;        ///< layout of the default setup
  double speed_line;   ///< maximum speed of the first chassis, mph
  Engine engine;
};

inline const std::vector<Year>& Years()
{
  static const std::vector<Year> years = {
      {"67", "1967", "67", "67", false, 200, {{30, 0.0599, -4.99e-6, -8.43e-15}, {}, 8700, 5}},
      {"65",
       "1965",
       "65",
       "65",
       false,
       180,
       {{153.05342, -0.029015947, 8.45091e-6, -5.00207e-10}, {}, 11200, 5}},
      {"66",
       "1966",
       "65",
       "65",
       true,
       200,
       {{},
        {{0, 120},
         {1000, 125},
         {2000, 130},
         {3000, 140},
         {3500, 150},
         {4000, 164},
         {4500, 173},
         {5000, 179},
         {5500, 184},
         {6000, 188},
         {6500, 190},
         {7000, 186},
         {7500, 178.5},
         {8000, 170.5},
         {8200, 163},
         {8500, 140},
         {8700, 125},
         {9000, 95}},
        8700,
        5}},
      {"69",
       "1969",
       "65",
       "65",
       true,
       200,
       {{90, -0.000541781, 5.4986e-6, -4.47065e-10}, {}, 10300, 5}},
      {"GT",
       "GT",
       "GT",
       "65",
       true,
       208,
       {{},
        {{0, 105},
         {500, 110},
         {1000, 115},
         {1500, 125},
         {2000, 135},
         {2500, 144},
         {3000, 154},
         {3500, 158},
         {4000, 161},
         {4500, 164},
         {5000, 166.2},
         {5500, 161},
         {6000, 152},
         {6400, 145.3},
         {6800, 133},
         {7000, 122},
         {7300, 90},
         {7600, 0}},
        6550,
        4}}};
  return years;
}

inline const Year& YearOf(const std::string& title)
{
  const auto found = std::find_if(Years().begin(), Years().end(),
                                  [&](const Year& year) { return year.title == title; });
  if (found == Years().end()) throw std::out_of_range("no year " + title);
  return *found;
}

inline std::vector<DataRow> SetupDataOf(const Year& year, const fs::path& folder = kProgram)
{
  auto rows = ReadSetupData(folder / (year.family + " Setup Data.ini"));
  if (rows.size() != kRows) throw std::out_of_range("rows of " + year.family);
  return rows;
}

inline std::vector<GearRow> GearDataOf(const Year& year)
{
  auto rows = ReadGearData(kProgram / (year.gears + " Gear Data.ini"));
  if (rows.size() != 90) throw std::out_of_range("rows of " + year.gears);
  return rows;
}

inline std::string DefaultSetup(const Year& year, const fs::path& folder = kProgram)
{
  return ReadBytes(folder / (year.name + " Velquist Default.vqset"));
}

/// Miles per hour at that engine speed, on 27-inch tires.
inline double Speed(double rpm, double gear, double final_drive)
{
  return rpm / (gear * final_drive) * (84.8232 / 12) * (60.0 / 5280);
}

/// The ratio numbers of the gears that the year's first chassis has.
inline std::vector<double> GearsOf(const Year& year, const std::string& setup)
{
  std::vector<double> ratios;
  for (int gear = 0; gear < year.engine.gears; ++gear) {
    ratios.push_back(static_cast<double>(ValueOf(setup, gear)));
  }
  return ratios;
}

/// A claim about each year; what fails is traced to its year.
inline void ForEachYear(const std::function<void(const Year&)>& claim)
{
  for (const Year& year : Years()) {
    SCOPED_TRACE(year.title);
    claim(year);
  }
}

}  // namespace velquist::content::testing
