// SPDX-License-Identifier: MIT
#include "app/MainForm.h"

#include <algorithm>

#include "app/FormControlSettings.h"

namespace velquist::app {
namespace {

template <std::size_t N>
std::span<Control> Places(std::array<Control, N>& controls)
{
  return controls;
}
std::span<Control> Places(Control& control)
{
  return {&control, 1};
}

struct Member {
  std::string_view name;
  std::span<Control> (*of)(MainForm& form);
};

#define VELQUIST_MEMBER(name)                                \
  Member                                                     \
  {                                                          \
#name, [](MainForm & form) { return Places(form.name); } \
  }

constexpr std::array kMembers = {
    VELQUIST_MEMBER(CmdInc),
    VELQUIST_MEMBER(CmdDec),
    VELQUIST_MEMBER(Label1),
    VELQUIST_MEMBER(Label2),
    VELQUIST_MEMBER(Label3),
    VELQUIST_MEMBER(Label4),
    VELQUIST_MEMBER(Label5),
    VELQUIST_MEMBER(Label6),
    VELQUIST_MEMBER(Combo1),
    VELQUIST_MEMBER(Combo2),
    VELQUIST_MEMBER(Combo3),
    VELQUIST_MEMBER(Combo4),
    VELQUIST_MEMBER(Combo5),
    VELQUIST_MEMBER(Combo6),
    VELQUIST_MEMBER(Combo7),
    VELQUIST_MEMBER(OptUnits),
    VELQUIST_MEMBER(AsymmetricCheck),
    VELQUIST_MEMBER(FineCheck),
    VELQUIST_MEMBER(RollBarConstTotal),
    VELQUIST_MEMBER(SpringStiffnessProportional),
    VELQUIST_MEMBER(Frame1),
    VELQUIST_MEMBER(Wings),
    VELQUIST_MEMBER(PictureChart),
    VELQUIST_MEMBER(PictureChart2),
    VELQUIST_MEMBER(GEMPic1),
    VELQUIST_MEMBER(Picture1),
    VELQUIST_MEMBER(LblMarquee),
    VELQUIST_MEMBER(MnuFile),
    VELQUIST_MEMBER(MnuNew),
    VELQUIST_MEMBER(MnuOpen),
    VELQUIST_MEMBER(MnuSave),
    VELQUIST_MEMBER(MnuSaveAs),
    VELQUIST_MEMBER(MnuRevert),
    VELQUIST_MEMBER(MnuExport),
    VELQUIST_MEMBER(MnuExit),
    VELQUIST_MEMBER(MnuTools),
    VELQUIST_MEMBER(MnuImportChassis),
    VELQUIST_MEMBER(MnuImportDrivetrain),
    VELQUIST_MEMBER(MnuReverse),
    VELQUIST_MEMBER(MnuSaveAsFormat),
    VELQUIST_MEMBER(MnuShortFormat),
    VELQUIST_MEMBER(MnuLongFormat),
    VELQUIST_MEMBER(MnuAddInstall),
    VELQUIST_MEMBER(MnuDeleteInstall),
    VELQUIST_MEMBER(MnuHelp),
    VELQUIST_MEMBER(MnuHelp2),
    VELQUIST_MEMBER(MnuAbout),
};

#undef VELQUIST_MEMBER

std::string WithoutMnemonic(std::string_view caption)
{
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

}  // namespace

MainForm::MainForm()
{
  for (const auto& design : FormControlSettings()) {
    Control& control = *Find(design.name, design.index);
    control.design = &design;
    control.text = WithoutMnemonic(design.caption);
  }
  ScaleControls(*this, {});
}

Control* MainForm::Find(std::string_view name, int index) noexcept
{
  const auto member = std::ranges::find(kMembers, name, &Member::name);
  if (member == kMembers.end()) return nullptr;
  const auto places = member->of(*this);
  const bool single = places.size() == 1;
  if (single != (index == -1)) return nullptr;
  const auto at = single ? 0 : static_cast<std::size_t>(index);
  return at < places.size() ? &places[at] : nullptr;
}

const Control* MainForm::Find(std::string_view name, int index) const noexcept
{
  const Control* found = const_cast<MainForm*>(this)->Find(name, index);
  return found != nullptr && found->design != nullptr ? found : nullptr;
}

bool MainForm::IsShown(const Control& control) const noexcept
{
  if (!control.shown) return false;
  const auto& design = *control.design;
  if (design.frame.empty()) return true;
  const Control* frame = Find(design.frame, design.frame_index);
  return frame == nullptr || IsShown(*frame);
}

}  // namespace velquist::app
