// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "app/Dialogs.h"
#include "data/ModYear.h"
#include "platform/FileSystem.h"

namespace velquist::app {

/// The text of a mod year question.
[[nodiscard]] std::string_view ModYearMessage(ModYearForm form) noexcept;

/// The marker file of that mod year lies in the installation.
[[nodiscard]] bool IsInstalled(data::ModYear ModYearIndex, std::string_view installation,
                               const platform::FileSystem& files);

/// Sets the mod year of the file in the buffer, asking the user where the file alone cannot tell;
/// a question closed without an answer leaves the year as it was. False, after the message, when
/// that mod is not installed.
[[nodiscard]] bool ModYearFromFile(std::string_view file_name,
                                   std::span<const std::byte> SetupBuffer,
                                   std::string_view installation, const platform::FileSystem& files,
                                   Dialogs& dialogs, data::ModYear& ModYearIndex);

/// What is said of a file whose ending is that of no car of the year, behind its name; else empty.
/// Codes of cars are spelled exactly: "fast.LO1" is of no car that "fast.lo1" is of.
[[nodiscard]] std::string RemarkOnEnding(data::ModYear ModYearIndex, std::string_view file_name);

}  // namespace velquist::app
