// SPDX-License-Identifier: MIT
#include "app/ComparisonTable.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <initializer_list>
#include <optional>

#include "app/FormControlSettings.h"
#include "data/ModYear.h"
#include "edit/Display.h"
#include "export/Markup.h"
#include "platform/Paths.h"
#include "setup/SlotNames.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

/// The row of the caption that names a value's unit; nothing for gears and lists.
std::optional<std::size_t> CaptionRow(int slot)
{
  constexpr int kSlotsOfWheels = 24;
  constexpr int kRowsOfWheels = 6;  ///< of an axle
  constexpr int kAxleRows = 12;     ///< where those of the axles themselves begin
  constexpr int kRowsOfAxle = 3;
  constexpr int kSingleRows = 18;
  if (slot >= edit::kDisplaySlots) return std::nullopt;
  if (slot < kSlotsOfWheels)
    return static_cast<std::size_t>(slot / 4 + (slot % 4 < 2 ? 0 : kRowsOfWheels));
  if (slot < setup::kFuel)
    return static_cast<std::size_t>(kAxleRows + (slot - kSlotsOfWheels) / 2 +
                                    (slot % 2 == 0 ? 0 : kRowsOfAxle));
  return static_cast<std::size_t>(kSingleRows + slot - setup::kFuel);
}

/// What the frame around a control is called.
std::string_view GroupOf(const MainForm& form, const ControlDesign& design)
{
  const auto& frame = *form.Find(design.frame, design.frame_index)->design;
  return frame.caption.empty() ? frame.spoken : frame.caption;
}

}  // namespace

std::string ParameterName(const MainForm& form, int slot)
{
  std::string name(setup::SlotName(slot));
  name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
  const auto row = CaptionRow(slot);
  if (!row) return name;
  const std::string_view caption = form.Label3.at(*row).text;
  const auto comma = caption.rfind(',');
  if (comma == std::string_view::npos) return name;
  const auto unit = caption.find_first_not_of(' ', comma + 1);
  return name + ", " + std::string(caption.substr(unit));
}

std::vector<ComparisonRow> ComparisonTable(const MainWindow& window, ComparedRows which)
{
  return ComparisonTable(window, window.Car().ComparedWith(), which);
}

std::vector<ComparisonRow> ComparisonTable(const MainWindow& window,
                                           const edit::Reference& reference, ComparedRows which)
{
  const auto& form = window.Form();
  const auto& car = window.Car();
  const int units = window.State().Units;
  std::vector<ComparisonRow> rows;
  for (const auto& design : FormControlSettings()) {
    const auto slot = design.kind == ControlKind::kButton ? std::nullopt : SlotOf(design);
    if (!slot || !edit::IsCompared(car, *slot)) continue;
    const bool differs = edit::Differs(reference, car, *slot);
    if (!differs && which == ComparedRows::kDifferences) continue;
    rows.push_back(
        {*slot, GroupOf(form, design), ParameterName(form, *slot),
         edit::ReferenceText(reference, car, *slot, units), edit::CurrentText(car, *slot, units),
         differs ? edit::AddedText(reference, car, *slot, units) : std::string(), differs});
  }
  return rows;
}

std::string ReferenceName(const MainWindow& window)
{
  const auto& reference = window.Car().ComparedWith();
  switch (reference.source) {
    case edit::ReferenceSource::kDefault:
      return "the default setup of " + window.Form().Combo2.text;
    case edit::ReferenceSource::kFile: return std::string(platform::FileNameOf(reference.path));
    case edit::ReferenceSource::kLoaded: break;
  }
  return "the setup as loaded";
}

std::string ComparisonText(std::span<const ComparisonRow> rows, std::string_view reference_name)
{
  std::string text;
  const auto line = [&text](std::initializer_list<std::string_view> cells) {
    std::string_view before;
    for (const auto cell : cells) {
      text.append(before).append(cell);
      before = "\t";
    }
    text += "\r\n";
  };
  line({"Group", "Parameter", "Reference: " + std::string(reference_name), "Now", "Difference"});
  for (const auto& row : rows) line({row.group, row.parameter, row.reference, row.now, row.added});
  return text;
}

std::string ComparisonHtml(std::span<const ComparisonRow> rows, std::string_view reference_name)
{
  std::string html = "<table>\n<caption>Compared with " + text_export::Escaped(reference_name) +
                     "</caption>\n<thead><tr><th>Parameter</th><th>Reference</th><th>Now</th>"
                     "<th>Difference</th></tr></thead>\n<tbody>\n";
  std::string_view group;
  for (const auto& row : rows) {
    if (row.group != group)
      html += "<tr><th colspan=\"4\" align=\"left\">" + text_export::Escaped(row.group) +
              "</th></tr>\n";
    group = row.group;
    html += "<tr><td>" + text_export::Escaped(row.parameter) + "</td>";
    for (const auto* const cell : {&row.reference, &row.now, &row.added})
      html += "<td align=\"right\">" + text_export::Escaped(*cell) + "</td>";
    html += "</tr>\n";
  }
  return html + "</tbody>\n</table>\n";
}

}  // namespace velquist::app
