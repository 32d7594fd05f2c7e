// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "runner/Driver.h"

int main(int argc, char** argv)
{
  ::testing::InitGoogleTest(&argc, argv);
  return velquist::runner::RunWithWindowSystem([] { return RUN_ALL_TESTS(); });
}
