// Open projects whose edits are taken down.
#pragma once

#include "tests/workbench/session/session_fixture.h"
#include "workbench/history/edit_history.h"

#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace workbench::testing {

/// A file entry for Debug and Win32, in the layout that a save writes.
inline std::string EntryNamed(std::string_view localName) {
  return "      <DeployFile LocalName=\"" + std::string(localName) +
         "\" Configuration=\"Debug\" Class=\"File\">\n"
         "        <Platform Name=\"Win32\">\n          <Overwrite>true</Overwrite>\n"
         "        </Platform>\n      </DeployFile>\n";
}

class TEditTest : public TSessionTest {
protected:
  void SetUp() override {
    TSessionTest::SetUp();
    FEnvironment.Set("XDG_STATE_HOME", (FRoot / "state").string());
  }
  void TearDown() override {
    FHistory.reset();
    FSession.reset();
    TSessionTest::TearDown();
  }

  /// Opens a project with these entries and takes its edits down from then on.
  void Edit(const std::vector<std::string>& localNames, const THistoryLimits& limits = {}) {
    std::string entries;
    for (const std::string& name : localNames)
      entries += EntryNamed(name);
    EditText(ProjectWith(entries), limits);
  }
  void EditText(std::string_view text, const THistoryLimits& limits = {}) {
    FHistory.reset();
    FProject = &OpenText(text, TOpenPurpose::Edit);
    FHistory = std::make_unique<TEditHistory>(*FProject, limits);
  }
  deployment::IProjectDeployment& Deployment() { return FProject->Deployment(); }
  std::shared_ptr<deployment::IProjectDeploymentFile> File(std::string_view localName) {
    return Deployment().FindFile("Debug", "Win32", localName);
  }
  /// The whole list, to be compared.
  std::vector<TEntryRecord> List() {
    std::vector<TEntryRecord> records;
    for (const auto& file : Deployment().GetFiles())
      records.push_back(RecordOf(*file));
    return records;
  }
  static std::vector<std::string> TenThousandNames() {
    std::vector<std::string> names(10000);
    for (std::size_t i = 0; i < names.size(); ++i)
      names[i] = "data\\file" + std::to_string(i);
    return names;
  }
  std::string Names() { return FilesOf(*FProject); }

  /// Does something to the list, whatever it is. An entry that is renamed gets the name.
  void EditAtRandom(std::mt19937& random, std::string_view newName) {
    const auto files = Deployment().GetFiles();
    const auto file = files.empty() ? nullptr : files[random() % files.size()];
    const std::string name(1, static_cast<char>('a' + random() % 12));
    switch (file ? random() % 8 : 0) {
    case 0:
    case 1:
      return AddFile(*FProject, name);
    case 2:
      return Deployment().RemoveFileEntry(*file);
    case 3:
      return file->SetLocalName(newName);
    case 4:
      return file->SetRemoteName("OSX32", name);
    case 5:
      return file->RemovePlatform("OSX32");
    case 6:
      return Deployment().AddFileEntry("Debug", "Win32", file);
    default:
      return file->SetEnabled("Win32", !file->GetEnabled("Win32"));
    }
  }

  TOpenProject* FProject = nullptr;
  std::unique_ptr<TEditHistory> FHistory;
};

} // namespace workbench::testing
