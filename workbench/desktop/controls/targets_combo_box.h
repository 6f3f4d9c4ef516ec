// The box in which the user chooses configuration and platform.
#pragma once

#include "package/host/api/idetargetscombobox.h"

#include <QComboBox>
#include <QPointer>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Lists each platform of the project with each configuration that is set up for it, then each
/// configuration with all platforms.
class TTargetsComboBox final : public QObject, public deployment::ITargetsComboBox {
  Q_OBJECT

public:
  /// A line of the list; no platform stands for all of them.
  struct TTarget {
    std::string Configuration;
    std::string Platform;
    bool operator==(const TTarget&) const = default;
  };

  /// The box is owned by the object; `parent` may take it away earlier.
  explicit TTargetsComboBox(QWidget* parent);
  ~TTargetsComboBox() override;

  void SetProject(deployment::ICustomProject* project) override;
  void Select(const deployment::TDeploymentTarget& target) override;
  void Repopulate() override;
  std::string GetSelectedPlatform() const override { return FSelected.Platform; }
  std::string GetSelectedConfiguration() const override { return FSelected.Configuration; }
  void SetOnChange(std::function<void()> handler) override { FOnChange = std::move(handler); }

  QComboBox& Box() { return *FBox; }
  /// The lines of the list.
  const std::vector<TTarget>& Listed() const { return FTargets; }
  const TTarget& Selected() const { return FSelected; }
  /// As if the user chose it; a target that the list does not have is added to it.
  void Choose(std::string_view configuration, std::string_view platform);
  /// Asked before the user's choice counts; false keeps the target. Empty: every choice counts.
  void SetMayChange(std::function<bool()> mayChange) { FMayChange = std::move(mayChange); }

signals:
  /// The list or the target is another one.
  void Changed();
  /// The target was chosen, and the form has done what it does about that.
  void Chosen();

private:
  std::vector<TTarget> Targets() const;
  void Show();
  void Activated(int row);
  void Change(const TTarget& target);

  QComboBox* FBox;          // the parent's, who may take it away first
  QPointer<QObject> FAlive; // the same box as long as it stands
  deployment::ICustomProject* FProject = nullptr;
  std::vector<TTarget> FTargets; // as listed
  TTarget FSelected;
  std::function<void()> FOnChange;
  std::function<bool()> FMayChange;
};

} // namespace workbench
