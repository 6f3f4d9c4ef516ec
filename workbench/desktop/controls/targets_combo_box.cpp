#include "workbench/desktop/controls/targets_combo_box.h"

#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/controls/wheel_guard.h"
#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace workbench {

TTargetsComboBox::TTargetsComboBox(QWidget* parent) : FBox(new QComboBox(parent)), FAlive(FBox) {
  FBox->setAccessibleName(QCoreApplication::translate("TTargetsComboBox", "Target"));
  FBox->setToolTip(
      QCoreApplication::translate("TTargetsComboBox", "Target: platform and configuration"));
  FBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  FBox->setFocusPolicy(Qt::TabFocus); // a choice by mouse leaves the focus in the list
  FBox->installEventFilter(new TWheelGuard(FBox));
  connect(FBox, QOverload<int>::of(&QComboBox::activated), this, &TTargetsComboBox::Activated);
}

TTargetsComboBox::~TTargetsComboBox() {
  delete FAlive.data();
}

std::vector<TTargetsComboBox::TTarget> TTargetsComboBox::Targets() const {
  std::vector<TTarget> targets;
  if (!FProject || !FProject->GetProjectPlatforms() || !FProject->GetOptionsConfigurations())
    return targets;
  auto& options = *FProject->GetOptionsConfigurations();
  auto configurations = options.GetConfigurations();
  // What others inherit from is no target, unless there is nothing else.
  if (configurations.size() > 1)
    std::erase(configurations, &options.GetBaseConfiguration());
  for (const std::string& platform : FProject->GetProjectPlatforms()->GetSupportedPlatforms()) {
    for (const auto* configuration : configurations) {
      const auto platforms = configuration->GetPlatforms();
      if (std::find(platforms.begin(), platforms.end(), platform) != platforms.end())
        targets.push_back({configuration->GetName(), platform});
    }
  }
  for (const auto* configuration : configurations)
    targets.push_back({configuration->GetName(), {}});
  return targets;
}

void TTargetsComboBox::SetProject(deployment::ICustomProject* project) {
  FProject = project;
  FSelected = project ? TTarget{project->GetCurrentConfiguration(), project->GetCurrentPlatform()}
                      : TTarget();
  Repopulate();
}

// Asked for after every change of the list of files, so the same lines are left alone.
void TTargetsComboBox::Repopulate() {
  if (!FAlive)
    return;
  std::vector<TTarget> targets = Targets();
  if (FProject && std::find(targets.begin(), targets.end(), FSelected) == targets.end())
    targets.insert(targets.begin(), FSelected);
  if (targets != FTargets || FBox->count() != static_cast<int>(targets.size())) {
    FTargets = std::move(targets);
    Show();
  }
}

void TTargetsComboBox::Show() {
  FBox->clear();
  for (const auto& [configuration, platform] : FTargets) {
    const QString name = platform.empty()
                             ? QCoreApplication::translate("TTargetsComboBox", "All Platforms")
                             : ToQString(platform);
    FBox->addItem(configuration.empty() ? name : name + " – " + ToQString(configuration));
  }
  const auto selected = std::find(FTargets.begin(), FTargets.end(), FSelected);
  FBox->setCurrentIndex(selected == FTargets.end() ? -1
                                                   : static_cast<int>(selected - FTargets.begin()));
  emit Changed();
}

void TTargetsComboBox::Activated(int row) {
  const auto index = static_cast<std::size_t>(row);
  if (index >= FTargets.size() || FTargets[index] == FSelected)
    return;
  Change(FTargets[index]);
}

void TTargetsComboBox::Select(const deployment::TDeploymentTarget& target) {
  FSelected = {target.Configuration,
               target.Platform == deployment::sAllPlatforms ? std::string() : target.Platform};
  Repopulate();
  if (FAlive)
    Show();
}

void TTargetsComboBox::Choose(std::string_view configuration, std::string_view platform) {
  Change({std::string(configuration), std::string(platform)});
}

void TTargetsComboBox::Change(const TTarget& target) {
  if (FMayChange && !FMayChange())
    return Show();
  Select({target.Configuration, target.Platform});
  if (FOnChange)
    Guarded(FOnChange);
  emit Chosen();
}

} // namespace workbench
