// Fills variables into a template file.
#pragma once

#include "package/host/api/ideservices.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace workbench {

/// Names of variables are compared exactly. File names are stored paths.
class TTextFilter : public deployment::ICoExpertFilter {
public:
  void SetVariable(std::string_view name, std::string_view value) override;
  std::string Filter(std::string_view fileName) const override;

private:
  std::map<std::string, std::string, std::less<>> FEscapedValues;
};

} // namespace workbench
