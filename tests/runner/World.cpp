// SPDX-License-Identifier: MIT
#include "runner/World.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

#include "platform/HostFileSystem.h"
#include "runner/Texts.h"

namespace velquist::runner {
namespace {

namespace fs = std::filesystem;

constexpr char kSeparator = static_cast<char>(fs::path::preferred_separator);
constexpr std::string_view kSettingsFile = "Velquist Program Settings.ini";

fs::path FromText(std::string_view text)
{
  return {std::u8string(text.begin(), text.end())};
}

fs::path MakeFreshDirectory()
{
  const auto base = fs::canonical(fs::temp_directory_path());
  std::random_device random;
  for (;;) {
    auto path = base / ("velquist-" + std::to_string(random()));
    if (fs::create_directory(path)) return path;
  }
}

/// Copies the tree, everything in it open to changes whatever the original is.
void CopyShippedFiles(const fs::path& from, const fs::path& to)
{
  if (!fs::is_directory(from))
    throw std::runtime_error("no directory with the shipped files: " + platform::PathText(from));
  fs::copy(from, to, fs::copy_options::recursive);
  fs::permissions(to, fs::perms::owner_all, fs::perm_options::add);
  for (const auto& entry : fs::recursive_directory_iterator(to))
    fs::permissions(entry, entry.is_directory() ? fs::perms::owner_all : fs::perms::owner_write,
                    fs::perm_options::add);
  fs::remove(to / kSettingsFile);
}

/// Copies a file or a tree over what is there. The library's own copy refuses that where the host
/// has no file numbers: it takes any two files for the same one.
void CopyOver(const fs::path& from, const fs::path& to)
{
  if (!fs::is_directory(from)) {
    fs::remove(to);
    fs::copy_file(from, to);
    return;
  }
  fs::create_directories(to);
  for (const auto& entry : fs::directory_iterator(from))
    CopyOver(entry, to / entry.path().filename());
}

}  // namespace

World::World(const fs::path& program_files) : root_(MakeFreshDirectory())
{
  places_ = {platform::PathText(root_), platform::PathText(root_ / "program"),
             platform::PathText(root_ / "GPL")};
  try {
    CopyShippedFiles(program_files, root_ / "program");
  } catch (...) {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
    throw;
  }
}

World::~World()
{
  std::error_code ignored;
  if (!kept_) fs::remove_all(root_, ignored);
}

std::string World::Native(std::string_view path) const
{
  auto native = root_ / FromText(path);
  native.make_preferred();
  return platform::PathText(native);
}

std::string World::NativeText(std::string_view text) const
{
  // Where `/` is the host's separator, a script may write `\` on purpose.
  if (kSeparator == '/') return std::string(text);
  return WithSeparators(text, places_.temporary, kSeparator);
}

bool World::SameText(std::string_view a, std::string_view b) const
{
  return WithSeparators(a, places_.temporary, '/') == WithSeparators(b, places_.temporary, '/');
}

fs::path World::Find(std::string_view path) const
{
  return platform::HostPath(Native(path));
}

fs::path World::FindToChange(std::string_view path) const
{
  const auto inside = FromText(Native(path)).lexically_normal().lexically_relative(root_);
  if (inside.empty() || inside == "." || *inside.begin() == "..")
    throw std::runtime_error(std::string(path) + " is not below the script's own directory");
  return Find(path);
}

bool World::Exists(std::string_view path) const
{
  return fs::exists(Find(path));
}

std::vector<std::byte> World::Read(std::string_view path) const
{
  const auto found = Find(path);
  std::ifstream file(found, std::ios::binary);
  if (!file || fs::is_directory(found))
    throw std::runtime_error("no file that can be read: " + std::string(path));
  std::ostringstream content;
  content << file.rdbuf();
  const auto bytes = std::as_bytes(std::span(content.view()));
  return {bytes.begin(), bytes.end()};
}

void World::MakeDirectory(std::string_view path)
{
  fs::create_directories(FindToChange(path));
}

void World::Write(std::string_view path, std::span<const std::byte> bytes)
{
  const auto host = FindToChange(path);
  fs::create_directories(host.parent_path());
  std::ofstream file(host, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + std::string(path));
}

void World::Copy(std::string_view from, std::string_view to)
{
  const auto target = FindToChange(to);
  fs::create_directories(target.parent_path());
  CopyOver(Find(from), target);
}

void World::Remove(std::string_view path)
{
  fs::remove_all(FindToChange(path));
}

}  // namespace velquist::runner
