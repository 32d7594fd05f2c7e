// SPDX-License-Identifier: MIT
#include "platform/Paths.h"

#include <algorithm>

namespace velquist::platform {
namespace {

char Folded(char c) noexcept
{
  if (c == '/') return '\\';
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool SamePathText(std::string_view a, std::string_view b) noexcept
{
  return std::ranges::equal(a, b, {}, Folded, Folded);
}

std::size_t FindPart(std::string_view path, std::string_view part, std::size_t from) noexcept
{
  for (std::size_t at = from; at + part.size() <= path.size(); ++at)
    if (SamePathText(path.substr(at, part.size()), part)) return at;
  return std::string_view::npos;
}

std::size_t LastSeparator(std::string_view path) noexcept
{
  return path.find_last_of("\\/");
}

std::string_view FileNameOf(std::string_view path) noexcept
{
  const auto at = LastSeparator(path);
  return at == std::string_view::npos ? path : path.substr(at + 1);
}

std::string_view DirectoryOf(std::string_view path) noexcept
{
  const auto at = LastSeparator(path);
  return at == std::string_view::npos ? std::string_view{} : path.substr(0, at);
}

std::string_view WithoutQuotes(std::string_view path) noexcept
{
  const bool quoted = path.size() >= 2 && path.front() == '"' && path.back() == '"';
  return quoted ? path.substr(1, path.size() - 2) : path;
}

std::string WithExtension(std::string_view path, std::string_view extension)
{
  if (const auto whole = std::string(".").append(extension);
      FileNameOf(path).size() > whole.size() && path.ends_with(whole))
    return std::string(path);
  constexpr std::size_t kDotAndExtension = 4;
  if (FileNameOf(path).size() >= kDotAndExtension && path[path.size() - kDotAndExtension] == '.')
    path.remove_suffix(kDotAndExtension);
  return std::string(path).append(".").append(extension);
}

}  // namespace velquist::platform
