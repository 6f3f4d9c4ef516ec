#include "workbench/services/project_file_utils.h"

#include "workbench/files/machine_path.h"
#include "workbench/services/project_module.h"

#include <algorithm>

namespace workbench {

std::shared_ptr<deployment::IMSBuildProjectDocument>
TProjectFileUtils::MSBuildLoadProjectDocument(std::string_view fileName) {
  const auto mode = FSaving ? FSaving->FMode : TMSBuildDocument::TSaveMode::Write;
  auto document = std::make_shared<TMSBuildDocument>(ToMachinePath(fileName), mode);
  if (FSaving)
    FSaving->FDocuments.push_back(document);
  return document;
}

void TProjectFileUtils::EnsureImport(deployment::ICustomProject& project, std::string_view import,
                                     std::string_view condition) {
  dynamic_cast<TProjectModule&>(project).Document().AddImport(import, condition);
}

bool TProjectFileUtils::TSaving::WasWritten() const {
  return std::ranges::any_of(FDocuments, &TMSBuildDocument::WasWritten);
}

} // namespace workbench
