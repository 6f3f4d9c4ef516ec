// Open projects whose edits are taken down.
#pragma once

#include "tests/workbench/services/session_fixture.h"
#include "workbench/services/edit_history.h"

#include <algorithm>
#include <memory>
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
  std::string Names() { return FilesOf(*FProject); }

  TOpenProject* FProject = nullptr;
  std::unique_ptr<TEditHistory> FHistory;
};

} // namespace workbench::testing
