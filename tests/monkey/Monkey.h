// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "Dice.h"
#include "edit/CarSetup.h"
#include "platform/EmbeddedResources.h"
#include "runner/Play.h"

namespace velquist::monkey {

/// What the user does, a statement of the scenario language, and what the answers to the dialogs
/// that come of it are rolled from.
struct Event {
  std::string statement;
  std::uint32_t seed = 0;
};

/// What undoing brings back: values and lists, but for the values that a save takes from them.
struct State {
  std::array<std::uint32_t, setup::kSlots> values{};
  std::array<int, edit::kDrivetrainLists> lists{};

  State() = default;
  explicit State(const edit::CarSetup& car);
  friend bool operator==(const State&, const State&) = default;
};

/// A user who does anything at random, in a world of good and damaged files, for as long as one
/// program directory lives.
class Monkey {
 public:
  /// Makes the world, which is the same for the same seed, and starts the program.
  Monkey(std::unique_ptr<runner::Driver> driver, std::uint32_t seed);
  ~Monkey();
  Monkey(const Monkey&) = delete;
  Monkey& operator=(const Monkey&) = delete;

  /// Something that can be done now.
  [[nodiscard]] Event Roll(testing::Dice& dice);

  enum class Outcome { kFine, kImpossible, kWrong };
  /// Does it and looks at everything. What cannot be done changes nothing.
  Outcome Do(const Event& event);
  /// After kWrong and kImpossible.
  [[nodiscard]] const std::string& What() const noexcept { return what_; }

  /// All that was done, as a scenario.
  [[nodiscard]] std::string Scenario() const;

 private:
  void PlayStatement(const std::string& statement);
  /// Types a number, and keeps in the script whether it was refused.
  void PlayTyping(const std::string& statement);
  void MakeWorld(testing::Dice& dice);
  [[nodiscard]] std::string RollClick(testing::Dice& dice);
  [[nodiscard]] std::string RollTyping(testing::Dice& dice) const;
  [[nodiscard]] std::string RollChange(testing::Dice& dice) const;
  [[nodiscard]] std::string RollPath(testing::Dice& dice) const;
  [[nodiscard]] std::string WithPlaces(std::string path) const;
  [[nodiscard]] runner::Dialog Answer(runner::Dialog asked);

  /// What is wrong with the state after the event; empty when nothing is.
  [[nodiscard]] std::string Wrong(const Event& event);
  [[nodiscard]] std::string WrongInHistory();
  [[nodiscard]] std::string WrongTyping() const;
  [[nodiscard]] int CountNotFinite() const;

  static constexpr std::uint32_t kHistoryEvery = 100;  ///< events, about

  runner::World world_;
  std::unique_ptr<runner::Driver> driver_;
  runner::ScriptedPlatform outside_;
  platform::EmbeddedResources resources_;
  std::ostringstream out_;
  runner::Play play_;

  std::vector<std::string> script_;   ///< statements done
  std::vector<std::string> dialogs_;  ///< that have come in the event under way
  std::optional<testing::Dice> answers_;
  std::string what_;

  /// What was typed last.
  struct Typed {
    bool refused = false;
    std::string wrong;  ///< with the answer itself
  };
  Typed typed_;

  // As they were after the event before.
  bool was_running_ = false;
  State was_;
  bool was_changed_ = false;
  int not_finite_ = 0;
};

/// As few of the events as still go wrong in a world of the same seed.
[[nodiscard]] std::vector<Event> Shortest(
    const std::vector<Event>& events,
    const std::function<bool(const std::vector<Event>& events)>& goes_wrong);

}  // namespace velquist::monkey
