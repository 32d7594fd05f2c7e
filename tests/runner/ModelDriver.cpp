// SPDX-License-Identifier: MIT
#include <stdexcept>

#include "runner/Driver.h"

namespace velquist::runner {
namespace {

/// A caption as it is shown: "&&" is a "&", any other "&" only marks the mnemonic.
std::string WithoutMnemonic(std::string_view caption)
{
  std::string shown;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (caption[at] == '&' && ++at == caption.size()) break;
    shown += caption[at];
  }
  return shown;
}

/// The main window's state alone.
class ModelDriver final : public Driver {
 public:
  void Start(const app::Outside& outside, std::string_view command_line) override
  {
    closed_ = false;
    library_.reset();
    window_ = std::make_unique<app::MainWindow>(outside);
    window_->Form_Load(command_line);
  }
  void Stop() override
  {
    library_.reset();
    window_.reset();
  }
  [[nodiscard]] bool Running() const override
  {
    return window_ != nullptr && !closed_ && !window_->Ended();
  }

  [[nodiscard]] std::optional<SeenControl> Seen(std::string_view name, int index) override
  {
    const auto& form = Window().Form();
    const auto* const control = form.Find(name, index);
    if (control == nullptr) return std::nullopt;
    SeenControl seen{control->design->kind, control->text,          control->items,
                     control->selection,    form.IsShown(*control), control->enabled,
                     control->checked,      control->place,         control->marked};
    if (seen.kind == app::ControlKind::kList)
      seen.text = seen.selection < 0 ? std::string()
                                     : seen.items.at(static_cast<std::size_t>(seen.selection));
    else if (control->text == control->design->caption)
      seen.text = WithoutMnemonic(control->text);
    return seen;
  }
  [[nodiscard]] std::string Caption() override { return Window().Form().caption; }
  [[nodiscard]] std::string Status() override { return Window().Form().status; }

  [[nodiscard]] bool Click(std::string_view name, int index) override
  {
    return window_->Click(name, index);
  }
  void Check(std::string_view name, int index, bool checked) override
  {
    window_->Check(name, index, checked);
  }
  void Select(std::string_view name, int index, int position) override
  {
    window_->Select(name, index, position);
  }
  [[nodiscard]] std::string Type(int slot, const std::string& text) override
  {
    return window_->Type(slot, text);
  }
  void Close() override { closed_ = window_->CloseRequested(); }
  void Tick() override { window_->Tick(); }
  void Focus() override { window_->Activated(); }

  [[nodiscard]] app::Library& Library() override
  {
    if (!library_) library_.emplace(Window());
    return *library_;
  }
  void FilterLibrary(std::string_view text) override { Library().Table().SetFilter(text); }
  void SortLibrary(int column) override { Library().Table().Heading_Click(column); }
  void UseOfLibrary(LibraryCommand command, const std::string& path) override
  {
    switch (command) {
      case LibraryCommand::kOpen: return window_->FileDropped(path);
      case LibraryCommand::kReference: return window_->LibraryReference(path);
      case LibraryCommand::kExport: return window_->LibraryExport(path);
      case LibraryCommand::kShow: return window_->LibraryShow(path);
    }
  }

  [[nodiscard]] const app::MainWindow& Window() const override
  {
    if (window_ == nullptr) throw std::logic_error("the program has not been started");
    return *window_;
  }

 private:
  std::unique_ptr<app::MainWindow> window_;
  std::optional<app::Library> library_;
  bool closed_ = false;
};

}  // namespace

std::unique_ptr<Driver> MakeModelDriver()
{
  return std::make_unique<ModelDriver>();
}

}  // namespace velquist::runner
