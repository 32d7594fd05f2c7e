// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "Nothing.h"
#include "app/MainWindow.h"
#include "platform/HostFileSystem.h"
#include "runner/SourceDirectory.h"

namespace {

namespace fs = std::filesystem;
using namespace velquist;

/// What a start-up on a large installation may cost, as a multiple of a plain listing of the
/// players and tracks that are shown.
constexpr double kMostOfAListing = 1.2;

/// The files of this machine; the start-up's one write, of a picture, is left out.
class Files final : public platform::FileSystem {
 public:
  [[nodiscard]] bool Exists(std::string_view path) const override { return files_.Exists(path); }
  [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view path) const override
  {
    return files_.ReadWhole(path);
  }
  void WriteOver(std::string_view /*path*/, std::span<const std::byte> /*bytes*/) override {}
  void WriteText(std::string_view /*path*/, std::string_view /*text*/) override {}
  [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const override
  {
    return files_.ListSubdirectories(directory, most);
  }
  [[nodiscard]] std::optional<platform::FileStamp> Stamp(std::string_view path) const override
  {
    return files_.Stamp(path);
  }
  [[nodiscard]] std::optional<std::string> NameOnDisk(std::string_view path) const override
  {
    return files_.NameOnDisk(path);
  }
  [[nodiscard]] std::string HostText(std::string_view path) const override
  {
    return files_.HostText(path);
  }

 private:
  platform::HostFileSystem files_;
};

/// Nothing is asked or told in a start-up that goes well.
class NoDialogs final : public app::Dialogs {
 public:
  platform::Answer ShowMessage(std::string_view, platform::Icon, platform::Buttons) override
  {
    std::abort();
  }
  std::optional<std::string> AskOpenFile(const platform::OpenRequest&) override { std::abort(); }
  std::optional<std::string> AskSaveFile(const platform::SaveRequest&) override { std::abort(); }
  std::optional<int> AskModYear(app::ModYearForm, std::string_view) override { std::abort(); }
  void ShowInstallDelete(app::InstallDeleteForm&) override { std::abort(); }
  void ShowHelp() override { std::abort(); }
};

/// A program directory, and two games: GPL with 200 players of 300 tracks each, Small with one.
class Installed {
 public:
  Installed()
  {
    fs::copy(velquist::testing::SourceDirectory() / "assets" / "program", root_,
             fs::copy_options::recursive);
    // The players share one directory of tracks, which is listed no faster for that.
    for (int track = 0; track < 300; ++track)
      fs::create_directories(root_ / "tracks" / ("track" + std::to_string(track)));
    for (int player = 0; player < 200; ++player) {
      const auto directory = Players() / ("player" + std::to_string(player));
      fs::create_directories(directory);
      fs::create_directory_symlink(root_ / "tracks", directory / "Setups");
    }
    fs::create_directories(root_ / "Small/Players/player/Setups/track");
    for (const char* game : {"GPL", "Small"}) std::ofstream(root_ / game / "gpl_ai.ini");
  }
  ~Installed()
  {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  /// What starts from now on finds this game.
  void Choose(const char* game) const
  {
    std::ofstream(root_ / "Velquist Program Settings.ini")
        << (root_ / game).string() << "\n0\n0\n0\n0\n0\n0\n0\n"
        << (root_ / game).string() << "\n";
  }

  [[nodiscard]] fs::path Players() const { return root_ / "GPL" / "Players"; }
  [[nodiscard]] std::string Program() const { return root_.string(); }

 private:
  const fs::path root_ =
      fs::temp_directory_path() / ("velquist-bench-" + std::to_string(std::random_device{}()));
};

template <class Work>
double SecondsOf(Work&& work)
{
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double StartUp(const Installed& installed, std::size_t players)
{
  Files files;
  NoDialogs dialogs;
  testing::Nothing nothing;
  app::MainWindow window({files, dialogs, nothing, nothing, nothing, nothing, nothing, nothing,
                          nothing, installed.Program()});
  const double seconds = SecondsOf([&] { window.Form_Load({}); });
  if (window.Ended() || window.Form().Combo4.items.size() != players) std::abort();
  return seconds;
}

/// What the two lists show, by name without regard to case.
double PlainListing(const Installed& installed, const fs::path& player)
{
  const auto folded = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; };
  return SecondsOf([&] {
    for (const auto& directory : {installed.Players(), player / "Setups"}) {
      std::vector<std::string> names;
      for (const auto& entry : fs::directory_iterator(directory))
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
      std::ranges::sort(names, [&](const std::string& a, const std::string& b) {
        return std::ranges::lexicographical_compare(a, b, {}, folded, folded);
      });
      benchmark::DoNotOptimize(names);
    }
  });
}

/// The shortest of many times each, taken in turns, so that whatever else the machine does at some
/// moment counts for none of them.
void StartUpWithManyPlayers(benchmark::State& state)
{
  const Installed installed;
  const auto player = fs::directory_iterator(installed.Players())->path();
  double large = std::numeric_limits<double>::max();
  double small = large;
  double listing = large;
  for (auto _ : state) {
    installed.Choose("Small");
    small = std::min(small, StartUp(installed, 1));
    installed.Choose("GPL");
    const double once = StartUp(installed, 200);
    large = std::min(large, once);
    listing = std::min(listing, PlainListing(installed, player));
    state.SetIterationTime(once);
  }
  const double ratio = large / listing;
  state.counters["lists_ratio"] = (large - small) / listing;
  state.counters["small_us"] = small * 1e6;
  state.counters["large_us"] = large * 1e6;
  state.counters["listing_us"] = listing * 1e6;
  state.counters["ratio"] = ratio;
  if (ratio >= kMostOfAListing) state.SkipWithError("the lists cost too much");
}
BENCHMARK(StartUpWithManyPlayers)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(500);

}  // namespace
