#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::content {

/// Number of rows of a gear data file; the game knows no gear ID beyond.
inline constexpr int kGearRows = 90;

/// A pair of gear wheels.
struct GearPair {
  int driven = 0;   ///< teeth
  int driving = 0;  ///< teeth

  /// "31/9"
  [[nodiscard]] std::string DisplayText() const;

  /// The ratio to three decimals, "3.444".
  [[nodiscard]] std::string RatioText() const;

  /// The single nearest to `RatioText`, which is what a setup file holds.
  [[nodiscard]] float Ratio() const;
};

/// The wheels of one family of years; the index of a pair is its gear ID.
class GearTable {
 public:
  /// Throws ContentError unless the file holds `kGearRows` rows in order, the gears before the
  /// final drives, each ratio text greater than the one before.
  explicit GearTable(const std::filesystem::path& path);

  [[nodiscard]] const std::vector<GearPair>& Rows() const { return rows_; }
  [[nodiscard]] int FirstGear() const { return 0; }
  [[nodiscard]] int LastGear() const { return first_final_drive_ - 1; }
  [[nodiscard]] int FirstFinalDrive() const { return first_final_drive_; }
  [[nodiscard]] int LastFinalDrive() const { return kGearRows - 1; }
  [[nodiscard]] float Ratio(int gear_id) const;

  /// The gear ID of the pair shown as `display_text`, -1 for none.
  [[nodiscard]] int Find(std::string_view display_text) const;

  /// The gear data file: number, display text and ratio of each row.
  [[nodiscard]] std::string DataFile() const;

 private:
  std::vector<GearPair> rows_;
  int first_final_drive_ = 0;
};

}  // namespace velquist::content
