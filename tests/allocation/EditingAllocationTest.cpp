// SPDX-License-Identifier: MIT
// A step button repeats while it is held: what it does must cost next to nothing.
#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "MemoryProgram.h"
#include "runner/SourceDirectory.h"

namespace {

/// Allocations of the whole test program since the last reset.
std::atomic<std::size_t> allocations = 0;

void* Allocate(std::size_t size)
{
  ++allocations;
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

// The array forms come down to these two.
void* operator new(std::size_t size)
{
  return Allocate(size);
}
void operator delete(void* memory) noexcept
{
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
  std::free(memory);
}

namespace velquist {
namespace {

class EditingAllocation : public ::testing::Test {
 protected:
  EditingAllocation()
  {
    program_.PutShippedFiles(velquist::testing::SourceDirectory() / "assets" / "program");
    program_.Start();
  }

  std::size_t AllocationsOf(const char* button, int slot)
  {
    allocations = 0;
    program_.Window().Click(button, slot);
    return allocations;
  }
  void SetBox(const char* box, bool checked) { program_.Window().Check(box, -1, checked); }

  [[nodiscard]] const std::string& Label(std::size_t slot)
  {
    return program_.Window().Form().Label1[slot].text;
  }

 private:
  testing::MemoryProgram program_;
};

TEST_F(EditingAllocation, TheCounterCounts)
{
  allocations = 0;
  const std::string text(100, 'x');
  EXPECT_EQ(text.size(), 100U);
  EXPECT_EQ(allocations, 1U);
}

TEST_F(EditingAllocation, AStepAllocatesNothing)
{
  // The label's text is short enough to need no memory of its own.
  for (const bool fine : {false, true}) {
    SetBox("FineCheck", fine);
    for (int slot = 0; slot <= 34; ++slot) {
      SCOPED_TRACE(slot);
      EXPECT_EQ(AllocationsOf("CmdInc", slot), 0U);
      EXPECT_EQ(AllocationsOf("CmdDec", slot), 0U);
    }
  }
  EXPECT_EQ(Label(0), "22.0");
}

TEST_F(EditingAllocation, StepsUnderTheOptionsAllocateNothing)
{
  SetBox("SpringStiffnessProportional", true);
  SetBox("RollBarConstTotal", true);
  const auto before = Label(6);
  for (const int slot : {4, 6, 26, 27}) {
    SCOPED_TRACE(slot);
    EXPECT_EQ(AllocationsOf("CmdInc", slot), 0U);
    EXPECT_EQ(AllocationsOf("CmdDec", slot), 0U);
  }
  EXPECT_NE(Label(6), before);
}

}  // namespace
}  // namespace velquist
