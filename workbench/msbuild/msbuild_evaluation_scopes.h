// What holds while a part of a project is evaluated, and is as before at its end.
#pragma once

#include "workbench/msbuild/msbuild_evaluation.h"

#include <filesystem>

namespace workbench {

// Makes a file the one at hand, and the one before again at its end.
class TMSBuildEvaluation::TFileScope {
public:
  TFileScope(TMSBuildEvaluation& evaluation, const std::filesystem::path& file)
      : FEvaluation(evaluation), FOuter(evaluation.FFile) {
    Enter(&file);
  }
  // What names the outer file anew takes memory; where there is none the evaluation fails.
  ~TFileScope() noexcept(false) {
    if (FOuter)
      Enter(FOuter);
  }
  TFileScope(const TFileScope&) = delete;
  TFileScope& operator=(const TFileScope&) = delete;

private:
  void Enter(const std::filesystem::path* file) {
    FEvaluation.FFile = file;
    FEvaluation.FProperties.SetThisFile(*file);
  }

  TMSBuildEvaluation& FEvaluation;
  const std::filesystem::path* FOuter;
};

// What is evaluated while it lives counts only if something that is not known turns out so.
class TMSBuildEvaluation::TDoubt {
public:
  TDoubt(TMSBuildEvaluation& evaluation, const TUnknown& doubt)
      : FEvaluation(evaluation), FOuter(evaluation.FDoubt) {
    if (!FOuter)
      evaluation.FDoubt = doubt;
  }
  ~TDoubt() { FEvaluation.FDoubt = FOuter; }
  TDoubt(const TDoubt&) = delete;
  TDoubt& operator=(const TDoubt&) = delete;

private:
  TMSBuildEvaluation& FEvaluation;
  const TUnknown FOuter;
};

/// True when the condition of an import asks whether a file is there, which then may be missing.
bool AsksExists(const deployment::IXMLNode& node);

/// The file with its links resolved; the file itself where that fails.
std::filesystem::path RealPath(const std::filesystem::path& file);

} // namespace workbench
