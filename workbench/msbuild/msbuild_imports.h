// Where an evaluation gets the project files that a project imports.
#pragma once

#include "package/host/api/xml.h"

#include <filesystem>
#include <map>
#include <memory>

namespace workbench {

/// Loads imported project files.
class ILoadImports {
public:
  virtual ~ILoadImports() = default;
  /// The document, or null when there is no such file. Throws TInputError, naming the file, when
  /// it cannot be read.
  virtual std::shared_ptr<deployment::IXMLDocument> Load(const std::filesystem::path& file) = 0;
};

/// Asks another loader once per file and keeps the answers.
class TImportCache final : public ILoadImports {
public:
  /// `loader` must outlive the cache.
  explicit TImportCache(ILoadImports& loader) : FLoader(loader) {}

  std::shared_ptr<deployment::IXMLDocument> Load(const std::filesystem::path& file) override;
  /// The next Load of a file reads it again.
  void Clear() { FDocuments.clear(); }

private:
  ILoadImports& FLoader;
  std::map<std::filesystem::path, std::shared_ptr<deployment::IXMLDocument>> FDocuments;
};

} // namespace workbench
