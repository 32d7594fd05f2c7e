// SPDX-License-Identifier: MIT
#include "ui/ChartPainting.h"

#include <gtest/gtest.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <algorithm>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using platform::Colour;
using platform::LineStyle;

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kRed{255, 0, 0};
constexpr Colour kOlive{200, 200, 0};
constexpr Colour kViolet{200, 0, 200};
constexpr Colour kGrey{90, 90, 90};
constexpr Colour kBlack{0, 0, 0};

class ChartPainting : public RealWindow {
 protected:
  ChartPainting() { picture_.Resize(kSize, kSize); }

  static Colour At(const wxImage& image, int x, int y)
  {
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
  }
  /// The pixels of a row (or column) that have a colour.
  static std::vector<int> InRow(const wxImage& image, int y, Colour colour)
  {
    std::vector<int> found;
    for (int x = 0; x < kSize; ++x)
      if (At(image, x, y) == colour) found.push_back(x);
    return found;
  }
  static std::vector<int> InColumn(const wxImage& image, int x, Colour colour)
  {
    std::vector<int> found;
    for (int y = 0; y < kSize; ++y)
      if (At(image, x, y) == colour) found.push_back(y);
    return found;
  }
  template <typename Draw>
  static wxImage Painted(const Draw& draw)
  {
    wxBitmap bitmap(kSize, kSize, 24);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(*wxWHITE_BRUSH);
    dc.Clear();
    draw(dc);
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
  }
  [[nodiscard]] wxImage Picture() const
  {
    return Painted([this](wxMemoryDC& dc) { ui::DrawPicture(dc, picture_); });
  }
  /// Beneath an empty chart.
  [[nodiscard]] wxImage Outlined() const
  {
    charts::PictureRecorder empty;
    empty.Resize(kSize, kSize);
    return Painted([&](wxMemoryDC& dc) { ui::DrawChart(dc, empty, picture_, 1); });
  }

  static constexpr int kSize = 60;
  charts::PictureRecorder picture_;
};

/// Single pixels from `first` on, each as far from the one before, two blank ones at the least.
void ExpectDots(const std::vector<int>& dots, int first, int end)
{
  ASSERT_GE(dots.size(), 3U);
  EXPECT_EQ(dots.front(), first);
  const int apart = dots[1] - dots[0];
  EXPECT_GE(apart, 3);
  for (std::size_t i = 1; i < dots.size(); ++i) EXPECT_EQ(dots[i] - dots[i - 1], apart);
  EXPECT_LT(dots.back(), end);
  EXPECT_GE(dots.back() + apart, end);
}

TEST_F(ChartPainting, ADottedLineIsSinglePixelsOfItsOwnRowOrColumn)
{
  picture_.Line(10, 20, 30, 20, kRed, 1, LineStyle::kDotted);
  picture_.Line(40, 30, 40, 50, kRed, 1, LineStyle::kDotted);
  const auto image = Picture();
  ExpectDots(InRow(image, 20, kRed), 10, 30);
  ExpectDots(InColumn(image, 40, kRed), 30, 50);
  for (const int beside : {19, 21})
    EXPECT_EQ(InRow(image, beside, kWhite).size(), std::size_t{kSize}) << beside;
  for (const int beside : {39, 41})
    EXPECT_EQ(InColumn(image, beside, kWhite).size(), std::size_t{kSize}) << beside;
}

TEST_F(ChartPainting, AStraightLineIsSharpAndAsWideAsItIsTold)
{
  picture_.Line(20, 12, 10, 12, kRed, 1, LineStyle::kSolid);
  picture_.Line(10, 30, 20, 30, kRed, 3, LineStyle::kSolid);
  picture_.Line(40, 50, 40, 40, kRed, 2, LineStyle::kSolid);
  const auto image = Picture();
  EXPECT_EQ(InColumn(image, 15, kRed), std::vector({12, 29, 30, 31}));
  const std::vector ten = {10, 11, 12, 13, 14, 15, 16, 17, 18, 19};
  EXPECT_EQ(InRow(image, 12, kRed), ten);
  EXPECT_EQ(InRow(image, 30, kRed), ten);
  EXPECT_EQ(InRow(image, 45, kRed), std::vector({40, 41}));
  EXPECT_EQ(InColumn(image, 40, kRed), std::vector({40, 41, 42, 43, 44, 45, 46, 47, 48, 49}));
}

TEST_F(ChartPainting, AFrameIsOnePixelWideAroundWhatItIsFilledWith)
{
  picture_.Box(10, 10, 14, 13, kRed, kOlive);
  picture_.Box(30, 10, 34, 13, kRed, std::nullopt);
  const auto image = Picture();
  EXPECT_EQ(InRow(image, 9, kWhite).size(), std::size_t{kSize});
  EXPECT_EQ(InRow(image, 10, kRed), std::vector({10, 11, 12, 13, 14, 30, 31, 32, 33, 34}));
  EXPECT_EQ(InRow(image, 12, kRed), std::vector({10, 14, 30, 34}));
  EXPECT_EQ(InRow(image, 12, kOlive), std::vector({11, 12, 13}));
  EXPECT_EQ(InRow(image, 13, kRed), std::vector({10, 11, 12, 13, 14, 30, 31, 32, 33, 34}));
  EXPECT_EQ(InRow(image, 14, kWhite).size(), std::size_t{kSize});
}

TEST_F(ChartPainting, OutlinesAreThoseOfAllThatIsColouredAQuarterOfTheWayToWhite)
{
  picture_.Line(10, 12, 20, 12, kRed, 3, LineStyle::kSolid);
  picture_.Line(10, 22, 20, 22, kOlive, 1, LineStyle::kSolid);
  picture_.Line(10, 32, 20, 32, kViolet, 1, LineStyle::kSolid);
  picture_.Line(10, 42, 20, 42, kGrey, 1, LineStyle::kSolid);
  picture_.Line(10, 52, 20, 52, kBlack, 1, LineStyle::kSolid);
  const auto image = Outlined();
  EXPECT_EQ(InColumn(image, 15, {255, 63, 63}), std::vector({12}));
  EXPECT_EQ(InColumn(image, 15, {213, 213, 63}), std::vector({22}));
  EXPECT_EQ(InColumn(image, 15, {213, 63, 213}), std::vector({32}));
  EXPECT_EQ(InColumn(image, 15, kWhite).size(), std::size_t{kSize - 3});
}

TEST_F(ChartPainting, AReadingIsABoxWithAGreyFrameBesideThePointer)
{
  constexpr Colour kFrame{118, 118, 118};
  constexpr Colour kPaper{255, 255, 225};
  const auto image = Painted([](wxMemoryDC& dc) {
    ui::DrawReading(dc, "1", {5, 5}, {kSize, kSize});
  });
  EXPECT_EQ(At(image, 16, 30), kWhite);
  const auto top = InColumn(image, 22, kFrame);
  ASSERT_EQ(top.size(), 2U);
  EXPECT_EQ(top.front(), 17);
  const auto sides = InRow(image, 19, kFrame);
  ASSERT_EQ(sides.size(), 2U);
  EXPECT_EQ(sides.front(), 17);
  EXPECT_EQ(At(image, 18, 18), kPaper);
}

TEST_F(ChartPainting, EachTextIsAsHighAsItsLetters)
{
  picture_.SetLetterHeight(20);
  picture_.Text(2, 2, "H");
  picture_.SetLetterHeight(36);
  picture_.Text(26, 2, "H");
  picture_.Text(26, 2, "H");
  const auto image = Picture();
  const auto rows_with_ink = [&](int left, int right) {
    int rows = 0;
    for (int y = 0; y < kSize; ++y) {
      int darkest = 255;
      for (int x = left; x < right; ++x) darkest = std::min(darkest, int{At(image, x, y).red});
      if (darkest < 128) ++rows;
    }
    return rows;
  };
  // Capitals are 0.716 of the letters high.
  EXPECT_NEAR(rows_with_ink(0, 24), 14, 1);
  EXPECT_NEAR(rows_with_ink(25, kSize), 26, 1);
}

}  // namespace
}  // namespace velquist::testing
