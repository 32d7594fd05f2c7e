// SPDX-License-Identifier: MIT
// How the window says what differs from the reference: tool tips and screen reader.
#include <gtk/gtk.h>

#include <algorithm>
#include <string>

#include "RealWindow.h"
#include "app/ValueTexts.h"

namespace velquist::testing {
namespace {

class DifferenceWords : public RealWindow {
 protected:
  /// Of the tool tip all but the line of range and effect, which must be there.
  [[nodiscard]] std::string Tip(const char* name) const
  {
    const auto tip = Widget(name)->GetToolTipText().utf8_string();
    const auto row = std::ranges::find(app::FormControlSettings(), std::string(name),
                                       [](const auto& each) { return testing::NameOf(each); });
    const auto line = app::TipText(editor.Window(), app::SlotOf(*row).value());
    const auto at = tip.find(line);
    EXPECT_NE(at, std::string::npos) << tip;
    if (at == std::string::npos) return tip;
    auto before = tip.substr(0, at);
    auto behind = tip.substr(at + line.size());
    if (before.ends_with('\n')) before.pop_back();
    if (before.empty() && behind.starts_with('\n')) behind.erase(0, 1);
    return before + behind;
  }
  /// What a screen reader adds to the name.
  [[nodiscard]] std::string Spoken(const char* name) const
  {
    const char* const text =
        atk_object_get_description(gtk_widget_get_accessible(Widget(name)->GetHandle()));
    return text == nullptr ? "" : text;
  }
  [[nodiscard]] std::string SpokenName(const char* name) const
  {
    const char* const text =
        atk_object_get_name(gtk_widget_get_accessible(Widget(name)->GetHandle()));
    return text == nullptr ? "" : text;
  }
};

TEST_F(DifferenceWords, AValueThatDiffersSaysWhatItWas)
{
  Start();
  EXPECT_EQ(Tip("Label1(4)"), "");
  EXPECT_EQ(Spoken("Label1(4)"), "left front wheel rate, lbs/in");
  editor.Play("click CmdInc(4)\nclick CmdInc(4)\n");
  EXPECT_EQ(Tip("Label1(4)"), "was 90, now 100 (+10)");
  EXPECT_EQ(Spoken("Label1(4)"), "left front wheel rate, lbs/in, was 90, now 100 (+10)");
  EXPECT_EQ(SpokenName("Label1(4)"), "100");
}

TEST_F(DifferenceWords, ItsButtonsSayItBesideWhatTheyDo)
{
  Start();
  editor.Play("click CmdDec(4)\n");
  EXPECT_EQ(Tip("CmdInc(4)"), "Increase left front wheel rate\nwas 90, now 85 (-5)");
  EXPECT_EQ(Tip("CmdDec(4)"), "Decrease left front wheel rate\nwas 90, now 85 (-5)");
  for (const char* const name : {"CmdInc(4)", "CmdDec(4)"})
    EXPECT_EQ(Spoken(name), "85 lbs/in, was 90, now 85 (-5)");
  EXPECT_EQ(SpokenName("CmdInc(4)"), "Increase left front wheel rate");
  EXPECT_EQ(Tip("CmdInc(6)"), "Increase left rear wheel rate");
}

TEST_F(DifferenceWords, AListSaysItBesideWhatItIs)
{
  Start();
  const int at = editor.Window().Form().Combo1[3].selection;
  ASSERT_GE(at, 0);
  editor.Play("select Combo1(3) #" + std::to_string(at + 1) + "\n");
  const auto clutches = std::to_string(at + 1);
  const auto text = "was " + clutches + ", now " + std::to_string(at + 2) + " (+1)";
  EXPECT_EQ(Tip("Combo1(3)"), "Clutch plates of the differential\n" + text);
  EXPECT_EQ(Spoken("Combo1(3)"), "Clutch plates of the differential, " + text);
}

TEST_F(DifferenceWords, AreGoneWhenTheValueIsTheReferencesAgain)
{
  Start();
  editor.Play("click CmdInc(4)\nclick MnuUndo\n");
  EXPECT_EQ(Tip("Label1(4)"), "");
  EXPECT_EQ(Spoken("Label1(4)"), "left front wheel rate, lbs/in");
  EXPECT_EQ(Tip("CmdInc(4)"), "Increase left front wheel rate");
  EXPECT_EQ(Spoken("CmdInc(4)"), "90 lbs/in");
  const int at = editor.Window().Form().Combo1[3].selection;
  editor.Play("select Combo1(3) #" + std::to_string(at + 1) + "\nclick MnuUndo\n");
  EXPECT_EQ(Tip("Combo1(3)"), "Clutch plates of the differential");
  EXPECT_EQ(Spoken("Combo1(3)"), "Clutch plates of the differential");
}

TEST_F(DifferenceWords, FollowUnitsDecimalsAndReference)
{
  Start();
  editor.Play("click CmdInc(30)\n");
  const auto gallons = Tip("Label1(30)");
  ASSERT_NE(gallons, "");
  editor.Play("check OptUnits(1)\n");
  const auto litres = Tip("Label1(30)");
  EXPECT_NE(litres, gallons);
  EXPECT_EQ(litres, editor.Window().DifferenceText(*editor.Window().Form().Label1[30].design));
  editor.Play("check OptUnits(0)\ncheck FineCheck\n");
  EXPECT_EQ(Tip("Label1(30)"),
            editor.Window().DifferenceText(*editor.Window().Form().Label1[30].design));

  // The same values with another one to compare them with.
  editor.Play(
      "setup $T/other.bb1 short 4=90 30=3 35=2.5 42=65 48=80 49=45 50=60 51=3\n"
      "on open -> $T/other.bb1\non FrmModYear2 -> 1967\nclick MnuReferenceFile\n");
  EXPECT_EQ(Tip("Label1(30)").substr(0, 5), "was 3");
  EXPECT_EQ(Tip("CmdInc(30)"), "Increase fuel level\n" + Tip("Label1(30)"));
}

TEST_F(DifferenceWords, GearsSayTeethAndRatio)
{
  Start();
  editor.Play("click CmdInc(43)\n");
  const auto text = Tip("Label1(43)");
  EXPECT_EQ(text, editor.Window().DifferenceText(*editor.Window().Form().Label1[43].design));
  EXPECT_NE(text.find("/"), std::string::npos);
  EXPECT_NE(text.find("("), std::string::npos);
}

}  // namespace
}  // namespace velquist::testing
