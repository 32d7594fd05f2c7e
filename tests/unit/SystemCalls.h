// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The system's calls that files are read and written with. In the test program the linker puts
/// those of SystemCallsPosix.cpp and SystemCallsWindows.cpp in their places: they do what the
/// system's do, unless one of these lives, who writes them down and may let one fail. The names are
/// the system's, followed by what the file is opened for where that matters.
namespace velquist::testing {

class SystemCalls {
 public:
  SystemCalls();
  ~SystemCalls();
  SystemCalls(const SystemCalls&) = delete;
  SystemCalls& operator=(const SystemCalls&) = delete;

  std::vector<std::string> names;            ///< of the calls so far
  std::optional<std::size_t> failing_index;  ///< of the one call in `names` that fails
  std::string failing_name;                  ///< of calls that fail,
  std::size_t failing_times = SIZE_MAX;      ///< so many of them
  int error = 0;                   ///< of errno, or Windows' own where the call is its own
  bool has_nameless = true;        ///< the file system has files without a name
  std::size_t at_once = SIZE_MAX;  ///< bytes that one call reads or writes at most
  bool tells_kinds = true;         ///< listing a directory says what is a directory

  /// Writes a call down; true when it is to fail.
  [[nodiscard]] bool Fails(std::string_view name);
  /// The one that lives, if one does.
  [[nodiscard]] static SystemCalls* Watching();
};

}  // namespace velquist::testing
