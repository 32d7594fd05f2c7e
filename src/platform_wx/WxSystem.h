// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/System.h"

namespace velquist::platform {

/// Starts this very program again, whatever else lies under the path that is asked for.
class WxProcess final : public Process {
 public:
  using Options = std::function<std::vector<std::string>()>;

  /// `options` tells what a copy is started with.
  explicit WxProcess(Options options) : options_(std::move(options)) {}

  /// Throws FileError when the program cannot be started.
  void Start(std::string_view path) override;

 private:
  Options options_;
};

class WxFileManager final : public FileManager {
 public:
  void Show(std::string_view path) override;
};

class WxClock final : public Clock {
 public:
  [[nodiscard]] std::uint64_t TickCount() const override;
};

class WxRandom final : public Random {
 public:
  void Seed(std::uint64_t seed) override { engine_.seed(seed); }
  [[nodiscard]] double Next() override;

 private:
  std::mt19937_64 engine_;
};

/// The screen that holds the desktop's panel or task bar, in the pixels that places of controls
/// are counted in.
class WxScreen final : public Screen {
 public:
  [[nodiscard]] int Width() const override;
  [[nodiscard]] int Height() const override;
};

}  // namespace velquist::platform
