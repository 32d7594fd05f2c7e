// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/Commands.h"
#include "platform/ProgramDirectory.h"
#include "platform/SystemFiles.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <memory>
#include <utility>
#else
#include <unistd.h>
#endif

namespace velquist {
namespace {

volatile std::sig_atomic_t was_interrupted = 0;

void Interrupt(int /*signal*/)
{
  was_interrupted = 1;
}

#ifdef _WIN32

/// The paths that a word with "*" or "?" in its last name stands for, in rising order, as no shell
/// has done it; the word itself where there are none.
std::vector<std::string> Expanded(const std::filesystem::path& word)
{
  std::vector<std::string> paths;
  if (word.filename().native().find_first_of(L"*?") != std::wstring::npos) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(platform::Lengthened(word).c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
      do {
        const std::wstring name(found.cFileName);
        if (name != L"." && name != L"..")
          paths.push_back(platform::PathText(word.parent_path() / name));
      } while (::FindNextFileW(search, &found) != FALSE);
      ::FindClose(search);
    }
  }
  if (paths.empty()) paths.push_back(platform::PathText(word));
  std::ranges::sort(paths);
  return paths;
}

std::vector<std::string> Words(int /*argc*/, char** /*argv*/)
{
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> wide(
      ::CommandLineToArgvW(::GetCommandLineW(), &count), ::LocalFree);
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i)
    for (auto& word : Expanded(wide.get()[i])) words.push_back(std::move(word));
  return words;
}

std::filesystem::path Executable(const std::string& /*name*/)
{
  constexpr std::size_t kLongest = 32768;
  std::wstring path(kLongest, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return {path};
}

bool IsTerminal(std::FILE* file)
{
  return ::_isatty(::_fileno(file)) != 0;
}

/// Texts are UTF-8, and their line ends are theirs.
void PrepareOutput()
{
  ::SetConsoleOutputCP(CP_UTF8);
  ::_setmode(::_fileno(stdout), _O_BINARY);
  ::_setmode(::_fileno(stderr), _O_BINARY);
}

#else

std::vector<std::string> Words(int argc, char** argv)
{
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

/// Where the system does not say it, as without /proc, what the shell has found by `name`.
std::filesystem::path Executable(const std::string& name)
{
  std::error_code unknown;
  auto said = std::filesystem::read_symlink("/proc/self/exe", unknown);
  if (!said.empty()) return said;
  if (name.find('/') != std::string::npos) return std::filesystem::absolute(name, unknown);
  std::istringstream directories(platform::EnvironmentVariable("PATH").value_or(""));
  for (std::string directory; std::getline(directories, directory, ':');)
    if (auto found = std::filesystem::path(directory) / name;
        std::filesystem::exists(found, unknown))
      return found;
  return {};
}

bool IsTerminal(std::FILE* file)
{
  return ::isatty(::fileno(file)) != 0;
}

void PrepareOutput() {}

#endif

int Main(int argc, char** argv)
{
  std::ios::sync_with_stdio(false);
  PrepareOutput();
  std::signal(SIGINT, Interrupt);
  return cli::Run(Words(argc, argv), {.out = std::cout,
                                      .err = std::cerr,
                                      .shows_progress = IsTerminal(stderr) && !IsTerminal(stdout),
                                      .interrupted = [] { return was_interrupted != 0; },
                                      .program_directory =
                                          [name = std::string(argc > 0 ? argv[0] : "")] {
                                            return platform::DataDirectory(
                                                Executable(name), platform::EnvironmentVariable);
                                          }});
}

}  // namespace
}  // namespace velquist

int main(int argc, char** argv)
{
  return velquist::Main(argc, argv);
}
