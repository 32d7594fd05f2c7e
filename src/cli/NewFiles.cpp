// SPDX-License-Identifier: MIT
#include "cli/NewFiles.h"

#include <string_view>
#include <system_error>

#include "library/SetupFile.h"
#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/HostPath.h"
#include "platform/LetterCase.h"
#include "platform/SystemFiles.h"
#include "platform/TextEncoding.h"

namespace velquist::cli {
namespace {

namespace fs = std::filesystem;

std::string KeyOf(std::string_view name)
{
  return platform::FoldCase(platform::InUtf8(name));
}

bool Exists(const fs::path& path)
{
  std::error_code unknown;
  return fs::exists(platform::StatusOf(path, unknown));
}

}  // namespace

NewFiles::Directory& NewFiles::DirectoryOf(const fs::path& file)
{
  std::error_code unknown;
  const fs::path above = file.has_parent_path() ? file.parent_path() : ".";
  const auto whole = fs::weakly_canonical(above, unknown);
  const auto [found, is_new] = directories_.try_emplace(unknown ? above : whole);
  auto& directory = found->second;
  if (is_new)
    (void)platform::ListNames(platform::Lengthened(above), platform::Listed::kAll,
                              [&directory](std::string_view name) {
                                auto& entry = directory[KeyOf(name)].name;
                                if (entry.empty() || platform::ComesFirst(name, entry))
                                  entry = name;
                                return true;
                              });
  return directory;
}

std::string NewFiles::Write(const std::string& path, std::span<const std::byte> bytes,
                            bool over_existing)
{
  platform::CheckPath(path);
  const auto name = library::FileNameOf(path);
  const auto file = platform::PathFromText(path);
  auto& entry = DirectoryOf(file)[KeyOf(name)];
  if (entry.is_ours) throw FileError(path, "Another setup of this call was written to it");
  const bool is_there = Exists(platform::Lengthened(file));
  const bool has_twin = !is_there && !entry.name.empty() &&
                        Exists(platform::Lengthened(file.parent_path() / entry.name));
  if (!over_existing && has_twin)
    throw FileError(path, "It exists already as " + entry.name + "; --force writes over it");
  if (!over_existing && is_there)
    throw FileError(path, "It exists already; --force writes over it");
  auto target = path.substr(0, path.size() - name.size()).append(has_twin ? entry.name : name);
  platform::WriteAtomically(platform::Lengthened(platform::PathFromText(target)), bytes, target);
  entry = {.name = std::string(library::FileNameOf(target)), .is_ours = true};
  return target;
}

}  // namespace velquist::cli
