// SPDX-License-Identifier: MIT
#include "app/ModYearFromFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "MemoryFiles.h"
#include "SetupSamples.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

using namespace velquist::samples;
using setup::Bytes;
using velquist::testing::MemoryFiles;

constexpr std::string_view kInstallation = "C:\\GPL";
constexpr std::string_view kNotInstalled =
    "You are attempting to load a setup file for a mod that isn't installed.";

const std::vector<std::string_view> kOf1966Alone = {"bc", "bd", "be", "bs", "eb",
                                                    "ff", "lp", "lq", "mc"};
const std::vector<std::string_view> kOfGT = {"ga", "gb", "gc", "gd", "ge", "gf", "gg", "gh", "gi"};

/// Answers mod year questions with one button and remembers what was shown.
class Questions final : public Dialogs {
 public:
  std::optional<int> button;
  std::vector<ModYearForm> asked;
  std::vector<std::string> texts;
  std::vector<platform::Icon> icons;

  platform::Answer ShowMessage(std::string_view text, platform::Icon icon,
                               platform::Buttons buttons) override
  {
    EXPECT_EQ(buttons, platform::Buttons::kOk);
    texts.emplace_back(text);
    icons.push_back(icon);
    return platform::Answer::kOk;
  }
  std::optional<int> AskModYear(ModYearForm form, std::string_view message) override
  {
    asked.push_back(form);
    EXPECT_EQ(message, ModYearMessage(form));
    return button;
  }
  std::optional<std::string> AskOpenFile(const platform::OpenRequest& /*request*/) override
  {
    throw std::logic_error("no open dialog here");
  }
  std::optional<std::string> AskSaveFile(const platform::SaveRequest& /*request*/) override
  {
    throw std::logic_error("no save dialog here");
  }
  void ShowInstallDelete(InstallDeleteForm& /*form*/) override
  {
    throw std::logic_error("no deletion form here");
  }
  void ShowHelp() override { throw std::logic_error("no help here"); }
};

MemoryFiles Installed(const std::vector<const char*>& markers)
{
  MemoryFiles files;
  for (const auto* marker : markers) files.Put(std::string(kInstallation) + "\\" + marker, "");
  return files;
}

MemoryFiles AllInstalled()
{
  return Installed({"gpla65.ini", "gpla66.ini", "gpl_ai.ini", "gpla69.ini", "gplaGT.ini"});
}

Bytes WithRearWing(float rear_wing)
{
  Bytes bytes = SampleSetup(setup::kLongLayoutSize);
  PutSingle(bytes, 265, rear_wing);
  return bytes;
}

struct Outcome {
  bool installed = false;
  data::ModYear year{};
  Questions questions;
};

Outcome ModYearOf(std::string_view file_name, const Bytes& bytes, data::ModYear year_before,
                  std::optional<int> button = {}, const MemoryFiles& files = AllInstalled())
{
  Outcome outcome;
  outcome.questions.button = button;
  auto ModYearIndex = year_before;
  outcome.installed =
      ModYearFromFile(file_name, bytes, kInstallation, files, outcome.questions, ModYearIndex);
  outcome.year = ModYearIndex;
  return outcome;
}

TEST(ModYearQuestions, HaveTheirTextsAndButtons)
{
  EXPECT_EQ(ModYearMessage(ModYearForm::kFrmModYear1),
            "Velquist cannot determine which mod this setup file is for, but it is definitely in "
            "the new format.  Please select the mod year.");
  EXPECT_EQ(ModYearMessage(ModYearForm::kFrmModYear2),
            "Velquist cannot determine which mod this setup file is for, but it is definitely a "
            "1965 or 1967 file in the old format.  Please select the mod year.");
  EXPECT_EQ(setup::ModYearOfButton(0), k1965);
  EXPECT_EQ(setup::ModYearOfButton(1), k1966);
  EXPECT_EQ(setup::ModYearOfButton(2), k1967);
  EXPECT_EQ(setup::ModYearOfButton(3), k1969);
}

TEST(ModYearFromFile, CodesOf1966AloneNeedNoQuestionAtAnySize)
{
  for (const auto code : kOf1966Alone) {
    for (const std::size_t size : {4U, 264U, 272U, 300U}) {
      const auto outcome = ModYearOf("monza." + std::string(code) + "1", SampleSetup(size), kGT);
      EXPECT_TRUE(outcome.installed);
      EXPECT_EQ(outcome.year, k1966) << code << ' ' << size;
      EXPECT_TRUE(outcome.questions.asked.empty());
    }
  }
}

TEST(ModYearFromFile, CodesOfGTNeedNoQuestionAtAnySize)
{
  for (const auto code : kOfGT) {
    for (const std::size_t size : {4U, 264U, 272U, 300U}) {
      const auto outcome = ModYearOf("monza." + std::string(code) + "1", SampleSetup(size), k1967);
      EXPECT_TRUE(outcome.installed);
      EXPECT_EQ(outcome.year, kGT) << code << ' ' << size;
      EXPECT_TRUE(outcome.questions.asked.empty());
    }
  }
}

TEST(ModYearFromFile, CodesInCapitalsAreUnknownOnes)
{
  for (const auto* name : {"x.LP1", "x.Lp1", "x.GA1", "x.gA1"}) {
    const auto outcome = ModYearOf(name, SampleSetup(264), k1967, 0);
    EXPECT_EQ(outcome.questions.asked, std::vector{ModYearForm::kFrmModYear2}) << name;
    EXPECT_EQ(outcome.year, k1965);
  }
}

TEST(ModYearFromFile, ALongFileWithAWingFrom0To16IsOf1969)
{
  const float above = std::nextafter(16.0F, 20.0F);
  for (const float wing : {0.0F, -0.0F, 0.25F, 12.0F, 16.0F, std::nextafter(16.0F, 0.0F),
                           std::numeric_limits<float>::denorm_min()}) {
    const auto outcome = ModYearOf("x.bb1", WithRearWing(wing), k1967);
    EXPECT_TRUE(outcome.installed);
    EXPECT_EQ(outcome.year, k1969) << wing;
    EXPECT_TRUE(outcome.questions.asked.empty());
  }
  for (const float wing :
       {above, 20.0F, -0.5F, -2.0F, std::nextafter(-1.0F, 0.0F), std::nextafter(-1.0F, -2.0F),
        -std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::infinity(),
        std::numeric_limits<float>::quiet_NaN()}) {
    for (const auto before : {k1967, k1965, k1966, k1969, kGT}) {
      const auto outcome = ModYearOf("x.bb1", WithRearWing(wing), before);
      EXPECT_TRUE(outcome.installed);
      EXPECT_EQ(outcome.year, before) << "stays as it was, " << wing;
      EXPECT_TRUE(outcome.questions.asked.empty());
    }
  }
}

TEST(ModYearFromFile, ALongFileWithoutWingAsksInTheFirstForm)
{
  const data::ModYear years[] = {k1965, k1966, k1967, k1969};
  for (int button = 0; button < 4; ++button) {
    const auto outcome = ModYearOf("x.bb1", WithRearWing(-1.0F), kGT, button);
    EXPECT_EQ(outcome.questions.asked, std::vector{ModYearForm::kFrmModYear1});
    EXPECT_EQ(outcome.year, years[button]);
    EXPECT_TRUE(outcome.installed);
  }
}

TEST(ModYearFromFile, AFileOfAnyOtherSizeAsksInTheSecondForm)
{
  const data::ModYear years[] = {k1965, k1966, k1967, k1969};
  for (const std::size_t size : {0U, 4U, 263U, 264U, 265U, 271U, 273U, 1000U}) {
    for (int button = 0; button < 4; ++button) {
      const auto outcome = ModYearOf("x.fe1", SampleSetup(size), kGT, button);
      EXPECT_EQ(outcome.questions.asked, std::vector{ModYearForm::kFrmModYear2}) << size;
      EXPECT_EQ(outcome.year, years[button]);
    }
  }
}

TEST(ModYearFromFile, AQuestionClosedWithoutAnswerLeavesTheYear)
{
  for (const auto before : {k1967, k1965, k1966, k1969, kGT}) {
    EXPECT_EQ(ModYearOf("x.fe1", SampleSetup(264), before).year, before);
    EXPECT_EQ(ModYearOf("x.fe1", WithRearWing(-1.0F), before).year, before);
  }
}

TEST(ModYearFromFile, RefusesAYearWhoseMarkerIsMissing)
{
  struct Case {
    data::ModYear year;
    const char* name;
    Bytes bytes;
    std::optional<int> button;
    std::vector<const char*> others;
  };
  const Case cases[] = {
      {k1965,
       "x.bb1",
       SampleSetup(264),
       0,
       {"gpla66.ini", "gpl_ai.ini", "gpla69.ini", "gplaGT.ini"}},
      {k1966,
       "x.lp1",
       SampleSetup(272),
       {},
       {"gpla65.ini", "gpl_ai.ini", "gpla69.ini", "gplaGT.ini"}},
      {k1967,
       "x.bb1",
       WithRearWing(-1),
       2,
       {"gpla65.ini", "gpla66.ini", "gpla69.ini", "gplaGT.ini"}},
      {k1969,
       "x.bb1",
       WithRearWing(8),
       {},
       {"gpla65.ini", "gpla66.ini", "gpl_ai.ini", "gplaGT.ini"}},
      {kGT,
       "x.ga1",
       SampleSetup(272),
       {},
       {"gpla65.ini", "gpla66.ini", "gpl_ai.ini", "gpla69.ini"}},
  };
  for (const auto& [year, name, bytes, button, others] : cases) {
    SCOPED_TRACE(data::ModYearText(year));
    const auto outcome = ModYearOf(name, bytes, k1967, button, Installed(others));
    EXPECT_FALSE(outcome.installed);
    EXPECT_EQ(outcome.year, year);
    EXPECT_EQ(outcome.questions.texts, std::vector<std::string>{std::string(kNotInstalled)});
    EXPECT_EQ(outcome.questions.icons, std::vector{platform::Icon::kExclamation});
  }
}

TEST(ModYearFromFile, IsContentWithTheOneMarkerOfItsYear)
{
  EXPECT_TRUE(ModYearOf("x.bb1", SampleSetup(264), k1969, 0, Installed({"gpla65.ini"})).installed);
  EXPECT_TRUE(ModYearOf("x.lp1", SampleSetup(264), k1969, {}, Installed({"gpla66.ini"})).installed);
  EXPECT_TRUE(ModYearOf("x.bb1", SampleSetup(264), k1969, 2, Installed({"gpl_ai.ini"})).installed);
  EXPECT_TRUE(ModYearOf("x.bb1", WithRearWing(3), k1967, {}, Installed({"gpla69.ini"})).installed);
  const auto gt = ModYearOf("x.gi1", SampleSetup(272), k1967, {}, Installed({"gplaGT.ini"}));
  EXPECT_TRUE(gt.installed);
  EXPECT_TRUE(gt.questions.texts.empty());
}

TEST(ModYearFromFile, RefusesAYearOutsideTheTable)
{
  const auto outcome = ModYearOf("x.bb1", WithRearWing(20), data::ModYear{5});
  EXPECT_FALSE(outcome.installed);
  EXPECT_EQ(outcome.questions.texts.size(), 1U);
}

}  // namespace
}  // namespace velquist::app
