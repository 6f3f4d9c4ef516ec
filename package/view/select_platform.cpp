#include "package/view/select_platform.h"

#include "package/host/api/platformapi.h"
#include "package/host/api/target_entries.h"
#include "package/view/deployment_frame.h"
#include "package/view/select_form.h"

namespace deployment {

bool SelectPlatform(TDeploymentFrame& frame, IOTAProject& project, IProjectDeploymentFile& file,
                    IModalForms* forms) {
  const IOTAProjectPlatforms* platforms = project.GetProjectPlatforms();
  if (!platforms || !forms)
    return false;
  TSelectForm form;
  for (const std::string& platform : platforms->GetSupportedPlatforms())
    form.AddPlatform(platform, HoldsPlatform(file, platform));
  if (forms->ShowSelectPlatforms(form) != TModalResult::OK)
    return false;
  for (std::size_t row = 0; row < form.GetPlatforms().size(); ++row) {
    const std::string& platform = form.GetPlatforms()[row];
    const bool holds = TDeploymentFrame::IsInPlatform(platform, file);
    if (!form.IsChecked(row) && holds)
      file.RemovePlatform(platform);
    else if (form.IsChecked(row) && !holds)
      frame.AddPlatform(platform, file);
  }
  return true;
}

} // namespace deployment
