// SPDX-License-Identifier: MIT
#include "library/Row.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "TemporaryFolder.h"
#include "platform/HostFileSystem.h"
#include "platform/SystemFiles.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::library {
namespace {

using namespace velquist::samples;
using setup::Bytes;
using Years = std::vector<data::ModYear>;

std::string ProgramDirectory()
{
  return platform::PathText(velquist::testing::SourceDirectory() / "assets" / "program");
}

/// The default setup of 1967, in the layout wanted.
Bytes Healthy(setup::Layout layout)
{
  const platform::HostFileSystem files;
  auto bytes = files.ReadWhole(ProgramDirectory() + "/67 Velquist Default.vqset");
  setup::ConvertLayout(bytes, layout);
  return bytes;
}

SetupFile FileOf(std::string path, Bytes bytes)
{
  SetupFile file;
  file.path = std::move(path);
  file.size = bytes.size();
  file.head = std::move(bytes);
  return file;
}

std::size_t OffsetOf(int slot)
{
  return static_cast<std::size_t>(setup::SlotOffset.at(static_cast<std::size_t>(slot)));
}

/// "gear-id 42, size": codes and slots of all problems.
std::string ProblemsIn(const SetupFile& file, const Hints& hints = {})
{
  const platform::HostFileSystem files;
  Tables tables(files, ProgramDirectory());
  const auto identity = IdentityOf(file, hints);
  std::string text;
  for (const auto& problem : ProblemsOf(file, identity, tables.Of(identity.read_as))) {
    EXPECT_FALSE(problem.text.empty());
    text.append(text.empty() ? "" : ", ").append(CodeText(problem.code));
    if (problem.slot) text.append(" ").append(std::to_string(*problem.slot));
  }
  return text;
}

TEST(LibraryIdentity, ListsTheYearsThatNameAndBytesLeave)
{
  const auto short_file = Healthy(setup::Layout::kShort);
  auto long_file = Healthy(setup::Layout::kLong);
  EXPECT_EQ(IdentityOf(FileOf("a/x.lo1", short_file), {}).years, (Years{k1965, k1967}));
  EXPECT_EQ(IdentityOf(FileOf("a/x.lo1", long_file), {}).years,
            (Years{k1965, k1966, k1967, k1969}));
  EXPECT_EQ(IdentityOf(FileOf("a/x.lp1", short_file), {}).years, Years{k1966});
  EXPECT_EQ(IdentityOf(FileOf("a/x.ga1", short_file), {}).years, Years{kGT});
  PutSingle(long_file, 265, 8);
  EXPECT_EQ(IdentityOf(FileOf("a/x.lo1", long_file), {}).years, Years{k1969});
  PutSingle(long_file, 265, 20);
  EXPECT_EQ(IdentityOf(FileOf("a/x.lo1", long_file), {}).years.size(), 4U);
}

TEST(LibraryIdentity, TakesHintsWhereNameAndBytesDoNotTell)
{
  const auto bytes = Healthy(setup::Layout::kShort);
  const Hints hints = {k1965, "fe", 1};
  auto identity = IdentityOf(FileOf("a/x.lo1", bytes), hints);
  EXPECT_EQ(identity.Year(), k1965);
  EXPECT_EQ(identity.chassis_code, "lo");
  EXPECT_EQ(identity.formula_index, 0);
  identity = IdentityOf(FileOf("a/x.lp1", bytes), hints);
  EXPECT_EQ(identity.Year(), k1966);
  identity = IdentityOf(FileOf("a/setup", bytes), hints);
  EXPECT_EQ(identity.chassis_code, "fe");
  EXPECT_EQ(identity.formula_index, 1);
  identity = IdentityOf(FileOf("a/setup", bytes), {{}, "gb", 2});
  EXPECT_EQ(identity.Year(), kGT);
  EXPECT_EQ(identity.formula_index, 0) << "sports cars have one formula alone";
  EXPECT_EQ(IdentityOf(FileOf("a/x.lo1", bytes), {}).read_as, k1967);
  EXPECT_FALSE(IdentityOf(FileOf("a/setup", bytes), {}).chassis);
}

TEST(LibraryProblems, AHealthySetupHasNone)
{
  EXPECT_EQ(ProblemsIn(FileOf("x.bb1", Healthy(setup::Layout::kShort))), "");
  EXPECT_EQ(ProblemsIn(FileOf("x.bb1", Healthy(setup::Layout::kLong))), "");
}

TEST(LibraryProblems, OfTheWholeFile)
{
  auto bytes = Healthy(setup::Layout::kShort);
  PutWhole(bytes, 4, 4);
  EXPECT_EQ(ProblemsIn(FileOf("x.bb1", bytes)), "header");
  PutWhole(bytes, 8, 257);
  EXPECT_EQ(ProblemsIn(FileOf("x.bb1", bytes)), "header, header");
  bytes.pop_back();
  EXPECT_EQ(ProblemsIn(FileOf("x.bb1", bytes)), "size");
  bytes[0] = std::byte{'Q'};
  EXPECT_EQ(ProblemsIn(FileOf("x.bb1", bytes)), "not-a-setup");
  auto file = FileOf("x.bb1", {});
  EXPECT_EQ(ProblemsIn(file), "not-a-setup");
  file.unreadable = "for a reason";
  EXPECT_EQ(ProblemsIn(file), "unreadable");
}

TEST(LibraryProblems, OfValues)
{
  const auto healthy = Healthy(setup::Layout::kLong);
  const auto with = [&](auto put) {
    auto bytes = healthy;
    put(bytes);
    return ProblemsIn(FileOf("x.bb1", std::move(bytes)));
  };
  EXPECT_EQ(
      with([](Bytes& b) { PutSingle(b, OffsetOf(30), std::numeric_limits<float>::quiet_NaN()); }),
      "not-a-number 30");
  EXPECT_EQ(with([](Bytes& b) { PutSingle(b, OffsetOf(30), 60.5F); }), "outside-limits 30");
  EXPECT_EQ(with([](Bytes& b) { PutWhole(b, OffsetOf(32), 39); }), "outside-limits 32");
  EXPECT_EQ(with([](Bytes& b) { PutWhole(b, OffsetOf(32), 40); }), "") << "limits are inclusive";
  EXPECT_EQ(with([](Bytes& b) { PutSingle(b, OffsetOf(2), 25); }), "symmetry 2");
  EXPECT_EQ(with([](Bytes& b) {
              PutSingle(b, OffsetOf(2), 25);
              b[260] = std::byte{0};
            }),
            "")
      << "an asymmetric setup may differ";
  EXPECT_EQ(with([](Bytes& b) { PutSingle(b, 261, 3); }), "wings 33");
}

TEST(LibraryProblems, OfGears)
{
  const auto healthy = Healthy(setup::Layout::kLong);
  const auto with = [&](std::string name, auto put) {
    auto bytes = healthy;
    put(bytes);
    return ProblemsIn(FileOf(std::move(name), std::move(bytes)));
  };
  const auto id = TakeWhole(healthy, OffsetOf(43));
  EXPECT_EQ(with("x.bb1", [&](Bytes& b) { PutWhole(b, OffsetOf(43), id + 1); }), "gear-id 43");
  EXPECT_EQ(with("x.bb1", [](Bytes& b) { PutWhole(b, OffsetOf(43), 90); }),
            "outside-limits 43, gear-id 43");
  const auto as_the_one_before = [&](int gear) {
    return [&healthy, gear](Bytes& b) {
      PutWhole(b, OffsetOf(42 + gear), TakeWhole(healthy, OffsetOf(41 + gear)));
      PutSingle(b, OffsetOf(35 + gear), TakeSingle(healthy, OffsetOf(34 + gear)));
    };
  };
  EXPECT_EQ(with("x.bb1", as_the_one_before(1)), "gear-order 43");
  EXPECT_EQ(with("x.bb1", as_the_one_before(5)), "") << "the car has five gears";
  EXPECT_EQ(with("x.br1", as_the_one_before(5)), "gear-order 47") << "the car has six gears";
  EXPECT_EQ(with("x", as_the_one_before(1)), "") << "the car is not known";
}

TEST(LibraryProblems, OfAWingAreThoseOfTheYear)
{
  auto bytes = Healthy(setup::Layout::kLong);
  PutSingle(bytes, 261, 3);
  PutSingle(bytes, 265, 20);
  EXPECT_EQ(ProblemsIn(FileOf("x.lo1", bytes)), "wings 33, wings 34");
  EXPECT_EQ(ProblemsIn(FileOf("x.lo1", bytes), {k1969, {}, {}}).find("wings"), std::string::npos);
  EXPECT_NE(ProblemsIn(FileOf("x.lo1", bytes), {k1969, {}, {}}).find("outside-limits 34"),
            std::string::npos);
}

TEST(LibraryProblems, WithoutTablesAreThoseThatNeedNone)
{
  auto bytes = Healthy(setup::Layout::kShort);
  PutSingle(bytes, OffsetOf(2), 1000);
  const auto file = FileOf("x.bb1", bytes);
  const auto problems = ProblemsOf(file, IdentityOf(file, {}), nullptr);
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems.front().code, ProblemCode::kSymmetry);
  const velquist::testing::MemoryFiles none;
  EXPECT_EQ(Tables(none, "/program").Of(k1967), nullptr);
}

TEST(LibraryRow, TellsWhereASetupLiesAndWhatIsWrong)
{
  const TemporaryFolder folder;
  const auto track = folder / "GPL/Players/Jim/Setups/monza";
  std::filesystem::create_directories(track);
  auto bytes = Healthy(setup::Layout::kShort);
  bytes[8] = std::byte{0};
  const std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  WriteFile(track / "x.lo1", text + "and more than the 272 bytes that are looked at");
  const platform::HostFileSystem files;
  Tables tables(files, ProgramDirectory());
  const auto path = platform::PathText(track / "x.lo1");
  auto row = RowOf(ReadSetupFile(path), {}, tables);
  EXPECT_EQ(row.file.size, text.size() + 46);
  EXPECT_EQ(row.file.head.size(), 272U);
  EXPECT_EQ(row.file.Bytes().size(), 264U);
  EXPECT_EQ(row.problem->code, ProblemCode::kSize);
  EXPECT_EQ(row.identity.years, (Years{k1965, k1967})) << "as the window takes it";
  EXPECT_EQ(platform::PathFromText(row.place->installation), folder / "GPL");
  EXPECT_EQ(row.place->player, "Jim");
  EXPECT_EQ(row.place->track, "monza");
  WriteFile(track / "x.lo1", text);
  row = RowOf(ReadSetupFile(path), {}, tables);
  EXPECT_EQ(row.file.Layout(), setup::Layout::kShort);
  EXPECT_EQ(row.problem->code, ProblemCode::kHeader);
}

TEST(LibraryRow, IsForSetupsAndForWhatIsNamedSoAndCannotBeRead)
{
  EXPECT_TRUE(IsListed(FileOf("a/note.txt", BytesOf("PGTS"))));
  EXPECT_FALSE(IsListed(FileOf("a/x.lo1", BytesOf("PGT"))));
  auto file = FileOf("a/x.lo1", {});
  file.unreadable = "for a reason";
  EXPECT_TRUE(IsListed(file));
  for (const auto* name : {"a/note.txt", "a/x.lo4", "a/lo1", "a/x.zz1", "lo1", ""}) {
    file.path = name;
    EXPECT_FALSE(IsListed(file)) << name;
  }
}

}  // namespace
}  // namespace velquist::library
