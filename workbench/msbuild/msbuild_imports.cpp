#include "workbench/msbuild/msbuild_imports.h"

namespace workbench {

std::shared_ptr<deployment::IXMLDocument> TImportCache::Load(const std::filesystem::path& file) {
  if (const auto found = FDocuments.find(file); found != FDocuments.end())
    return found->second;
  auto document = FLoader.Load(file);
  FDocuments.emplace(file, document);
  return document;
}

} // namespace workbench
