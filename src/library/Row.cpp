// SPDX-License-Identifier: MIT
#include "library/Row.h"

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/SystemFiles.h"

namespace velquist::library {

std::optional<install::SetupPlace> PlaceOf(const std::string& path)
{
  // Three bytes for each of the 32,767 characters that a path of Windows may have.
  constexpr std::size_t kLongestPath = 98'301;
  if (auto place = install::PlaceOfPath(path)) return place;
  if (path.size() > kLongestPath) return std::nullopt;
  const auto host = platform::PathFromText(path);
  if (host.is_absolute()) return std::nullopt;
  std::error_code unknown;
  const auto whole = std::filesystem::absolute(host, unknown).lexically_normal();
  return install::PlaceOfPath(platform::PathText(whole));
}

bool IsListed(const SetupFile& file)
{
  return file.unreadable ? HasSetupExtension(file.path) : file.IsSetup();
}

Row RowOf(SetupFile file, const Hints& hints, Tables& tables)
{
  Row row;
  row.file = std::move(file);
  row.identity = IdentityOf(row.file, hints);
  row.place = PlaceOf(row.file.path);
  auto problems = ProblemsOf(row.file, row.identity, tables.Of(row.identity.read_as));
  if (!problems.empty()) row.problem = std::move(problems.front());
  return row;
}

}  // namespace velquist::library
