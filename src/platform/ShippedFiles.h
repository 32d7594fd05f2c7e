// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace velquist::platform {

/// One version of a data file that has ever shipped.
struct ShippedFile {
  std::string_view name;  ///< below the program directory, `/` between the parts
  std::uint64_t sum;      ///< SumOf its bytes
};

/// A sum that tells contents apart (64-bit FNV-1a).
[[nodiscard]] std::uint64_t SumOf(std::span<const std::byte> bytes) noexcept;

/// Every version of every data file that has shipped, by which a copy that the user never changed
/// is known.
[[nodiscard]] std::span<const ShippedFile> ShippedFiles() noexcept;

}  // namespace velquist::platform
