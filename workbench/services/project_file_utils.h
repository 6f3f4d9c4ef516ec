// Operations on project files as a whole, for the package.
#pragma once

#include "package/host/api/projectfileutils.h"

#include <memory>
#include <string>
#include <string_view>

namespace workbench {

class TMSBuildDocument;

class TProjectFileUtils final : public deployment::IProjectFileUtils {
public:
  enum class TSideFileMode {
    Write,
    Compare, ///< only finds out whether the file is different
  };

  /// One making of a side file: the document that is loaded while it stands.
  class TSideFileRun {
  public:
    /// The document ends with the mark of the list. The utilities must outlive the object; there is
    /// one at a time.
    TSideFileRun(TProjectFileUtils& utils, TSideFileMode mode, std::string listHash);
    ~TSideFileRun();
    TSideFileRun(const TSideFileRun&) = delete;
    TSideFileRun& operator=(const TSideFileRun&) = delete;

    /// True when the document has been saved and was different from the file on disk.
    bool WasWritten() const;

  private:
    friend class TProjectFileUtils;

    TProjectFileUtils& FUtils;
    const TSideFileMode FMode;
    const std::string FListHash;
    std::shared_ptr<TMSBuildDocument> FDocument;
  };

  std::shared_ptr<deployment::IMSBuildProjectDocument>
  MSBuildLoadProjectDocument(std::string_view fileName) override;
  void EnsureImport(deployment::ICustomProject& project, std::string_view import,
                    std::string_view condition) override;

private:
  TSideFileRun* FRun = nullptr;
};

} // namespace workbench
