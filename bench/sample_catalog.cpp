#include "bench/sample_catalog.h"

#include "bench/sample_project.h"

#include <fstream>
#include <ostream>
#include <string>

namespace bench {
namespace {

constexpr std::size_t Classes = 100;

void WriteClass(std::ostream& out, std::size_t number) {
  out << "  <FeatureClass ProductName=\"Deployment Manager\" Name=\"Class" << number << "\">\n"
      << "    <Extensions>" << (number == 0 ? std::string(".dat") : ".e" + std::to_string(number))
      << ";.x" << number << "</Extensions>\n  </FeatureClass>\n";
}

void WriteFile(std::ostream& out, const std::string& name) {
  out << "    <DeployFile LocalName=\"$(ZELK)\\Redist\\" << name << "\" Class=\"File\">\n";
  for (const char* platform : {"Win32", "Win64", "Android"})
    out << "      <Platform Name=\"" << platform << "\">\n"
        << "        <RemoteDir>optional\\files\\</RemoteDir>\n      </Platform>\n";
  out << "    </DeployFile>\n";
}

void WriteFeature(std::ostream& out, std::size_t number) {
  const std::string name = "feature" + std::to_string(number);
  out << "  <Feature FeatureClass=\"Class" << number % Classes
      << "\" ProductName=\"Deployment Manager\">\n    <Title>Feature " << number << "</Title>\n";
  WriteFile(out, name + ".dll");
  WriteFile(out, name + ".txt");
  out << "  </Feature>\n";
}

} // namespace

std::filesystem::path SampleCatalogRoot(std::size_t features) {
  const std::filesystem::path root =
      SampleProject(0).parent_path() / ("root" + std::to_string(features));
  if (std::filesystem::exists(root))
    return root;
  std::filesystem::create_directories((root / CatalogName).parent_path());
  std::ofstream out(root / CatalogName, std::ios::binary);
  out << "<FeaturedFiles>\n";
  for (std::size_t number = 0; number < Classes; ++number)
    WriteClass(out, number);
  for (std::size_t number = 0; number < features; ++number)
    WriteFeature(out, number);
  out << "</FeaturedFiles>\n";
  return root;
}

} // namespace bench
