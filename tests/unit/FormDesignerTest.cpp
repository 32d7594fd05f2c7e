// SPDX-License-Identifier: MIT
#include "app/FormDesigner.h"

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "MemoryProgram.h"
#include "app/FormControlSettings.h"
#include "app/MainWindow.h"
#include "runner/SourceDirectory.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

using enum ControlKind;

constexpr Place kSomewhere = {1, 2, 3, 4};

void Nothing(MainWindow& /*window*/, int /*index*/) {}

/// Why a row is refused; empty when it is not. Before it stand a menu with an entry, a button, an
/// option button and the box of the marquee.
std::string WhyRefused(const ControlDesign& row)
{
  FormDesigner form;
  try {
    form.Menu({VELQUIST_CONTROL(MnuFile)});
    form.MenuItem({VELQUIST_CONTROL(MnuNew), .frame = "MnuFile", .event = Nothing});
    form.Add({VELQUIST_CONTROL(CmdInc), .index = 4, .kind = kButton, .place = kSomewhere,
              .event = Nothing, .shape = Shape::kStepButton});
    form.Frame({VELQUIST_CONTROL(Picture1), .kind = kPicture, .place = kSomewhere,
                .shape = Shape::kMarquee});
    form.Add({VELQUIST_CONTROL(OptUnits), .index = 0, .kind = kOption, .place = kSomewhere,
              .event = Nothing, .begins_group = true});
  } catch (const std::logic_error& error) {
    return std::string("a right row is refused: ") + error.what();
  }
  try {
    if (row.kind == kMenu)
      form.MenuItem(row);
    else
      form.Add(row);
    form.Finish();
  } catch (const std::logic_error& error) {
    return error.what();
  }
  return {};
}

TEST(FormDesigner, TakesRightRows)
{
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Label4), .place = kSomewhere,
                        .alignment = Alignment::kLeft, .ellipsis = true}),
            "");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(LblMarquee), .place = kSomewhere, .shape = Shape::kNone}),
            "");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(OptUnits), .index = 1, .kind = kOption,
                        .place = kSomewhere, .event = Nothing}),
            "");
  EXPECT_EQ(
      WhyRefused({VELQUIST_CONTROL(MnuExit), .kind = kMenu, .frame = "MnuFile",
                  .shortcut = "Ctrl+Q", .event = Nothing, .begins_group = true, .exclusive = true}),
      "");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(PictureChart), .kind = kPicture, .place = kSomewhere,
                        .shape = Shape::kChart, .chart = &MainForm::chart}),
            "");
}

TEST(FormDesigner, NamesARowWithoutAMemberOrPlaceOfItsOwn)
{
  EXPECT_EQ(WhyRefused({.name = "Ghost", .place = kSomewhere}),
            "Ghost: it is no member of the form");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Label6), .index = 4, .place = kSomewhere}),
            "Label6(4): its member has no such index");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Label6), .place = kSomewhere}),
            "Label6: its member has no such index");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Label4), .index = 0, .place = kSomewhere}),
            "Label4(0): its member has no such index");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(CmdInc), .index = 4, .kind = kButton, .place = kSomewhere,
                        .event = Nothing}),
            "CmdInc(4): it has a row already");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Label4)}), "Label4: all but menus have a place");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Label4), .place = kSomewhere, .font_size = 0}),
            "Label4: it has no letter height");
}

TEST(FormDesigner, NamesARowInAMenuOrFrameThatIsNotThere)
{
  for (const auto* const frame : {"", "MnuTools", "MnuNew", "CmdInc", "Frame1", "Picture1"}) {
    const auto why =
        WhyRefused({VELQUIST_CONTROL(MnuAbout), .kind = kMenu, .frame = frame, .event = Nothing});
    EXPECT_TRUE(why.starts_with("MnuAbout: ")) << frame << why;
  }
}

TEST(FormDesigner, NamesARowWithoutTheEventThatItsKindNeeds)
{
  for (const auto kind : {kButton, kList, kCheck}) {
    const ControlDesign row = {VELQUIST_CONTROL(Combo2), .kind = kind, .place = kSomewhere};
    EXPECT_EQ(WhyRefused(row), "Combo2: nothing happens on it");
  }
  EXPECT_EQ(
      WhyRefused({VELQUIST_CONTROL(OptUnits), .index = 1, .kind = kOption, .place = kSomewhere}),
      "OptUnits(1): nothing happens on it");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(MnuAbout), .kind = kMenu, .frame = "MnuFile"}),
            "MnuAbout: nothing happens on it");
}

TEST(FormDesigner, NamesARowWithAnEventThatNobodyCanRaise)
{
  for (const auto kind : {kLabel, kFrame, kPicture}) {
    const ControlDesign row = {VELQUIST_CONTROL(Wings), .kind = kind, .place = kSomewhere,
                               .event = Nothing};
    EXPECT_EQ(WhyRefused(row), "Wings: nobody can press it, and it has an event");
  }
  FormDesigner form;
  EXPECT_THROW(form.Menu({VELQUIST_CONTROL(MnuHelp), .event = Nothing}), std::logic_error);
}

TEST(FormDesigner, NamesARowWithAFieldThatItsKindHasNot)
{
  const auto label = [](auto change) {
    ControlDesign row = {VELQUIST_CONTROL(Label4), .place = kSomewhere};
    change(row);
    return WhyRefused(row);
  };
  EXPECT_EQ(label([](auto& row) { row.shortcut = "F2"; }),
            "Label4: only a menu item has a shortcut");
  EXPECT_EQ(label([](auto& row) { row.exclusive = true; }),
            "Label4: only a menu item is exclusive");
  EXPECT_EQ(label([](auto& row) { row.begins_group = true; }), "Label4: it cannot begin a group");
  EXPECT_EQ(label([](auto& row) { row.shape = Shape::kStepButton; }),
            "Label4: no button of a slot");
  EXPECT_EQ(label([](auto& row) { row.shape = Shape::kCarPicture; }),
            "Label4: only a picture box has a picture");
  EXPECT_EQ(label([](auto& row) { row.opens_first = true; }), "Label4: only a list opens first");
  EXPECT_EQ(label([](auto& row) { row.chart = &MainForm::chart; }),
            "Label4: a chart, and nothing else, has a recorder");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(Combo2), .kind = kList, .place = kSomewhere,
                        .event = Nothing, .alignment = Alignment::kLeft}),
            "Combo2: only a label has an alignment");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(FineCheck), .kind = kCheck, .place = kSomewhere,
                        .event = Nothing, .ellipsis = true}),
            "FineCheck: only a label or a list has an ellipsis");
  EXPECT_EQ(WhyRefused({VELQUIST_CONTROL(GEMPic1), .kind = kPicture, .place = kSomewhere}),
            "GEMPic1: a picture box without a picture");
}

TEST(FormDesigner, NamesAnOptionButtonOutsideAGroupAndALabelThatNothingShows)
{
  FormDesigner form;
  const ControlDesign option = {VELQUIST_CONTROL(OptUnits), .index = 0, .kind = kOption,
                                .place = kSomewhere, .event = Nothing};
  const ControlDesign label = {VELQUIST_CONTROL(LblMarquee), .place = kSomewhere,
                               .shape = Shape::kNone};
  EXPECT_THROW(form.Add(option), std::logic_error);
  EXPECT_THROW(form.Add(label), std::logic_error);
}

TEST(FormDesigner, NamesAMenuWithoutItemsOrWithAMark)
{
  FormDesigner form;
  form.Menu({VELQUIST_CONTROL(MnuHelp)});
  EXPECT_THROW(form.Finish(), std::logic_error);
  form.Menu({VELQUIST_CONTROL(MnuTools), .frame = "MnuHelp"});
  EXPECT_THROW(form.Finish(), std::logic_error);
  form.MenuItem({VELQUIST_CONTROL(MnuAbout), .frame = "MnuTools", .event = Nothing});
  EXPECT_NO_THROW(form.Finish());
  EXPECT_THROW(form.Menu({VELQUIST_CONTROL(MnuFile), .frame = "MnuHelp", .exclusive = true}),
               std::logic_error);
}

TEST(FormDesigner, CountsThePlacesOfEveryMemberOnce)
{
  FormDesigner form;
  form.Add({VELQUIST_CONTROL(Label6), .index = 0, .place = kSomewhere});
  form.Add({VELQUIST_CONTROL(Label6), .index = 1, .place = kSomewhere});
  form.Add({VELQUIST_CONTROL(Label4), .place = kSomewhere});
  EXPECT_EQ(form.Places(), 5U);
}

TEST(FormControlSettings, FillsEveryArrayThatIsNotIndexedBySlot)
{
  std::map<std::string_view, int> rows;
  for (const auto& design : FormControlSettings()) ++rows[design.name];
  for (const auto& design : FormControlSettings()) {
    const int count = design.member.count;
    if (count > 0 && count != kSlotControls) {
      EXPECT_EQ(rows[design.name], count) << design.name;
    }
  }
}

TEST(FormControlSettings, HasStepButtonsAndAValueOrAListForEverySlotThatIsEdited)
{
  const MainForm form;
  for (int slot = 0; slot < kSlotControls; ++slot) {
    const bool ratio = slot >= setup::kFirstRatio && slot < setup::kFirstGear;
    const bool list = slot >= setup::kFinalDrive;
    for (const auto* const name : {"CmdInc", "Label1", "CmdDec"})
      EXPECT_EQ(form.Find(name, slot) != nullptr, !ratio && !list) << name << slot;
    EXPECT_EQ(form.Find("Combo1", slot - setup::kFinalDrive) != nullptr, list) << slot;
  }
}

TEST(FormControlSettings, PutsEveryRowInTheMemberOfItsName)
{
  MainForm form;
  EXPECT_EQ(form.Find("Label1", 51), nullptr);
  EXPECT_EQ(form.Find("Combo2", 0), nullptr);
  EXPECT_EQ(form.Find("Combo2", -1), &form.Combo2);
  EXPECT_EQ(form.Find("CmdInc", 4), &form.CmdInc[4]);
  for (const auto& design : FormControlSettings()) EXPECT_EQ(design.In(form).design, &design);
}

class EventsOfControls : public ::testing::Test {
 protected:
  EventsOfControls()
  {
    program_.PutShippedFiles(velquist::testing::SourceDirectory() / "assets" / "program");
    program_.Start();
  }
  testing::MemoryProgram program_;
};

TEST_F(EventsOfControls, AreRefusedWhereNothingHappens)
{
  auto& window = program_.Window();
  for (const auto& design : FormControlSettings()) {
    const auto name = std::string(design.name) + " " + std::to_string(design.index);
    const bool pressed =
        (design.kind == kButton || design.kind == kMenu) && design.event != nullptr;
    const bool checked = design.kind == kCheck || design.kind == kOption;
    const bool chosen = design.kind == kList;
    EXPECT_FALSE(!pressed && window.Click(design.name, design.index)) << name;
    EXPECT_FALSE(!checked && window.Check(design.name, design.index, true)) << name;
    EXPECT_FALSE(!chosen && window.Select(design.name, design.index, 0)) << name;
  }
  EXPECT_FALSE(window.Click("MnuFile"));
  EXPECT_FALSE(window.Click("Label1", 4));
  EXPECT_TRUE(window.Click("CmdInc", 4));
}

}  // namespace
}  // namespace velquist::app
