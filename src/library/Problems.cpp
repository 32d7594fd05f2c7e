// SPDX-License-Identifier: MIT
#include "library/Problems.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "platform/Errors.h"
#include "setup/SetupRecord.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::library {
namespace {

using setup::SlotName;

constexpr std::size_t kTypeOffset = 4;
constexpr std::size_t kSizeOffset = 8;

/// What the whole numbers of the header are in each layout.
struct Header {
  std::int32_t type;
  std::int32_t size;
};
constexpr Header kShortHeader = {3, 249};
constexpr Header kLongHeader = {4, 257};

std::size_t OffsetOf(int slot)
{
  return static_cast<std::size_t>(setup::SlotOffset.at(static_cast<std::size_t>(slot)));
}

bool IsWing(int slot)
{
  return slot == setup::kFrontWing || slot == setup::kRearWing;
}

std::string NumberText(float value)
{
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

/// A setup of one of the two sizes.
class Fields {
 public:
  Fields(std::span<const std::byte> bytes, const Identity& identity)
      : bytes_(bytes),
        is_long_(bytes.size() == setup::kLongLayoutSize),
        has_wings_(is_long_ && identity.read_as == data::ModYear::k1969)
  {
  }

  [[nodiscard]] const Header& WantedHeader() const { return is_long_ ? kLongHeader : kShortHeader; }
  [[nodiscard]] std::int32_t WholeAt(std::size_t offset) const
  {
    return setup::ReadLongAt(bytes_, offset);
  }
  /// The file has such a field.
  [[nodiscard]] bool Has(int slot) const { return is_long_ || !IsWing(slot); }
  /// Its value is one of the setup's: a wing of another year is not.
  [[nodiscard]] bool Counts(int slot) const { return has_wings_ || !IsWing(slot); }
  [[nodiscard]] float Value(int slot) const
  {
    return setup::IsWholeSlot(slot) ? static_cast<float>(WholeAt(OffsetOf(slot)))
                                    : setup::ReadSingleAt(bytes_, OffsetOf(slot));
  }
  [[nodiscard]] bool IsNumber(int slot) const { return std::isfinite(Value(slot)); }
  [[nodiscard]] bool SaysSymmetric() const
  {
    return bytes_[setup::kSymmetryOffset] != std::byte{0};
  }

 private:
  std::span<const std::byte> bytes_;
  bool is_long_;
  bool has_wings_;
};

/// Collects what is wrong with the fields of one setup.
class Checks {
 public:
  explicit Checks(const Fields& fields) : fields_(fields) {}

  void Header()
  {
    const auto& wanted = fields_.WantedHeader();
    const auto field = [&](std::string_view name, std::size_t offset, std::int32_t is_wanted) {
      const auto is = fields_.WholeAt(offset);
      if (is != is_wanted)
        Add(ProblemCode::kHeader, std::nullopt,
            "the " + std::string(name) + " field of the header is " + std::to_string(is) +
                ", not the layout's " + std::to_string(is_wanted));
    };
    field("type", kTypeOffset, wanted.type);
    field("size", kSizeOffset, wanted.size);
  }

  void Numbers()
  {
    for (int slot = 0; slot < setup::kSlots; ++slot)
      if (fields_.Has(slot) && !fields_.IsNumber(slot))
        Add(ProblemCode::kNotANumber, slot, Named(slot) + " is not a number");
  }

  void Limits(const data::SetupData& limits)
  {
    for (int slot = 0; slot < setup::kSlots; ++slot) {
      if (!fields_.Counts(slot) || !fields_.IsNumber(slot)) continue;
      const float value = fields_.Value(slot);
      const float minimum = limits.Value(setup::RowOf(slot), data::kMinimum);
      const float maximum = limits.Value(setup::RowOf(slot), data::kMaximum);
      if (value < minimum || value > maximum)
        Add(ProblemCode::kOutsideLimits, slot,
            Named(slot) + " is " + NumberText(value) + ", outside " + NumberText(minimum) + " to " +
                NumberText(maximum));
    }
  }

  void GearIds(const data::GearData& gears)
  {
    for (int pair = 0; pair < setup::kGearPairs; ++pair) {
      const int slot = setup::kFirstGear + pair;
      const int ratio_slot = setup::kFirstRatio + pair;
      const auto id = fields_.WholeAt(OffsetOf(slot));
      const float ratio = fields_.Value(ratio_slot);
      if (!fields_.IsNumber(ratio_slot) || setup::IsGearOfRatio(gears, id, ratio)) continue;
      std::string names = "names no gear";
      if (id >= 0 && id < data::kGearRows)
        names = "is " + gears.DisplayText(id) + " (" + NumberText(gears.Ratio(id)) + ")";
      Add(ProblemCode::kGearId, slot,
          "the ID " + std::to_string(id) + " of " + Named(slot) + " " + names +
              ", the ratio number is " + NumberText(ratio));
    }
  }

  void GearOrder(int gear_count)
  {
    for (int gear = 1; gear < gear_count; ++gear) {
      const float before = fields_.Value(setup::kFirstRatio + gear - 1);
      const float ratio = fields_.Value(setup::kFirstRatio + gear);
      if (std::isfinite(before) && std::isfinite(ratio) && !(ratio < before))
        Add(ProblemCode::kGearOrder, setup::kFirstGear + gear,
            Named(setup::kFirstGear + gear) + ", " + NumberText(ratio) + ", is not below " +
                Named(setup::kFirstGear + gear - 1) + ", " + NumberText(before));
    }
  }

  void Symmetry()
  {
    if (!fields_.SaysSymmetric()) return;
    for (int left = 0; left < setup::kToeIn; left += 2) {
      const float a = fields_.Value(left);
      const float b = fields_.Value(left + 1);
      if (a == b || (std::isnan(a) && std::isnan(b))) continue;
      Add(ProblemCode::kSymmetry, left,
          "the sides are marked as equal, but " + Named(left) + " is " + NumberText(a) + ", " +
              Named(left + 1) + " " + NumberText(b));
    }
  }

  void Wings(std::string_view year)
  {
    for (const int slot : {setup::kFrontWing, setup::kRearWing})
      if (fields_.Has(slot) && !fields_.Counts(slot) && fields_.IsNumber(slot) &&
          fields_.Value(slot) != setup::kNoWing)
        Add(ProblemCode::kWings, slot,
            Named(slot) + " is " + NumberText(fields_.Value(slot)) + ", and cars of " +
                std::string(year) + " have no wings");
  }

  [[nodiscard]] std::vector<Problem> Found() && { return std::move(found_); }

 private:
  static std::string Named(int slot) { return std::string(SlotName(slot)); }
  void Add(ProblemCode code, std::optional<int> slot, std::string text)
  {
    found_.push_back({code, slot, std::move(text)});
  }

  const Fields& fields_;
  std::vector<Problem> found_;
};

}  // namespace

std::string_view CodeText(ProblemCode code) noexcept
{
  switch (code) {
    case ProblemCode::kUnreadable: return "unreadable";
    case ProblemCode::kNotASetup: return "not-a-setup";
    case ProblemCode::kSize: return "size";
    case ProblemCode::kHeader: return "header";
    case ProblemCode::kNotANumber: return "not-a-number";
    case ProblemCode::kOutsideLimits: return "outside-limits";
    case ProblemCode::kGearId: return "gear-id";
    case ProblemCode::kGearOrder: return "gear-order";
    case ProblemCode::kSymmetry: return "symmetry";
    case ProblemCode::kWings: return "wings";
  }
  return {};
}

std::vector<Problem> ProblemsOf(const SetupFile& file, const Identity& identity,
                                const YearTables* tables)
{
  if (file.unreadable)
    return {{ProblemCode::kUnreadable, {}, "cannot be read: " + *file.unreadable}};
  if (!file.IsSetup()) return {{ProblemCode::kNotASetup, {}, "does not begin as a setup does"}};
  if (!file.Layout())
    return {{ProblemCode::kSize,
             {},
             "has " + std::to_string(file.size) + " bytes, neither 264 nor 272"}};
  const Fields fields(file.Bytes(), identity);
  Checks checks(fields);
  checks.Header();
  checks.Numbers();
  if (tables != nullptr) {
    checks.Limits(tables->setup_data);
    checks.GearIds(tables->gears);
  }
  if (const auto gears = identity.GearCount()) checks.GearOrder(*gears);
  checks.Symmetry();
  checks.Wings(data::ModYearText(identity.read_as));
  return std::move(checks).Found();
}

}  // namespace velquist::library
