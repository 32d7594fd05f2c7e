// SPDX-License-Identifier: MIT
#include "library/Walk.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/FileReason.h"
#include "platform/Paths.h"
#include "platform/SystemFiles.h"

namespace velquist::library {
namespace {

#ifdef _WIN32
constexpr char kSeparator = '\\';
bool EndsInSeparator(std::string_view text)
{
  return !text.empty() && platform::IsSeparator(text.back());
}
/// As paths are compared: both separators are one.
std::string Compared(std::string path)
{
  std::ranges::replace(path, '/', kSeparator);
  return path;
}
#else
constexpr char kSeparator = '/';
bool EndsInSeparator(std::string_view text)
{
  return text.ends_with(kSeparator);
}
/// As paths are compared.
const std::string& Compared(const std::string& path)
{
  return path;
}
#endif

bool IsDirectory(const std::string& path)
{
  std::error_code unknown;
  return std::filesystem::is_directory(platform::StatusOf(platform::PathFromText(path), unknown));
}

}  // namespace

std::string AsDirectory(std::string path)
{
  if (!EndsInSeparator(path)) path += kSeparator;
  return path;
}

Walk::Walk(const std::vector<std::string>& paths, Tell tell) : tell_(std::move(tell))
{
  std::vector<std::string> names;
  names.reserve(paths.size());
  for (const auto& path : paths) names.push_back(IsDirectory(path) ? AsDirectory(path) : path);
  std::ranges::sort(names, {}, Compared);
  std::vector<std::string> kept;
  std::string last;
  // What is below a directory comes right behind it.
  for (auto& name : names) {
    const std::string compared = Compared(name);
    const bool is_below = !kept.empty() && (compared == last ||
                                            (EndsInSeparator(last) && compared.starts_with(last)));
    if (is_below) continue;
    kept.push_back(std::move(name));
    last = compared;
  }
  std::ranges::reverse(kept);
  open_.push_back({{}, std::nullopt, std::move(kept)});
}

std::optional<FoundFile> Walk::Next()
{
  while (!open_.empty()) {
    auto& directory = open_.back();
    if (directory.names.empty()) {
      open_.pop_back();
      continue;
    }
    auto path = directory.path + directory.names.back();
    directory.names.pop_back();
    if (!EndsInSeparator(path)) return FoundFile{std::move(path), directory.path.empty()};
    Enter(std::move(path));
  }
  return std::nullopt;
}

void Walk::Enter(std::string path)
{
  const auto host = platform::PathFromText(path);
  const auto shown = std::string_view(path).substr(0, path.size() - (path.size() > 1 ? 1 : 0));
  const auto identity = platform::IdentityOfDirectory(host);
  if (identity && std::ranges::any_of(
                      open_, [&](const Directory& above) { return above.identity == identity; })) {
    tell_(shown, "This link leads back to a folder above it");
    return;
  }
  std::vector<std::string> all;
  std::vector<std::string> directories;
  const auto into = [](std::vector<std::string>& names) {
    return [&names](std::string_view name) {
      names.emplace_back(name);
      return true;
    };
  };
  auto error = platform::ListNames(host, platform::Listed::kAll, into(all));
  if (!error) error = platform::ListNames(host, platform::Listed::kDirectories, into(directories));
  if (error) {
    tell_(shown, platform::ReasonOf(error));
    return;
  }
  std::ranges::sort(directories);
  for (auto& name : all)
    if (std::ranges::binary_search(directories, name)) name += kSeparator;
  std::ranges::sort(all, std::ranges::greater());
  open_.push_back({std::move(path), identity, std::move(all)});
}

}  // namespace velquist::library
