// SPDX-License-Identifier: MIT
#include "platform/ProgramDirectory.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "platform/AtomicFile.h"
#include "platform/Errors.h"
#include "platform/FileReason.h"
#include "platform/HostFileSystem.h"
#include "platform/SystemFiles.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;

/// Folder with a second set of data files, for users of metric units.
constexpr const char* kMetric = "Metric";

bool IsDefaultSetup(const fs::path& file)
{
  return file.extension() == ".vqset";
}

bool IsDataFile(const fs::path& file)
{
  return file.extension() == ".ini" || IsDefaultSetup(file);
}

/// The default setups are what no other program has.
bool HoldsData(const fs::path& directory)
{
  bool holds = false;
  ListNames(directory, Listed::kAll, [&](std::string_view name) {
    holds = IsDefaultSetup(PathFromText(name));
    return !holds;
  });
  return holds;
}

#ifdef _WIN32

/// Rights alone do not tell: only making a file does.
bool MayWriteInto(const fs::path& directory)
{
  const auto probe = directory / (L".velquist-" + std::to_wstring(::GetCurrentProcessId()));
  const auto file = ::CreateFileW(Lengthened(probe).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  ::CloseHandle(file);
  return true;
}

fs::path UserDirectory(const Environment& environment)
{
  const auto local = environment("LOCALAPPDATA");
  if (!local || local->empty())
    throw FileError("%LOCALAPPDATA%\\Velquist", "The variable LOCALAPPDATA is not set");
  return HostPath(*local) / "Velquist";
}

#else

bool MayWriteInto(const fs::path& directory)
{
  return ::faccessat(AT_FDCWD, directory.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

fs::path UserDirectory(const Environment& environment)
{
  const auto data_home = environment("XDG_DATA_HOME");
  // A relative path counts as not set.
  if (data_home && data_home->starts_with('/')) return fs::path(*data_home) / "velquist";
  const auto home = environment("HOME");
  if (!home || home->empty())
    throw FileError("~/.local/share/velquist", "The variable HOME is not set");
  return fs::path(*home) / ".local" / "share" / "velquist";
}

#endif

/// Where data files come from and go to, and the versions of them that have shipped.
struct Filling {
  fs::path from;
  fs::path to;
  std::span<const ShippedFile> shipped;
};

bool IsShipped(const Filling& filling, const fs::path& file, std::span<const std::byte> bytes)
{
  const auto sum = SumOf(bytes);
  return std::ranges::any_of(filling.shipped, [&](const ShippedFile& version) {
    return version.sum == sum && PathFromText(version.name) == file;
  });
}

/// Renews a copy that the user never changed. One that cannot be renewed serves as it is.
void Renew(const Filling& filling, const fs::path& file)
{
  const HostFileSystem files;
  const auto target = PathText(filling.to / file);
  try {
    const auto old = files.ReadWhole(target);
    const auto fresh = files.ReadWhole(PathText(filling.from / file));
    if (old != fresh && IsShipped(filling, file, old))
      WriteAtomically(filling.to / file, fresh, target);
  } catch (const FileError&) {
  }
}

/// Copies the data files of one folder that are missing, and renews the others.
void Fill(const Filling& filling, const fs::path& folder)
{
  const auto to = folder.empty() ? filling.to : filling.to / folder;
  const auto from = folder.empty() ? filling.from : filling.from / folder;
  if (const auto error = MakeDirectories(to)) FailFile(PathText(to), error);
  const HostFileSystem files;
  const auto copy = [&](std::string_view name) {
    const auto file = folder / PathFromText(name);
    const auto source = filling.from / file;
    const auto target = filling.to / file;
    std::error_code unknown;
    if (!IsDataFile(file) || !fs::is_regular_file(StatusOf(source, unknown))) return true;
    if (fs::exists(StatusOf(target, unknown)))
      Renew(filling, file);
    else
      WriteAtomically(target, files.ReadWhole(PathText(source)), PathText(target));
    return true;
  };
  if (const auto error = ListNames(from, Listed::kAll, copy)) FailFile(PathText(from), error);
}

/// Where the data files lie that a user gets copies of; nothing where those in the program's own
/// `folder`, or none at all, are used.
std::optional<fs::path> InstalledData(const fs::path& folder)
{
  const bool portable = HoldsData(folder);
  if (portable && MayWriteInto(folder)) return std::nullopt;
  auto source = portable ? folder : folder.parent_path() / "share" / "velquist";
  return HoldsData(source) ? std::optional(std::move(source)) : std::nullopt;
}

}  // namespace

std::string DataDirectory(const fs::path& executable, const Environment& environment)
{
  const auto folder = executable.parent_path();
  const auto source = InstalledData(folder);
  if (!source) return PathText(folder);
  try {
    const auto directory = UserDirectory(environment);
    if (HoldsData(directory)) return PathText(directory);
  } catch (const FileError&) {  // there is no directory of the user
  }
  return PathText(*source);
}

std::optional<std::string> EnvironmentVariable(std::string_view name)
{
#ifdef _WIN32
  const auto* const value = ::_wgetenv(PathFromText(name).c_str());
  if (value == nullptr) return std::nullopt;
  return PathText(fs::path(value));
#else
  const auto* const value = std::getenv(std::string(name).c_str());
  if (value == nullptr) return std::nullopt;
  return value;
#endif
}

std::string ProgramDirectory(const fs::path& executable, const Environment& environment,
                             std::span<const ShippedFile> shipped)
{
  const auto folder = executable.parent_path();
  const auto source = InstalledData(folder);
  if (!source) return PathText(folder);
  const auto directory = UserDirectory(environment);
  const Filling filling = {*source, directory, shipped};
  Fill(filling, {});
  std::error_code error;
  if (fs::is_directory(StatusOf(*source / kMetric, error))) Fill(filling, kMetric);
  return PathText(directory);
}

}  // namespace velquist::platform
