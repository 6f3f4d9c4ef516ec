// Projects made of text for tests: a directory of their own and imports from memory.
#pragma once

#include "tests/support/memory_xml.h"
#include "tests/support/temporary_directory.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/project/cpp/cpp_dialect.h"
#include "workbench/project/project_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Serves imports from texts by full path and keeps what it was asked for.
class TMemoryImports final : public ILoadImports {
public:
  std::shared_ptr<deployment::IXMLDocument> Load(const std::filesystem::path& file) override {
    Asked.push_back(file.string());
    const auto found = Texts.find(file.string());
    if (found == Texts.end())
      return nullptr;
    return std::make_shared<deployment::TMemoryXMLDocument>(
        deployment::ParseMemoryXML(found->second, file.string()));
  }

  std::map<std::string, std::string> Texts;
  std::vector<std::string> Asked;
};

/// An empty directory that goes away with the test.
class TProjectTest : public ::testing::Test {
protected:
  void MakeFile(std::string_view name) const { testing::WriteText(Directory / name, name); }

  std::string PathOf(std::string_view name) const { return (Directory / name).string(); }

  /// Evaluates a project whose root has that content.
  TMSBuildEvaluation& Evaluate(std::string_view content, const TNamedTexts& globals = {}) {
    Parse(content);
    Evaluation = std::make_unique<TMSBuildEvaluation>(
        TEvaluationSource{Root.get(), Directory / "Demo.vproj", &Imports, Environment}, globals);
    return *Evaluation;
  }

  TProjectSettings& Open(std::string_view content) {
    Parse(content);
    Cpp = std::make_unique<TCppDialect>(Imports, Table, Properties);
    Settings = std::make_unique<TProjectSettings>(
        *Root, Directory / "Demo.vproj", Imports, Table,
        TProjectSurroundings{Environment, Properties, Cpp.get()});
    return *Settings;
  }

  void Parse(std::string_view content) {
    Evaluation.reset();
    Settings.reset();
    Root = deployment::ParseMemoryXML("<Project>" + std::string(content) + "</Project>",
                                      PathOf("Demo.vproj"));
  }

  /// Type and include of every item, "Type:Include" one after the other.
  std::string ItemsOf(std::string_view content) {
    std::string text;
    for (const TProjectItem& item : Evaluate(content).Items())
      text += (text.empty() ? "" : " ") + item.Type + ":" + item.Include;
    return text;
  }

  testing::TTemporaryDirectory Temporary;
  std::filesystem::path Directory = Temporary.Path();
  TNamedTexts Environment;
  TNamedTexts Properties;
  TMemoryImports Imports;
  TPlatformTable Table = TPlatformTable::BuiltIn();
  std::unique_ptr<deployment::TMemoryXMLNode> Root;
  std::unique_ptr<TMSBuildEvaluation> Evaluation;
  std::unique_ptr<TCppDialect> Cpp;
  std::unique_ptr<TProjectSettings> Settings;
};

} // namespace workbench
