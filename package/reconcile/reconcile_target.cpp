#include "package/reconcile/reconcile_target.h"

#include "package/common/application_type.h"
#include "package/common/convert.h"
#include "package/common/path_text.h"

#include <algorithm>
#include <array>

namespace deployment {
namespace {

constexpr std::array<std::string_view, 4> ApplePlatforms{"OSX32", "iOSSimulator", "iOSDevice32",
                                                         "iOSDevice64"};

// Where files of an unknown platform go.
constexpr std::string_view UnknownPlatformDir = ".\\";

} // namespace

TReconcileTarget::TReconcileTarget(ICustomProject& project, std::string_view platform,
                                   std::string_view configuration, VelmorIDEServices& services)
    : FProject(project), FServices(services),
      FPlatform(platform.empty() ? project.GetCurrentPlatform() : platform),
      FConfiguration(configuration.empty() ? project.GetCurrentConfiguration() : configuration),
      FPersonality(project.GetPersonality()),
      FApplicationKind(MapApplicationType(project.GetApplicationType(FConfiguration, FPlatform))) {}

bool TReconcileTarget::isApplePlatform() const {
  return std::find(ApplePlatforms.begin(), ApplePlatforms.end(), FPlatform) != ApplePlatforms.end();
}

bool TReconcileTarget::isMobilePlatform(std::string_view platform) const {
  const IPlatform* facts = FServices.GetPlatformManager().FindPlatform(platform);
  return facts && facts->IsMobile();
}

std::string TReconcileTarget::GetDefaultPlatformRemoteDir(std::string_view platform) const {
  const IPlatform* facts = FServices.GetPlatformManager().FindPlatform(platform);
  return facts ? facts->GetDefaultRemoteDir() : std::string(UnknownPlatformDir);
}

std::string TReconcileTarget::GetValidRemoteName() const {
  std::string name = FProject.GetBaseName(FConfiguration, FPlatform);
  const IPlatform* facts = FServices.GetPlatformManager().FindPlatform(FPlatform);
  if (!facts)
    return name;
  const std::string kind = FPersonality == CorvanePersonality
                               ? FProject.GetOutputKind(FConfiguration, FPlatform)
                               : FApplicationKind;
  return facts->GetOutputPrefix(kind) + name + facts->GetOutputExtension(kind);
}

std::string TReconcileTarget::ChangeFileExtension(std::string_view fileName,
                                                  std::string_view extension) const {
  const bool isProgram = !IsPackage() && FApplicationKind != "Library";
  const bool hasDot = FileNamePart(fileName).find('.') != std::string_view::npos;
  if (isProgram && isApplePlatform() && hasDot)
    return std::string(fileName).append(extension);
  return ChangeExtension(fileName, extension);
}

bool TReconcileTarget::NeedsRemoteDebugSymbolsFile() const {
  const IBuildOptions* options = FProject.GetBuildOptions();
  return options && options->HasRemoteDebugSymbols(FConfiguration, FPlatform);
}

ISymbolService* TReconcileTarget::SymbolService() const {
  IOTAPersonalityServices* services = FServices.GetPersonalityServices();
  return services ? services->GetSymbolService(FPersonality) : nullptr;
}

IPackageService* TReconcileTarget::PackageService() const {
  IOTAPersonalityServices* services = FServices.GetPersonalityServices();
  return services ? services->GetPackageService(FPersonality) : nullptr;
}

IEnvironmentService* TReconcileTarget::EnvironmentService(std::string_view personality) const {
  IOTAPersonalityServices* services = FServices.GetPersonalityServices();
  return services ? services->GetEnvironmentService(personality) : nullptr;
}

std::string TReconcileTarget::Option(std::string_view name) const {
  const IOTAProjectOptionsConfigurations* options = FProject.GetOptionsConfigurations();
  return options ? options->GetOptionValue(FConfiguration, FPlatform, name) : std::string();
}

bool TReconcileTarget::BooleanOption(std::string_view name) const {
  const std::string text = Option(name);
  if (text.empty())
    return false;
  const std::optional<bool> value = TextToBoolean(text);
  if (!value)
    throw TInputError(std::string("the option \"")
                          .append(name)
                          .append("\" is \"")
                          .append(text)
                          .append("\", which is no Boolean (true or false)"),
                      {FProject.GetProjectFileName(), 0});
  return *value;
}

std::string TReconcileTarget::OutputOf(std::string_view platform) const {
  return FServices.GetFileUtils().MakeRelativePath(
      FProject.GetOutputFileName(FConfiguration, platform),
      DirectoryPart(FProject.GetProjectFileName()));
}

std::string TReconcileTarget::Macros() const {
  return "Config=" + FConfiguration + ";Platform=" + FPlatform;
}

bool TReconcileTarget::Exists(std::string_view localName) const {
  const std::string expanded = FServices.GetMacroUtils().ExpandRootMacro(localName, Macros());
  const IFileUtils& files = FServices.GetFileUtils();
  return files.FileExists(files.QualifyPath(expanded, FProject.GetProjectFileName()));
}

} // namespace deployment
