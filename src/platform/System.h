// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::platform {

class Process {
 public:
  virtual ~Process() = default;
  /// Starts a second program with a normal window and does not wait for it.
  virtual void Start(std::string_view path) = 0;
};

/// The system's program for looking at directories.
class FileManager {
 public:
  virtual ~FileManager() = default;
  /// Shows the directory of the file at `path`, with the file chosen where the system can do that,
  /// and does not wait. Throws FileError.
  virtual void Show(std::string_view path) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  /// Milliseconds since an arbitrary moment.
  [[nodiscard]] virtual std::uint64_t TickCount() const = 0;
};

class Random {
 public:
  virtual ~Random() = default;
  virtual void Seed(std::uint64_t seed) = 0;
  /// 0 <= result < 1.
  [[nodiscard]] virtual double Next() = 0;
};

class Screen {
 public:
  virtual ~Screen() = default;
  [[nodiscard]] virtual int Width() const = 0;   ///< pixels
  [[nodiscard]] virtual int Height() const = 0;  ///< pixels
};

/// What is embedded in the executable.
class Resources {
 public:
  virtual ~Resources() = default;
  /// "HELP" 101: the manual, 8-bit text with CR LF line ends.
  [[nodiscard]] virtual std::string Help() const = 0;
  /// "JPEG" 102: the built-in picture.
  [[nodiscard]] virtual std::vector<std::byte> Picture() const = 0;
};

/// Reads picture files. A picture stays inside the implementation and is named by its path.
class PictureLoader {
 public:
  virtual ~PictureLoader() = default;
  struct Size {
    int width = 0;
    int height = 0;
  };
  /// Width and height of the JPEG at `path`, 0 x 0 when it is none, is broken, or is too large.
  [[nodiscard]] virtual Size Load(std::string_view path) = 0;
};

}  // namespace velquist::platform
