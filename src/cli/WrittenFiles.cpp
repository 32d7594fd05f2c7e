// SPDX-License-Identifier: MIT
#include "cli/WrittenFiles.h"

#include <ostream>
#include <span>
#include <string_view>

#include "cli/Json.h"
#include "library/SetupFile.h"
#include "library/Walk.h"
#include "platform/Errors.h"

namespace velquist::cli {
namespace {

std::string TargetOf(const Session& session, const std::string& path, const std::string& name)
{
  if (const auto& to = session.Options().to) return library::AsDirectory(*to) + name;
  const auto directory = path.size() - library::FileNameOf(path).size();
  return path.substr(0, directory) + name;
}

}  // namespace

int WriteForEach(Session& session, const std::function<WrittenFile(OpenedSetup& setup)>& make)
{
  auto& out = session.Out();
  const bool json = session.Options().form == Form::kJson;
  JsonArray array(out);
  std::size_t count = 0;
  for (const auto& path : session.Options().paths) {
    if (session.Interrupted()) break;
    try {
      const auto setup = OpenSetup(session, path);
      NeedCar(*setup);
      const auto file = make(*setup);
      const auto target =
          session.WriteNew(TargetOf(session, path, file.name), std::as_bytes(std::span(file.text)));
      if (json)
        array.Add({{"file", path}, {"written", target}});
      else
        out << target << '\n';
    } catch (const FileError& error) {
      session.Tell(error.Path(), error.Reason());
    } catch (const BoundsError& error) {
      session.Tell(path, std::string("A value has no meaning: ") + error.what());
    }
    session.ShowProgress(++count, "files");
  }
  if (json) array.End();
  return kDone;
}

}  // namespace velquist::cli
