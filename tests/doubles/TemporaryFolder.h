// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace velquist::samples {

/// A fresh folder for one test that every user may enter; removed with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder()
  {
    std::random_device random;
    do {
      path_ =
          std::filesystem::temp_directory_path() / ("velquist-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
    std::filesystem::permissions(path_, std::filesystem::perms(0755));
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder()
  {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] std::filesystem::path operator/(std::string_view name) const
  {
    return path_ / std::u8string(name.begin(), name.end());
  }

  /// The folder's path as the program spells paths.
  [[nodiscard]] std::string Text() const { return InUtf8(path_); }

  /// Names of what the folder holds, sorted.
  [[nodiscard]] std::vector<std::string> Names() const { return NamesIn(path_); }

  [[nodiscard]] static std::vector<std::string> NamesIn(const std::filesystem::path& folder)
  {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      names.push_back(InUtf8(entry.path().filename()));
    std::ranges::sort(names);
    return names;
  }

  [[nodiscard]] static std::string InUtf8(const std::filesystem::path& path)
  {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
  }

 private:
  std::filesystem::path path_;
};

inline void WriteFile(const std::filesystem::path& path, std::string_view content)
{
  std::ofstream file(path, std::ios::binary);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

inline std::string ContentOf(const std::filesystem::path& path)
{
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

inline std::span<const std::byte> AsBytes(std::string_view text)
{
  return std::as_bytes(std::span(text));
}

inline std::string AsText(const std::vector<std::byte>& bytes)
{
  std::string text;
  for (const auto byte : bytes) text += static_cast<char>(byte);
  return text;
}

}  // namespace velquist::samples
