// SPDX-License-Identifier: MIT
#include <ostream>
#include <string>

#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/OpenedSetup.h"
#include "platform/Errors.h"

namespace velquist::cli {
namespace {

/// The years that the game has in both layouts.
bool HasShortLayout(data::ModYear year)
{
  return year == data::ModYear::k1965 || year == data::ModYear::k1967;
}

}  // namespace

int Convert(Session& session)
{
  const auto& options = session.Options();
  const auto& path = options.paths.front();
  const auto setup = OpenSetup(session, path);
  if (!setup->file.Layout())
    throw FileError(
        path, "It is in neither layout: it has " + std::to_string(setup->file.size) + " bytes");
  const auto year = setup->car.ModYearIndex();
  if (options.layout == setup::Layout::kShort && !HasShortLayout(year))
    throw FileError(
        path, "Setups of " + std::string(data::ModYearText(year)) + " have the long layout alone");
  LoadLists(*setup);
  if (!setup->car.HasEveryRatio())
    throw FileError(path, "The gear data file of " + std::string(data::ModYearText(year)) +
                              " has no ratio for one of its gears");
  const auto target = session.WriteNew(*options.to, setup->car.BytesToWrite(options.layout));
  if (options.form == Form::kJson)
    session.Out() << JsonText({{"file", path}, {"written", target}}) << '\n';
  else
    session.Out() << target << '\n';
  return kDone;
}

}  // namespace velquist::cli
