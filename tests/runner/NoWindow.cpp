// SPDX-License-Identifier: MIT
#include <cstdio>

#include "runner/Driver.h"
#include "runner/Runner.h"

namespace velquist::runner {

std::unique_ptr<Driver> MakeWindowDriver()
{
  return nullptr;
}

int RunWithWindowSystem(const std::function<int()>& /*body*/)
{
  std::fputs("velquist_scenario: built without the window\n", stderr);
  return kNotRead;
}

}  // namespace velquist::runner
