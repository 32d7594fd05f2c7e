// SPDX-License-Identifier: MIT
// A window with the editor's menus and nothing in it: what the toolkit itself costs.
#include "Bare.h"

int main(int argc, char** argv)
{
  return velquist::bench::Run(argc, argv, velquist::bench::MakeFrame);
}
