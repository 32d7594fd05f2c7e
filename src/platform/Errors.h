// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace velquist {

/// A read outside the setup buffer, a table row that does not exist, a whole number beyond its
/// range or a selection beyond its list. Caught once, where events enter the main window.
class BoundsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file operation that failed: which file, and the system's reason in words.
class FileError : public std::runtime_error {
 public:
  FileError(std::string path, std::string reason)
      : std::runtime_error(path + ": " + reason), path_(std::move(path)), reason_(std::move(reason))
  {
  }

  [[nodiscard]] const std::string& Path() const noexcept { return path_; }
  [[nodiscard]] const std::string& Reason() const noexcept { return reason_; }

 private:
  std::string path_;
  std::string reason_;
};

/// The file was written and has its name, but the directory that says so could not be flushed to
/// the disk.
class NotFlushedError : public FileError {
 public:
  using FileError::FileError;
};

/// Ends the program at once: unwinds to the event entry, nothing is written on the way.
class ProgramEnd {};

}  // namespace velquist
