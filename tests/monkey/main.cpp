// SPDX-License-Identifier: MIT
// velquist_monkey [--ui] [--seed N] EVENTS: random users at work, one after the other, each in a
// world of its own. The first thing that goes wrong ends it, told with the shortest scenario that
// leads there. Ends with "N passed, N failed", counting users.
#include <charconv>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Monkey.h"

namespace velquist::monkey {
namespace {

constexpr int kEventsOfAUser = 500;

struct Options {
  bool window = false;
  std::uint32_t seed = 1;
  int events = 0;
};

template <class Number>
Number Whole(std::string_view text)
{
  Number number{};
  const auto* const end = text.data() + text.size();
  if (const auto read = std::from_chars(text.data(), end, number);
      read.ec != std::errc{} || read.ptr != end)
    throw std::invalid_argument("usage: velquist_monkey [--ui] [--seed N] EVENTS");
  return number;
}

Options ReadOptions(const std::vector<std::string_view>& words)
{
  Options options;
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (words[at] == "--ui")
      options.window = true;
    else if (words[at] == "--seed" && at + 1 < words.size())
      options.seed = Whole<std::uint32_t>(words[++at]);
    else
      options.events = Whole<int>(words[at]);
  }
  return options;
}

using MakeDriver = std::unique_ptr<runner::Driver> (*)();

/// The scenario up to where it goes wrong and what does; nothing when all is fine.
std::optional<std::string> Replay(MakeDriver make_driver, std::uint32_t seed,
                                  const std::vector<Event>& events)
{
  Monkey monkey(make_driver(), seed);
  for (const auto& event : events)
    if (monkey.Do(event) == Monkey::Outcome::kWrong)
      return monkey.Scenario() + "# " + monkey.What() + "\n";
  return std::nullopt;
}

/// A user's life. False, with everything told, when something went wrong.
bool Live(MakeDriver make_driver, std::uint32_t seed, int count)
{
  std::vector<Event> events;
  {
    Monkey monkey(make_driver(), seed);
    testing::Dice dice(seed + 1);
    auto outcome = Monkey::Outcome::kFine;
    while (outcome == Monkey::Outcome::kFine && static_cast<int>(events.size()) < count) {
      events.push_back(monkey.Roll(dice));
      outcome = monkey.Do(events.back());
    }
    if (outcome == Monkey::Outcome::kFine) return true;
    std::cout << "seed " << seed << ", event " << events.size() << ": " << monkey.What() << '\n';
    if (outcome == Monkey::Outcome::kImpossible) return false;
  }
  events = Shortest(events, [&](const std::vector<Event>& fewer) {
    return Replay(make_driver, seed, fewer).has_value();
  });
  if (const auto scenario = Replay(make_driver, seed, events)) std::cout << *scenario;
  return false;
}

int Run(const Options& options)
{
  const auto make_driver = options.window ? runner::MakeWindowDriver : runner::MakeModelDriver;
  int users = 0;
  bool fine = true;
  for (int left = options.events; fine && left > 0; left -= kEventsOfAUser)
    fine = Live(make_driver, options.seed + static_cast<std::uint32_t>(users++),
                std::min(left, kEventsOfAUser));
  std::cout << (fine ? users : users - 1) << " passed, " << (fine ? 0 : 1) << " failed\n";
  return fine ? 0 : 1;
}

}  // namespace
}  // namespace velquist::monkey

int main(int argc, char** argv)
{
  using namespace velquist;
  try {
    const auto options = monkey::ReadOptions({argv + 1, argv + argc});
    const auto run = [&] { return monkey::Run(options); };
    return options.window ? runner::RunWithWindowSystem(run) : run();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
}
