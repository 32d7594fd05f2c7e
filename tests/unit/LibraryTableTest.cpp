// SPDX-License-Identifier: MIT
#include "app/LibraryTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "app/FormControlSettings.h"
#include "app/LibraryValues.h"
#include "edit/Drivetrain.h"
#include "platform/LetterCase.h"

namespace velquist::app {
namespace {

using Texts = std::vector<std::string>;

/// What a test says of a setup.
struct Said {
  std::string path;
  std::string installation = "/GPL";
  std::int64_t modified = 0;
  std::string problem{};
};

std::shared_ptr<const LibraryRow> RowOf(const Said& said)
{
  library::Row row;
  row.file.path = said.path;
  row.file.modified = said.modified;
  row.identity = library::IdentityOf(row.file, {});
  row.place = library::PlaceOf(said.path);
  if (!said.problem.empty()) row.problem = library::Problem{{}, {}, said.problem};
  return std::make_shared<const LibraryRow>(std::move(row), said.installation);
}

LibraryTable TableOf(const std::vector<Said>& all)
{
  LibraryRows rows;
  for (const auto& said : all) rows.push_back(RowOf(said));
  LibraryTable table;
  table.SetRows(std::move(rows));
  return table;
}

/// A column of what is shown.
Texts Column(const LibraryTable& table, int column)
{
  Texts cells;
  for (std::size_t line = 0; line < table.Count(); ++line)
    cells.push_back(table.Cell(line, column));
  return cells;
}

std::vector<Said> Some()
{
  return {{.path = "/GPL/Players/Jim/Setups/monza/b.lo1", .modified = 30},
          {.path = "/GPL/Players/Jim/Setups/spa/A.lp2", .modified = 10, .problem = "is too small"},
          {.path = "/GPL/Players/J\xC3\x84M/Setups/spa/c.ga1", .modified = 20},
          {.path = "/Other/Players/Ann/Setups/monza/a.xyz", .installation = "/Other"}};
}

TEST(LibraryTable, ShowsWhatIsKnownOfASetup)
{
  const auto table = TableOf(Some());
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"b.lo1", "A.lp2", "c.ga1", "a.xyz"}));
  EXPECT_EQ(Column(table, kTrackColumn), (Texts{"monza", "spa", "spa", "monza"}));
  EXPECT_EQ(Column(table, kPlayerColumn), (Texts{"Jim", "Jim", "J\xC3\x84M", "Ann"}));
  EXPECT_EQ(Column(table, kInstallationColumn), (Texts{"/GPL", "/GPL", "/GPL", "/Other"}));
  EXPECT_EQ(Column(table, kYearColumn), (Texts{"1965/1967", "1966", "GT", "1965/1967"}));
  EXPECT_EQ(Column(table, kFormulaColumn), (Texts{"F1", "F2", "F1", ""}));
  EXPECT_EQ(Column(table, kProblemColumn), (Texts{"", "is too small", "", ""}));
  EXPECT_NE(table.Cell(0, kChassisColumn), "");
  EXPECT_EQ(table.Cell(3, kChassisColumn), "");
  EXPECT_EQ(table.Cell(0, kDateColumn).size(), std::string("1970-01-01 00:00").size());
  EXPECT_EQ(table.ProblemCount(), 1U);
}

TEST(LibraryTable, SortsByAHeadingAndTheOtherWayByTheNextClick)
{
  auto table = TableOf(Some());
  EXPECT_FALSE(table.SortedBy());
  table.Heading_Click(kFileColumn);
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"A.lp2", "a.xyz", "b.lo1", "c.ga1"}));
  table.Heading_Click(kFileColumn);
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"c.ga1", "b.lo1", "a.xyz", "A.lp2"}));
  EXPECT_EQ(table.SortedBy(), (LibraryTable::Order{kFileColumn, true}));
  table.Heading_Click(kDateColumn);
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"a.xyz", "A.lp2", "c.ga1", "b.lo1"}));
  table.Heading_Click(kFileColumn);
  EXPECT_EQ(table.SortedBy(), (LibraryTable::Order{kFileColumn, false}));
}

TEST(LibraryTable, GoesBackToTheOrderOfThePaths)
{
  auto table = TableOf(Some());
  table.Heading_Click(kFileColumn);
  table.Unsort();
  EXPECT_FALSE(table.SortedBy());
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"b.lo1", "A.lp2", "c.ga1", "a.xyz"}));
}

TEST(LibraryTable, KeepsTheOrderOfWhatIsEqual)
{
  auto table = TableOf(Some());
  table.Heading_Click(kFileColumn);
  table.Heading_Click(kTrackColumn);
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"a.xyz", "b.lo1", "A.lp2", "c.ga1"}));
  table.Heading_Click(kTrackColumn);
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"A.lp2", "c.ga1", "a.xyz", "b.lo1"}));
}

TEST(LibraryTable, PutsWhatIsNotKnownLast)
{
  auto table = TableOf(Some());
  table.Heading_Click(kFormulaColumn);
  EXPECT_EQ(Column(table, kFormulaColumn), (Texts{"F1", "F1", "F2", ""}));
}

Texts Filtered(std::string_view words)
{
  auto table = TableOf(Some());
  table.SetFilter(words);
  return Column(table, kFileColumn);
}

TEST(LibraryTable, IsNarrowedByWordsThatMustAllOccur)
{
  EXPECT_EQ(Filtered("  "), (Texts{"b.lo1", "A.lp2", "c.ga1", "a.xyz"}));
  EXPECT_EQ(Filtered("MONZA"), (Texts{"b.lo1", "a.xyz"}));
  EXPECT_EQ(Filtered("monza jim"), (Texts{"b.lo1"}));
  EXPECT_EQ(Filtered("spa small"), (Texts{"A.lp2"}));
  EXPECT_EQ(Filtered("monza spa"), Texts{});
  // Letters that are not of ASCII as well; a word is in one cell.
  EXPECT_EQ(Filtered("j\xC3\xA4m"), (Texts{"c.ga1"}));
  EXPECT_EQ(Filtered("lo1monza"), Texts{});
}

TEST(LibraryTable, IsNarrowedByAColumn)
{
  EXPECT_EQ(Filtered("year:1967"), (Texts{"b.lo1", "a.xyz"}));
  EXPECT_EQ(Filtered("Track:SPA formula:f1"), (Texts{"c.ga1"}));
  EXPECT_EQ(Filtered("track:jim"), Texts{});
  EXPECT_EQ(Filtered("installation:other"), (Texts{"a.xyz"}));
  EXPECT_EQ(Filtered("problem:small"), (Texts{"A.lp2"}));
  EXPECT_EQ(Filtered("track:"), Filtered(""));
}

TEST(LibraryTable, TakesAnUnknownPrefixAsAPartOfTheWord)
{
  EXPECT_EQ(Filtered("nobody:monza"), Texts{});
  auto table = TableOf({{.path = "/GPL/Players/Jim/Setups/spa/note: a.lo1"}});
  table.SetFilter("note:");
  EXPECT_EQ(table.Count(), 1U);
}

TEST(LibraryTable, SortsAndNarrowsByValues)
{
  auto table = TableOf(Some());
  table.SetValueSlots({30, 4});
  EXPECT_EQ(table.Columns().size(), kPlainColumns + 2);
  EXPECT_EQ(table.Columns().back(), kProblemColumn);
  const std::array<double, 3> numbers = {100, 9, 20.5};
  for (std::size_t row = 0; row < numbers.size(); ++row) {
    ASSERT_EQ(table.NextWithoutValues(), row);
    const auto text = std::to_string(numbers.at(row)).substr(0, 4) + " GALS";
    table.SetValues(row, {{text, numbers.at(row)}, {}});
  }
  table.SetValues(3, {{}, {}});
  EXPECT_FALSE(table.NextWithoutValues());
  table.SortBy({kFirstValueColumn + 30, false});
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"A.lp2", "c.ga1", "b.lo1", "a.xyz"}));
  EXPECT_EQ(Column(table, kFirstValueColumn + 30),
            (Texts{"9.00 GALS", "20.5 GALS", "100. GALS", ""}));
  table.SetFilter("20.5 gals");
  EXPECT_EQ(Column(table, kFileColumn), (Texts{"c.ga1"}));
  table.SetValueSlots({4});
  EXPECT_FALSE(table.SortedBy());
  EXPECT_EQ(table.Count(), 0U);  // the values are missing
}

TEST(LibraryTable, PutsRowsWhoseValuesAreNotReadYetLast)
{
  auto table = TableOf(Some());
  table.SetValueSlots({30});
  table.SetValues(1, {{"2", 2.0}});
  table.SetValues(2, {{"1", 1.0}});
  table.SortBy({kFirstValueColumn + 30, false});
  EXPECT_EQ(Column(table, kFirstValueColumn + 30), (Texts{"1", "2", "", ""}));
}

TEST(LibraryTable, KeepsItsOrderWhenOtherValuesAreWanted)
{
  auto table = TableOf(Some());
  table.SetValueSlots({30, 4});
  table.SortBy({kFileColumn, true});
  const auto sorted = Column(table, kFileColumn);
  table.SetValueSlots({4});
  ASSERT_TRUE(table.SortedBy());
  EXPECT_EQ(table.SortedBy()->column, kFileColumn);
  EXPECT_EQ(Column(table, kFileColumn), sorted);
  table.SortBy({kFirstValueColumn + 4, false});
  table.SetValueSlots({30, 4});
  ASSERT_TRUE(table.SortedBy());
  EXPECT_EQ(table.SortedBy()->column, kFirstValueColumn + 4);
}

TEST(LibraryTable, KeepsValuesOfRowsThatStay)
{
  const auto first = RowOf({.path = "a.lo1"});
  const auto second = RowOf({.path = "b.lo1"});
  LibraryTable table;
  table.SetValueSlots({30});
  table.SetRows({first, second});
  table.SetValues(0, {{"1", 1.0}});
  table.SetValues(1, {{"2", 2.0}});
  table.SetRows({RowOf({.path = "0.lo1"}), second});
  EXPECT_EQ(table.NextWithoutValues(), 0U);
  EXPECT_EQ(table.Cell(1, kFirstValueColumn + 30), "2");
}

TEST(LibraryTable, OffersEveryValueThatTheWindowShows)
{
  std::set<int> shown;
  for (const auto& design : FormControlSettings()) {
    if (design.name == "Label1") shown.insert(design.index);
    if (design.name == "Combo1") shown.insert(edit::SlotOfList(design.index));
  }
  const auto slots = LibrarySlots();
  EXPECT_EQ(std::set<int>(slots.begin(), slots.end()), shown);
  EXPECT_EQ(slots.size(), shown.size());
}

TEST(LibraryTable, FindsALineByItsPath)
{
  auto table = TableOf(Some());
  table.SetFilter("spa");
  EXPECT_EQ(table.Find("/GPL/Players/Jim/Setups/spa/A.lp2"), 0U);
  EXPECT_FALSE(table.Find("/GPL/Players/Jim/Setups/monza/b.lo1"));
}

/// Rows of few different names, so that many are equal.
class LibraryProperties : public ::testing::TestWithParam<unsigned> {
 protected:
  std::vector<Said> Any()
  {
    const Texts players = {"Jim", "jim", "\xC3\x84nn", "\xC3\xA4NN", "Bo b", "year:1967"};
    const Texts tracks = {"monza", "Spa", "spa67", "m"};
    const Texts names = {"a.lo1", "A.lp2", "b.ga1", "c.xyz", "low drag.bb3", "x.la9"};
    std::vector<Said> all;
    const auto count = Number(60);
    for (std::size_t row = 0; row < count; ++row)
      all.push_back(
          {.path = "/GPL/Players/" + One(players) + "/Setups/" + One(tracks) + "/" + One(names),
           .installation = Number(2) == 0 ? "/GPL" : "/\xC3\x96ther",
           .modified = static_cast<std::int64_t>(Number(4)),
           .problem = Number(4) == 0 ? "Odd Gears" : ""});
    return all;
  }
  std::size_t Number(std::size_t most) { return random_() % most; }
  std::string One(const Texts& of) { return of.at(Number(of.size())); }

  std::mt19937 random_{GetParam()};
};

/// What the filter is to do, word by word and cell by cell.
bool IsWanted(const LibraryRow& row, const std::string& filter)
{
  const auto has = [](const std::string& cell, const std::string& word) {
    return platform::FoldCase(cell).find(platform::FoldCase(word)) != std::string::npos;
  };
  std::istringstream words(filter);
  for (std::string word; words >> word;) {
    bool found = false;
    bool is_of_column = false;
    for (int column = 0; column < static_cast<int>(kPlainColumns); ++column) {
      const auto prefix = platform::FoldCase(LibraryHeading(column)) + ":";
      if (!platform::FoldCase(word).starts_with(prefix)) continue;
      is_of_column = true;
      found = has(row.Cell(column), word.substr(prefix.size()));
    }
    for (int column = 0; !is_of_column && column < static_cast<int>(kPlainColumns); ++column)
      found = found || has(row.Cell(column), word);
    if (!found) return false;
  }
  return true;
}

TEST_P(LibraryProperties, AFilterLeavesWhatANaiveOneLeaves)
{
  const Texts words = {"a",     "SPA",       "year:1967", "Year:19",    "track:m",
                       "x:y",   "\xC3\xA4",  "player:",   "gears",      "formula:f",
                       "1965/", "chassis:l", ":",         "problem:odd"};
  const auto all = Any();
  auto table = TableOf(all);
  for (int times = 0; times < 30; ++times) {
    std::string filter;
    for (auto count = Number(4); count > 0; --count)
      filter += One(words) + (Number(2) ? " " : "\t ");
    table.SetFilter(filter);
    Texts wanted;
    for (const auto& said : all)
      if (const auto row = RowOf(said); IsWanted(*row, filter)) wanted.push_back(row->Path());
    Texts got;
    for (std::size_t line = 0; line < table.Count(); ++line) got.push_back(table.At(line).Path());
    EXPECT_EQ(got, wanted) << filter;
  }
}

TEST_P(LibraryProperties, EachSortIsAStableOrderOfAllRows)
{
  auto table = TableOf(Any());
  for (int times = 0; times < 20; ++times) {
    std::vector<const LibraryRow*> before;
    for (std::size_t line = 0; line < table.Count(); ++line) before.push_back(&table.At(line));
    const LibraryTable::Order order{static_cast<int>(Number(kPlainColumns)), Number(2) == 0};
    table.SortBy(order);
    std::vector<const LibraryRow*> after;
    for (std::size_t line = 0; line < table.Count(); ++line) after.push_back(&table.At(line));
    ASSERT_TRUE(std::ranges::is_permutation(after, before));
    const auto place = [&](const LibraryRow* row) { return std::ranges::find(before, row); };
    for (std::size_t line = 1; line < after.size(); ++line) {
      const int compared = CompareInColumn(*after[line - 1], *after[line], order.column);
      EXPECT_TRUE(order.descending ? compared >= 0 : compared <= 0);
      if (compared != 0) continue;
      EXPECT_LT(place(after[line - 1]), place(after[line]));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Random, LibraryProperties, ::testing::Range(1U, 41U));

}  // namespace
}  // namespace velquist::app
