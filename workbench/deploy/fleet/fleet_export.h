// Writes a deployment as an Ansible project.
#pragma once

#include "workbench/deploy/deploy_run.h"
#include "workbench/deploy/fleet/fleet_list.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

/// Nothing was exported, and what stood in the place of the folder is untouched; the text says why.
class TFleetError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// True for a platform whose machines have Python.
bool IsFleetPlatform(std::string_view platform);

/// Used once. Everything must outlive the object.
class TFleetExport {
public:
  /// `facts` must name a profile. `hear` gets the lines that local commands print.
  TFleetExport(TRunFacts facts, const TDeployOptions& options, THearLine hear,
               const std::atomic<int>& cancelled);

  /// Works out what is exported. Every reason why nothing may be stands in the plan's problems,
  /// what needs consent in its commands and in its files from outside.
  const TDeployPlan& Plan();
  /// As it was worked out last, with the hashes when the folder was written.
  const TDeployPlan& Current() const { return FPlan; }
  /// Runs the local commands of the files and writes the folder, in the place of an export that
  /// stands there. Throws TFleetError, TArchiveError and std::system_error.
  void Write(const std::filesystem::path& folder);

private:
  TPlanOptions PlanOptions(bool withHashes) const;
  void MakePlan(bool withHashes);
  void RunLocalCommands();
  void WriteInto(const std::filesystem::path& folder);
  void WriteTemplates(const std::filesystem::path& folder) const;
  void WriteContents(const std::filesystem::path& folder);
  TFleetMembers UnpackMembers(const std::filesystem::path& scratch) const;
  TFleetFacts Facts() const;

  TRunFacts FFacts;
  const TDeployOptions FOptions;
  const THearLine FHear;
  const std::atomic<int>& FCancelled;
  TDeployPlan FPlan;
};

/// Throws TFleetError when something else than an export stands there.
void CheckFleetFolder(const std::filesystem::path& folder);

} // namespace workbench
