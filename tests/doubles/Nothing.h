// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/System.h"

/// What a program sees outside when nothing there matters.
namespace velquist::testing {

class NoResources : public platform::Resources {
 public:
  [[nodiscard]] std::string Help() const override { return {}; }
  [[nodiscard]] std::vector<std::byte> Picture() const override { return {}; }
};

/// Time stands still on a screen of 1280x1024, no picture can be loaded, and what is started is
/// nowhere to be seen.
class Nothing final : public NoResources,
                      public platform::Process,
                      public platform::FileManager,
                      public platform::Clock,
                      public platform::Random,
                      public platform::Screen,
                      public platform::PictureLoader {
 public:
  void Start(std::string_view /*path*/) override {}
  void Show(std::string_view /*path*/) override {}
  [[nodiscard]] std::uint64_t TickCount() const override { return 0; }
  void Seed(std::uint64_t /*seed*/) override {}
  [[nodiscard]] double Next() override { return 0; }
  [[nodiscard]] int Width() const override { return 1280; }
  [[nodiscard]] int Height() const override { return 1024; }
  [[nodiscard]] Size Load(std::string_view /*path*/) override { return {}; }
};

}  // namespace velquist::testing
