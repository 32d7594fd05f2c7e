// SPDX-License-Identifier: MIT
// Random users who edit, import, undo and redo: at every moment the program agrees, to the last
// bit, with a list of all states written down beside it, and what is marked with a comparison made
// from scratch. VELQUIST_HISTORY_EVENTS in the environment says how many events there are.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "RandomWorld.h"
#include "edit/Drivetrain.h"
#include "runner/SourceDirectory.h"
#include "setup/Layouts.h"
#include "setup/SlotTable.h"

namespace velquist {
namespace {

constexpr int kUsualEvents = 30'000;
constexpr int kEventsOfAUser = 4'000;

int Events()
{
  const char* const events = std::getenv("VELQUIST_HISTORY_EVENTS");
  return events == nullptr ? kUsualEvents : std::atoi(events);
}

/// Everything that undoing brings back.
struct State {
  std::array<float, data::kSetupRows> values{};
  std::array<int, 4> lists{};
  setup::Bytes bytes;

  explicit State(const edit::CarSetup& car) : bytes(car.SetupBuffer())
  {
    car.SetupData().CopyCurrent(values);
    for (int list = 0; list < edit::kDrivetrainLists; ++list)
      lists[static_cast<std::size_t>(list)] = car.ListSelection(list);
  }
  [[nodiscard]] bool Is(const State& other) const
  {
    const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
    return std::ranges::equal(values, other.values, {}, bits, bits) && lists == other.lists &&
           bytes == other.bytes;
  }
};

class User {
 public:
  explicit User(std::uint32_t seed) : dice_(seed)
  {
    program_.PutShippedFiles(velquist::testing::SourceDirectory() / "assets" / "program");
    const auto year = dice_.OneOf(data::kModYears);
    program_.Start({year, 0, 0, dice_.Below(2)});
    program_.files.Put("/GPL/a.bb1", std::span<const std::byte>(OtherSetup()));
    auto other_layout = OtherSetup();
    if (year != data::ModYear::k1969)
      setup::ConvertLayout(other_layout, other_layout.size() == setup::kLongLayoutSize
                                             ? setup::Layout::kShort
                                             : setup::Layout::kLong);
    program_.files.Put("/GPL/b.bb1", std::span<const std::byte>(other_layout));
    states_.emplace_back(Car());
    reference_ = InFile();
    loaded_ = reference_;
  }

  void Act()
  {
    const int kind = dice_.Below(1000);
    if (kind < 600)
      Press();
    else if (kind < 780)
      UndoOrRedo();
    else if (kind < 850)
      Do("list", [&] {
        const int list = dice_.Below(edit::kDrivetrainLists);
        const auto& items = Form().Combo1[static_cast<std::size_t>(list)].items;
        Window().Select("Combo1", list, dice_.Below(static_cast<int>(items.size())));
      });
    else if (kind < 900)
      SetBox();
    else if (kind < 920 && Form().MnuReverse.enabled)
      Reverse();
    else if (kind < 940)
      Do("import", [&] { Import(); });
    else if (kind < 950)
      CompareWithOther();
    else
      Press();
  }

  void UndoAll()
  {
    while (position_ > 0) Go(false);
    action_ = "undo all";
  }
  void RedoAll()
  {
    while (position_ + 1 < states_.size()) Go(true);
    action_ = "redo all";
  }

  /// What was done last, and what is wrong now; empty when nothing is.
  [[nodiscard]] std::string Wrong()
  {
    const auto wrong = [&](const std::string& what) { return action_ + ": " + what; };
    if (const auto dialog = program_.UnexpectedDialog(); !dialog.empty()) return wrong(dialog);
    if (!states_[position_].Is(State(Car()))) return wrong("another state");
    if (Car().Changed() != changed_) return wrong(changed_ ? "unchanged" : "changed");
    if (Car().UndoText().empty() != (position_ == 0)) return wrong("steps to undo");
    if (Car().RedoText().empty() != (position_ + 1 == states_.size()))
      return wrong("steps to redo");
    if (Form().MnuUndo.enabled != (position_ > 0)) return wrong("the menu");
    const auto now = InFile();
    const bool wings = Car().ModYearIndex() == data::ModYear::k1969;
    for (int slot = 0; slot < setup::kSlots; ++slot) {
      const auto at = static_cast<std::size_t>(slot);
      const bool compared = slot < 33 || slot >= 42 || (slot < 35 && wings);
      const bool differs = compared && std::bit_cast<std::uint32_t>(now[at]) !=
                                           std::bit_cast<std::uint32_t>(reference_[at]);
      constexpr int kListOf[] = {0, 2, 1, 3};
      const auto& control = slot < 48 ? Form().Label1[at]
                                      : Form().Combo1[static_cast<std::size_t>(kListOf[slot - 48])];
      if (control.marked != differs) return wrong("the mark of slot " + std::to_string(slot));
    }
    return {};
  }

 private:
  app::MainWindow& Window() { return program_.Window(); }
  const edit::CarSetup& Car() { return Window().Car(); }
  const app::MainForm& Form() { return Window().Form(); }

  /// The default setup with other chassis values and another differential.
  setup::Bytes OtherSetup()
  {
    auto bytes = Car().SetupBuffer();
    const auto offset = [](int slot) {
      return static_cast<std::size_t>(setup::SlotOffset[static_cast<std::size_t>(slot)]);
    };
    for (int slot = 0; slot <= setup::kBrakeBias; ++slot)
      if (setup::IsWholeSlot(slot))
        setup::WriteLongAt(bytes, dice_.Between(1, 5), offset(slot));
      else
        setup::WriteSingleAt(bytes, static_cast<float>(dice_.Between(1, 400)) / 8.0F, offset(slot));
    const float least = Car().SetupData().Value(setup::RowOf(setup::kPowerAngle), data::kMinimum);
    setup::WriteSingleAt(bytes, least + 5, offset(setup::kPowerAngle));
    return bytes;
  }

  /// Slots as the file would have them, by the text of the rules.
  std::array<float, setup::kSlots> InFile()
  {
    std::array<float, setup::kSlots> values{};
    const auto& data = Car().SetupData();
    for (int slot = 0; slot < setup::kSlots; ++slot) {
      const auto row = static_cast<std::size_t>(reference::LineOf(slot));
      float& value = values[static_cast<std::size_t>(slot)];
      value = data.SetupDataValues[row][0];
      const bool whole = (slot >= 8 && slot < 16) || slot == 32 || (slot >= 42 && slot < 48);
      if (whole) value = static_cast<float>(std::lrint(value));
    }
    const auto list = [&](std::size_t slot, int combo, int step) {
      const auto row = static_cast<std::size_t>(reference::LineOf(static_cast<int>(slot)));
      values[slot] =
          static_cast<float>(std::atoi(data.SetupDataText[row][1].c_str()) +
                             step * Form().Combo1[static_cast<std::size_t>(combo)].selection);
    };
    list(48, 0, 1);
    list(49, 2, 5);
    list(50, 1, 5);
    list(51, 3, 1);
    return values;
  }

  /// An event that may change values, as a step of its own.
  template <class Event>
  void Do(const char* name, Event&& event)
  {
    action_ = name;
    held_ = -1;
    event();
    changed_ = true;
    Take();
  }

  /// The state of now, if it is another one, takes the place of what could be redone.
  bool Take()
  {
    State now(Car());
    if (states_[position_].Is(now)) return false;
    states_.erase(states_.begin() + static_cast<std::ptrdiff_t>(position_) + 1, states_.end());
    reversals_.resize(position_);
    if (saved_ > static_cast<int>(position_)) saved_ = -1;
    states_.push_back(std::move(now));
    reversals_.push_back(false);
    ++position_;
    return true;
  }

  void Press()
  {
    int slot = dice_.OneIn(6) ? dice_.Between(42, 47) : dice_.Below(35);
    bool increase = dice_.OneIn(2);
    const bool repeated = dice_.OneIn(3);
    if (repeated && held_ >= 0 && !dice_.OneIn(4)) {
      slot = held_;
      increase = held_up_;
    }
    action_ =
        (increase ? "increase " : "decrease ") + std::to_string(slot) + (repeated ? " again" : "");
    const bool goes_on = repeated && held_ == slot && held_up_ == increase;
    Window().Click(increase ? "CmdInc" : "CmdDec", slot, repeated);
    changed_ = true;
    if (states_[position_].Is(State(Car()))) {
      held_ = -1;
      return;
    }
    if (goes_on)
      states_[position_] = State(Car());
    else
      Take();
    held_ = slot;
    held_up_ = increase;
  }

  void Reverse()
  {
    action_ = "reverse";
    held_ = -1;
    Window().Click("MnuReverse");
    if (Take()) reversals_.back() = true;
  }

  void Go(bool redo)
  {
    action_ = redo ? "redo" : "undo";
    Window().Click(redo ? "MnuRedo" : "MnuUndo");
    if (redo ? position_ + 1 == states_.size() : position_ == 0) return;
    held_ = -1;
    const bool was_saved = saved_ == static_cast<int>(position_);
    position_ = redo ? position_ + 1 : position_ - 1;
    const bool step_sets = redo ? !reversals_[position_ - 1] : was_saved;
    changed_ = saved_ != static_cast<int>(position_) && (changed_ || step_sets);
  }

  void UndoOrRedo()
  {
    const bool redo = dice_.OneIn(2);
    for (int times = dice_.Between(1, 6); times > 0; --times) Go(redo);
  }

  void SetBox()
  {
    action_ = "box";
    static constexpr const char* kBoxes[] = {"AsymmetricCheck", "FineCheck", "RollBarConstTotal",
                                             "SpringStiffnessProportional"};
    Window().Check(dice_.OneOf(kBoxes), -1, dice_.OneIn(2));
  }

  std::string Choose() { return dice_.OneIn(2) ? "/GPL/a.bb1" : "/GPL/b.bb1"; }

  void Import()
  {
    if (changed_)
      program_.Announce(runner::AnnouncedMessage{"Do you want to save the current settings first?",
                                                 platform::Icon::kQuestion, platform::Answer::kNo});
    program_.Announce(runner::AnnouncedOpen{{}, {}, {}, Choose()});
    Window().Click(dice_.OneIn(2) ? "MnuImportChassis" : "MnuImportDrivetrain");
  }

  void CompareWithOther()
  {
    action_ = "reference";
    const bool loaded = dice_.OneIn(2);
    Window().Click(loaded ? "MnuReferenceLoaded" : "MnuReferenceDefault");
    reference_ = loaded_;  // which is the default setup
  }

  testing::Dice dice_;
  testing::MemoryProgram program_;
  std::vector<State> states_;
  std::vector<bool> reversals_;  ///< the step that led to state N + 1
  std::size_t position_ = 0;
  int saved_ = 0;  ///< the state that was loaded, -1 when it cannot be reached
  bool changed_ = false;
  int held_ = -1;
  bool held_up_ = false;
  std::array<float, setup::kSlots> reference_{};
  std::array<float, setup::kSlots> loaded_{};
  std::string action_ = "start";
};

TEST(HistoryProperty, RandomUsersFindEveryStateAgain)
{
  std::uint32_t seed = 0;
  for (int left = Events(); left > 0; left -= kEventsOfAUser) {
    User user(++seed);
    ASSERT_EQ(user.Wrong(), "") << "user " << seed;
    for (int event = 0; event < std::min(left, kEventsOfAUser); ++event) {
      user.Act();
      ASSERT_EQ(user.Wrong(), "") << "user " << seed << ", event " << event;
    }
    user.RedoAll();
    ASSERT_EQ(user.Wrong(), "") << "user " << seed;
    user.UndoAll();
    ASSERT_EQ(user.Wrong(), "") << "user " << seed;
    user.RedoAll();
    ASSERT_EQ(user.Wrong(), "") << "user " << seed;
  }
}

}  // namespace
}  // namespace velquist
