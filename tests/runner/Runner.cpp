// SPDX-License-Identifier: MIT
#include "runner/Runner.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "platform/HostFileSystem.h"
#include "runner/Play.h"

namespace velquist::runner {
namespace {

namespace fs = std::filesystem;

struct ReadStep {
  int line;
  Step step;
};

std::vector<ReadStep> ReadSteps(std::string_view script, const Places& places)
{
  std::vector<ReadStep> steps;
  for (const auto& statement : ReadScript(script, places))
    steps.push_back({statement.line, ReadStatement(statement)});
  return steps;
}

/// A failure and the line that it belongs to.
class FailureAt : public std::runtime_error {
 public:
  FailureAt(int line, const std::string& text) : std::runtime_error(text), line_(line) {}

  [[nodiscard]] int Line() const noexcept { return line_; }

 private:
  int line_;
};

void PlayStep(Play& play, const ReadStep& step)
{
  try {
    step.step(play);
  } catch (const Failure& failure) {
    // What went wrong with a dialog came first.
    throw FailureAt(step.line, play.outside.announcements.Failed().value_or(failure).what());
  } catch (const std::exception& error) {
    throw FailureAt(step.line, Failure("the statement to work", error.what()).what());
  }
  if (const auto& failure = play.outside.announcements.Failed())
    throw FailureAt(step.line, failure->what());
}

void PlaySteps(Play& play, const std::vector<ReadStep>& steps)
{
  for (const auto& step : steps) PlayStep(play, step);
  if (const auto* const left = play.outside.announcements.First())
    PlayStep(play, {left->line, [](Play& all) { all.NeedNoDialogLeft(); }});
}

/// All scripts below a directory, in the order of their names.
std::vector<fs::path> ScriptsBelow(const fs::path& directory)
{
  std::vector<fs::path> scripts;
  for (const auto& entry : fs::recursive_directory_iterator(directory))
    if (entry.is_regular_file() && entry.path().extension() == ".scn")
      scripts.push_back(entry.path());
  std::ranges::sort(scripts, {}, [](const fs::path& path) { return path.generic_u8string(); });
  return scripts;
}

}  // namespace

Runner::Runner(Options options, MakeDriver make_driver, platform::Resources& resources,
               std::ostream& out, std::ostream& log)
    : options_(std::move(options)),
      make_driver_(std::move(make_driver)),
      resources_(resources),
      out_(out),
      log_(log)
{
}

Outcome Runner::PlayScript(std::string_view script, const std::string& name)
{
  World world(options_.program_files);
  std::vector<ReadStep> steps;
  try {
    steps = ReadSteps(script, world.Names());
  } catch (const ScriptError& error) {
    log_ << name << ':' << error.Line() << ": could not be read: " << error.what() << '\n';
    return Outcome::kUnreadable;
  }

  const auto driver = make_driver_();
  ScriptedPlatform outside(
      [&world](std::string_view a, std::string_view b) { return world.SameText(a, b); }, *driver);
  Play play{world, outside, resources_, *driver, out_};
  auto outcome = Outcome::kPassed;
  try {
    PlaySteps(play, steps);
  } catch (const FailureAt& failure) {
    log_ << name << ':' << failure.Line() << ": " << failure.what() << '\n';
    outcome = Outcome::kFailed;
  }
  out_.flush();
  if (play.started) driver->Stop();
  if (options_.keep || outcome == Outcome::kFailed) {
    world.Keep();
    log_ << name << ": files kept in " << world.Names().temporary << '\n';
  }
  return outcome;
}

void Runner::PlayFile(const fs::path& path)
{
  auto name_text = path.generic_u8string();
  const std::string name(name_text.begin(), name_text.end());
  std::ifstream file(path, std::ios::binary);
  if (!file || fs::is_directory(path)) {
    log_ << name << ": could not be read\n";
    Count(Outcome::kUnreadable);
    return;
  }
  std::ostringstream script;
  script << file.rdbuf();
  Count(PlayScript(script.str(), name));
}

void Runner::PlayPath(const fs::path& path)
{
  std::error_code none;
  if (!fs::is_directory(path, none)) return PlayFile(path);
  const auto scripts = ScriptsBelow(path);
  if (scripts.empty()) {
    log_ << platform::PathText(path) << ": no scripts\n";
    Count(Outcome::kUnreadable);
  }
  for (const auto& script : scripts) PlayFile(script);
}

void Runner::Count(Outcome outcome)
{
  ++(outcome == Outcome::kPassed ? passed_ : failed_);
  unreadable_ = unreadable_ || outcome == Outcome::kUnreadable;
}

int Runner::Finish()
{
  log_ << passed_ << " passed, " << failed_ << " failed\n";
  if (unreadable_) return kNotRead;
  return failed_ == 0 ? kAllPassed : kSomeFailed;
}

CommandLine ReadCommandLine(const std::vector<std::string>& arguments,
                            const fs::path& program_files)
{
  CommandLine line;
  line.options.program_files = program_files;
  const auto path = [](const std::string& text) {
    return fs::path(std::u8string(text.begin(), text.end()));
  };
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (*argument == "--ui") {
      line.window = true;
    } else if (*argument == "--keep") {
      line.options.keep = true;
    } else if (*argument == "--program-files") {
      if (++argument == arguments.end())
        throw std::invalid_argument("--program-files needs a directory");
      line.options.program_files = path(*argument);
    } else if (argument->starts_with("--")) {
      throw std::invalid_argument("unknown option " + *argument);
    } else {
      line.paths.push_back(path(*argument));
    }
  }
  if (line.paths.empty()) throw std::invalid_argument("no script is named");
  return line;
}

}  // namespace velquist::runner
