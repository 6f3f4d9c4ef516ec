// A tool bar without a window.
#pragma once

#include "package/host/api/toolbars.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class TMemoryToolButton final : public deployment::IToolButton {
public:
  explicit TMemoryToolButton(deployment::TToolButton button);

  bool GetEnabled() const override { return FEnabled; }
  void SetEnabled(bool enabled) override { FEnabled = enabled; }
  bool GetDown() const override { return FDown; }
  void SetDown(bool down) override { FDown = down; }

  const deployment::TToolButton& Description() const { return FButton; }
  /// Lets the form bring the button up to date.
  void Update();
  /// The user presses the button; false when it is disabled, and nothing ran.
  bool Press();

private:
  deployment::TToolButton FButton;
  bool FEnabled;
  bool FDown = false;
};

class TMemoryToolBar final : public deployment::IToolBar {
public:
  explicit TMemoryToolBar(deployment::TImageList images) : FImages(images) {}

  deployment::IToolButton& AddButton(deployment::TToolButton button) override;
  void AddSeparator() override { FItems.emplace_back(); }

  deployment::TImageList Images() const { return FImages; }
  /// Names of the buttons in order; a separator is an empty text.
  std::vector<std::string_view> Layout() const;
  /// The button of that name; null when there is none.
  TMemoryToolButton* Find(std::string_view name) const;

private:
  deployment::TImageList FImages;
  std::vector<std::unique_ptr<TMemoryToolButton>> FItems; ///< null: a separator
};

} // namespace workbench
