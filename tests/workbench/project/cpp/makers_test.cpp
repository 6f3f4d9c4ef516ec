// What an MSBuild engine says about projects of other makers, and what we say.
#include "package/common/case_fold.h"
#include "tests/support/sanitized.h"
#include "workbench/json/json.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/project/cpp/cpp_dialect.h"
#include "workbench/project/import_loader.h"
#include "workbench/xml/xml_reader.h"

#include <gtest/gtest.h>

#include <fstream>

namespace workbench {
namespace {

namespace fs = std::filesystem;

struct TShare {
  int All = 0;
  int Right = 0;
  std::string Misses;
};

class Makers : public ::testing::Test {
protected:
  const TProjectSettings& Project(const fs::path& file) {
    if (file != FFile) {
      FFile = file;
      FSettings.reset();
      FDocument = FLoader.Load(file);
      FDialect = std::make_unique<TCppDialect>(FLoader, FTable);
      FSettings =
          std::make_unique<TProjectSettings>(FDocument->DocumentElement(), file, FLoader, FTable,
                                             TProjectSurroundings{{}, {}, FDialect.get()});
    }
    return *FSettings;
  }

  // As the list of expected outputs writes it; empty for nothing.
  std::string OutputOf(const fs::path& file, const std::string& configuration,
                       const std::string& platform) {
    const std::string output =
        Project(file).OutputFileName(configuration, PlatformFromCpp(platform));
    return output.empty() ? output
                          : deployment::LowerCaseAscii(
                                fs::path(output).lexically_relative(FFolder).generic_string());
  }

  const fs::path FFolder = fs::current_path().parent_path() / "shared" / "projects" / "makers";
  const TPlatformTable FTable = TPlatformTable::BuiltIn();
  TImportLoader FLoader;
  fs::path FFile;
  std::shared_ptr<deployment::IXMLDocument> FDocument;
  std::unique_ptr<TCppDialect> FDialect;
  std::unique_ptr<TProjectSettings> FSettings;
};

TEST_F(Makers, GetTheOutputsThatABuildMakes) {
  std::ifstream list(FFolder / "expected.json");
  if (!list)
    GTEST_SKIP() << "there are no projects of other makers beside this tree";
  std::map<std::string, TShare> shares;
  const std::string text{std::istreambuf_iterator<char>(list), {}};
  const TJson expectations = ParseJson(text);
  // The rows of a project follow each other, so that each is opened once; a sanitizer sees the same
  // code in a part of the projects.
  const std::size_t step = testing_support::IsSanitized ? 8 : 1;
  std::size_t projects = 0;
  std::string last;
  for (const TJson& expectation : expectations.AsArray()) {
    const TJson::TArray& row = expectation.AsArray();
    const std::string project = row[0].AsText();
    projects += project == last ? 0 : 1;
    last = project;
    if (projects % step != 0)
      continue;
    const std::string target = row[1].AsText() + "|" + row[2].AsText();
    TShare& share = shares[project.substr(0, project.find('/'))];
    const std::string expected = row[4].IsNull() ? "" : row[4].AsText();
    const std::string output = OutputOf(FFolder / project, row[1].AsText(), row[2].AsText());
    ++share.All;
    if (output == expected)
      ++share.Right;
    else
      share.Misses += project + " " + target + ": \"" + output + "\", not \"" + expected + "\"\n";
  }
  for (const auto& [maker, share] : shares) {
    RecordProperty(maker, std::to_string(share.Right) + " of " + std::to_string(share.All));
    EXPECT_GE(share.Right * 100, share.All * 98) << maker << "\n" << share.Misses;
  }
  EXPECT_EQ(shares.size(), 4U);
}

} // namespace
} // namespace workbench
