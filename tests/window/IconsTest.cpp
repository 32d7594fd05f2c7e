// SPDX-License-Identifier: MIT
#include <wx/icon.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/wfstream.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>

#include "RealWindow.h"
#include "platform_wx/ProgramIcons.h"
#include "platform_wx/WxText.h"
#include "runner/SourceDirectory.h"

namespace velquist::testing {
namespace {

constexpr int kSizes[] = {16, 24, 32, 48, 64};

class Icons : public RealWindow {};

TEST_F(Icons, AreThePicturesOfEachSize)
{
  const wxIconBundle icons = platform::ProgramIcons();
  ASSERT_EQ(icons.GetIconCount(), std::size(kSizes));
  for (const int size : kSizes) {
    SCOPED_TRACE(size);
    const auto file =
        SourceDirectory() / "assets" / "icon" / ("velquist-" + std::to_string(size) + ".png");
    wxImage expected;
    wxPNGHandler png;
    wxFileInputStream stream(platform::FromText(file.string()));
    ASSERT_TRUE(png.LoadFile(&expected, stream));
    wxBitmap shown;
    shown.CopyFromIcon(icons.GetIconOfExactSize(wxSize(size, size)));
    ASSERT_TRUE(shown.IsOk());
    const wxImage image = shown.ConvertToImage();
    ASSERT_EQ(image.GetSize(), expected.GetSize());
    const auto pixels = static_cast<std::size_t>(size * size);
    EXPECT_TRUE(std::equal(image.GetData(), image.GetData() + 3 * pixels, expected.GetData()));
  }
}

TEST_F(Icons, AreThoseOfEveryWindow)
{
  Start();
  editor.Play("click MnuCompare\nclick MnuGearing\nclick MnuLibrary\n");
  std::size_t windows = 0;
  for (const wxWindow* const window : wxTopLevelWindows) {
    const auto* const top = dynamic_cast<const wxTopLevelWindow*>(window);
    if (top == nullptr || !top->IsShown()) continue;
    ++windows;
    EXPECT_EQ(top->GetIcons().GetIconCount(), std::size(kSizes)) << top->GetName();
  }
  EXPECT_GE(windows, 4U);
}

}  // namespace
}  // namespace velquist::testing
