// Operations on project files as a whole, for the package.
#pragma once

#include "package/host/api/projectfileutils.h"

#include <memory>
#include <string_view>

namespace workbench {

class TProjectFileUtils final : public deployment::IProjectFileUtils {
public:
  std::shared_ptr<deployment::IMSBuildProjectDocument>
  MSBuildLoadProjectDocument(std::string_view fileName) override;
  void EnsureImport(deployment::ICustomProject& project, std::string_view import,
                    std::string_view condition) override;

  /// True when the last document that was loaded has been saved and was different from the file
  /// on disk.
  bool LastDocumentWasWritten() const;

  /// While it stands, documents that are loaded compare with the file on disk where they would be
  /// saved.
  class TPlanOnly {
  public:
    explicit TPlanOnly(TProjectFileUtils& utils) : FUtils(utils) { FUtils.FPlanOnly = true; }
    ~TPlanOnly() { FUtils.FPlanOnly = false; }
    TPlanOnly(const TPlanOnly&) = delete;
    TPlanOnly& operator=(const TPlanOnly&) = delete;

  private:
    TProjectFileUtils& FUtils;
  };

private:
  bool FPlanOnly = false;
  std::shared_ptr<class TMSBuildDocument> FLastDocument;
};

} // namespace workbench
