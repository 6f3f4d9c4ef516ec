// Whose projects are read: what the files of one kind of build say about targets, outputs and
// files.
#pragma once

#include "workbench/msbuild/evaluation_note.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/output_trace.h"
#include "workbench/project/project_layout.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace workbench {

class TProjectSettings;

/// A configuration and a platform, in this system's names.
struct TProjectTarget {
  std::string Configuration;
  std::string Platform;

  bool operator==(const TProjectTarget&) const = default;
  bool operator<(const TProjectTarget& other) const {
    return std::tie(Configuration, Platform) < std::tie(other.Configuration, other.Platform);
  }
};

/// What a build of a target makes.
struct TBuildOutput {
  std::string ApplicationType; ///< as the project names it, or the kind that follows
  std::string Kind; ///< of the platform table's rows; what stands in front of and behind BaseName
  std::string BaseName; ///< the name on a target, without what the kind adds
  std::string Path;     ///< stored path seen from the project, or a full one; empty for none
  std::string Nothing;  ///< why a build makes nothing to deploy, half a sentence; empty otherwise
  TUnknown Unknown;     ///< set when Path is not known
};

/// One kind of project. Used on one thread.
class IProjectDialect {
public:
  virtual ~IProjectDialect() = default;

  /// True for a project that is written for this kind of build.
  virtual bool Claims(deployment::IXMLNode& root, const std::filesystem::path& file) const = 0;
  /// Adds to a source what this build tells a project.
  virtual void Prepare(TEvaluationSource& source, const TPlatform* platform,
                       std::string_view platformName) = 0;
  /// Properties that win over those of the project, besides those of the target.
  virtual TNamedTexts Globals(const std::filesystem::path& file, const TNamedTexts& environment,
                              TEvaluationNotes& notes) = 0;
  /// Properties under which a build of the target evaluates the project.
  virtual TNamedTexts TargetProperties(const TProjectTarget& target) const = 0;
  /// What an evaluation without a target says about targets. False when the project looks like
  /// none of this kind after all.
  virtual bool ReadLayout(TMSBuildEvaluation& evaluation, const TOutsideProperties& given,
                          std::string_view lastPlatform, TProjectLayout& layout,
                          TEvaluationNotes& notes) const = 0;

  virtual std::string Personality(const TMSBuildEvaluation& evaluation) const = 0;
  virtual TBuildOutput Output(TMSBuildEvaluation& evaluation, const TPlatform* platform,
                              const std::filesystem::path& file) const = 0;
  /// Adds what the output's path is made of.
  virtual void TraceOutput(TMSBuildEvaluation& evaluation, TOutputTrace& trace) const = 0;
  /// Full path of the directory of the output, as the project writes it.
  virtual TExpanded OutputDirectory(const TMSBuildEvaluation& evaluation) const = 0;
  /// Includes of the items that are files to be deployed with the project.
  virtual std::vector<std::string> Files(TMSBuildEvaluation& evaluation,
                                         TEvaluationNotes& notes) const = 0;
  /// Names of the modules that the target's output needs beside it.
  virtual std::vector<std::string> Packages(const TProjectSettings& settings,
                                            const TProjectTarget& target,
                                            TEvaluationNotes& notes) = 0;
  virtual bool HasRemoteDebugSymbols(TMSBuildEvaluation& evaluation) const = 0;
  /// With its dot; empty when the platform has no symbol files.
  virtual std::string SymbolExtension(const TPlatform* platform,
                                      std::string_view personality) const = 0;
  /// The platform's name in conditions of a build.
  virtual std::string BuildPlatformName(std::string_view platform) const = 0;
  /// The property that holds the configuration in conditions of a build.
  virtual std::string_view ConfigurationProperty() const = 0;
  /// Forgets what was read from files beside the project.
  virtual void Forget() = 0;
};

/// Why a value of a kind was wanted: throws TInputError with the property's place.
[[noreturn]] void FailProperty(const TMSBuildEvaluation& evaluation, std::string_view name,
                               std::string_view value, std::string_view wanted);
/// A Boolean property; false when unset. Throws TInputError when it is no Boolean.
bool BooleanProperty(const TMSBuildEvaluation& evaluation, std::string_view name);

} // namespace workbench
