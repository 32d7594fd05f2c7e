// SPDX-License-Identifier: MIT
// The library of a large collection: until the first rows are shown, and narrowing all of them.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "Nothing.h"
#include "app/Library.h"
#include "platform/HostFileSystem.h"
#include "runner/ScriptedPlatform.h"
#include "runner/SourceDirectory.h"

namespace {

namespace fs = std::filesystem;
using namespace velquist;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kSetups = 10'000;
constexpr double kMostUntilFirstRows = 0.1;  ///< seconds
constexpr double kMostToNarrow = 0.016;
constexpr auto kSlice = std::chrono::milliseconds(20);

/// The collection of ten thousand that the command line program is tested with, and the program
/// with its three installations.
class Collection {
 public:
  Collection()
  {
    const auto maker = testing::SourceDirectory() / "tools/collection/make_collection";
    const auto command = "\"" + maker.string() + "\" \"" + root_.string() + "\"";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("no collection");
    std::string list;
    for (const auto& entry : fs::directory_iterator(root_)) {
      std::ofstream(entry.path() / "gpl_ai.ini").flush();
      list += "\"" + entry.path().string() + "\"\r\n";
    }
    fs::copy(testing::SourceDirectory() / "assets" / "program", Program());
    std::ofstream(Program() / "Velquist Program Settings.ini", std::ios::binary)
        << list.substr(0, list.find('\r')) << "\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
        << list;
    window_ = std::make_unique<app::MainWindow>(platform_.Outside(Program().string(), resources_));
    window_->Form_Load({});
    if (window_->Ended() || window_->Form().Combo7.items.size() != 3)
      throw std::runtime_error("the program did not start");
  }
  Collection(const Collection&) = delete;
  Collection& operator=(const Collection&) = delete;
  ~Collection()
  {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
    fs::remove_all(Program(), ignored);
  }

  [[nodiscard]] const app::MainWindow& Window() const { return *window_; }

  static Collection& Instance()
  {
    static Collection instance;
    return instance;
  }

 private:
  [[nodiscard]] fs::path Program() const { return root_.string() + "-program"; }

  const fs::path root_ =
      fs::temp_directory_path() / ("velquist-library-" + std::to_string(std::random_device{}()));
  std::unique_ptr<runner::Driver> driver_ = runner::MakeModelDriver();
  runner::ScriptedPlatform platform_{[](std::string_view a, std::string_view b) { return a == b; },
                                     *driver_};
  testing::NoResources resources_;
  std::unique_ptr<app::MainWindow> window_;
};

template <class Work>
double Seconds(Work&& work)
{
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

bool WorkASlice(app::Library& library)
{
  const auto end = Clock::now() + kSlice;
  return library.Work([end] { return Clock::now() >= end; });
}

std::unique_ptr<app::Library> Filled()
{
  auto library = std::make_unique<app::Library>(Collection::Instance().Window());
  library->Scan();
  library->Finish();
  return library;
}

/// From the menu on, with the files in the page cache.
void LibraryUntilFirstRows(benchmark::State& state)
{
  (void)Filled();
  double shortest = std::numeric_limits<double>::max();
  std::size_t rows = 0;
  for (auto _ : state) {
    std::unique_ptr<app::Library> library;
    const double once = Seconds([&] {
      library = std::make_unique<app::Library>(Collection::Instance().Window());
      library->BringInLine();
      (void)WorkASlice(*library);
    });
    rows = library->Table().Count();
    shortest = std::min(shortest, once);
    state.SetIterationTime(once);
  }
  state.counters["rows"] = static_cast<double>(rows);
  if (rows == 0 || shortest > kMostUntilFirstRows) state.SkipWithError("the first rows are late");
}
BENCHMARK(LibraryUntilFirstRows)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

/// All files read; the longest slice that the window cannot be used in.
void LibraryScan(benchmark::State& state)
{
  double longest = 0;
  for (auto _ : state) {
    app::Library library(Collection::Instance().Window());
    library.Scan();
    bool goes_on = true;
    const double once = Seconds([&] {
      while (goes_on) longest = std::max(longest, Seconds([&] { goes_on = WorkASlice(library); }));
    });
    if (library.Table().RowCount() < kSetups * 9 / 10) state.SkipWithError("setups are missing");
    state.SetIterationTime(once);
  }
  state.counters["longest_slice_ms"] = longest * 1000;
}
BENCHMARK(LibraryScan)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

/// Nothing has changed since the last time.
void LibraryScanAgain(benchmark::State& state)
{
  const auto library = Filled();
  for (auto _ : state) {
    library->Scan();
    library->Finish();
  }
}
BENCHMARK(LibraryScanAgain)->Unit(benchmark::kMillisecond)->Iterations(5);

/// What each letter that is typed costs, sorted and with a column of values.
void LibraryNarrow(benchmark::State& state)
{
  const auto library = Filled();
  auto& table = library->Table();
  table.SetValueSlots({30, 42});
  library->Finish();
  table.SortBy({app::kTrackColumn, false});
  const std::string words = "track:track1 year:1967 race f1";
  // The shortest of many times each: what else the machine does counts for none of them.
  std::vector<double> shortest(words.size(), std::numeric_limits<double>::max());
  for (auto _ : state)
    for (std::size_t letter = 0; letter < words.size(); ++letter)
      shortest[letter] = std::min(shortest[letter],
                                  Seconds([&] { table.SetFilter(words.substr(0, letter + 1)); }));
  const double longest = std::ranges::max(shortest);
  state.counters["longest_ms"] = longest * 1000;
  if (longest > kMostToNarrow) state.SkipWithError("a letter takes too long");
}
BENCHMARK(LibraryNarrow)->Unit(benchmark::kMillisecond)->Iterations(5);

void LibrarySort(benchmark::State& state)
{
  const auto library = Filled();
  int column = 0;
  for (auto _ : state) {
    library->Table().Heading_Click(column);
    column = (column + 1) % static_cast<int>(app::kPlainColumns);
  }
}
BENCHMARK(LibrarySort)->Unit(benchmark::kMillisecond)->Iterations(18);

void LibraryValueColumns(benchmark::State& state)
{
  const auto library = Filled();
  for (auto _ : state) {
    library->Table().SetValueSlots({0, 4, 30, 42, 48});
    library->Finish();
  }
}
BENCHMARK(LibraryValueColumns)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
