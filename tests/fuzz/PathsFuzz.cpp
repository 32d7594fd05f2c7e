// SPDX-License-Identifier: MIT
// The input is three texts, a line each: names, paths, and files that texts were read of.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>

#include "Fuzz.h"
#include "TemporaryFolder.h"
#include "platform/HostPath.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"
#include "platform/TextEncoding.h"

namespace {

using namespace velquist;
using fuzz::Require;

int Sign(int number)
{
  return (number > 0) - (number < 0);
}

void Order(const std::string& a, const std::string& b, const std::string& c)
{
  using platform::CompareNames;
  Require(CompareNames(a, a) == 0, "a name is itself");
  Require(Sign(CompareNames(a, b)) == -Sign(CompareNames(b, a)), "one is before the other");
  if (CompareNames(a, b) <= 0 && CompareNames(b, c) <= 0)
    Require(CompareNames(a, c) <= 0, "names have an order");
  const auto folded = platform::FoldCase(a);
  Require(platform::FoldCase(folded) == folded, "small letters stay");
  Require(!(platform::ComesFirst(a, b) && platform::ComesFirst(b, a)), "one comes first");
}

void Parts(const std::string& path, const std::string& part)
{
  const auto name = platform::FileNameOf(path);
  const auto directory = platform::DirectoryOf(path);
  Require(path.ends_with(name) && path.starts_with(directory), "parts of the path");
  Require(platform::SamePathText(path, path), "a path is itself");
  const auto found = platform::FindPart(path, part);
  if (found != std::string::npos) Require(found + part.size() <= path.size(), "within the path");
  Require(platform::WithExtension(path, "lo1").ends_with("lo1"), "the extension is there");
  Require(platform::WithoutQuotes(path).size() <= path.size(), "quotes are taken off");
}

/// A game's directory, with names in more than one spelling.
struct Game {
  samples::TemporaryFolder folder;
  Game()
  {
    for (const auto* name : {"Players/Jim/Setups/monza", "players/JIM/setups/spa", "PLAYERS/b",
                             "cars/\xC3\x84", "cars/\xC3\xA4", "cars/\xE4"})
      std::filesystem::create_directories(folder / name);
    samples::WriteFile(folder / "Players/Jim/Setups/monza/x.lo1", "PGTS");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static const Game game;
  auto lines = fuzz::LinesOf(fuzz::TextOf(data, size));
  lines.resize(std::max<std::size_t>(lines.size(), 3));
  Order(lines[0], lines[1], lines[2]);
  Parts(lines[0], lines[1]);
  const auto text = platform::InUtf8(lines[0]);
  Require(platform::InUtf8(text) == text, "what is UTF-8 stays");
  (void)platform::WithoutByteOrderMark(lines[0]);

  const bool stays_inside = lines[0].find("..") == std::string::npos;
  if (stays_inside && lines[0].find('\0') == std::string::npos) {
    const auto path = game.folder.Text() + "\\" + lines[0];
    const auto hosts = platform::HostPaths(path);
    Require(!hosts.empty() && hosts.front() == platform::HostPath(path), "the first is meant");
  }
  return 0;
}
