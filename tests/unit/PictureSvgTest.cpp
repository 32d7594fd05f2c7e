// SPDX-License-Identifier: MIT
#include "export/PictureSvg.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "charts/PictureRecorder.h"
#include "export/Markup.h"

namespace velquist::text_export {
namespace {

using charts::PictureRecorder;

TEST(Markup, EscapesWhatMarksUpAndWhatAPageCannotHold)
{
  EXPECT_EQ(Escaped("a<b>&\"c\""), "a&lt;b&gt;&amp;&quot;c&quot;");
  EXPECT_EQ(Escaped("M\xC3\xBCnchen"), "M\xC3\xBCnchen");
  EXPECT_EQ(Escaped("M\xFCnchen"), "M\xC3\xBCnchen") << "as in Windows-1252";
  EXPECT_EQ(Escaped("\x01"), "\xEF\xBF\xBD");
}

TEST(PictureSvg, IsAnElementOfAPage)
{
  PictureRecorder picture;
  picture.Resize(100, 50);
  picture.Clear({255, 255, 255});
  picture.Line(0, 1.005, 10, 20, {0, 0, 128}, 1, platform::LineStyle::kDotted);
  picture.Box(1, 2, 3, 5, {255, 0, 0}, std::nullopt);
  picture.SetLetterHeight(10);
  picture.Text(5, 0, "<1");
  const auto element = SvgElement(picture, "both & more");
  EXPECT_TRUE(element.starts_with("<svg ")) << element;
  for (const char* const part : {"viewBox=\"0 0 100 50\"", "<title>both &amp; more</title>",
                                 "stroke=\"rgb(0,0,128)\" stroke-width=\"1\"", "stroke-dasharray",
                                 R"(<rect x="1" y="2" width="2" height="3" fill="none")",
                                 R"x( stroke="rgb(255,0,0)"/>)x", ">&lt;1</text>"})
    EXPECT_NE(element.find(part), std::string::npos) << part << "\n" << element;
  EXPECT_EQ(SvgDocument(picture, "both & more"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + element);
  picture.Clear({255, 255, 255});
  EXPECT_EQ(SvgElement(picture, "").find("<polyline"), std::string::npos) << "all is dropped";
}

TEST(PictureSvg, HasNoSignBeforeNothing)
{
  PictureRecorder picture;
  picture.Resize(100, 50);
  picture.Line(-0.001, 0, 10, 20, {0, 0, 128}, 1, platform::LineStyle::kSolid);
  EXPECT_NE(SvgElement(picture, "").find("points=\"0,0 10,20\""), std::string::npos);
}

TEST(PictureSvg, HoldsWhatWasDrawn)
{
  PictureRecorder surface;
  surface.Resize(200, 100);
  surface.Clear({255, 255, 255});
  surface.Line(1, 2, 3.5, 4, {255, 0, 0}, 2, platform::LineStyle::kSolid);
  surface.Line(3.5, 4, 5, 6, {255, 0, 0}, 2, platform::LineStyle::kSolid);
  surface.Line(0, 0, 0, 9, {0, 0, 0}, 1, platform::LineStyle::kDotted);
  surface.Box(10, 20, 30, 50, {0, 0, 0}, platform::Colour{1, 2, 3});
  surface.Dot(7, 8, {0, 0, 0});
  surface.SetLetterHeight(10);
  surface.Text(5, 5, "a < b & \"c\"");
  const auto svg = SvgDocument(surface, "Thrust & speed");
  for (const char* const part :
       {"width=\"200\" height=\"100\"", "<title>Thrust &amp; speed</title>",
        "points=\"1,2 3.5,4 5,6\"", "stroke-width=\"2\"", "stroke-dasharray",
        "x=\"10\" y=\"20\" width=\"20\" height=\"30\" fill=\"rgb(1,2,3)\"",
        "x=\"7\" y=\"8\" width=\"1\" height=\"1\" fill", "y=\"14.05\" font-size=\"10\"",
        ">a &lt; b &amp; &quot;c&quot;</text>", "</svg>"})
    EXPECT_NE(svg.find(part), std::string::npos) << part << "\n" << svg;
}

}  // namespace
}  // namespace velquist::text_export
