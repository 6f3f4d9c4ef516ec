// Host unit Toolbars: the buttons of a form's commands.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>

namespace deployment {

/// Images of a form by index, each as the text of an SVG document of 16 by 16 units. Good as long
/// as the package is loaded.
using TImageList = std::span<const std::string_view>;

enum class TToolButtonStyle {
  Button,
  Check, ///< stays down when pressed and comes up when pressed again
};

/// What a button is made with. The views are constants of the package.
struct TToolButton {
  std::string_view Name;    ///< of the button, as in "tbDeploy"
  std::string_view Action;  ///< of its command, as in "sbDeploy"
  std::string_view Caption; ///< of the command; shown where there is no image
  std::string_view Hint;
  int ImageIndex = 0;
  TToolButtonStyle Style = TToolButtonStyle::Button;
  bool Enabled = true;
  std::function<void()> OnExecute; ///< pressed; a check button is down or up already
  std::function<void()> OnUpdate;  ///< asked before the button is used; empty: nothing to ask
};

/// A button on the tool bar, which owns it.
class IToolButton {
public:
  virtual ~IToolButton() = default;
  virtual bool GetEnabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool GetDown() const = 0;
  /// Shows a check button pressed or released; runs nothing.
  virtual void SetDown(bool down) = 0;
};

/// Implemented by the host, owned by the form that made it.
class IToolBar {
public:
  virtual ~IToolBar() = default;
  /// Appends a button.
  virtual IToolButton& AddButton(TToolButton button) = 0;
  virtual void AddSeparator() = 0;
};

} // namespace deployment
