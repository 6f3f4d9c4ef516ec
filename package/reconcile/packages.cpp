#include "package/reconcile/packages.h"

#include "package/common/ordered_dictionary.h"
#include "package/common/path_text.h"
#include "package/reconcile/class_names.h"
#include "package/reconcile/module_search.h"
#include "package/reconcile/rebuilt_entries.h"

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
  TPackageStep(TReconcileContext& context, std::vector<std::string> packages)
      : FContext(context), FTarget(context.Target), FPackages(std::move(packages)) {}

  void Run();

private:
  void RemoveAll();
  void UpdatePackages();
  TPresentPackages PresentPackages() const;
  void AddUnlessPresent(const std::string& name, const TModuleSearch& search,
                        TPresentPackages& present);
  std::optional<std::string> SymbolFile(const std::string& package,
                                        const std::string& extension) const;
  std::vector<TDefaultEntry> WantedSymbols(const TDeploymentFiles& packages) const;
  std::vector<TDefaultEntry> WantedResources(const TDeploymentFiles& packages) const;
  TReasonCause WhyNot(const std::string& file) const {
    return FTarget.Exists(file) ? TReasonCause::None : TReasonCause::FileMissing;
  }

  TReconcileContext& FContext;
  const TReconcileTarget& FTarget;
  const std::vector<std::string> FPackages;
  const std::string FOutput = FTarget.OutputOf(FTarget.Platform());
};

void TPackageStep::Run() {
  if (FPackages.empty())
    return RemoveAll();
  UpdatePackages();
  const TDeploymentFiles packages = FContext.Entries.OfClass(DependencyPackage);
  RebuildEntries(FContext, FContext.Entries.OfClass(DependencyPackageDebugSymbols),
                 WantedSymbols(packages));
  // Resource modules of every target are taken out; those of this one come back.
  RebuildEntries(FContext, FContext.Deployment.FindFiles({}, {}, {}, DependencyPackageResource),
                 WantedResources(packages));
}

void TPackageStep::RemoveAll() {
  const TEntryReason nothingListed = Listed({}, TReasonCause::Empty);
  for (const std::string_view className : {DependencyPackageDebugSymbols, DependencyPackage}) {
    for (const auto& file : FContext.Entries.OfClass(className))
      FContext.Entries.Remove(file, nothingListed);
  }
  FContext.Entries.RemoveClass(DependencyPackageResource, nothingListed);
}

TPresentPackages TPackageStep::PresentPackages() const {
  TPresentPackages present;
  for (const auto& file : FContext.Entries.OfClass(DependencyPackage)) {
    const std::string_view name = FileNamePart(file->GetLocalName());
    if (TPresentPackage* package = present.Find(name))
      package->Entries.push_back(file);
    else
      present.Set(name, {{file}});
  }
  return present;
}

void TPackageStep::UpdatePackages() {
  TPresentPackages present = PresentPackages();
  const TModuleSearch search(
      FTarget, FTarget.Platform(), [this](const std::string& path, const std::string& what) {
        FContext.Entries.Skip(DependencyPackage, path,
                              {TReconcileStep::Packages, TReasonSource::FileSearch, path, what,
                               TReasonCause::WrongImage});
      });
  std::unordered_set<std::string> known;
  for (const std::string& name : FPackages) {
    if (!name.empty() && known.insert(std::string(FileNamePart(name))).second)
      AddUnlessPresent(name, search, present);
  }
  for (const auto& package : present) {
    if (package.Value.IsListed)
      continue;
    for (const auto& file : package.Value.Entries)
      FContext.Entries.Remove(file, Listed({}, TReasonCause::NoLongerNamed));
  }
}

void TPackageStep::AddUnlessPresent(const std::string& name, const TModuleSearch& search,
                                    TPresentPackages& present) {
  const std::string path = search.FindModule(name);
  const std::string_view file = FileNamePart(path);
  if (TPresentPackage* package = present.Find(file)) {
    package->IsListed = true;
    for (const auto& entry : package->Entries)
      FContext.Entries.Keep(entry, Listed(name));
    return;
  }
  if (SameFileName(FileNamePart(FOutput), file))
    return FContext.Entries.Skip(DependencyPackage, path, Listed(name, TReasonCause::OwnOutput));
  const bool isFound = path != name || FTarget.Exists(path);
  FContext.Entries.Add({std::string(DependencyPackage), path,
                        Listed(name, isFound ? TReasonCause::None : TReasonCause::NotFound)});
}

std::optional<std::string> TPackageStep::SymbolFile(const std::string& package,
                                                    const std::string& extension) const {
  std::string file = FTarget.ChangeFileExtension(package, extension);
  // Without an extension of its own, a dotted name on an Apple platform names the package itself.
  if (file != package && FTarget.Exists(file))
    return file;
  file = ChangeExtension(package, extension == CorvaneSymbols ? ArdentSymbols : CorvaneSymbols);
  return FTarget.Exists(file) ? std::optional(file) : std::nullopt;
}

std::vector<TDefaultEntry> TPackageStep::WantedSymbols(const TDeploymentFiles& packages) const {
  std::vector<TDefaultEntry> wanted;
  const TEntryReason none{TReconcileStep::Packages, TReasonSource::Option, "RemoteDebugSymbols",
                          "false", TReasonCause::SwitchedOff};
  if (!FTarget.NeedsRemoteDebugSymbolsFile()) {
    FContext.Entries.Skip(DependencyPackageDebugSymbols, {}, none);
    return wanted;
  }
  const ISymbolService* service = FTarget.SymbolService();
  const std::string extension =
      service ? service->GetDebugSymbolExtension(FTarget.Project(), FTarget.Platform())
              : std::string();
  for (const auto& package : packages) {
    TEntryReason reason{TReconcileStep::Packages, TReasonSource::SymbolService,
                        package->GetLocalName(), extension};
    if (auto file = SymbolFile(package->GetLocalName(), extension)) {
      wanted.push_back({std::string(DependencyPackageDebugSymbols), std::move(*file), reason});
      wanted.back().RemoteDir =
          GetDeploymentRemoteDir(*package, FTarget.Platform(), FContext.Deployment);
    } else {
      reason.Cause = TReasonCause::FileMissing;
      FContext.Entries.Skip(DependencyPackageDebugSymbols,
                            FTarget.ChangeFileExtension(package->GetLocalName(), extension),
                            reason);
    }
  }
  return wanted;
}

std::vector<TDefaultEntry> TPackageStep::WantedResources(const TDeploymentFiles& packages) const {
  std::vector<TDefaultEntry> wanted;
  const std::string& platform = FTarget.Platform();
  for (const auto& package : packages) {
    for (const std::string_view language : ResourceLanguages) {
      const std::string extension = std::string(".").append(language);
      const std::string module = ChangeExtension(package->GetLocalName(), extension);
      const TEntryReason reason{TReconcileStep::Packages, TReasonSource::FileSearch,
                                package->GetLocalName(), std::string(language), WhyNot(module)};
      if (reason.Cause != TReasonCause::None) {
        FContext.Entries.Skip(DependencyPackageResource, module, reason);
        continue;
      }
      TDefaultEntry entry{std::string(DependencyPackageResource), module, reason};
      entry.EnabledOnCreation = package->GetEnabled(platform);
      entry.RemoteDir = GetDeploymentRemoteDir(*package, platform, FContext.Deployment);
      entry.RemoteName = ChangeExtension(package->GetRemoteName(platform), extension);
      wanted.push_back(std::move(entry));
    }
  }
  return wanted;
}

} // namespace

TReconcileResult ReconcilePackages(TReconcileContext& context) {
  const TReconcileTarget& target = context.Target;
  const IPackageService* service = target.PackageService();
  if (!service) {
    context.Entries.Skip({}, {},
                         {TReconcileStep::Packages,
                          TReasonSource::PackageService,
                          target.Personality(),
                          {},
                          TReasonCause::ServiceMissing});
    return TReconcileResult::CannotReconcile;
  }
  std::vector<std::string> packages;
  if (!context.ReconcileInternally &&
      !service->GetPackages(target.Project(), target.Configuration(), /*runtimePackages=*/true,
                            /*recursive=*/true, target.Platform(), packages))
    return TReconcileResult::Reconciled;
  TPackageStep(context, std::move(packages)).Run();
  return TReconcileResult::Reconciled;
}

} // namespace deployment
