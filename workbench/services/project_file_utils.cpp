#include "workbench/services/project_file_utils.h"

#include "workbench/files/machine_path.h"
#include "workbench/msbuild/msbuild_document.h"
#include "workbench/services/project_module.h"

#include <utility>

namespace workbench {

TProjectFileUtils::TSideFileRun::TSideFileRun(TProjectFileUtils& utils, TSideFileMode mode,
                                              std::string listHash)
    : FUtils(utils), FMode(mode), FListHash(std::move(listHash)) {
  FUtils.FRun = this;
}

TProjectFileUtils::TSideFileRun::~TSideFileRun() {
  FUtils.FRun = nullptr;
}

bool TProjectFileUtils::TSideFileRun::WasWritten() const {
  return FDocument && FDocument->WasWritten();
}

std::shared_ptr<deployment::IMSBuildProjectDocument>
TProjectFileUtils::MSBuildLoadProjectDocument(std::string_view fileName) {
  const std::filesystem::path file = ToMachinePath(fileName);
  if (!FRun)
    return std::make_shared<TMSBuildDocument>(file);
  using TSaveMode = TMSBuildDocument::TSaveMode;
  FRun->FDocument = std::make_shared<TMSBuildDocument>(
      file, FRun->FMode == TSideFileMode::Compare ? TSaveMode::Compare : TSaveMode::Write,
      FRun->FListHash);
  return FRun->FDocument;
}

void TProjectFileUtils::EnsureImport(deployment::ICustomProject& project, std::string_view import,
                                     std::string_view condition) {
  dynamic_cast<TProjectModule&>(project).Document().AddImport(import, condition);
}

} // namespace workbench
