// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/GearData.h"
#include "data/ModYear.h"
#include "edit/Drivetrain.h"
#include "setup/SlotTable.h"

namespace velquist::edit {

class CarSetup;

/// Where a reference comes from.
enum class ReferenceSource { kLoaded, kDefault, kFile };

/// A car with its engine.
struct CarWithEngine {
  data::ModYear year{};
  int chassis = 0;
  int engine_slot = 0;  ///< of the catalogue
};

/// The setup that the one being edited is compared with.
struct Reference {
  ReferenceSource source = ReferenceSource::kLoaded;
  std::string path;                           ///< of kFile
  std::array<float, setup::kSlots> values{};  ///< as its file holds them, see ValueInFile
  std::shared_ptr<const data::GearData> gears = std::make_shared<data::GearData>();
  bool has_wings = false;
  std::optional<int> gear_count{};     ///< forward gears of its car where the file's name tells it
  std::optional<CarWithEngine> car{};  ///< nothing where any car may have it
};

/// The values of `car`, whose lists have been loaded, as a reference.
[[nodiscard]] Reference ReferenceOf(const CarSetup& car, ReferenceSource source, std::string path,
                                    std::optional<int> gear_count);

/// The ratios of the reference's first gears; nothing where the gear table has no such row.
[[nodiscard]] std::optional<GearRatios> RatiosOf(const Reference& reference, int gear_count);

/// A slot's value as the file would hold it: whole where the file has whole numbers, that of the
/// selected item where there is a list.
[[nodiscard]] float ValueInFile(const CarSetup& car, int slot);

/// The slot is compared: ratio numbers are not, which follow from the gears, nor wings where the
/// car has none.
[[nodiscard]] bool IsCompared(const CarSetup& car, int slot);

/// The value of `slot` is another one than the reference's. Gears are the same when their rows are,
/// or their ratios where the reference has another gear table. Cheap: made after every press.
[[nodiscard]] bool Differs(const Reference& reference, const CarSetup& car, int slot);

struct Difference {
  int slot = 0;
  float reference = 0;  ///< values in the file
  float current = 0;
};

/// Every slot that differs, in rising order.
[[nodiscard]] std::vector<Difference> Differences(const Reference& reference, const CarSetup& car);

/// The reference's value of a slot as `car` would hold it; nothing for a gear that is not among the
/// slot's rows and for a number that is not in the slot's list.
[[nodiscard]] std::optional<float> ValueFromReference(const Reference& reference,
                                                      const CarSetup& car, int slot);

/// Both values as they are shown: "90", "35/13 (2.692)", or "-" where the reference's car has no
/// such thing.
[[nodiscard]] std::string ReferenceText(const Reference& reference, const CarSetup& car, int slot,
                                        int units);
[[nodiscard]] std::string CurrentText(const CarSetup& car, int slot, int units);

/// What has been added to the number shown, with its sign: "+20", of gears to the ratio; empty
/// where there is nothing to subtract.
[[nodiscard]] std::string AddedText(const Reference& reference, const CarSetup& car, int slot,
                                    int units);

/// "was 90, now 110 (+20)" in the units and decimals shown; the difference is that of the numbers
/// shown. Gears say teeth and ratio instead.
[[nodiscard]] std::string DifferenceText(const Reference& reference, const CarSetup& car, int slot,
                                         int units);

}  // namespace velquist::edit
