// SPDX-License-Identifier: MIT
// The embedded files, taken in by the assembler from the folder that the build names.
#include <cstring>
#include <span>

#include "platform/wx/WxResources.h"

// NOLINTBEGIN
#define VELQUIST_EMBED(name, file)                             \
  asm(".section .rodata.velquist, \"a\", %progbits\n"          \
      ".global " #name "_begin, " #name "_end\n"               \
      ".hidden " #name "_begin, " #name "_end\n"               \
      ".balign 16\n"                                           \
      #name "_begin:\n"                                        \
      ".incbin \"" VELQUIST_RESOURCES "/" file "\"\n"          \
      #name "_end:\n"                                          \
      ".byte 0\n"                                              \
      ".previous\n");                                          \
  extern "C" __attribute__((visibility("hidden"))) const std::byte name##_begin[]; \
  extern "C" __attribute__((visibility("hidden"))) const std::byte name##_end[]
// NOLINTEND

VELQUIST_EMBED(velquist_manual, "manual.txt");
VELQUIST_EMBED(velquist_picture, "about.jpg");

namespace velquist::platform {

std::string WxResources::Help() const
{
  std::string text(static_cast<std::size_t>(velquist_manual_end - velquist_manual_begin), '\0');
  std::memcpy(text.data(), velquist_manual_begin, text.size());
  return text;
}

std::vector<std::byte> WxResources::Picture() const
{
  return {velquist_picture_begin, velquist_picture_end};
}

}  // namespace velquist::platform
