#include "package/featured/modify_featured_files.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/featured/feature_file_form.h"
#include "package/featured/features.h"
#include "package/host/api/appconst.h"

#include <algorithm>
#include <string>
#include <vector>

namespace deployment {
namespace {

// The classes that were offered or added, as the project keeps them.
class TRecordedClasses {
public:
  explicit TRecordedClasses(IOTAProjectOptionsConfigurations& options)
      : FOptions(options), FRecorded(options.GetBaseProperty(cFeatureFilesAdded)) {
    for (const std::string_view name : SplitDelimited(FRecorded))
      FNames.emplace_back(name);
  }

  bool Contains(std::string_view name) { return Find(name) != FNames.end(); }

  // Of a text that names several classes, those that are there already are not recorded again.
  void Record(std::string_view names) {
    for (const std::string_view name : SplitDelimited(names)) {
      if (const auto found = Find(name); found != FNames.end())
        *found = name;
      else
        FNames.emplace_back(name);
    }
  }

  // Writes the property when it is another one now.
  void Write() {
    const std::string text = JoinDelimited(FNames);
    if (text != FRecorded)
      FOptions.SetBaseProperty(cFeatureFilesAdded, text);
  }

private:
  std::vector<std::string>::iterator Find(std::string_view name) {
    return std::find_if(FNames.begin(), FNames.end(),
                        [&](const std::string& own) { return SameText(own, name); });
  }

  IOTAProjectOptionsConfigurations& FOptions;
  const std::string FRecorded;
  std::vector<std::string> FNames;
};

std::vector<std::string> NamesOf(const TOrderedDictionary<TFeatureClass>& classes) {
  std::vector<std::string> names;
  for (const auto& each : classes)
    names.push_back(each.Key);
  return names;
}

bool AnyRecorded(IOTAProjectOptionsConfigurations* options, const std::vector<std::string>& names) {
  if (!options)
    return false;
  TRecordedClasses recorded(*options);
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& name) { return recorded.Contains(name); });
}

void Record(IOTAProjectOptionsConfigurations* options, const std::vector<std::string>& names) {
  if (!options || names.empty())
    return;
  TRecordedClasses recorded(*options);
  for (const std::string& name : names)
    recorded.Record(name);
  recorded.Write();
}

// A dialog together with the catalog that it shows.
struct TShownFeatures {
  TShownFeatures(VelmorIDEServices& host, ICustomProject& project, std::string_view extension)
      : Features(host, extension), Form(Features, project) {}

  const TFeatures Features;
  const TFeatureFileForm Form;
};

} // namespace

bool MayOfferFeaturedFiles(VelmorIDEServices& host) {
  return host.GetSettings().ReadBool(FeaturedSettingsSection, ShowFeaturedFormAuto, true);
}

bool AskForFeaturedFiles(ICustomProject& project, std::string_view extension,
                         VelmorIDEServices& host) {
  bool showAuto = MayOfferFeaturedFiles(host);
  if (!showAuto && !extension.empty())
    return false;
  const bool chosen = ModifyFeaturedFiles(project, showAuto, extension, host);
  // Read anew: the host's own dialog of settings may have been open meanwhile.
  if (MayOfferFeaturedFiles(host) != showAuto)
    host.GetSettings().WriteBool(FeaturedSettingsSection, ShowFeaturedFormAuto, showAuto);
  return chosen;
}

std::shared_ptr<const IFeatureFileForm>
LookAtFeaturedFiles(ICustomProject& project, std::string_view extension, VelmorIDEServices& host) {
  auto shown = std::make_shared<const TShownFeatures>(host, project, extension);
  return {shown, &shown->Form};
}

bool ModifyFeaturedFiles(ICustomProject& project, bool& showAuto, std::string_view extension,
                         VelmorIDEServices& host) {
  const TFeatures features(host, extension);
  IModalForms* forms = host.GetModalForms();
  if (features.List().empty() || !forms)
    return false;
  std::vector<std::string> classes;
  if (!extension.empty())
    classes = NamesOf(features.GetFeaturesClassesByExtension(extension));
  IOTAProjectOptionsConfigurations* options = project.GetOptionsConfigurations();
  if (AnyRecorded(options, classes))
    return false;
  TFeatureFileForm form(features, project);
  form.SetShowAuto(showAuto);
  const TModalResult result = forms->ShowFeatureFiles(form);
  form.FormClose(result);
  if (result == TModalResult::Cancel)
    Record(options, classes);
  if (result != TModalResult::OK)
    return false;
  showAuto = form.GetShowAuto();
  const std::string added = form.GetAddedFiles(extension);
  if (!showAuto || !options)
    project.SetModified(true);
  else
    Record(options, added.empty() ? classes : std::vector{added});
  return true;
}

} // namespace deployment
