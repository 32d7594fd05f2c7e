// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>

#include "app/CarPictures.h"
#include "app/Choosing.h"
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "install/Installations.h"
#include "platform/Paths.h"

namespace velquist::app {
namespace {

using platform::Icon;

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

void MainWindow::Combo4_Click()
{
  if (!globals_.ready) return;
  globals_.player_index = Position(form_.Combo4);
  // The track that was chosen last is looked for at the same place in the new player's list; what
  // stands there now is shown, the number is the user's.
  const auto track_index = globals_.track_index;
  lists_.FillTracks();
  globals_.track_index = track_index;
}

void MainWindow::Combo5_Click()
{
  if (!globals_.ready) return;
  globals_.track_index = Position(form_.Combo5);
}

void MainWindow::Combo2_Click()
{
  if (globals_.filling_mod_years) return;
  const auto mod_year = data::ModYearOfText(form_.Combo2.text);
  if (!mod_year) return;
  car_.SetModYear(*mod_year);
  lists_.ShowModYearControls();
  lists_.FillChassis();
  ReadDataFiles();
  LoadDefaultSetup();
  car_.LoadValues();
  ShowSetup();
  Choose(*this, form_.Combo3, car_.ChassisIndex());
  StartEditing();
}

void MainWindow::Combo3_Click()
{
  if (!globals_.ready) return;
  car_.SetChassis(form_.Combo3.selection);
  ShowCarPicture(form_, globals_.installation, car_, outside_);
  showing_.ShowGearRows();
  showing_.DrawCharts();
}

void MainWindow::Combo6_Click()
{
  if (!globals_.ready) return;
  car_.SetFormula(form_.Combo6.selection);
  showing_.ShowGearRows();
  showing_.DrawCharts();
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
    lists_.FillPlayersAndTracks();
    ReadDataFiles();
    LoadDefaultSetup();
    car_.LoadValues();
    lists_.FillModYears();
    SetChecked(*this, form_, form_.OptUnits[0], true);
    ShowSetup();
  }
  ShowCarPicture(form_, globals_.installation, car_, outside_);
  showing_.DrawCharts();
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
      Choose(*this, form_.Combo7, static_cast<int>(form_.Combo7.items.size()) - 1);
    });
  }
}

void MainWindow::DeleteInstallation()
{
  DeleteForm form(form_.Combo7.items, [&](int position) {
    Event([&] {
      AllOrNothing([&] {
        form_.Combo7.items.erase(form_.Combo7.items.begin() + position);
        Choose(*this, form_.Combo7, 0);
      });
    });
    return !ended_;
  });
  outside_.dialogs.ShowInstallDelete(form);
}

}  // namespace velquist::app
