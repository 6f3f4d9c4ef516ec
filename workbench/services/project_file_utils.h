// Operations on project files as a whole, for the package.
#pragma once

#include "package/host/api/projectfileutils.h"
#include "workbench/msbuild/msbuild_document.h"

#include <memory>
#include <string_view>
#include <vector>

namespace workbench {

class TProjectFileUtils final : public deployment::IProjectFileUtils {
public:
  std::shared_ptr<deployment::IMSBuildProjectDocument>
  MSBuildLoadProjectDocument(std::string_view fileName) override;
  void EnsureImport(deployment::ICustomProject& project, std::string_view import,
                    std::string_view condition) override;

  /// Documents that are loaded while it stands are saved in its mode, and it knows what became of
  /// them. One at a time.
  class TSaving {
  public:
    TSaving(TProjectFileUtils& utils, TMSBuildDocument::TSaveMode mode)
        : FUtils(utils), FMode(mode) {
      FUtils.FSaving = this;
    }
    ~TSaving() { FUtils.FSaving = nullptr; }
    TSaving(const TSaving&) = delete;
    TSaving& operator=(const TSaving&) = delete;

    /// True when a document has been saved that was different from the file on disk.
    bool WasWritten() const;

  private:
    friend TProjectFileUtils;
    TProjectFileUtils& FUtils;
    const TMSBuildDocument::TSaveMode FMode;
    std::vector<std::shared_ptr<TMSBuildDocument>> FDocuments;
  };

private:
  TSaving* FSaving = nullptr; // the one that stands
};

} // namespace workbench
