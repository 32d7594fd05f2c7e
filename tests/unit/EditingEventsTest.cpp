// SPDX-License-Identifier: MIT
// What the events of editing do beside values and labels: what is drawn anew, what is called how.
#include <string>

#include <gtest/gtest.h>

#include "MemoryProgram.h"
#include "runner/SourceDirectory.h"

namespace velquist {
namespace {

class EditingEvents : public ::testing::Test {
 protected:
  EditingEvents()
  {
    program_.PutShippedFiles(velquist::testing::SourceDirectory() / "assets" / "program");
    program_.Start();
  }

  app::MainWindow& Window() { return program_.Window(); }
  [[nodiscard]] double SpeedOfFirstGear()
  {
    return Window().State().bands.gears.at(0).speed_per_rpm;
  }
  /// Whether `event` draws the speed bands chart anew.
  template <class Event>
  bool DrawsSpeedBands(Event&& event)
  {
    const auto before = Window().Form().chart2.Version();
    event();
    return Window().Form().chart2.Version() != before;
  }
  bool DrawsSpeedBands(const char* button, int slot)
  {
    return DrawsSpeedBands([&] { Window().Click(button, slot); });
  }

 private:
  testing::MemoryProgram program_;
};

TEST_F(EditingEvents, GearPressesDrawTheSpeedBands)
{
  for (int slot = 42; slot <= 47; ++slot) {
    EXPECT_TRUE(DrawsSpeedBands("CmdInc", slot)) << slot;
    EXPECT_TRUE(DrawsSpeedBands("CmdDec", slot)) << slot;
  }
  const double before = SpeedOfFirstGear();
  Window().Click("CmdInc", 42);
  // A higher row is a shorter gear.
  EXPECT_LT(SpeedOfFirstGear(), before);
  EXPECT_DOUBLE_EQ(SpeedOfFirstGear(),
                   1 / (static_cast<double>(2.533F) * 3.364F) * (84.8232 / 12) * (60.0 / 5280));
}

TEST_F(EditingEvents, RefusedGearPressesDrawNothing)
{
  for (int times = 0; times < 8; ++times) Window().Click("CmdInc", 42);
  EXPECT_EQ(Window().Form().Label1[42].text, "38/13");
  EXPECT_FALSE(DrawsSpeedBands("CmdInc", 42));
}

TEST_F(EditingEvents, OtherPressesDrawNothing)
{
  for (int slot = 0; slot <= 34; ++slot) {
    EXPECT_FALSE(DrawsSpeedBands("CmdInc", slot)) << slot;
    EXPECT_FALSE(DrawsSpeedBands("CmdDec", slot)) << slot;
  }
}

TEST_F(EditingEvents, FinalDriveAndUnitsDrawTheSpeedBands)
{
  const double before = SpeedOfFirstGear();
  EXPECT_TRUE(DrawsSpeedBands([&] { Window().Select("Combo1", 0, 0); }));
  EXPECT_GT(SpeedOfFirstGear(), before);
  const double mph = SpeedOfFirstGear();
  EXPECT_TRUE(DrawsSpeedBands([&] { Window().Check("OptUnits", 1, true); }));
  EXPECT_DOUBLE_EQ(SpeedOfFirstGear(), mph * 1.609344);
}

TEST_F(EditingEvents, DifferentialAndOptionsDrawNothing)
{
  for (const int list : {1, 2, 3})
    EXPECT_FALSE(DrawsSpeedBands([&] { Window().Select("Combo1", list, 1); })) << list;
  for (const auto* box :
       {"AsymmetricCheck", "FineCheck", "RollBarConstTotal", "SpringStiffnessProportional"})
    for (const bool checked : {true, false})
      EXPECT_FALSE(DrawsSpeedBands([&] { Window().Check(box, -1, checked); })) << box;
}

TEST_F(EditingEvents, ButtonsThatAreNotThereDoNothing)
{
  for (const int slot : {-1, 35, 41, 48, 49, 50, 51, 52})
    for (const auto* button : {"CmdInc", "CmdDec"})
      EXPECT_FALSE(Window().Click(button, slot)) << button << slot;
  EXPECT_FALSE(Window().Car().Changed());
}

TEST_F(EditingEvents, PressesMarkTheSetupChangedAndOptionsDoNot)
{
  for (const auto* box :
       {"AsymmetricCheck", "SpringStiffnessProportional", "FineCheck", "RollBarConstTotal"})
    Window().Check(box, -1, true);
  Window().Check("OptUnits", 1, true);
  EXPECT_FALSE(Window().Car().Changed());
  Window().Click("CmdDec", 33);
  EXPECT_TRUE(Window().Car().Changed());
}

std::string WithoutMnemonic(std::string_view caption)
{
  std::string text;
  for (const char c : caption)
    if (c != '&') text += c;
  return text;
}

TEST(EditOptionBoxes, HaveTheirCaptionsAndTips)
{
  const app::MainForm form;
  const auto expect = [](const app::Control& box, const char* caption, const char* tip) {
    EXPECT_EQ(WithoutMnemonic(box.text), caption);
    EXPECT_EQ(box.design->tip, tip);
    EXPECT_EQ(box.design->frame, "Frame1");
    EXPECT_EQ(box.design->frame_index, 7);
    EXPECT_FALSE(box.checked);
  };
  expect(form.AsymmetricCheck, "Asymmetric Adjust", "Left and right sides can differ");
  expect(form.FineCheck, "Fine Adjust", "Up and down edits are smaller");
  expect(form.RollBarConstTotal, "Constant Rolbars", "Total roll bar stiffness is constant");
  expect(form.SpringStiffnessProportional, "Proportional Springs",
         "Spring stiffness proportional to weight distribution");
  EXPECT_EQ(form.Frame1[7].text, "Edit Options");
}

TEST(ValueCaptions, OfCamberAreLongerUntilTheFirstSetupIsShown)
{
  const app::MainForm form;
  EXPECT_EQ(form.Label3[4].text, "Camber, degrees");
  EXPECT_EQ(form.Label3[10].text, "Camber, degrees");
}

}  // namespace
}  // namespace velquist
