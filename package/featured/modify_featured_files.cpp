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
  explicit TRecordedClasses(IOTAProjectOptionsConfigurations& options) : FOptions(options) {
    const std::string recorded = options.GetBaseProperty(cFeatureFilesAdded);
    for (const std::string_view name : SplitDelimited(recorded))
      FNames.emplace_back(name);
  }

  bool Contains(std::string_view name) { return Find(name) != FNames.end(); }

  // One item, also when the text holds several names.
  void Record(const std::string& name) {
    if (const auto found = Find(name); found != FNames.end())
      *found = name;
    else
      FNames.push_back(name);
    FOptions.SetBaseProperty(cFeatureFilesAdded, JoinDelimited(FNames));
  }

private:
  std::vector<std::string>::iterator Find(std::string_view name) {
    return std::find_if(FNames.begin(), FNames.end(),
                        [&](const std::string& own) { return SameText(own, name); });
  }

  IOTAProjectOptionsConfigurations& FOptions;
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
}

} // namespace

void ModifyFeaturedFiles(ICustomProject& project, bool& showAuto, std::string_view extension,
                         VelmorIDEServices& host) {
  const TFeatures features(host, extension);
  IModalForms* forms = host.GetModalForms();
  if (features.List().empty() || !forms)
    return;
  std::vector<std::string> classes;
  if (!extension.empty())
    classes = NamesOf(features.GetFeaturesClassesByExtension(extension));
  IOTAProjectOptionsConfigurations* options = project.GetOptionsConfigurations();
  if (AnyRecorded(options, classes))
    return;
  TFeatureFileForm form(features, project);
  form.SetShowAuto(showAuto);
  const TModalResult result = forms->ShowFeatureFiles(form);
  form.FormClose(result);
  if (result == TModalResult::Cancel)
    return Record(options, classes);
  if (result != TModalResult::OK)
    return;
  showAuto = form.GetShowAuto();
  if (!showAuto || !options)
    return project.SetModified(true);
  const std::string added = form.GetAddedFiles(extension);
  Record(options, added.empty() ? classes : std::vector{added});
}

} // namespace deployment
