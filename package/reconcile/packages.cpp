// The runtime packages that a project depends on, their debug symbols and translated resources.
#include "package/common/class_names.h"
#include "package/common/ordered_dictionary.h"
#include "package/common/path_text.h"
#include "package/reconcile/module_search.h"
#include "package/reconcile/reconcile_steps.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>

namespace deployment {
namespace {

using namespace class_names;

// Languages of translated resource modules; a module has its language for an extension.
constexpr std::array<std::string_view, 3> ResourceLanguages{"de", "fr", "ja"};

// Symbol files of packages come with one of these; the other one is tried when one is missing.
constexpr std::string_view CorvaneSymbols = ".vcp";
constexpr std::string_view ArdentSymbols = ".qds";

TEntryReason Listed(std::string_view name, TReasonCause cause = TReasonCause::None) {
  return {TReconcileStep::Packages, TReasonSource::PackageService, "RuntimePackages",
          std::string(name), cause};
}

// The entries of a package, which may be there from several directories.
struct TPresentPackage {
  TDeploymentFiles Entries;
  bool IsListed = false;
};

using TPresentPackages = TOrderedDictionary<TPresentPackage>; // by file name

class TPackageStep {
public:
  explicit TPackageStep(TReconcileContext& context)
      : FContext(context), FTarget(context.Target), FPlan(context.Plan) {}

  void Run(const std::vector<std::string>& names);

private:
  TPresentPackages PresentPackages() const;
  TModuleSearch MakeSearch();
  void WantUnlessPresent(const std::string& name, const TModuleSearch& search,
                         TPresentPackages& present, const std::string& output);

  TReconcileContext& FContext;
  const TReconcileTarget& FTarget;
  TReconcilePlan& FPlan;
  std::vector<TWantId> FNew;
};

void TPackageStep::Run(const std::vector<std::string>& names) {
  TPresentPackages present = PresentPackages();
  const TModuleSearch search = MakeSearch();
  const std::string output = FTarget.OutputOf(FTarget.Platform());
  std::unordered_set<std::string> known;
  for (const std::string& name : names) {
    if (!name.empty() && known.insert(std::string(FileNamePart(name))).second)
      WantUnlessPresent(name, search, present, output);
  }
  // In the order of the list: what goes with a package follows those that are there.
  std::vector<TWantId> packages;
  for (const auto& package : present) {
    for (const auto& entry : package.Value.Entries) {
      if (package.Value.IsListed)
        packages.push_back(FPlan.Keep(entry, Listed(package.Key)));
      else
        FPlan.Leave(entry, Listed({}, TReasonCause::NoLongerNamed));
    }
  }
  packages.insert(packages.end(), FNew.begin(), FNew.end());
  FContext.Packages = std::move(packages);
}

TPresentPackages TPackageStep::PresentPackages() const {
  TPresentPackages present;
  for (const auto& file : FPlan.OfClass(DependencyPackage)) {
    const std::string_view name = FileNamePart(file->GetLocalName());
    if (TPresentPackage* package = present.Find(name))
      package->Entries.push_back(file);
    else
      present.Set(name, {{file}});
  }
  return present;
}

// What was found and passed over is looked into only for whoever wants to know.
TModuleSearch TPackageStep::MakeSearch() {
  if (!FPlan.IsExplained())
    return {FTarget, FTarget.Platform()};
  return {FTarget, FTarget.Platform(), [this](const std::string& path, const std::string& what) {
            FPlan.Skip(DependencyPackage, path,
                       {TReconcileStep::Packages, TReasonSource::FileSearch, path, what,
                        TReasonCause::WrongImage});
          }};
}

void TPackageStep::WantUnlessPresent(const std::string& name, const TModuleSearch& search,
                                     TPresentPackages& present, const std::string& output) {
  const std::string path = search.FindModule(name);
  const std::string_view file = FileNamePart(path);
  if (TPresentPackage* package = present.Find(file)) {
    package->IsListed = true;
    return;
  }
  if (SameFileName(FileNamePart(output), file))
    return FPlan.Skip(DependencyPackage, path, Listed(name, TReasonCause::OwnOutput));
  const bool isFound = path != name || FTarget.Exists(path);
  FNew.push_back(
      FPlan.WantNew({std::string(DependencyPackage), path,
                     Listed(name, isFound ? TReasonCause::None : TReasonCause::NotFound)}));
}

void RemovePackages(TReconcilePlan& plan) {
  const TEntryReason nothingListed = Listed({}, TReasonCause::Empty);
  for (const std::string_view className : {DependencyPackageDebugSymbols, DependencyPackage}) {
    for (const auto& file : plan.OfClass(className))
      plan.Leave(file, nothingListed);
  }
  plan.RemoveClass(DependencyPackageResource, {}, nothingListed);
}

// The files that go with the packages.
class TPackageFollowers {
public:
  explicit TPackageFollowers(TReconcileContext& context)
      : FContext(context), FTarget(context.Target), FPlan(context.Plan) {}

  void Run(const std::vector<TWantId>& packages);

private:
  bool FindSymbolExtension();
  void WantSymbols(TWantId package);
  void WantResources(TWantId package);
  std::optional<std::string> SymbolFile(const std::string& package) const;

  TReconcileContext& FContext;
  const TReconcileTarget& FTarget;
  TReconcilePlan& FPlan;
  std::string FSymbolExtension;
  std::vector<TDefaultEntry> FWanted; // package by package
};

void TPackageFollowers::Run(const std::vector<TWantId>& packages) {
  const bool withSymbols = FindSymbolExtension();
  for (const TWantId package : packages) {
    if (!FPlan.IsLive(package))
      continue;
    if (withSymbols)
      WantSymbols(package);
    WantResources(package);
  }
  std::vector<TLeavingEntry> present;
  for (auto& file : FPlan.OfClass(DependencyPackageDebugSymbols))
    present.push_back({std::move(file), /*FromEveryTarget=*/false});
  // Resource modules of every target are taken out; those of this one come back.
  for (auto& file : FContext.Deployment.FindFiles({}, {}, {}, DependencyPackageResource))
    present.push_back({std::move(file), /*FromEveryTarget=*/true});
  FPlan.Rebuild(present, FWanted);
}

bool TPackageFollowers::FindSymbolExtension() {
  if (!FTarget.NeedsRemoteDebugSymbolsFile()) {
    FPlan.Skip(DependencyPackageDebugSymbols, {},
               {TReconcileStep::Packages, TReasonSource::Option, "RemoteDebugSymbols", "false",
                TReasonCause::SwitchedOff});
    return false;
  }
  if (const ISymbolService* service = FTarget.SymbolService())
    FSymbolExtension = service->GetDebugSymbolExtension(FTarget.Project(), FTarget.Platform());
  return true;
}

std::optional<std::string> TPackageFollowers::SymbolFile(const std::string& package) const {
  std::string file = FTarget.ChangeFileExtension(package, FSymbolExtension);
  // Without an extension of its own, a dotted name on an Apple platform names the package itself.
  if (file != package && FTarget.Exists(file))
    return file;
  file =
      ChangeExtension(package, FSymbolExtension == CorvaneSymbols ? ArdentSymbols : CorvaneSymbols);
  return FTarget.Exists(file) ? std::optional(file) : std::nullopt;
}

void TPackageFollowers::WantSymbols(TWantId package) {
  const std::string& name = FPlan.Wanted(package).LocalName;
  TEntryReason reason{TReconcileStep::Packages, TReasonSource::SymbolService, name,
                      FSymbolExtension};
  if (auto file = SymbolFile(name)) {
    FWanted.push_back({std::string(DependencyPackageDebugSymbols), std::move(*file), reason});
    FWanted.back().RemoteDir = FPlan.RemoteDirOf(package);
    return;
  }
  reason.Cause = TReasonCause::FileMissing;
  FPlan.Skip(DependencyPackageDebugSymbols, FTarget.ChangeFileExtension(name, FSymbolExtension),
             reason);
}

void TPackageFollowers::WantResources(TWantId package) {
  const std::string& name = FPlan.Wanted(package).LocalName;
  for (const std::string_view language : ResourceLanguages) {
    const std::string extension = std::string(".").append(language);
    const std::string module = ChangeExtension(name, extension);
    TEntryReason reason{TReconcileStep::Packages, TReasonSource::FileSearch, name,
                        std::string(language)};
    if (!FTarget.Exists(module)) {
      reason.Cause = TReasonCause::FileMissing;
      FPlan.Skip(DependencyPackageResource, module, reason);
      continue;
    }
    TDefaultEntry entry{std::string(DependencyPackageResource), module, reason};
    entry.EnabledOnCreation = FPlan.IsEnabled(package);
    entry.RemoteDir = FPlan.RemoteDirOf(package);
    entry.RemoteName = ChangeExtension(FPlan.RemoteNameOf(package), extension);
    FWanted.push_back(std::move(entry));
  }
}

} // namespace

void PlanPackages(TReconcileContext& context) {
  const IPackageService* service = context.Target.PackageService();
  const TReconcileTarget& target = context.Target;
  std::vector<std::string> names;
  if (!context.ReconcileInternally &&
      !service->GetPackages(target.Project(), target.Configuration(), /*runtimePackages=*/true,
                            /*recursive=*/true, target.Platform(), names))
    return;
  if (names.empty())
    RemovePackages(context.Plan);
  else
    TPackageStep(context).Run(names);
}

void FollowPackages(TReconcileContext& context) {
  if (context.Packages)
    TPackageFollowers(context).Run(*context.Packages);
}

} // namespace deployment
