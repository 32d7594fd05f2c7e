#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace velquist::content {

/// A mistake in one of the readable sources; the message names file, line and mistake.
class ContentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file that ships.
struct ContentFile {
  std::string path;   ///< below its folder, parts separated by "/"
  std::string bytes;  ///< the whole content
};

/// What lies beside the program (`assets/program`): setup data files, gear data files, default
/// setups, and in `Metric/` the data files and defaults with steps in even metric units.
/// `sources` is the folder that holds the tables (`ranges.txt` and its neighbours).
/// Throws ContentError when one of them cannot be read or makes no sense.
[[nodiscard]] std::vector<ContentFile> ProgramFiles(const std::filesystem::path& sources);

/// The made-up game installation to try the editor on (`examples/GPL`), without car pictures.
/// Throws as `ProgramFiles` does.
[[nodiscard]] std::vector<ContentFile> ExampleFiles(const std::filesystem::path& sources);

}  // namespace velquist::content
