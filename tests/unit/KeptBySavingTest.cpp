// SPDX-License-Identifier: MIT
// What a saved file keeps of the old one beside its owner and plain rights.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/AtomicFile.h"
#include "platform/HostFileSystem.h"

#ifdef _WIN32
#include <windows.h>
// What needs that one first.
#include <sddl.h>

#include <cstddef>
#include <thread>
#else
#include <sys/stat.h>
#include <sys/xattr.h>

#include "AccessListSample.h"
#endif

namespace velquist::platform {
namespace {

namespace fs = std::filesystem;
using namespace velquist::samples;

class SavedFile : public ::testing::Test {
 protected:
  SavedFile() { WriteFile(target, "old bytes"); }

  void Save() const { WriteAtomically(target, AsBytes("new"), "the shown path"); }

  TemporaryFolder folder;
  fs::path target = folder / "a.lo1";
};

TEST_F(SavedFile, KeepsItsNameAsTheDiskSpellsIt)
{
  HostFileSystem files;
  files.WriteOver(folder.Text() + "\\A.LO1", AsBytes("new"));
  files.WriteText(folder.Text() + "\\A.lo1", "newer");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.lo1"});
  EXPECT_EQ(ContentOf(target), "newer");
}

#ifdef _WIN32

TEST_F(SavedFile, StaysHiddenAndOfTheSystem)
{
  constexpr DWORD kHidden = FILE_ATTRIBUTE_HIDDEN;
  constexpr DWORD kSystem = FILE_ATTRIBUTE_SYSTEM;
  for (const DWORD attributes : {kHidden, kSystem, kHidden | kSystem}) {
    ASSERT_TRUE(::SetFileAttributesW(target.c_str(), attributes));
    Save();
    EXPECT_EQ(::GetFileAttributesW(target.c_str()) & (kHidden | kSystem), attributes);
    ASSERT_TRUE(::SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(ContentOf(target), "new");
  }
}

/// The access list as text.
std::string AccessOf(const fs::path& path)
{
  DWORD size = 0;
  ::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> list(size);
  EXPECT_TRUE(
      ::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size));
  char* text = nullptr;
  EXPECT_TRUE(::ConvertSecurityDescriptorToStringSecurityDescriptorA(
      list.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr));
  std::string access = text == nullptr ? "" : text;
  ::LocalFree(text);
  return access;
}

TEST_F(SavedFile, KeepsAnAccessListOfItsOwn)
{
  // Everyone may read a new file in the directory, but not this one.
  WriteFile(folder / "usual.lo1", "new");
  PSECURITY_DESCRIPTOR list = nullptr;
  ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorA(
      "D:P(A;;FA;;;SY)(A;;FA;;;BA)", SDDL_REVISION_1, &list, nullptr));
  ASSERT_TRUE(::SetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, list));
  ::LocalFree(list);
  const auto before = AccessOf(target);
  ASSERT_NE(before, AccessOf(folder / "usual.lo1"));
  Save();
  EXPECT_EQ(ContentOf(target), "new");
  EXPECT_EQ(AccessOf(target), before);
}

TEST_F(SavedFile, WaitsForAProgramThatHoldsItForAMoment)
{
  const auto held = ::CreateFileW(target.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  std::thread release([held] {
    ::Sleep(150);
    ::CloseHandle(held);
  });
  EXPECT_NO_THROW(Save());
  release.join();
  EXPECT_EQ(ContentOf(target), "new");
  // The system's own temporary files (rf*.tmp, which Wine leaves) are not ours.
  for (const auto& name : folder.Names()) EXPECT_FALSE(name.starts_with(".velquist")) << name;
}

#else

bool Give(const fs::path& path, const char* name, std::string_view value)
{
  return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

std::map<std::string, std::string> AttributesOf(const fs::path& path)
{
  std::array<char, 4096> names{};
  std::map<std::string, std::string> attributes;
  const auto size = ::listxattr(path.c_str(), names.data(), names.size());
  for (const char* name = names.data(); name < names.data() + size;
       name += std::string_view(name).size() + 1) {
    std::array<char, 4096> value{};
    const auto length = ::getxattr(path.c_str(), name, value.data(), value.size());
    EXPECT_GE(length, 0) << name;
    attributes[name].assign(value.data(), static_cast<std::size_t>(length));
  }
  return attributes;
}

std::uint32_t ModeOf(const fs::path& path)
{
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

TEST_F(SavedFile, KeepsItsAccessList)
{
  if (!Give(target, kAccess, AccessList())) GTEST_SKIP() << "no access lists here";
  ASSERT_EQ(ModeOf(target), 0660U) << "the group's bits are the mask";
  Save();
  EXPECT_EQ(ContentOf(target), "new");
  EXPECT_EQ(AttributesOf(target)[kAccess], AccessList());
  EXPECT_EQ(ModeOf(target), 0660U);
}

TEST_F(SavedFile, GivesTheGroupNothingMoreWhereTheAccessListDoesNotCome)
{
  if (!Give(target, kAccess, AccessList())) GTEST_SKIP() << "no access lists here";
  auto calls = SystemSaveCalls();
  calls.keep_access_list = [](const fs::path&, int) { return std::error_code{}; };
  WriteAtomically(target, AsBytes("new"), "the shown path", calls);
  EXPECT_EQ(ModeOf(target), 0600U);
}

TEST_F(SavedFile, GetsNoAccessListOfItsDirectoryThatItHadNot)
{
  if (!Give(folder.Path(), kDefault, AccessList())) GTEST_SKIP() << "no access lists here";
  for (const mode_t mode : {0600U, 0640U, 0664U}) {
    ASSERT_EQ(::chmod(target.c_str(), mode), 0);
    Save();
    EXPECT_EQ(AttributesOf(target).count(kAccess), 0U);
    EXPECT_EQ(ModeOf(target), mode);
  }
  WriteAtomically(folder / "new.lo1", AsBytes("new"), "the shown path");
  EXPECT_EQ(AttributesOf(folder / "new.lo1").count(kAccess), 1U) << "a new file gets it";
}

TEST_F(SavedFile, KeepsItsExtendedAttributes)
{
  const std::map<std::string, std::string> given = {
      {"user.note", "fast in the wet"}, {"user.empty", ""}, {"user.bytes", std::string(900, '\0')}};
  for (const auto& [name, value] : given)
    if (!Give(target, name.c_str(), value)) GTEST_SKIP() << "no extended attributes here";
  const auto before = AttributesOf(target);
  Save();
  EXPECT_EQ(ContentOf(target), "new");
  EXPECT_EQ(AttributesOf(target), before);
  for (const auto& [name, value] : given) EXPECT_EQ(AttributesOf(target)[name], value) << name;
}

TEST_F(SavedFile, BehindALinkKeepsWhatItHad)
{
  fs::create_symlink("a.lo1", folder / "link.lo1");
  if (!Give(target, "user.note", "kept")) GTEST_SKIP() << "no extended attributes here";
  WriteAtomically(folder / "link.lo1", AsBytes("new"), "the shown path");
  EXPECT_TRUE(fs::is_symlink(folder / "link.lo1"));
  EXPECT_EQ(ContentOf(target), "new");
  EXPECT_EQ(AttributesOf(target)["user.note"], "kept");
}

#endif

}  // namespace
}  // namespace velquist::platform
