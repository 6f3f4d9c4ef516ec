// The target box without a window: any target can be chosen in it.
#pragma once

#include "package/host/api/idetargetscombobox.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace workbench {

class TMemoryTargetsComboBox final : public deployment::ITargetsComboBox {
public:
  void SetProject(deployment::ICustomProject* project) override;
  void Select(const deployment::TDeploymentTarget& target) override;
  void Repopulate() override { ++FRepopulations; }
  std::string GetSelectedPlatform() const override { return FPlatform; }
  std::string GetSelectedConfiguration() const override { return FConfiguration; }
  void SetOnChange(std::function<void()> handler) override { FOnChange = std::move(handler); }

  /// The user chooses a target. An empty platform stands for all of them.
  void Choose(std::string_view configuration, std::string_view platform);
  /// How often the list was filled anew.
  int Repopulations() const { return FRepopulations; }
  const deployment::ICustomProject* Project() const { return FProject; }

private:
  deployment::ICustomProject* FProject = nullptr;
  std::string FPlatform;
  std::string FConfiguration;
  std::function<void()> FOnChange;
  int FRepopulations = 0;
};

} // namespace workbench
