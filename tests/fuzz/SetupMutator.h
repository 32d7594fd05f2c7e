// SPDX-License-Identifier: MIT
// Mutations that leave a setup one: most random bytes would be refused at once. To be included by
// one source of a target.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

#include "SetupSamples.h"
#include "setup/BinarySubs.h"
#include "setup/SetupRecord.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace velquist::fuzz {

class SetupMutator {
 public:
  SetupMutator(std::uint8_t* bytes, unsigned seed) : bytes_(bytes), random_(seed) {}

  /// Makes `size` bytes a setup of one of the two layouts with other values; returns its size.
  std::size_t Mutate(std::size_t size, std::size_t most)
  {
    // A setup mostly keeps its layout; what is neither becomes one of them.
    const bool is_long = size == setup::kLongLayoutSize    ? !Once(20)
                         : size == setup::kShortLayoutSize ? Once(20)
                                                           : Once(2);
    const std::size_t wanted = is_long ? setup::kLongLayoutSize : setup::kShortLayoutSize;
    if (most < wanted) return size;
    if (size < wanted) std::memset(bytes_ + size, 0, wanted - size);
    std::memcpy(bytes_, "PGTS", 4);
    if (!Once(20)) {
      Put(4, is_long ? 4 : 3);
      Put(8, is_long ? 257 : 249);
    }
    for (auto count = 1 + Below(4); count > 0; --count) MutateField(wanted);
    return wanted;
  }

 private:
  std::uint32_t Below(std::uint32_t most) { return static_cast<std::uint32_t>(random_()) % most; }
  bool Once(std::uint32_t in) { return Below(in) == 0; }
  void Put(std::size_t offset, std::uint32_t word) { std::memcpy(bytes_ + offset, &word, 4); }

  void MutateField(std::size_t size)
  {
    if (Once(12)) {
      bytes_[setup::kSymmetryOffset] = static_cast<std::uint8_t>(Once(3) ? Below(256) : Below(2));
      return;
    }
    const auto& fact = samples::kFacts[Below(samples::kFacts.size())];
    if (fact.offset + 4 > size) return;
    std::uint32_t old = 0;
    std::memcpy(&old, bytes_ + fact.offset, 4);
    Put(fact.offset, fact.whole ? Whole(old) : Single(old));
  }

  std::uint32_t Whole(std::uint32_t old)
  {
    constexpr auto kLeast = static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::min());
    constexpr std::array<std::uint32_t, 12> kWholes = {0,  1,  5,  6,          44,     45,
                                                       69, 89, 90, UINT32_MAX, kLeast, kLeast - 1};
    switch (Below(4)) {
      case 0: return kWholes[Below(kWholes.size())];
      case 1: return old + 1;
      case 2: return old - 1;
      default: return Below(100);
    }
  }

  std::uint32_t Single(std::uint32_t old)
  {
    using Limits = std::numeric_limits<float>;
    constexpr std::array<float, 16> kSingles = {0,
                                                -0.0F,
                                                1,
                                                -1,
                                                0.5F,
                                                -0.75F,
                                                0.25F,
                                                22.5F,
                                                45,
                                                1e30F,
                                                -1e9F,
                                                3e9F,
                                                Limits::infinity(),
                                                -Limits::infinity(),
                                                Limits::quiet_NaN(),
                                                Limits::denorm_min()};
    switch (Below(5)) {
      case 0: return std::bit_cast<std::uint32_t>(kSingles[Below(kSingles.size())]);
      case 1: return old + 1;
      case 2: return old - 1;
      case 3: return std::bit_cast<std::uint32_t>(static_cast<float>(Below(800)) / 8);
      default: return static_cast<std::uint32_t>(random_());
    }
  }

  std::uint8_t* bytes_;
  std::minstd_rand random_;
};

}  // namespace velquist::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed)
{
  if (seed % 8 == 0) return LLVMFuzzerMutate(data, size, most);
  return velquist::fuzz::SetupMutator(data, seed).Mutate(size, most);
}
