// SPDX-License-Identifier: MIT
#include "platform/AtomicFile.h"

#include <charconv>
#include <chrono>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/Errors.h"
#include "platform/FileReason.h"
#include "platform/SystemFiles.h"

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using Error = std::error_code;

constexpr unsigned long kMostNames = 100;  ///< tried for one temporary file
constexpr std::string_view kStart = ".velquist-";

std::string TemporaryName(unsigned long process, unsigned long number)
{
  return std::string(kStart) + std::to_string(process) + "-" + std::to_string(number);
}

/// The process whose temporary file has that name; nothing for any other name.
std::optional<unsigned long> ProcessOf(std::string_view name)
{
  if (!name.starts_with(kStart)) return std::nullopt;
  unsigned long process = 0;
  unsigned long number = 0;
  const char* const end = name.data() + name.size();
  const auto first = std::from_chars(name.data() + kStart.size(), end, process);
  if (first.ec != std::errc{} || first.ptr == end) return std::nullopt;
  const auto second = std::from_chars(first.ptr + 1, end, number);
  if (second.ec != std::errc{} || process == 0 || number >= kMostNames ||
      name != TemporaryName(process, number))
    return std::nullopt;
  return process;
}

/// Removes the temporary files of programs that have ended. The age keeps those of other machines
/// that share the directory. Nothing that goes wrong here matters to the save.
void RemoveLeftovers(const SaveCalls& calls, const fs::path& directory)
{
  constexpr auto kYoung = std::chrono::minutes(1);
  std::vector<std::string> names;
  ListNames(directory.empty() ? "." : directory, Listed::kAll, [&](std::string_view name) {
    if (const auto process = ProcessOf(name); process && !calls.is_running(*process))
      names.emplace_back(name);
    return true;
  });
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  for (const auto& name : names) {
    const auto file = directory / name;
    std::error_code unknown;
    const auto stamp = StampOf(file);
    if (!stamp || fs::is_symlink(file, unknown)) continue;
    if (now - std::chrono::nanoseconds(stamp->modified) > kYoung) (void)calls.remove(file);
  }
}

/// Calls again what a signal broke off.
template <class Call>
Error Whole(const Call& call)
{
  for (;;)
    if (const Error error = call(); error != std::errc::interrupted) return error;
}

/// One save: a temporary file that goes away unless it takes the target's place.
class Save {
 public:
  Save(const SaveCalls& calls, const fs::path& target) : calls_(calls), target_(target) {}
  Save(const Save&) = delete;
  Save& operator=(const Save&) = delete;
  ~Save()
  {
    if (file_ >= 0) (void)calls_.close(file_);
    if (!name_.empty()) (void)Whole([&] { return calls_.remove(name_); });
  }

  /// A file without a name leaves nothing when the program is killed; not all systems have it.
  Error OpenNameless()
  {
    return Whole([&] { return calls_.open_nameless(target_.parent_path(), file_); });
  }
  Error OpenNamed()
  {
    return WithFreeName([&](const fs::path& name) { return calls_.open_new(name, file_); });
  }
  Error GiveName()
  {
    return WithFreeName([&](const fs::path& name) { return calls_.give_name(file_, name); });
  }

  Error Write(std::span<const std::byte> bytes)
  {
    while (!bytes.empty()) {
      std::size_t written = 0;
      if (const auto error = Whole([&] { return calls_.write(file_, bytes, written); }))
        return error;
      if (written == 0) return std::make_error_code(std::errc::io_error);
      bytes = bytes.subspan(written);
    }
    return {};
  }

  Error TakeOverAndFlush()
  {
    for (const auto* keep : {&calls_.keep_owner, &calls_.keep_rights, &calls_.keep_access_list,
                             &calls_.keep_attributes})
      if (const auto error = Whole([&] { return (*keep)(target_, file_); })) return error;
    return Whole([&] { return calls_.flush(file_); });
  }

  Error Close()
  {
    // Broken off by a signal or not, the file is closed, and its bytes are on the disk.
    const auto error = calls_.close(std::exchange(file_, -1));
    return error == std::errc::interrupted ? Error{} : error;
  }

  Error TakePlace()
  {
    if (const auto error = Whole([&] { return calls_.rename(name_, target_); })) return error;
    name_.clear();
    return {};
  }

 private:
  /// Tries one name after the other until one is not taken.
  template <class Call>
  Error WithFreeName(const Call& call)
  {
    Error error;
    for (unsigned long number = 0; number < kMostNames; ++number) {
      auto name = target_.parent_path() / TemporaryName(ProcessNumber(), number);
      error = Whole([&] { return call(name); });
      if (!error) name_ = std::move(name);
      if (error != std::errc::file_exists) break;
    }
    return error;
  }

  const SaveCalls& calls_;
  const fs::path& target_;
  int file_ = -1;
  fs::path name_;  ///< of the temporary file, empty while it has none
};

Error WriteNameless(const SaveCalls& calls, const fs::path& target,
                    std::span<const std::byte> bytes, bool& possible)
{
  Save save(calls, target);
  possible = !save.OpenNameless();
  if (!possible) return {};
  if (const auto error = save.Write(bytes)) return error;
  if (const auto error = save.TakeOverAndFlush()) return error;
  possible = !save.GiveName();
  if (!possible) return {};
  if (const auto error = save.Close()) return error;
  return save.TakePlace();
}

Error WriteNamed(const SaveCalls& calls, const fs::path& target, std::span<const std::byte> bytes)
{
  Save save(calls, target);
  if (const auto error = save.OpenNamed()) return error;
  if (const auto error = save.Write(bytes)) return error;
  if (const auto error = save.TakeOverAndFlush()) return error;
  if (const auto error = save.Close()) return error;
  return save.TakePlace();
}

}  // namespace

void WriteAtomically(const fs::path& target, std::span<const std::byte> bytes,
                     std::string_view shown_path, const SaveCalls& calls)
{
  Error error;
  const fs::path real = BehindLinks(target, error);
  if (error) FailFile(shown_path, error);
  const auto status = StatusOf(real, error);
  if (fs::is_directory(status))
    FailFile(shown_path, std::make_error_code(std::errc::is_a_directory));
  if (!fs::is_regular_file(status) && status.type() != fs::file_type::not_found)
    FailFile(shown_path, error ? error : std::make_error_code(std::errc::invalid_argument));
  if (const auto refused = MayReplace(real)) FailFile(shown_path, refused);

  RemoveLeftovers(calls, real.parent_path());
  bool nameless = false;
  error = WriteNameless(calls, real, bytes, nameless);
  if (!nameless) error = WriteNamed(calls, real, bytes);
  if (error) FailFile(shown_path, error);
  error = Whole([&] { return calls.flush_directory(real.parent_path()); });
  if (error) throw NotFlushedError(std::string(shown_path), ReasonOf(error));
}

}  // namespace velquist::platform
