#include "workbench/xml/xml_documents.h"

#include "workbench/files/file_reader.h"
#include "workbench/files/machine_path.h"
#include "workbench/xml/xml_reader.h"

namespace workbench {
namespace {

class TXmlDocument final : public deployment::IXMLDocument {
public:
  TXmlDocument(std::string_view text, std::string name) : FReader(text, std::move(name)) {}
  explicit TXmlDocument(const std::filesystem::path& file)
      : FReader(
            [&file](const TReserveMemory& reserve) {
              return ReadWholeFileInto(file, reserve, MaximumFileSize, "XML file");
            },
            file.string()) {}
  deployment::IXMLNode& DocumentElement() override { return FReader.Root(); }

private:
  TXmlReader FReader;
};

} // namespace

std::shared_ptr<deployment::IXMLDocument> TXmlDocuments::LoadXMLData(std::string_view text,
                                                                     std::string_view name) {
  // The package names files as it stores them; messages name them as the machine does.
  return std::make_shared<TXmlDocument>(text, ToMachinePath(name).string());
}

std::shared_ptr<deployment::IXMLDocument> TXmlDocuments::LoadXMLFile(std::string_view fileName) {
  return std::make_shared<TXmlDocument>(ToMachinePath(fileName));
}

} // namespace workbench
