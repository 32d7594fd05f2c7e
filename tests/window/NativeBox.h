// SPDX-License-Identifier: MIT
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>
#include <vector>

namespace velquist::testing {

/// Plays the user at the boxes of the system: while it lives, calls `user` once with each dialog
/// that has come up and has the keyboard. One that stays for seconds is a failure and is closed, as
/// is none at all.
class AtNativeBox {
 public:
  explicit AtNativeBox(std::function<void(GtkWidget* box)> user);
  AtNativeBox(const AtNativeBox&) = delete;
  AtNativeBox& operator=(const AtNativeBox&) = delete;
  ~AtNativeBox();

 private:
  static gboolean Look(gpointer self);

  std::function<void(GtkWidget*)> user_;
  guint timer_;
  GtkWidget* seen_ = nullptr;
  bool met_ = false;
  int looks_ = 0;  ///< at the box that was seen last
};

/// The labels in `box`, from the first.
[[nodiscard]] std::vector<GtkLabel*> LabelsIn(GtkWidget* box);

/// The names of the pictures in `box`.
[[nodiscard]] std::vector<std::string> ImagesIn(GtkWidget* box);

}  // namespace velquist::testing
