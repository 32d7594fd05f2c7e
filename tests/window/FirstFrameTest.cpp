// SPDX-License-Identifier: MIT
// How often windows are painted when they come up.
#include <glib.h>
#include <wx/eventfilter.h>

#include <map>
#include <string>
#include <utility>

#include "RealWindow.h"
#include "platform_wx/WxText.h"

namespace velquist::testing {
namespace {

/// While it lives, counts how often each window that has a name is painted. Until the one that is
/// waited for has been, the toolkit has no time for what it puts off, as at a start of the program.
class PaintCount final : public wxEventFilter {
 public:
  explicit PaintCount(std::string awaited)
      : awaited_(std::move(awaited)),
        busy_(g_idle_add_full(G_PRIORITY_LOW - 2, Wait, this, nullptr))
  {
    wxEvtHandler::AddFilter(this);
  }
  ~PaintCount() override
  {
    wxEvtHandler::RemoveFilter(this);
    if (busy_ != 0) g_source_remove(busy_);
  }
  PaintCount(const PaintCount&) = delete;
  PaintCount& operator=(const PaintCount&) = delete;

  int FilterEvent(wxEvent& event) override
  {
    const auto* const window = dynamic_cast<const wxWindow*>(event.GetEventObject());
    if (event.GetEventType() == wxEVT_PAINT && window != nullptr)
      ++times_[platform::ToText(window->GetName())];
    return Event_Skip;
  }

  [[nodiscard]] int Of(const std::string& name) const
  {
    const auto found = times_.find(name);
    return found == times_.end() ? 0 : found->second;
  }

 private:
  static gboolean Wait(gpointer data)
  {
    auto& count = *static_cast<PaintCount*>(data);
    if (count.Of(count.awaited_) == 0) {
      g_usleep(100);
      return G_SOURCE_CONTINUE;
    }
    count.busy_ = 0;
    return G_SOURCE_REMOVE;
  }

  std::string awaited_;
  guint busy_;
  std::map<std::string, int> times_;
};

class FirstFrame : public RealWindow {};

TEST_F(FirstFrame, OfTheMainWindowIsTheOnlyOne)
{
  const PaintCount count("PictureChart");
  Start();
  LetTimePass(300);
  EXPECT_EQ(count.Of("PictureChart"), 1);
  EXPECT_EQ(count.Of("GEMPic1"), 1);
}

TEST_F(FirstFrame, OfTheGearingWindowIsTheOnlyOne)
{
  Start();
  LetTimePass(300);
  const PaintCount count("ThrustChart");
  editor.Play("click MnuGearing\n");
  LetTimePass(300);
  EXPECT_EQ(count.Of("ThrustChart"), 1);
}

}  // namespace
}  // namespace velquist::testing
