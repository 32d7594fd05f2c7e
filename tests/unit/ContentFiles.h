// What the tests of the shipped content share. The files are read as the program and the game read
// them, byte by byte, not through the tables they are made from.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "runner/SourceDirectory.h"

namespace velquist::content::testing {

namespace fs = std::filesystem;

inline const fs::path kRoot = velquist::testing::SourceDirectory();
inline const fs::path kSources = kRoot / "tools" / "content";
inline const fs::path kProgram = kRoot / "assets" / "program";
inline const fs::path kExamples = kRoot / "examples" / "GPL";

// --- Reading -----------------------------------------------------------------------------------

inline std::string ReadBytes(const fs::path& path)
{
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

inline std::vector<std::string> Split(const std::string& text, const std::string& separator)
{
  std::vector<std::string> parts;
  for (std::size_t begin = 0;;) {
    const auto end = text.find(separator, begin);
    parts.push_back(text.substr(begin, end - begin));
    if (end == std::string::npos) return parts;
    begin = end + separator.size();
  }
}

/// The fields of a data file's lines; every line, the last one too, must end in CR LF.
inline std::vector<std::vector<std::string>> ReadFields(const fs::path& path)
{
  auto lines = Split(ReadBytes(path), "\r\n");
  EXPECT_EQ(lines.back(), "") << path;
  lines.pop_back();
  std::vector<std::vector<std::string>> fields;
  for (const std::string& line : lines) {
    EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos) << path;
    fields.push_back(Split(line, ","));
  }
  return fields;
}

inline double Number(const std::string& text)
{
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  EXPECT_TRUE(error == std::errc{} && rest == end) << '"' << text << '"';
  return value;
}

inline float Single(const std::string& text)
{
  return static_cast<float>(Number(text));
}

struct DataRow {
  float minimum, standard, maximum, step, fine;
};

inline std::vector<DataRow> ReadSetupData(const fs::path& path)
{
  std::vector<DataRow> rows;
  for (const auto& fields : ReadFields(path)) {
    if (fields.size() != 6) {
      ADD_FAILURE() << path << ": " << fields.size() << " fields";
      continue;
    }
    rows.push_back({Single(fields[1]), Single(fields[2]), Single(fields[3]), Single(fields[4]),
                    Single(fields[5])});
  }
  return rows;
}

struct GearRow {
  std::string number, text;
  float ratio;
};

inline std::vector<GearRow> ReadGearData(const fs::path& path)
{
  std::vector<GearRow> rows;
  for (const auto& fields : ReadFields(path)) {
    if (fields.size() != 3) {
      ADD_FAILURE() << path << ": " << fields.size() << " fields";
      continue;
    }
    rows.push_back({fields[0], fields[1], Single(fields[2])});
  }
  return rows;
}

/// Every file below `folder`, without the car pictures, which are drawn elsewhere.
inline std::map<std::string, std::string> OnDisk(const fs::path& folder)
{
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const std::string path = entry.path().lexically_relative(folder).generic_string();
    if (path.rfind("cars/", 0) == 0 && entry.path().extension() == ".jpg") continue;
    files.emplace(path, ReadBytes(entry.path()));
  }
  return files;
}

inline std::set<std::string> Paths(const std::map<std::string, std::string>& files)
{
  std::set<std::string> paths;
  for (const auto& [path, bytes] : files) paths.insert(path);
  return paths;
}

// --- Setup files -------------------------------------------------------------------------------

inline constexpr int kRows = 53;
inline constexpr int kFinalRatioRow = 6;
inline constexpr int kFirstIdRow = 7;
inline constexpr int kFinalIdRow = 13;
inline constexpr int kCoastAngleRow = 14;
inline constexpr int kPowerAngleRow = 15;
inline constexpr int kSymmetryRow = 50;
inline constexpr int kFrontWingRow = 51;
inline constexpr int kRearWingRow = 52;

/// Where each row of the setup data file stands in a setup file.
inline constexpr std::array<std::size_t, kRows> kOffsets = {
    20,  24,  28,  32,  36,  40,  44,        // ratio numbers
    56,  60,  64,  68,  72,  76,  80,        // gear IDs
    84,  88,                                 // coast angle, power angle
    92,  96,  100, 104, 108, 112, 116, 120,  // tire pressures, wheel rates
    124, 128, 132, 136, 140, 144, 148, 152,  // bump, rebound
    156, 160, 164, 168, 204, 208, 212, 216,  // camber, bump rubbers
    220, 224, 228, 232, 236, 240,            // toe in, roll bars, ride heights
    244, 248, 252, 256,                      // clutches, fuel, steering ratio, brake bias
    260, 261, 265};                          // symmetry flag, wings

inline bool IsWhole(int row)
{
  return (row >= kFirstIdRow && row <= kFinalIdRow) || (row >= 24 && row <= 31) || row == 46 ||
         row == 49;
}

inline std::uint32_t Word(const std::string& bytes, std::size_t offset)
{
  std::uint32_t word = 0;
  for (std::size_t i = 4; i-- > 0;) {
    word = word << 8 | static_cast<std::uint8_t>(bytes.at(offset + i));
  }
  return word;
}

inline float SingleAt(const std::string& bytes, std::size_t offset)
{
  return std::bit_cast<float>(Word(bytes, offset));
}

inline float ValueOf(const std::string& setup, int row)
{
  const std::size_t offset = kOffsets[static_cast<std::size_t>(row)];
  if (row == kSymmetryRow) return static_cast<float>(static_cast<std::uint8_t>(setup.at(offset)));
  return IsWhole(row) ? static_cast<float>(static_cast<std::int32_t>(Word(setup, offset)))
                      : SingleAt(setup, offset);
}

inline std::size_t IdOf(const std::string& setup, int gear)
{
  return static_cast<std::size_t>(ValueOf(setup, kFirstIdRow + gear));
}

inline bool IsLong(const std::string& setup)
{
  return setup.size() == 272;
}

// --- The years ---------------------------------------------------------------------------------

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
