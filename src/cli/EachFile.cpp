// SPDX-License-Identifier: MIT
#include "cli/EachFile.h"

#include <utility>

namespace velquist::cli {
namespace {

/// Whether it is worth a word that a file below a directory cannot be read: links that lead nowhere
/// and pipes are no files.
bool IsTold(const library::SetupFile& file, bool is_setup)
{
  return is_setup ? !file.is_there : file.is_ordinary;
}

}  // namespace

void EachFile(Session& session,
              const std::function<void(library::SetupFile file, bool is_named)>& take)
{
  auto walk = session.WalkPaths();
  while (!session.Interrupted()) {
    auto found = walk.Next();
    if (!found) return;
    auto file = library::ReadSetupFile(std::move(found->path));
    if (file.unreadable && !found->is_named) {
      const bool is_setup = library::HasSetupExtension(file.path);
      if (IsTold(file, is_setup)) session.Tell(file.path, *file.unreadable);
      if (!is_setup || !file.is_there) continue;
    }
    take(std::move(file), found->is_named);
  }
}

}  // namespace velquist::cli
