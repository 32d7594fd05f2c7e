// SPDX-License-Identifier: MIT
#include <windows.h>

#include <span>

#include "platform/EmbeddedResources.h"

namespace velquist::platform {
namespace {

std::span<const std::byte> Resource(const wchar_t* type, WORD number)
{
  const HRSRC found = ::FindResourceW(nullptr, MAKEINTRESOURCEW(number), type);
  const HGLOBAL loaded = found != nullptr ? ::LoadResource(nullptr, found) : nullptr;
  if (loaded == nullptr) return {};
  return {static_cast<const std::byte*>(::LockResource(loaded)), ::SizeofResource(nullptr, found)};
}

}  // namespace

std::string EmbeddedResources::Help() const
{
  const auto bytes = Resource(L"HELP", 101);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::vector<std::byte> EmbeddedResources::Picture() const
{
  const auto bytes = Resource(L"JPEG", 102);
  return {bytes.begin(), bytes.end()};
}

}  // namespace velquist::platform
