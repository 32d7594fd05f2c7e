// SPDX-License-Identifier: MIT
// An access list, as Linux keeps it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace velquist::samples {

inline constexpr const char* kAccess = "system.posix_acl_access";
inline constexpr const char* kDefault = "system.posix_acl_default";

struct AccessEntry {
  std::uint16_t tag;
  std::uint16_t rights;
  std::uint32_t id;
};
inline constexpr std::uint32_t kNoId = 0xFFFFFFFF;
inline constexpr std::uint16_t kOwner = 1, kUser = 2, kGroup = 4, kMask = 16, kOther = 32;

/// A list as the system keeps it: another user may write, the group may nothing.
inline std::string AccessList()
{
  const std::array<AccessEntry, 5> entries = {{{kOwner, 6, kNoId},
                                               {kUser, 6, 65534},
                                               {kGroup, 0, kNoId},
                                               {kMask, 6, kNoId},
                                               {kOther, 0, kNoId}}};
  std::string list("\2\0\0\0", 4);
  return list.append(reinterpret_cast<const char*>(entries.data()), sizeof entries);
}

}  // namespace velquist::samples
