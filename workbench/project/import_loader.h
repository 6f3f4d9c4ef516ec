// Imported project files, read from this machine.
#pragma once

#include "workbench/msbuild/msbuild_imports.h"

namespace workbench {

class TImportLoader final : public ILoadImports {
public:
  std::shared_ptr<deployment::IXMLDocument> Load(const std::filesystem::path& file) override;
};

} // namespace workbench
