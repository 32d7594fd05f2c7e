// SPDX-License-Identifier: MIT
#include "app/TopLists.h"

#include <algorithm>
#include <string>

#include "app/Choosing.h"
#include "app/Flag.h"
#include "app/ModYearFromFile.h"
#include "data/ChassisCatalogue.h"
#include "install/Installations.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

/// Place of the formula list's caption in Label5.
constexpr std::size_t kFormulaCaption = 3;

/// A directory's name as the list spells it; the name itself where the list does not have it.
std::string AsListed(const Control& list, std::string_view name)
{
  if (std::ranges::find(list.items, name) != list.items.end()) return std::string(name);
  const auto other_case =
      std::ranges::find(list.items, platform::FoldCase(name), platform::FoldCase);
  return other_case != list.items.end() ? *other_case : std::string(name);
}

}  // namespace

void TopLists::FillPlayersAndTracks()
{
  form_.Combo4.items = install::ListPlayers(files_, globals_.installation);
  const auto player =
      globals_.from_command_line ? install::PlayerOfPath(globals_.command_line) : std::nullopt;
  if (player)
    ChooseOrAdd(window_, form_.Combo4, AsListed(form_.Combo4, *player));
  else
    ChooseKept(window_, form_.Combo4, globals_.player_index);
  FillTracks();
}

void TopLists::FillTracks()
{
  form_.Combo5.items = install::ListTracks(files_, globals_.installation, form_.Combo4.text);
  if (globals_.from_command_line) {
    const auto track = platform::FileNameOf(platform::DirectoryOf(globals_.command_line));
    if (ChooseText(window_, form_.Combo5, AsListed(form_.Combo5, track))) return;
  }
  ChooseKept(window_, form_.Combo5, globals_.track_index);
}

void TopLists::ListModYears()
{
  form_.Combo2.items.clear();
  for (const auto& marker : setup::ModMarkers())
    if (IsInstalled(marker.ModYearIndex, globals_.installation, files_))
      form_.Combo2.items.emplace_back(data::ModYearText(marker.ModYearIndex));
}

void TopLists::SelectModYear()
{
  {
    const Flag filling(globals_.filling_mod_years, true);
    ChooseText(window_, form_.Combo2, data::ModYearText(car_.ModYearIndex()));
  }
  ShowModYearControls();
}

void TopLists::ShowModYearControls()
{
  const bool wings = car_.ModYearIndex() == data::ModYear::k1969;
  form_.Wings.shown = form_.Wings.enabled = wings;
  const bool gt = car_.ModYearIndex() == data::ModYear::kGT;
  for (Control* control : {&form_.AsymmetricCheck, &form_.MnuReverse})
    control->shown = control->enabled = !gt;
  form_.Combo6.shown = !gt;
  form_.Label5[kFormulaCaption].shown = !gt;
  if (gt) {
    car_.SetFormula(0);
    if (!form_.Combo6.items.empty()) Choose(window_, form_.Combo6, 0);
  }
}

void TopLists::FillChassis()
{
  form_.Combo3.items.clear();
  for (int slot = 0; slot < data::ChassisCount(car_.ModYearIndex()); ++slot)
    form_.Combo3.items.emplace_back(data::ChassisName(car_.ModYearIndex(), slot));
  car_.SetChassis(KeptPosition(car_.ChassisIndex(), form_.Combo3));
}

void TopLists::FillModYears()
{
  ListModYears();
  if (globals_.from_command_line) {
    const auto code = setup::ChassisCodeOf(globals_.command_line);
    if (const auto chassis = setup::ChassisIndexOf(car_.ModYearIndex(), code))
      car_.SetChassis(*chassis);
    if (const auto formula = setup::FormulaIndexOf(globals_.command_line))
      car_.SetFormula(*formula);
  }
  FillChassis();
  Choose(window_, form_.Combo3, car_.ChassisIndex());
  form_.Combo6.items = {"F1", "F2", "F3"};
  car_.SetFormula(KeptPosition(car_.FormulaIndex(), form_.Combo6));
  Choose(window_, form_.Combo6, car_.FormulaIndex());
  SelectModYear();
}

std::string SetupDirectory(const MainForm& form)
{
  return install::SetupDirectory(form.Combo7.text, form.Combo4.text, form.Combo5.text);
}

}  // namespace velquist::app
