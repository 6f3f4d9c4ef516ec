// Makes XML documents for the package.
#pragma once

#include "package/host/api/xml.h"

#include <memory>
#include <string_view>

namespace workbench {

class TXmlDocuments final : public deployment::IXMLDocuments {
public:
  std::shared_ptr<deployment::IXMLDocument> LoadXMLData(std::string_view text,
                                                        std::string_view name) override;
  std::shared_ptr<deployment::IXMLDocument> LoadXMLFile(std::string_view fileName) override;
};

} // namespace workbench
