// What the tests of the shipped content share. The files are read as the program and the game read
// them, byte by byte, not through the tables they are made from.

#pragma once

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <system_error>
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

}  // namespace velquist::content::testing
