// The defaults that C++ builds bring along, as project files in memory: they are set where a
// project imports them, by the same rules as everything else.
#pragma once

#include "workbench/msbuild/build_system_files.h"

#include <map>
#include <string>

namespace workbench {

class TCppBuildSystem final : public IBuildSystemFiles {
public:
  std::shared_ptr<deployment::IXMLDocument> StandIn(std::string_view fileName) override;
  std::vector<std::string_view> Names() const override;
  std::vector<std::string_view> UnknownProperties() const override;

private:
  std::map<std::string, std::shared_ptr<deployment::IXMLDocument>> FDocuments; // read so far
};

} // namespace workbench
