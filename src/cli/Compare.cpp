// SPDX-License-Identifier: MIT
#include <bit>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Facts.h"
#include "cli/Json.h"
#include "cli/OpenedSetup.h"
#include "cli/TextTable.h"
#include "export/Values.h"
#include "setup/SlotNames.h"

namespace velquist::cli {
namespace {

using text_export::HasGearRow;
using text_export::NumberOf;
using text_export::TextOf;
using text_export::UnitOf;

/// Gears are the same when their rows are, or their ratios where the years have other gears.
bool Differ(const edit::CarSetup& a, const edit::CarSetup& b, int slot)
{
  const bool by_ratio = HasGearRow(slot) && a.Gears() != b.Gears();
  const auto number = [&](const edit::CarSetup& car) {
    return std::bit_cast<std::uint32_t>(by_ratio ? NumberOf(car, slot, edit::kEnglish)
                                                 : car.Value(slot));
  };
  return number(a) != number(b);
}

/// Ratio numbers are left out, which follow from the gears.
std::vector<int> Differences(const edit::CarSetup& a, const edit::CarSetup& b)
{
  std::vector<int> slots;
  for (int slot = 0; slot < setup::kSlots; ++slot)
    if ((slot < setup::kFirstRatio || slot >= setup::kFirstGear) && Differ(a, b, slot))
      slots.push_back(slot);
  return slots;
}

}  // namespace

int Compare(Session& session)
{
  const auto& paths = session.Options().paths;
  const int units = session.Options().units;
  const auto a = OpenSetup(session, paths.front());
  const auto b = OpenSetup(session, paths.back());
  const auto slots = Differences(a->car, b->car);
  auto& out = session.Out();
  if (session.Options().form == Form::kJson) {
    auto differences = Json::array();
    for (const int slot : slots)
      differences.push_back({{"slot", slot},
                             {"name", std::string(setup::SlotName(slot))},
                             {"a", NumberOf(a->car, slot, units)},
                             {"b", NumberOf(b->car, slot, units)},
                             {"unit", std::string(UnitOf(slot, units))}});
    out << JsonText({{"a", paths.front()}, {"b", paths.back()}, {"differences", differences}})
        << '\n';
  } else if (!slots.empty()) {
    out << "a: " << paths.front() << "\nb: " << paths.back() << "\n\n";
    TextTable table({Align::kLeft, Align::kRight, Align::kRight, Align::kLeft});
    table.Add({"", "a", "b", ""});
    for (const int slot : slots)
      table.Add({std::string(setup::SlotName(slot)), TextOf(a->car, slot, units),
                 TextOf(b->car, slot, units), std::string(UnitOf(slot, units))});
    table.Write(out, "  ");
  }
  return slots.empty() ? kDone : kFound;
}

}  // namespace velquist::cli
