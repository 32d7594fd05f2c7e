// SPDX-License-Identifier: MIT
#include "platform/TextEncoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace velquist::platform {
namespace {

TEST(InUtf8, LeavesWhatIsUtf8)
{
  for (const std::string_view text :
       {"", "C:\\GPL", "Jörg", "\xC2\x80", "\xDF\xBF", "東京", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBF", "🏁", "\xF4\x8F\xBF\xBF", "\xEF\xBB\xBF"})
    EXPECT_EQ(InUtf8(text), text);
}

TEST(InUtf8, TakesAnyOtherTextAsWindows1252)
{
  EXPECT_EQ(InUtf8("C:\\J\xF6rg"), "C:\\Jörg");
  EXPECT_EQ(InUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
  EXPECT_EQ(InUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), "‘’“”•–—˜™š›œžŸ");
  EXPECT_EQ(InUtf8("\xA0\xBF\xC0\xDF\xE9\xFF"), "\u00A0¿Àßéÿ");
  EXPECT_EQ(InUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(InUtf8, TellsBrokenUtf8FromUtf8)
{
  EXPECT_EQ(InUtf8("\xC3"), "Ã") << "cut short";
  EXPECT_EQ(InUtf8("\xC3\x41"), "ÃA");
  EXPECT_EQ(InUtf8("\xC0\xAF"), "À¯") << "too long a form";
  EXPECT_EQ(InUtf8("\xE0\x9F\xBF"), "àŸ¿");
  EXPECT_EQ(InUtf8("\xED\xA0\xBF"), "í\u00A0¿") << "half of a pair";
  EXPECT_EQ(InUtf8("\xF0\x8F\xBF\xBF"), "ð\u008F¿¿");
  EXPECT_EQ(InUtf8("\xF4\x90\xBF\xBF"), "ô\u0090¿¿") << "beyond the last character";
  EXPECT_EQ(InUtf8("\xF5\xBF\xBF\xBF"), "õ¿¿¿");
  EXPECT_EQ(InUtf8("ö\xF6"), "Ã¶ö") << "one wrong byte decides for the whole text";
}

TEST(InUtf8, OfEveryByteIsUtf8)
{
  for (int byte = 0; byte < 256; ++byte) {
    const auto text = InUtf8(std::string(1, static_cast<char>(byte)));
    EXPECT_EQ(InUtf8(text), text) << byte;
    EXPECT_FALSE(text.empty());
  }
}

TEST(WithoutByteOrderMark, TakesAwayOne)
{
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF\"C:\\GPL\""), "\"C:\\GPL\"");
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF\xEF\xBB\xBF"), "\xEF\xBB\xBF");
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB"), "\xEF\xBB");
  EXPECT_EQ(WithoutByteOrderMark(""), "");
}

}  // namespace
}  // namespace velquist::platform
