// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace velquist::platform {

/// Why a file operation failed, without a full stop: in a driver's words where the system's would
/// not tell him what to do, else in the system's.
[[nodiscard]] std::string ReasonOf(const std::error_code& error);

/// `path` with the separators of this system alone, for the user to read.
[[nodiscard]] std::string ToldPath(std::string_view path);

/// Throws the FileError of `path`.
[[noreturn]] void FailFile(std::string_view path, const std::error_code& error);

}  // namespace velquist::platform
