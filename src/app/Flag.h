// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace velquist::app {

/// A flag that has another value until the end of a block.
class Flag {
 public:
  Flag(bool& flag, bool value) : flag_(flag), before_(std::exchange(flag, value)) {}
  ~Flag() { flag_ = before_; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace velquist::app
