// SPDX-License-Identifier: MIT
#include "SystemCalls.h"

namespace velquist::testing {
namespace {

SystemCalls* watching = nullptr;

}  // namespace

SystemCalls::SystemCalls()
{
  watching = this;
}

SystemCalls::~SystemCalls()
{
  watching = nullptr;
}

bool SystemCalls::Fails(std::string_view name)
{
  const auto index = names.size();
  names.emplace_back(name);
  if (failing_index == index) return true;
  if (failing_name != name || failing_times == 0) return false;
  --failing_times;
  return true;
}

SystemCalls* SystemCalls::Watching()
{
  return watching;
}

}  // namespace velquist::testing
