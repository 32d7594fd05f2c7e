// SPDX-License-Identifier: MIT
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace velquist::samples {

/// A comma as decimal point and dots between thousands, in the C++ and, where the system has such a
/// locale, in the C library.
class CommaLocale {
 public:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale::classic(), new Comma)))
  {
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "German"})
      if (std::setlocale(LC_ALL, name) != nullptr) break;
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale()
  {
    std::setlocale(LC_ALL, "C");
    std::locale::global(before_);
  }

 private:
  class Comma : public std::numpunct<char> {
    [[nodiscard]] char do_decimal_point() const override { return ','; }
    [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    [[nodiscard]] std::string do_grouping() const override { return "\3"; }
  };

  std::locale before_;
};

}  // namespace velquist::samples
