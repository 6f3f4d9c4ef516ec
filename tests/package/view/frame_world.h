// For tests of the view: a project with a deployment, remote profiles, and a frame whose controls
// are played by the test.
#pragma once

#include "package/view/deployment_frame.h"
#include "package/view/view_threads.h"
#include "tests/package/view/memory_profiles.h"
#include "tests/package/view/recording_deployment.h"
#include "tests/support/memory_host.h"
#include "tests/support/memory_project.h"
#include "tests/support/scripted_dialogs.h"
#include "workbench/controls/memory_controls.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class FrameWorld : public testing::Test {
protected:
  using TTexts = std::vector<std::string>;

  FrameWorld() {
    Host.ProfileServices = &Profiles;
    Host.ModalForms = &Forms;
    Host.PlatformManager.Add({"Win32", "Win64", "OSX32", "Android", "iOSDevice64"});
    Module->GivenDeployment = &Deployment;
    Module->Platforms.Supported = {"Win32", "Android"};
    Module->Options.Base.Platforms = {"Win32", "Android"};
    Module->Options.Debug.Platforms = {"Win32", "Android"};
    Profiles.Profiles["lab"] = std::make_shared<TMemoryProfile>("lab");
  }

  /// An entry with a record of its own for each platform, enabled, of class "File".
  std::shared_ptr<IProjectDeploymentFile> Add(std::string_view localName,
                                              std::string_view configuration = "Debug",
                                              const TTexts& platforms = {"Win32"}) {
    const auto file =
        Deployment.Real.AddFile(configuration, platforms.empty() ? "" : platforms[0], localName);
    for (const std::string& platform : platforms)
      file->SetEnabled(platform, true);
    // Last, because it is told to listeners in any case.
    file->SetDeploymentClass("File");
    return file;
  }
  /// The file exists on this machine, in the project's folder.
  void Exists(std::string_view name) { Host.Files[FullName(name)] = "content"; }
  static std::string FullName(std::string_view name) {
    return std::string(R"(C:\work\App\)").append(name);
  }

  /// Makes the frame and binds it, as a host does with a view.
  void Open(const std::optional<TShowRequest>& request = std::nullopt) {
    Frame = std::make_unique<TDeploymentFrame>(Host, Controls, Threads);
    Frame->InitializeData(Module, request);
  }
  void Choose(std::string_view configuration, std::string_view platform) {
    Controls.TargetsComboBox()->Choose(configuration, platform);
  }
  workbench::TMemoryTree& Tree() { return *Controls.Tree(); }
  std::vector<TNodeId> Nodes() { return Tree().GetChildren(0); }
  /// Texts of a column from the first row to the last one.
  TTexts Texts(int column) {
    TTexts texts;
    for (const TNodeId node : Nodes())
      texts.push_back(Tree().Text(node, column));
    return texts;
  }
  TTexts Names() { return Texts(1); }
  TNodeId NodeOf(std::string_view name) {
    for (const TNodeId node : Nodes()) {
      if (Tree().Text(node, 1) == name)
        return node;
    }
    ADD_FAILURE() << "no row " << name;
    return 0;
  }
  std::string Text(std::string_view name, int column) { return Tree().Text(NodeOf(name), column); }
  bool IsChecked(std::string_view name) {
    return Tree().GetCheckState(NodeOf(name)) == TCheckState::Checked;
  }
  void Select(const TTexts& names) {
    for (const std::string& name : names)
      Tree().SetSelected(NodeOf(name), true);
  }
  TTexts SelectedNames() {
    TTexts names;
    for (const TNodeId node : Tree().GetSelected())
      names.push_back(Tree().Text(node, 1));
    return names;
  }
  workbench::TMemoryToolButton& Button(std::string_view name) {
    return *Controls.ToolBar()->Find(name);
  }
  bool Press(std::string_view name) { return Button(name).Press(); }
  bool IsEnabled(std::string_view name) {
    Button(name).Update();
    return Button(name).GetEnabled();
  }

  /// Assigns the profile and makes the platform one that is connected to.
  void NeedProfile() {
    Host.PlatformManager.Platforms[0].NeedsProfile = true;
    Module->Platforms.Profiles["Win32"] = "lab";
  }
  /// Presses Connect and waits for the end of the attempt.
  void Connect() {
    NeedProfile();
    ASSERT_TRUE(Press("tbConnect"));
    FinishConnect();
  }
  void FinishConnect() { ASSERT_TRUE(Controls.MainThread().WaitAndRun(std::chrono::seconds(20))); }

  TMemoryHost Host;
  TMemoryProfiles Profiles;
  TScriptedForms Forms;
  TScriptedDialogs Dialogs;
  std::shared_ptr<TMemoryProject> Module = std::make_shared<TMemoryProject>();
  TRecordingDeployment Deployment{*Module, Host};
  std::shared_ptr<TViewThreads> Threads = std::make_shared<TViewThreads>();
  workbench::TMemoryControls Controls{Dialogs};
  std::unique_ptr<TDeploymentFrame> Frame;
};

} // namespace deployment
