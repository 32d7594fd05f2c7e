// SPDX-License-Identifier: MIT
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>
#endif

#include "platform/EmbeddedResources.h"
#include "runner/Runner.h"
#include "runner/SourceDirectory.h"

namespace {

using namespace velquist;
using namespace velquist::runner;

constexpr const char* kUsage =
    "usage: velquist_scenario [--ui] [--keep] [--program-files DIRECTORY] FILE...\n";

#ifdef _WIN32

/// The arguments as UTF-8, whatever the system's code page is.
std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/)
{
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    const auto text = std::filesystem::path(wide[i]).u8string();
    arguments.emplace_back(text.begin(), text.end());
  }
  LocalFree(wide);
  return arguments;
}

/// Dumps have the same line ends everywhere.
void KeepLineEnds()
{
  _setmode(_fileno(stdout), _O_BINARY);
}

#else

std::vector<std::string> Arguments(int argc, char** argv)
{
  return {argv + 1, argv + argc};
}

void KeepLineEnds() {}

#endif

int PlayAll(const CommandLine& line)
{
  platform::EmbeddedResources resources;
  Runner runner(line.options, line.window ? MakeWindowDriver : MakeModelDriver, resources,
                std::cout, std::cerr);
  for (const auto& path : line.paths) runner.PlayPath(path);
  return runner.Finish();
}

}  // namespace

int main(int argc, char** argv)
{
  KeepLineEnds();
  try {
    const auto line = ReadCommandLine(Arguments(argc, argv),
                                      velquist::testing::SourceDirectory() / "assets" / "program");
    return line.window ? RunWithWindowSystem([&line] { return PlayAll(line); }) : PlayAll(line);
  } catch (const std::invalid_argument& error) {
    std::cerr << error.what() << '\n' << kUsage;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
  }
  return kNotRead;
}
