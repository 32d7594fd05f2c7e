// SPDX-License-Identifier: MIT
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/Commands.h"
#include "cli/EachFile.h"
#include "cli/Json.h"
#include "library/Problems.h"

namespace velquist::cli {
namespace {

using library::Problem;

Json AsJson(const std::string& path, const std::vector<Problem>& problems)
{
  auto list = Json::array();
  for (const auto& problem : problems) {
    Json facts = {{"code", std::string(library::CodeText(problem.code))}, {"slot", nullptr}};
    if (problem.slot) facts["slot"] = *problem.slot;
    facts["text"] = problem.text;
    list.push_back(std::move(facts));
  }
  return {{"file", path}, {"problems", std::move(list)}};
}

void WriteText(std::ostream& out, const std::string& path, const std::vector<Problem>& problems)
{
  for (const auto& problem : problems)
    out << path << ": " << library::CodeText(problem.code) << ": " << problem.text << '\n';
}

}  // namespace

int Check(Session& session)
{
  auto& out = session.Out();
  const bool json = session.Options().form == Form::kJson;
  JsonArray array(out);
  std::size_t files = 0;
  std::size_t bad = 0;
  std::size_t count = 0;
  EachFile(session, [&](const library::SetupFile& file, bool is_named) {
    if (!is_named && !file.IsSetup() && !library::HasSetupExtension(file.path)) return;
    if (is_named && !file.is_there) session.Tell(file.path, *file.unreadable);
    const auto identity = library::IdentityOf(file, session.Options().hints);
    const auto problems =
        library::ProblemsOf(file, identity, session.Tables().Of(identity.read_as));
    ++files;
    if (!problems.empty()) ++bad;
    count += problems.size();
    if (json)
      array.Add(AsJson(file.path, problems));
    else
      WriteText(out, file.path, problems);
    session.ShowProgress(files, "setups");
  });
  if (json) array.End();
  if (!json && bad > 0)
    out << files << (files == 1 ? " setup, " : " setups, ") << bad << " with problems, " << count
        << (count == 1 ? " problem\n" : " problems\n");
  return bad > 0 ? kFound : kDone;
}

}  // namespace velquist::cli
