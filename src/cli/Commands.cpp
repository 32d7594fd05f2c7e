// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include <exception>
#include <optional>
#include <ostream>

#include "platform/Errors.h"

namespace velquist::cli {
namespace {

int RunCommand(Session& session)
{
  switch (session.Options().command) {
    case Command::kShow: return Show(session);
    case Command::kCompare: return Compare(session);
    case Command::kList: return List(session);
    case Command::kCheck: return Check(session);
    case Command::kExport: return Export(session);
    case Command::kConvert: return Convert(session);
    case Command::kGearing: return Gearing(session);
    case Command::kSheet: return Sheet(session);
  }
  return kTrouble;
}

int RunAndFlush(const Console& console, Options options)
{
  Session session(console, std::move(options));
  int status = kTrouble;
  try {
    status = session.Status(RunCommand(session));  // the progress gives way to the last lines
  } catch (const FileError& error) {
    session.Tell(error.Path(), error.Reason());
  }
  console.out.flush();
  if (!console.out) session.Tell("standard output", "It cannot be written to");
  return session.Status(status);
}

}  // namespace

int Run(const std::vector<std::string>& words, const Console& console)
{
  try {
    Options options;
    const auto answer = ReadOptions(words, options);
    if (!answer) return RunAndFlush(console, std::move(options));
    if (answer->is_help) {
      console.out << answer->text << std::flush;
      return console.out ? kDone : kTrouble;
    }
    console.err << "velquist-cli: " << answer->text << "\nTry 'velquist-cli --help' for more.\n";
  } catch (const FileError& error) {
    console.err << "velquist-cli: " << error.Path() << ": " << error.Reason() << '\n';
  } catch (const std::exception& error) {
    console.err << "velquist-cli: " << error.what() << '\n';
  }
  return kTrouble;
}

}  // namespace velquist::cli
