#include "workbench/services/project_file_utils.h"

#include "workbench/files/machine_path.h"
#include "workbench/msbuild/msbuild_document.h"
#include "workbench/services/project_module.h"

namespace workbench {

std::shared_ptr<deployment::IMSBuildProjectDocument>
TProjectFileUtils::MSBuildLoadProjectDocument(std::string_view fileName) {
  FLastDocument = std::make_shared<TMSBuildDocument>(
      ToMachinePath(fileName),
      FPlanOnly ? TMSBuildDocument::TSaveMode::Compare : TMSBuildDocument::TSaveMode::Write);
  return FLastDocument;
}

void TProjectFileUtils::EnsureImport(deployment::ICustomProject& project, std::string_view import,
                                     std::string_view condition) {
  dynamic_cast<TProjectModule&>(project).Document().AddImport(import, condition);
}

bool TProjectFileUtils::LastDocumentWasWritten() const {
  return FLastDocument && FLastDocument->WasWritten();
}

} // namespace workbench
