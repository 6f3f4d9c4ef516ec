// The catalog of optional files: what is found by an extension is what claims it, and every class
// is found under its name.
#include "fuzz/fuzz_input.h"
#include "package/common/errors.h"
#include "package/common/text_trim.h"
#include "package/featured/features.h"
#include "package/host/api/repositoryfile.h"
#include "tests/support/memory_host.h"
#include "workbench/xml/xml_reader.h"

#include <algorithm>
#include <memory>

namespace workbench::fuzz {
namespace {

using deployment::TFeatures;

class TDocument final : public deployment::IXMLDocument {
public:
  explicit TDocument(std::string_view text) : FReader(text, "featuredfiles.xml") {}
  deployment::IXMLNode& DocumentElement() override { return FReader.Root(); }

private:
  TXmlReader FReader;
};

// Reads the catalog with the reader that the workbench has.
class TDocuments final : public deployment::TMemoryXMLDocuments {
public:
  using TMemoryXMLDocuments::TMemoryXMLDocuments;
  std::shared_ptr<deployment::IXMLDocument> LoadXMLFile(std::string_view /*file*/) override {
    return std::make_shared<TDocument>(Text);
  }

  std::string_view Text;
};

class TCatalogHost final : public deployment::TMemoryHost {
public:
  TCatalogHost() {
    Files[deployment::RepositoryFile(AppStrings, "Deploy\\featuredfiles.xml")] = "there";
  }
  TDocuments& GetXMLDocuments() override { return Documents; }

  TDocuments Documents{Files};
};

void CheckExtension(TCatalogHost& host, const TFeatures& all, const std::string& name,
                    const std::string& extension) {
  if (deployment::Trimmed(extension) != extension)
    return; // what is asked for is trimmed, what a class claims is not
  Require(all.ExtensionInFeaturesClasses(extension), "an extension is that of some class");
  Require(all.ExtensionInFeatureClass(name, extension), "a class is found by name and extension");
  Require(all.GetFeaturesClassesByExtension(extension).Find(name) != nullptr,
          "a class is found by its extension", name);
  const TFeatures some(host, extension);
  auto next = all.List().begin();
  for (const deployment::TFeature& feature : some.List()) {
    next = std::find_if(next, all.List().end(), [&](const deployment::TFeature& each) {
      return each.Title() == feature.Title();
    });
    Require(next != all.List().end(), "features of an extension are features of the catalog");
    ++next;
  }
}

void Check(TCatalogHost& host) {
  const TFeatures all(host, "");
  std::size_t looked = 0;
  for (const auto& each : all.FeaturesClasses()) {
    Require(all.FindClass(each.Value.Name()) == &each.Value, "a class is found by its name");
    for (const std::string& extension : each.Value.Extensions()) {
      Require(each.Value.Claims(extension), "a class claims its own extensions", extension);
      // Names with ";" and empty ones are no items of a list of names.
      const std::string& name = each.Value.Name();
      if (!extension.empty() && ++looked <= 4 && !name.empty() &&
          name.find(';') == std::string::npos)
        CheckExtension(host, all, name, extension);
    }
  }
  for (const deployment::TFeature& feature : all.List()) {
    for (const deployment::TDeployFile& file : feature.DeployFiles()) {
      for (const std::string& platform : file.Platforms()) {
        const std::string directory = file.GetRemoteDir(platform);
        Require(directory.empty() || directory.ends_with('\\') || directory.ends_with('/'),
                "a directory ends in a delimiter", directory);
      }
    }
  }
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  static TCatalogHost host;
  host.Documents.Text = TFuzzInput(data, size).Rest();
  try {
    Check(host);
  } catch (const deployment::TInputError& error) {
    Require(error.Place().Line > 0, "a refusal names its line", error.what());
  }
  return 0;
}
