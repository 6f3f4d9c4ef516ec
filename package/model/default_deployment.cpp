#include "package/model/default_deployment.h"

#include "package/common/application_type.h"
#include "package/host/api/repositoryfile.h"

#include <string>
#include <string_view>
#include <utility>

namespace deployment {
namespace {

// What the project itself says comes first; many projects say it only among their options.
std::string ValueOrOption(std::string value, const ICustomProject& project,
                          std::string_view option) {
  return value.empty() ? project.GetProjectOption(option) : std::move(value);
}

} // namespace

std::shared_ptr<IXMLDocument> LoadDefaultDeployment(VelmorIDEServices& host,
                                                    const ICustomProject& project) {
  const std::string fileName = RepositoryFile(host.GetAppStrings(), "Deploy\\defaults.xml");
  if (!host.GetFileUtils().FileExists(fileName))
    return nullptr;
  const std::string framework = ValueOrOption(project.GetFrameworkType(), project, "FrameworkType");
  const std::string applicationType =
      ValueOrOption(project.GetApplicationType({}, {}), project, "AppType");

  const auto filter = host.CreateTextFilter();
  filter->SetVariable("PROJECTNAME", project.GetModuleName());
  filter->SetVariable("APPTYPE", MapApplicationType(applicationType));
  filter->SetVariable("PERSONALITY", project.GetPersonality());
  filter->SetVariable("FRAMEWORK", framework);
  return host.GetXMLDocuments().LoadXMLData(filter->Filter(fileName), fileName);
}

} // namespace deployment
