// SPDX-License-Identifier: MIT
#include "app/LibraryScan.h"

#include <algorithm>
#include <string_view>

#include "platform/Errors.h"
#include "platform/HostPath.h"
#include "platform/LetterCase.h"
#include "platform/SystemFiles.h"
#include "platform/TextEncoding.h"

namespace velquist::app {
namespace {

/// The directories of an installation's players: more than one where their names differ in letter
/// case alone.
std::vector<std::filesystem::path> PlayersOf(const std::string& installation)
{
  try {
    return platform::HostPaths(installation + "\\Players\\");
  } catch (const FileError&) {  // no path has that name
    return {};
  }
}

}  // namespace

void KnownFiles::Add(const std::string& path, Known known)
{
  files_.insert_or_assign(path, std::move(known));
}

const KnownFiles::Known* KnownFiles::Find(const std::string& path,
                                          const std::string& installation) const
{
  const auto found = files_.find(path);
  if (found == files_.end()) return nullptr;
  const auto& [stamp, row] = found->second;
  if (row != nullptr && row->Installation() != installation) return nullptr;
  const auto now = platform::StampOf(platform::PathFromText(path));
  return now && *now == stamp ? &found->second : nullptr;
}

LibraryScan::LibraryScan(const std::vector<std::string>& installations, library::Tables& tables,
                         std::shared_ptr<const KnownFiles> known)
    : tables_(tables), known_(std::move(known))
{
  std::vector<platform::DirectoryIdentity> identities;
  std::vector<std::string> directories;
  for (const auto& installation : installations) {
    bool is_there = false;
    for (const auto& directory : PlayersOf(installation)) {
      const auto identity = platform::IdentityOfDirectory(directory);
      if (!identity || std::ranges::find(identities, *identity) != identities.end()) continue;
      identities.push_back(*identity);
      directories.push_back(platform::PathText(directory));
      roots_.push_back({library::AsDirectory(directories.back()), platform::InUtf8(installation)});
      is_there = true;
    }
    if (is_there) ++installation_count_;
  }
  // What cannot be listed has no setups that could be shown.
  walk_.emplace(directories, [](std::string_view, std::string_view) {});
}

bool LibraryScan::Step()
{
  const auto found = walk_->Next();
  if (!found) return false;
  const auto& installation = InstallationOf(found->path);
  if (const auto* const known = known_->Find(found->path, installation)) {
    if (known->row != nullptr) Add(known->row);
    seen_->Add(found->path, *known);
    return true;
  }
  auto file = library::ReadSetupFile(found->path);
  const bool is_known = !file.unreadable;
  KnownFiles::Known known{{file.size, file.modified}, nullptr};
  if (library::IsListed(file)) {
    known.row = std::make_shared<const LibraryRow>(library::RowOf(std::move(file), {}, tables_),
                                                   installation);
    Add(known.row);
  }
  if (is_known) seen_->Add(found->path, std::move(known));
  return true;
}

void LibraryScan::Add(std::shared_ptr<const LibraryRow> row)
{
  const auto is_meant = [](const std::string& path) {
    return platform::PathText(platform::HostPath(path)) == path;
  };
  const auto place = paths_.try_emplace(platform::FoldCase(row->Path()), row->Path());
  if (const bool is_first = place.second; !is_first) {
    auto& other = place.first->second;
    if (!is_meant(other))
      std::erase_if(rows_, [&](const auto& found) { return found->Path() == other; });
    if (!is_meant(row->Path())) return;
    other = row->Path();
  }
  rows_.push_back(std::move(row));
}

const std::string& LibraryScan::InstallationOf(const std::string& path) const
{
  static const std::string kNone;
  const auto found = std::ranges::find_if(
      roots_, [&](const Root& root) { return path.starts_with(root.directory); });
  return found == roots_.end() ? kNone : found->installation;
}

}  // namespace velquist::app
