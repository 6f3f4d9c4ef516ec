#include "workbench/project/import_loader.h"

#include "workbench/files/file_reader.h"
#include "workbench/xml/xml_reader.h"

#include <system_error>

namespace workbench {
namespace {

class TImportedDocument final : public deployment::IXMLDocument {
public:
  explicit TImportedDocument(const std::filesystem::path& file)
      : FReader(
            [file](const TReserveMemory& reserve) {
              return ReadWholeFileInto(file, reserve, MaximumFileSize, "imported project file");
            },
            file.string()) {}
  deployment::IXMLNode& DocumentElement() override { return FReader.Root(); }

private:
  TXmlReader FReader;
};

} // namespace

std::shared_ptr<deployment::IXMLDocument> TImportLoader::Load(const std::filesystem::path& file) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    return nullptr;
  return std::make_shared<TImportedDocument>(file);
}

} // namespace workbench
