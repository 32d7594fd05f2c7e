// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Takes `file`, a path within the folder of assets that the build names, into the program. Its
/// bytes stand from `name`_begin to `name`_end.
#define VELQUIST_EMBED(name, file)                                                 \
  asm(".section .rodata.velquist, \"a\", %progbits\n"                              \
      ".hidden " #name "_begin, " #name                                            \
      "_end\n"                                                                     \
      ".global " #name "_begin, " #name                                            \
      "_end\n"                                                                     \
      ".balign 16\n" #name                                                         \
      "_begin:\n"                                                                  \
      ".incbin \"" VELQUIST_ASSETS "/" file "\"\n" #name                           \
      "_end:\n"                                                                    \
      ".byte 0\n"                                                                  \
      ".previous\n");                                                              \
  extern "C" __attribute__((visibility("hidden"))) const std::byte name##_begin[]; \
  extern "C" __attribute__((visibility("hidden"))) const std::byte name##_end[]
