// SPDX-License-Identifier: MIT
#include "app/LibraryRow.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "data/ChassisCatalogue.h"
#include "platform/LetterCase.h"
#include "platform/LocalTime.h"
#include "platform/TextEncoding.h"

namespace velquist::app {
namespace {

constexpr std::array<std::string_view, kPlainColumns> kHeadings = {
    "File", "Track", "Player", "Installation", "Year", "Chassis", "Formula", "Date", "Problem"};

std::string FormulaText(const library::Identity& identity)
{
  return identity.formula_index ? "F" + std::to_string(*identity.formula_index + 1) : std::string();
}

std::string ChassisText(const library::Identity& identity)
{
  return identity.chassis ? std::string(data::ChassisName(identity.read_as, *identity.chassis))
                          : std::string();
}

int Compare(std::int64_t a, std::int64_t b)
{
  return static_cast<int>(a > b) - static_cast<int>(a < b);
}

}  // namespace

std::string_view LibraryHeading(int column)
{
  return kHeadings.at(static_cast<std::size_t>(column));
}

std::optional<int> LibraryColumnOf(std::string_view name)
{
  const auto folded = platform::FoldCase(name);
  const auto* const found = std::ranges::find(
      kHeadings, folded, [](std::string_view heading) { return platform::FoldCase(heading); });
  if (found == kHeadings.end()) return std::nullopt;
  return static_cast<int>(found - kHeadings.begin());
}

LibraryRow::LibraryRow(library::Row setup, std::string installation) : setup_(std::move(setup))
{
  const auto cell = [this](int column) -> std::string& {
    return cells_.at(static_cast<std::size_t>(column));
  };
  const auto& [file, identity, place, problem] = setup_;
  cell(kFileColumn) = platform::InUtf8(library::FileNameOf(file.path));
  if (place) {
    cell(kTrackColumn) = platform::InUtf8(place->track);
    cell(kPlayerColumn) = platform::InUtf8(place->player);
  }
  cell(kInstallationColumn) = std::move(installation);
  cell(kYearColumn) = library::YearsText(identity);
  cell(kChassisColumn) = ChassisText(identity);
  cell(kFormulaColumn) = FormulaText(identity);
  if (!file.unreadable) cell(kDateColumn) = platform::LocalTimeText(file.modified);
  if (problem) cell(kProblemColumn) = problem->text;
  for (std::size_t column = 0; column < kPlainColumns; ++column) {
    starts_.at(column) = folded_.size();
    folded_ += platform::FoldCase(cells_.at(column));
    folded_ += '\n';
  }
  starts_.back() = folded_.size();
}

std::string_view LibraryRow::FoldedCell(int column) const
{
  const auto at = static_cast<std::size_t>(column);
  const auto start = starts_.at(at);
  return std::string_view(folded_).substr(start, starts_.at(at + 1) - start - 1);
}

int CompareInColumn(const LibraryRow& a, const LibraryRow& b, int column)
{
  if (column == kDateColumn && !a.Setup().file.unreadable && !b.Setup().file.unreadable)
    return Compare(a.Setup().file.modified, b.Setup().file.modified);
  const auto& x = a.Cell(column);
  const auto& y = b.Cell(column);
  if (x.empty() || y.empty()) return static_cast<int>(x.empty()) - static_cast<int>(y.empty());
  return platform::CompareNames(x, y);
}

}  // namespace velquist::app
