#include "package/model/deployment_class.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/path_text.h"

#include <algorithm>

namespace deployment {

void TDeploymentClass::SetClassId(std::string_view value) {
  Store(FClassId, value);
}

void TDeploymentClass::SetDescription(std::string_view value) {
  Store(FDescription, value);
}

const std::string& TDeploymentClass::GetExtensions(std::string_view platform) const {
  const TClassData* data = ClassData(platform);
  return data ? data->Extensions : EmptyText();
}

void TDeploymentClass::SetExtensions(std::string_view platform, std::string_view value) {
  Store(OwnClassData(platform).Extensions, value);
}

bool TDeploymentClass::MatchesExtension(std::string_view fileName,
                                        std::string_view platform) const {
  const TClassData* data = ClassData(platform);
  if (!data)
    return false;
  const std::string_view extension = ExtensionPart(fileName);
  const auto parts = SplitDelimited(data->Extensions);
  return std::any_of(parts.begin(), parts.end(),
                     [&](std::string_view part) { return SameText(part, extension); });
}

std::unique_ptr<TDeployData> TDeploymentClass::CreateData() const {
  return std::make_unique<TClassData>();
}

const TClassData* TDeploymentClass::ClassData(std::string_view platform) const {
  // Every record comes from CreateData above.
  return static_cast<const TClassData*>(GetData(platform));
}

TClassData& TDeploymentClass::OwnClassData(std::string_view platform) {
  return static_cast<TClassData&>(*GetData(platform, /*create=*/true));
}

} // namespace deployment
