// SPDX-License-Identifier: MIT
#include "app/ComparisonTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "ScriptedEditor.h"

namespace velquist::app {
namespace {

class Comparison : public ::testing::Test {
 protected:
  Comparison()
  {
    editor_.Play(R"(dir $G/Players/Jim/Setups/monza
file $G/gpl_ai.ini text ""
file $G/gpla65.ini text ""
file $G/gpla69.ini text ""
file "$P/Velquist Program Settings.ini" text \
  "\"$G\"\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n\"$G\"\r\n"
setup $G/Players/Jim/Setups/monza/mine.bb1 short sym=0 0=20 1=20 4=90 8=2 28=3 35=2.692 42=70 \
  48=80 49=45 50=60 51=3
start
on open -> $G/Players/Jim/Setups/monza/mine.bb1
on FrmModYear2 -> 1967
click MnuOpen
)");
  }

  [[nodiscard]] std::vector<ComparisonRow> Rows(ComparedRows which = ComparedRows::kDifferences)
  {
    return ComparisonTable(editor_.Window(), which);
  }
  [[nodiscard]] ComparisonRow Row(int slot)
  {
    const auto rows = Rows(ComparedRows::kAll);
    const auto found = std::ranges::find(rows, slot, &ComparisonRow::slot);
    return found == rows.end() ? ComparisonRow() : *found;
  }

  testing::ScriptedEditor editor_;
};

TEST_F(Comparison, HasNoRowsWhileNothingDiffers)
{
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ(editor_.Window().Form().DifferenceCount(), 0);
}

TEST_F(Comparison, HasARowForEachValueThatDiffers)
{
  editor_.Play("click CmdInc(4)\nclick CmdInc(4)\nclick CmdInc(30)\n");
  const auto rows = Rows();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(editor_.Window().Form().DifferenceCount(), 2);
  const auto fuel = editor_.Window().Form().Label1[30].text;
  EXPECT_EQ(rows[0],
            (ComparisonRow{4, "Front", "Left front wheel rate, lbs/in", "90", "100", "+10", true}));
  EXPECT_EQ(rows[1].slot, 30);
  EXPECT_EQ(rows[1].group, "Fuel, Steering and Brakes");
  EXPECT_EQ(rows[1].parameter, "Fuel level, gals");
  EXPECT_EQ(rows[1].now, fuel);
}

TEST_F(Comparison, IsInTheUnitsAndDecimalsShown)
{
  editor_.Play("click CmdInc(4)\ncheck OptUnits(1)\n");
  const auto& form = editor_.Window().Form();
  EXPECT_EQ(Row(4).parameter, "Left front wheel rate, N/cm");
  EXPECT_EQ(Row(4).now, form.Label1[4].text);
  editor_.Play("check OptUnits(0)\ncheck FineCheck\n");
  EXPECT_EQ(Row(4).now, form.Label1[4].text);
  EXPECT_EQ(Row(0).now, form.Label1[0].text);
}

TEST_F(Comparison, OfAllHasEveryValueOfTheWindowInItsFrame)
{
  const auto rows = Rows(ComparedRows::kAll);
  // All but the wings, which a car of 1967 does not have, and the ratio numbers.
  EXPECT_EQ(rows.size(), 43U);
  std::set<int> slots;
  std::vector<std::string_view> groups;
  for (const auto& row : rows) {
    EXPECT_TRUE(slots.insert(row.slot).second);
    EXPECT_FALSE(row.differs);
    EXPECT_EQ(row.added, "");
    EXPECT_EQ(row.reference, row.now);
    if (groups.empty() || groups.back() != row.group) groups.push_back(row.group);
  }
  EXPECT_EQ(groups, (std::vector<std::string_view>{"Front", "Rear", "Fuel, Steering and Brakes",
                                                   "Gearing", "Differential Gearing",
                                                   "Diff Settings and Locking Percent"}));
  editor_.Play("select Combo2 \"1969\"\n");
  EXPECT_EQ(Rows(ComparedRows::kAll).size(), 45U);
  EXPECT_EQ(Row(33).group, "Wings");
  EXPECT_EQ(Row(33).parameter, "Front wing, deg");
}

TEST_F(Comparison, NamesTheUnitOfEachValueAsItsCaptionDoes)
{
  EXPECT_EQ(Row(3).parameter, "Right rear tire pressure, psi");
  EXPECT_EQ(Row(24).parameter, "Front toe in, in");
  EXPECT_EQ(Row(27).parameter, "Rear roll bar stiffness, lbs/in");
  EXPECT_EQ(Row(28).parameter, "Front static ride height, in");
  EXPECT_EQ(Row(29).parameter, "Rear static ride height, in");
  EXPECT_EQ(Row(31).parameter, "Steering ratio");
  EXPECT_EQ(Row(32).parameter, "Front brake bias, %");
  EXPECT_EQ(Row(8).parameter, "Left front bump");
  EXPECT_EQ(Row(42).parameter, "1st gear");
  EXPECT_EQ(Row(51).parameter, "Clutches");
}

TEST_F(Comparison, OfGearsSaysTeethRatioAndTheDifferenceOfTheRatios)
{
  editor_.Play("click CmdDec(42)\n");
  const auto row = Row(42);
  EXPECT_EQ(row.reference, "35/13 (2.692)");
  EXPECT_TRUE(row.now.ends_with(")"));
  EXPECT_EQ(row.added.front(), '-');
  EXPECT_NE(row.added.find('.'), std::string::npos);
}

TEST_F(Comparison, HasADashForWhatTheOtherDoesNotHave)
{
  editor_.Play(
      "select Combo2 \"1969\"\nsetup $T/other.bb1 short 0=20 48=80 49=45 50=60 51=3\n"
      "on open -> $T/other.bb1\non FrmModYear2 -> 1967\nclick MnuReferenceFile\n");
  EXPECT_EQ(Row(33).reference, "-");
  EXPECT_EQ(Row(33).added, "");
  EXPECT_TRUE(Row(33).differs);
}

TEST_F(Comparison, NamesItsReference)
{
  EXPECT_EQ(ReferenceName(editor_.Window()), "the setup as loaded");
  editor_.Play("click MnuReferenceDefault\n");
  EXPECT_EQ(ReferenceName(editor_.Window()), "the default setup of 1967");
  editor_.Play(
      "on open -> $G/Players/Jim/Setups/monza/mine.bb1\non FrmModYear2 -> 1967\n"
      "click MnuReferenceFile\n");
  EXPECT_EQ(ReferenceName(editor_.Window()), "mine.bb1");
}

TEST_F(Comparison, IsTextWithTabs)
{
  editor_.Play("click CmdInc(4)\n");
  EXPECT_EQ(ComparisonText(Rows(), "fast.lo1"),
            "Group\tParameter\tReference: fast.lo1\tNow\tDifference\r\n"
            "Front\tLeft front wheel rate, lbs/in\t90\t95\t+5\r\n");
}

TEST_F(Comparison, IsATableOfHtml)
{
  editor_.Play("click CmdInc(4)\nclick CmdInc(0)\n");
  const auto html = ComparisonHtml(Rows(), "<a&b>.lo1");
  EXPECT_TRUE(html.starts_with("<table>\n<caption>Compared with &lt;a&amp;b&gt;.lo1</caption>"));
  EXPECT_TRUE(html.ends_with("</tbody>\n</table>\n"));
  EXPECT_NE(html.find("<tr><td>Left front wheel rate, lbs/in</td><td align=\"right\">90</td>"
                      "<td align=\"right\">95</td><td align=\"right\">+5</td></tr>"),
            std::string::npos)
      << html;
  // One line names the frame of both.
  const auto heading = html.find(">Front</th>");
  EXPECT_NE(heading, std::string::npos);
  EXPECT_LT(heading, html.find("Left front wheel rate"));
  EXPECT_LT(heading, html.find("Left front tire pressure"));
  EXPECT_EQ(html.find(">Front</th>", heading + 1), std::string::npos);
  EXPECT_EQ(html.find("<img"), std::string::npos);
}

TEST_F(Comparison, ValuesAreTakenFromTheReferenceAsOneStep)
{
  editor_.Play("click CmdInc(4)\nclick CmdInc(0)\nclick CmdInc(42)\n");
  const auto marked = [&] { return editor_.Window().Form().DifferenceCount(); };
  ASSERT_EQ(marked(), 3);
  const std::vector<int> two = {4, 42};
  const_cast<MainWindow&>(editor_.Window()).TakeFromReference(two);
  EXPECT_EQ(marked(), 1);
  editor_.Play(
      "expect Label1(4) \"90\"\nexpect Label1(4) unmarked\nexpect Label1(0) marked\n"
      "expect MnuUndo \"Undo values of the reference\"\nexpect changed\nclick MnuUndo\n"
      "expect Label1(4) \"95\"\nexpect Label1(42) marked\n");
}

}  // namespace
}  // namespace velquist::app
