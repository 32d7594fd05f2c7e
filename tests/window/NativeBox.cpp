// SPDX-License-Identifier: MIT
#include "NativeBox.h"

#include <gtest/gtest.h>

#include <utility>

#include "runner/window/WindowSystem.h"

namespace velquist::testing {
namespace {

constexpr guint kPause = 50;  ///< milliseconds between two looks
constexpr int kMostLooks = 200;

GtkWidget* ShownDialog()
{
  GtkWidget* found = nullptr;
  GList* const windows = gtk_window_list_toplevels();
  for (const GList* entry = windows; entry != nullptr; entry = entry->next) {
    auto* const window = GTK_WIDGET(entry->data);
    if (GTK_IS_DIALOG(window) && gtk_widget_get_mapped(window) != FALSE &&
        gtk_window_is_active(GTK_WINDOW(window)) != FALSE)
      found = window;
  }
  g_list_free(windows);
  return found;
}

void Walk(GtkWidget* widget, const std::function<void(GtkWidget*)>& see)
{
  see(widget);
  if (!GTK_IS_CONTAINER(widget)) return;
  gtk_container_forall(
      GTK_CONTAINER(widget),
      [](GtkWidget* child, gpointer seeing) {
        Walk(child, *static_cast<const std::function<void(GtkWidget*)>*>(seeing));
      },
      const_cast<std::function<void(GtkWidget*)>*>(&see));
}

}  // namespace

AtNativeBox::AtNativeBox(std::function<void(GtkWidget*)> user)
    : user_(std::move(user)), timer_(g_timeout_add(kPause, Look, this))
{
  runner::LetBoxesThrough(true);
}

AtNativeBox::~AtNativeBox()
{
  runner::LetBoxesThrough(false);
  g_source_remove(timer_);
  EXPECT_TRUE(met_) << "no box came up";
}

gboolean AtNativeBox::Look(gpointer self)
{
  auto& at = *static_cast<AtNativeBox*>(self);
  GtkWidget* const box = ShownDialog();
  if (box != at.seen_) {
    at.seen_ = box;
    at.looks_ = 0;
    if (box == nullptr) return G_SOURCE_CONTINUE;
    at.met_ = true;
    at.user_(box);
  } else if (box != nullptr && ++at.looks_ == kMostLooks) {
    ADD_FAILURE() << "the box does not go";
    gtk_dialog_response(GTK_DIALOG(box), GTK_RESPONSE_CANCEL);
  }
  return G_SOURCE_CONTINUE;
}

std::vector<GtkLabel*> LabelsIn(GtkWidget* box)
{
  std::vector<GtkLabel*> labels;
  Walk(box, [&](GtkWidget* widget) {
    if (GTK_IS_LABEL(widget)) labels.push_back(GTK_LABEL(widget));
  });
  return labels;
}

std::vector<std::string> ImagesIn(GtkWidget* box)
{
  std::vector<std::string> names;
  Walk(box, [&](GtkWidget* widget) {
    const char* name = nullptr;
    if (GTK_IS_IMAGE(widget)) gtk_image_get_icon_name(GTK_IMAGE(widget), &name, nullptr);
    if (name != nullptr) names.emplace_back(name);
  });
  return names;
}

}  // namespace velquist::testing
