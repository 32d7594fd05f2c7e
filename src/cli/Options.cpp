// SPDX-License-Identifier: MIT
#include "cli/Options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

#include "data/ModYear.h"
#include "setup/Identification.h"

namespace velquist::cli {
namespace {

std::string Version()
{
  return "velquist-cli " + std::to_string(VELQUIST_VERSION_MAJOR) + "." +
         std::to_string(VELQUIST_VERSION_MINOR) + "." + std::to_string(VELQUIST_VERSION_REVISION);
}

/// The words as CLI11 hands them over.
struct Words {
  std::vector<std::string> paths;
  bool json = false;
  bool csv = false;
  std::string year;
  std::string chassis;
  int formula = 0;
  std::string units = "english";
  std::string program_directory;
  std::string to;
  std::string reference;
  bool to_short = false;
  bool to_long = false;
  bool force = false;
};

struct CommandDesign {
  Command command;
  std::string_view name;
  std::string_view does;
  std::string_view paths;  ///< what they are called
  int fewest;
  int most;  ///< 0 for any number
};

constexpr std::array<CommandDesign, 8> kCommands = {{
    {Command::kShow, "show", "Show every value of each setup", "FILE", 1, 0},
    {Command::kCompare, "compare", "Show what differs between two setups", "FILE", 2, 2},
    {Command::kList, "list", "List every setup below the directories", "DIR", 1, 0},
    {Command::kCheck, "check", "Tell the problems of each setup", "PATH", 1, 0},
    {Command::kExport, "export", "Write each setup as a text, as the window does", "FILE", 1, 0},
    {Command::kConvert, "convert", "Write a setup in the other layout", "FILE", 1, 1},
    {Command::kGearing, "gearing", "Show speeds and best shift points", "FILE", 1, 1},
    {Command::kSheet, "sheet", "Write each setup as a page to print", "FILE", 1, 0},
}};

std::set<std::string> YearTexts()
{
  std::set<std::string> texts;
  for (const auto year : data::kModYears) texts.emplace(data::ModYearText(year));
  return texts;
}

std::set<std::string> ChassisCodes()
{
  std::set<std::string> codes;
  for (const auto year : data::kModYears)
    for (const auto code : setup::ChassisCodeTable(year)) codes.emplace(code);
  return codes;
}

/// An option that names a file or directory: an empty name, which scripts leave where a variable is
/// unset, is not as good as none.
CLI::Option* AddNameOption(CLI::App& app, const std::string& name, std::string& word,
                           const std::string& does, const std::string& type)
{
  const auto refusal = [](const std::string& given) {
    return given.empty() ? std::string("needs a name") : std::string();
  };
  return app.add_option(name, word, does)->type_name(type)->check(refusal);
}

void AddCommonOptions(CLI::App& app, Words& words)
{
  app.set_help_flag("-h,--help", "Show this help and end");
  app.set_version_flag("--version", Version(), "Show the version and end");
  app.add_flag("--json", words.json, "One JSON document on standard output");
  app.add_option("--year", words.year, "Mod year of setups that leave several open")
      ->check(CLI::IsMember(YearTexts()));
  app.add_option("--chassis", words.chassis, "Car of setups whose names do not tell")
      ->check(CLI::IsMember(ChassisCodes()));
  app.add_option("--formula", words.formula, "Formula of setups whose names do not tell")
      ->check(CLI::IsMember(std::set<int>{1, 2, 3}));
  app.add_option("--units", words.units, "Units of values and speeds")
      ->check(CLI::IsMember(std::set<std::string>{"english", "metric"}));
  AddNameOption(app, "--program-directory", words.program_directory, "Where the data files lie",
                "DIR");
}

void AddOwnOptions(CLI::App& app, Command command, Words& words)
{
  const auto force = [&] { app.add_flag("--force", words.force, "Write over what exists"); };
  switch (command) {
    case Command::kList:
      app.add_flag("--csv", words.csv, "Comma-separated values (RFC 4180)")->excludes("--json");
      break;
    case Command::kSheet:
      AddNameOption(app, "--reference", words.reference, "Setup to tell the differences from",
                    "FILE");
      [[fallthrough]];
    case Command::kExport:
      AddNameOption(app, "--to", words.to, "Directory to write into", "DIR");
      force();
      break;
    case Command::kConvert: {
      auto* const layouts = app.add_option_group("layout", "The layout that is wanted");
      layouts->add_flag("--short", words.to_short, "264 bytes");
      layouts->add_flag("--long", words.to_long, "272 bytes");
      layouts->require_option(1);
      AddNameOption(app, "--to", words.to, "File to write", "FILE")->required();
      force();
      break;
    }
    case Command::kShow:
    case Command::kCompare:
    case Command::kCheck:
    case Command::kGearing: break;
  }
}

/// What ends the options. CLI11 knows it, but not behind the last path that a command needs: the
/// words behind it are given to it under names that are no options.
class EndOfOptions {
 public:
  explicit EndOfOptions(const std::vector<std::string>& words)
      : end_(std::ranges::find(words, "--")), words_(words)
  {
  }

  [[nodiscard]] std::vector<std::string> Renamed() const
  {
    std::vector<std::string> renamed(words_.begin(), end_);
    if (end_ == words_.end()) return renamed;
    for (auto word = end_ + 1; word != words_.end(); ++word)
      renamed.push_back(std::string(kName) + std::to_string(word - words_.begin()));
    return renamed;
  }
  void GiveBack(std::vector<std::string>& paths) const
  {
    if (end_ == words_.end()) return;
    auto word = end_ + 1;
    for (auto& path : paths)
      if (word != words_.end() &&
          path == std::string(kName) + std::to_string(word - words_.begin()))
        path = *word++;
  }

 private:
  static constexpr const char* kName = "\x01 path ";

  std::vector<std::string>::const_iterator end_;
  const std::vector<std::string>& words_;
};

/// Where a file name is wanted, this is none: nothing is read from standard input.
void RefuseStandardInput(const Words& words)
{
  auto all = words.paths;
  all.insert(all.end(), {words.to, words.reference, words.program_directory});
  if (std::ranges::find(all, "-") != all.end())
    throw CLI::ValidationError("-", "is not a file; ./- would be one of that name");
}

std::optional<std::string> Given(const std::string& text)
{
  return text.empty() ? std::nullopt : std::optional(text);
}

Options FromWords(Command command, Words words)
{
  Options options;
  options.command = command;
  options.paths = std::move(words.paths);
  options.form = words.json ? Form::kJson : words.csv ? Form::kCsv : Form::kPlain;
  options.hints.ModYearIndex = data::ModYearOfText(words.year);
  options.hints.chassis_code = Given(words.chassis);
  if (words.formula > 0) options.hints.formula_index = words.formula - 1;
  options.units = words.units == "metric" ? edit::kMetric : edit::kEnglish;
  options.program_directory = Given(words.program_directory);
  options.to = Given(words.to);
  options.reference = Given(words.reference);
  options.layout = words.to_long ? setup::Layout::kLong : setup::Layout::kShort;
  options.force = words.force;
  return options;
}

/// The trouble with a call in which no command was found.
std::string WithoutCommand(std::vector<std::string> left, const EndOfOptions& end)
{
  end.GiveBack(left);
  if (!left.empty()) return left.front() + ": is no command";
  std::string text = "A command is required: ";
  for (const auto& design : kCommands) {
    text += design.name;
    text += &design == &kCommands.back() ? "" : &design == &kCommands.back() - 1 ? " or " : ", ";
  }
  return text;
}

}  // namespace

std::optional<Answer> ReadOptions(const std::vector<std::string>& words, Options& options)
{
  Words read;
  const EndOfOptions end(words);
  CLI::App app("The command line beside Velquist, for chassis setups of the racing simulation GPL.",
               "velquist-cli");
  AddCommonOptions(app, read);
  app.require_subcommand(1, 1);
  app.allow_windows_style_options(false);
  app.footer(
      "Ends with 0 when all was done, 1 when compare found differences or check problems, 2 for "
      "trouble.");
  for (const auto& design : kCommands) {
    auto* const command = app.add_subcommand(std::string(design.name), std::string(design.does));
    // Of eight commands one is given: the options of the others are not made.
    if (std::ranges::find(words, design.name) == words.end()) continue;
    AddCommonOptions(*command, read);
    AddOwnOptions(*command, design.command, read);
    auto* const paths = command->add_option(std::string(design.paths), read.paths, "")->required();
    paths->option_text(design.most == 0 ? "..." : " ");
    paths->expected(design.fewest,
                    design.most == 0 ? CLI::detail::expected_max_vector_size : design.most);
    command->callback([&options, &read, &end, command = design.command] {
      end.GiveBack(read.paths);
      RefuseStandardInput(read);
      options = FromWords(command, std::move(read));
    });
  }
  try {
    auto renamed = end.Renamed();
    std::ranges::reverse(renamed);
    app.parse(renamed);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    std::ostringstream said;
    std::ostringstream wrong;
    const bool is_help = app.exit(error, said, wrong) == 0;
    auto text = is_help ? said.str() : std::string(error.what());
    const bool lacks_words =
        error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
    if (lacks_words && app.get_subcommands().empty()) text = WithoutCommand(app.remaining(), end);
    if (is_help && !text.ends_with('\n')) text += '\n';
    return Answer{std::move(text), is_help};
  }
}

}  // namespace velquist::cli
