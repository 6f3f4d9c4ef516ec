// The build configurations of a project and how they inherit from each other.
#pragma once

#include "package/host/api/codemgr.h"
#include "workbench/msbuild/evaluation_note.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// The root configuration of every project.
inline constexpr std::string_view BaseConfigurationName = "Base";

/// What a project says about a configuration.
struct TConfigurationRecord {
  std::string Name;
  std::string Parent;                 ///< empty: the base configuration
  std::vector<std::string> Platforms; ///< empty: all of the project's
  deployment::TErrorPlace Place;
};

/// One configuration.
class TBuildConfiguration final : public deployment::IOTABuildConfiguration {
public:
  TBuildConfiguration(std::string name, std::vector<std::string> platforms)
      : FName(std::move(name)), FPlatforms(std::move(platforms)) {}

  std::string GetName() const override { return FName; }
  const TBuildConfiguration* GetParent() const override { return FParent; }
  std::vector<std::string> GetPlatforms() const override { return FPlatforms; }
  void SetParent(const TBuildConfiguration* parent) { FParent = parent; }

private:
  std::string FName;
  const TBuildConfiguration* FParent = nullptr;
  std::vector<std::string> FPlatforms;
};

/// All configurations of a project: the base one first, then the others as the project lists them.
/// Every chain of parents ends at the base one.
class TConfigurationTree {
public:
  /// Of two records with the same name the first one counts. What has to be mended is noted.
  TConfigurationTree(const std::vector<TConfigurationRecord>& records,
                     const std::vector<std::string>& projectPlatforms, TEvaluationNotes& notes);

  const std::vector<std::unique_ptr<TBuildConfiguration>>& All() const { return FAll; }
  const TBuildConfiguration& Base() const { return *FAll.front(); }
  /// Compared exactly; null when the project has none of that name.
  const TBuildConfiguration* Find(std::string_view name) const;

private:
  void Add(const TConfigurationRecord& record, const std::vector<std::string>& projectPlatforms);
  void Connect(const std::vector<TConfigurationRecord>& records, TEvaluationNotes& notes);
  void BreakCircles(const std::vector<TConfigurationRecord>& records, TEvaluationNotes& notes);

  std::vector<std::unique_ptr<TBuildConfiguration>> FAll;
  std::unordered_map<std::string, TBuildConfiguration*> FByName;
};

} // namespace workbench
