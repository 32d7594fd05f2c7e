// SPDX-License-Identifier: MIT
#include "platform/FileReason.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/Errors.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

namespace velquist::platform {
namespace {

TEST(ToldPath, HasTheSeparatorsOfThisSystemAlone)
{
  const std::string here(1, static_cast<char>(std::filesystem::path::preferred_separator));
  EXPECT_EQ(ToldPath("/home\\me/a b.txt"), here + "home" + here + "me" + here + "a b.txt");
  EXPECT_EQ(ToldPath(""), "");
}

TEST(FileReason, IsInWordsThatSayWhatToDo)
{
  constexpr std::pair<int, std::string_view> kReasons[] = {
#ifdef _WIN32
      {ERROR_SHARING_VIOLATION, "It is open in another program"},
      {ERROR_WRITE_PROTECT, "The disk is read-only"},
      {ERROR_ACCESS_DENIED, "You have no right to it, or it is read-only"},
      {ERROR_DISK_FULL, "There is no room left on the disk"},
      {ERROR_PATH_NOT_FOUND, "The folder is gone"},
#else
      {EBUSY, "It is open in another program"},
      {ETXTBSY, "It is open in another program"},
      {EACCES, "You have no right to it, or it is read-only"},
      {EPERM, "You have no right to it, or it is read-only"},
      {ENOSPC, "There is no room left on the disk"},
      {EROFS, "The disk is read-only"},
      {EDQUOT, "There is no room left on the disk"},
      {ESTALE, "The folder is gone"},
#endif
  };
  for (const auto& [code, words] : kReasons)
    EXPECT_EQ(ReasonOf({code, std::system_category()}), words);
}

TEST(FileReason, IsTheSystemsWhereThatIsPlain)
{
  for (const auto reason :
       {std::errc::no_such_file_or_directory, std::errc::is_a_directory, std::errc::file_too_large})
    EXPECT_EQ(ReasonOf(std::make_error_code(reason)), std::make_error_code(reason).message());
}

TEST(FileReason, IsToldWithThePath)
{
  try {
    FailFile("C:\\a.lo1", std::make_error_code(std::errc::is_a_directory));
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(error.Path(), "C:\\a.lo1");
    EXPECT_EQ(error.Reason(), "Is a directory");
  }
}

}  // namespace
}  // namespace velquist::platform
