// SPDX-License-Identifier: MIT
#include <cstring>

#include "platform/EmbedElf.h"
#include "platform/EmbeddedResources.h"

VELQUIST_EMBED(velquist_manual, "resources/manual.txt");
VELQUIST_EMBED(velquist_picture, "resources/about.jpg");

namespace velquist::platform {

std::string EmbeddedResources::Help() const
{
  std::string text(static_cast<std::size_t>(velquist_manual_end - velquist_manual_begin), '\0');
  std::memcpy(text.data(), velquist_manual_begin, text.size());
  return text;
}

std::vector<std::byte> EmbeddedResources::Picture() const
{
  return {velquist_picture_begin, velquist_picture_end};
}

}  // namespace velquist::platform
