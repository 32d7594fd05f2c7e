// SPDX-License-Identifier: MIT
// The input is names, a line each: of files in a library, of directories where a separator is in
// them. A walk comes to each file once, in the order of the paths' bytes.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Fuzz.h"
#include "TemporaryFolder.h"
#include "library/Row.h"
#include "library/SetupFile.h"
#include "library/Walk.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostNames = 8;

/// The names that a file system takes, and that lead nowhere else.
std::vector<std::string> NamesIn(std::string_view text)
{
  std::vector<std::string> names;
  while (!text.empty() && names.size() < kMostNames) {
    const auto end = std::min(text.find('\n'), text.size());
    const std::string name(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    const bool is_plain = name.find('\0') == std::string::npos &&
                          name.find("..") == std::string::npos && !name.starts_with('/');
    if (!name.empty() && name.size() < 100 && is_plain) names.push_back(name);
  }
  return names;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  const samples::TemporaryFolder folder;
  for (const auto& name : NamesIn(fuzz::TextOf(data, size))) {
    const auto path = folder.Path() / name;
    std::error_code unknown;
    fs::create_directories(path.parent_path(), unknown);
    if (path.has_filename() && !fs::is_directory(path, unknown)) {
      try {
        samples::WriteFile(path, "PGTS");
      } catch (const std::exception&) {  // a file lies where a directory is needed
      }
    }
  }
  std::set<std::string> wanted;
  for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
    if (!entry.is_directory()) wanted.insert(entry.path().string());

  std::vector<std::string> found;
  library::Walk walk({folder.Path().string()},
                     [](auto, auto) { Require(false, "all can be listed"); });
  while (const auto file = walk.Next()) {
    found.push_back(file->path);
    const auto setup = library::ReadSetupFile(file->path);
    Require(setup.IsSetup(), "it can be read");
    (void)library::HasSetupExtension(file->path);
    (void)library::PlaceOf(file->path);
  }
  Require(std::ranges::is_sorted(found), "in rising order");
  Require(std::ranges::equal(found, wanted), "each file once");
  return 0;
}
