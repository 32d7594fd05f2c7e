// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>

#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "app/ModYearFromFile.h"
#include "data/ChassisCatalogue.h"
#include "install/Installations.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

using platform::Icon;

/// Place of the formula list's caption in Label5.
constexpr std::size_t kFormulaCaption = 3;

/// A saved position, or the first one where the list is shorter.
int KeptPosition(int saved, const Control& list)
{
  return saved >= 0 && static_cast<std::size_t>(saved) < list.items.size() ? saved : 0;
}

/// A directory's name as the list spells it; the name itself where the list does not have it.
std::string AsListed(const Control& list, std::string_view name)
{
  if (std::ranges::find(list.items, name) != list.items.end()) return std::string(name);
  const auto other_case =
      std::ranges::find(list.items, platform::FoldCase(name), platform::FoldCase);
  return other_case != list.items.end() ? *other_case : std::string(name);
}

std::int16_t Position(const Control& list)
{
  return static_cast<std::int16_t>(list.selection);
}

/// The form that deletes installations; it shows what the installation list holds.
class DeleteForm final : public InstallDeleteForm {
 public:
  /// `remove` takes a position off the list; false when the program has ended.
  DeleteForm(const std::vector<std::string>& list, std::function<bool(int)> remove)
      : list_(list), remove_(std::move(remove))
  {
  }
  [[nodiscard]] const std::vector<std::string>& Items() const override { return list_; }
  [[nodiscard]] int Selection() const override { return selection_; }
  void Combo1_Click(int position) override { selection_ = position; }
  void DeleteButton_Click() override
  {
    // The last installation stays.
    if (list_.size() <= 1 || must_close_) return;
    must_close_ = !remove_(std::exchange(selection_, 0));
  }
  [[nodiscard]] bool MustClose() const override { return must_close_; }

 private:
  const std::vector<std::string>& list_;
  std::function<bool(int)> remove_;
  int selection_ = 0;
  bool must_close_ = false;
};

}  // namespace

void MainWindow::FillPlayersAndTracks()
{
  form_.Combo4.items = install::ListPlayers(outside_.files, globals_.installation);
  const auto player =
      globals_.from_command_line ? install::PlayerOfPath(globals_.command_line) : std::nullopt;
  if (player)
    ChooseOrAdd(form_.Combo4, AsListed(form_.Combo4, *player));
  else
    ChooseKept(form_.Combo4, globals_.player_index);
  FillTracks();
}

/// Selects a saved position or the first one; an empty list has no selection.
void MainWindow::ChooseKept(Control& list, int saved)
{
  if (list.items.empty()) {
    list.selection = -1;
    list.text.clear();
  } else {
    Choose(list, KeptPosition(saved, list));
  }
}

void MainWindow::FillTracks()
{
  form_.Combo5.items =
      install::ListTracks(outside_.files, globals_.installation, form_.Combo4.text);
  if (globals_.from_command_line) {
    const auto track = platform::FileNameOf(platform::DirectoryOf(globals_.command_line));
    if (ChooseText(form_.Combo5, AsListed(form_.Combo5, track))) return;
  }
  ChooseKept(form_.Combo5, globals_.track_index);
}

void MainWindow::Combo4_Click()
{
  if (!globals_.ready) return;
  globals_.player_index = Position(form_.Combo4);
  // The track that was chosen last is looked for at the same place in the new player's list; what
  // stands there now is shown, the number is the user's.
  const auto track_index = globals_.track_index;
  FillTracks();
  globals_.track_index = track_index;
}

void MainWindow::Combo5_Click()
{
  if (!globals_.ready) return;
  globals_.track_index = Position(form_.Combo5);
}

void MainWindow::ListModYears()
{
  form_.Combo2.items.clear();
  for (const auto& marker : setup::ModMarkers())
    if (IsInstalled(marker.ModYearIndex, globals_.installation, outside_.files))
      form_.Combo2.items.emplace_back(data::ModYearText(marker.ModYearIndex));
}

void MainWindow::SelectModYear()
{
  {
    const Flag filling(globals_.filling_mod_years, true);
    ChooseText(form_.Combo2, data::ModYearText(car_.ModYearIndex()));
  }
  ShowModYearControls();
}

/// What is offered for some mod years alone.
void MainWindow::ShowModYearControls()
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
    if (!form_.Combo6.items.empty()) Choose(form_.Combo6, 0);
  }
}

void MainWindow::FillChassis()
{
  form_.Combo3.items.clear();
  for (int slot = 0; slot < data::ChassisCount(car_.ModYearIndex()); ++slot)
    form_.Combo3.items.emplace_back(data::ChassisName(car_.ModYearIndex(), slot));
  car_.SetChassis(KeptPosition(car_.ChassisIndex(), form_.Combo3));
}

void MainWindow::FillModYears()
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
  Choose(form_.Combo3, car_.ChassisIndex());
  form_.Combo6.items = {"F1", "F2", "F3"};
  car_.SetFormula(KeptPosition(car_.FormulaIndex(), form_.Combo6));
  Choose(form_.Combo6, car_.FormulaIndex());
  SelectModYear();
}

void MainWindow::Combo2_Click()
{
  if (globals_.filling_mod_years) return;
  const auto mod_year = data::ModYearOfText(form_.Combo2.text);
  if (!mod_year) return;
  car_.SetModYear(*mod_year);
  ShowModYearControls();
  FillChassis();
  ReadDataFiles();
  LoadDefaultSetup();
  car_.LoadValues();
  ShowSetup();
  Choose(form_.Combo3, car_.ChassisIndex());
  StartEditing();
}

void MainWindow::Combo3_Click()
{
  if (!globals_.ready) return;
  car_.SetChassis(form_.Combo3.selection);
  ShowCarPicture();
  ShowGearRows();
  DrawCharts();
}

void MainWindow::Combo6_Click()
{
  if (!globals_.ready) return;
  car_.SetFormula(form_.Combo6.selection);
  ShowGearRows();
  DrawCharts();
}

void MainWindow::Combo7_Click()
{
  if (!globals_.ready) return;
  globals_.installation = form_.Combo7.text;
  car_.SetModYear(data::ModYear::k1967);
  car_.SetChassis(0);
  car_.SetFormula(0);
  globals_.player_index = globals_.track_index = 0;
  {
    const Flag filling(globals_.ready, false);
    FillPlayersAndTracks();
    ReadDataFiles();
    LoadDefaultSetup();
    car_.LoadValues();
    FillModYears();
    SetChecked(form_.OptUnits[0], true);
    ShowSetup();
  }
  ShowCarPicture();
  DrawCharts();
  StartEditing();
}

void MainWindow::AddInstallation()
{
  if (!SaveFirst()) return;
  const auto chosen = outside_.dialogs.AskOpenFile({.filter = "GPL .exe Files|*.exe",
                                                    .start = {},
                                                    .directory = outside_.program_directory,
                                                    .title = "Add Installation: Select gpl.exe",
                                                    .of_game = true});
  if (!chosen) return;
  const auto installation = std::string(platform::DirectoryOf(*chosen));
  if (std::ranges::find(form_.Combo7.items, installation) != form_.Combo7.items.end()) {
    Tell("This installation directory is already installed.", Icon::kInformation);
  } else if (!outside_.files.Exists(installation + "\\players")) {
    Tell("This is not a valid GPL directory as it is missing the Players directory.",
         Icon::kInformation);
  } else {
    AllOrNothing([&] {
      form_.Combo7.items.push_back(installation);
      Choose(form_.Combo7, static_cast<int>(form_.Combo7.items.size()) - 1);
    });
  }
}

void MainWindow::DeleteInstallation()
{
  DeleteForm form(form_.Combo7.items, [&](int position) {
    Event([&] {
      AllOrNothing([&] {
        form_.Combo7.items.erase(form_.Combo7.items.begin() + position);
        Choose(form_.Combo7, 0);
      });
    });
    return !ended_;
  });
  outside_.dialogs.ShowInstallDelete(form);
}

}  // namespace velquist::app
