// What a host with editor views adds to the one in memory: projects, views and extensions.
#pragma once

#include "tests/support/memory_host.h"
#include "tests/support/scripted_dialogs.h"
#include "workbench/controls/memory_controls.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace deployment {

class TMemoryProjectEvents : public IProjectEvents {
public:
  TMemoryEvent<ICustomProject&>& EvProjectClosing() override { return Closing; }
  TMemoryEvent<std::string_view, std::string_view>& EvProjectRenamed() override { return Renamed; }
  TMemoryEvent<ICustomProject&> Closing;
  TMemoryEvent<std::string_view, std::string_view> Renamed;
};

/// Views in the order of their opening, each with its frame.
class TMemoryEditorViews : public IOTAEditorViewServices {
public:
  struct TOpenView {
    std::shared_ptr<INTACustomEditorView> View;
    std::unique_ptr<workbench::TMemoryControls> Controls;
    std::unique_ptr<IFrame> Frame;
  };

  ~TMemoryEditorViews() override {
    while (!Views.empty())
      Close(Views.size() - 1);
  }

  void ShowEditorView(const std::shared_ptr<INTACustomEditorView>& view) override {
    Shown.push_back(view->GetCaption());
    if (PositionOf(*view) < Views.size())
      return;
    auto controls = std::make_unique<workbench::TMemoryControls>(Dialogs);
    auto frame = view->CreateFrame(*controls);
    IFrame& created = *frame;
    Views.push_back({view, std::move(controls), std::move(frame)});
    view->FrameCreated(created);
  }
  void CloseEditorView(const std::shared_ptr<INTACustomEditorView>& view) override {
    if (const std::size_t position = PositionOf(*view); position < Views.size())
      Close(position);
  }
  /// The user closes a view.
  void Close(std::size_t position) {
    TOpenView closed = std::move(Views[position]);
    Views.erase(Views.begin() + static_cast<std::ptrdiff_t>(position));
    closed.Frame.reset();
    closed.Controls.reset();
  }
  std::vector<std::string> Captions() const {
    std::vector<std::string> captions;
    for (const TOpenView& view : Views)
      captions.push_back(view.View->GetCaption());
    return captions;
  }

  TScriptedDialogs Dialogs;
  std::vector<TOpenView> Views;
  std::vector<std::string> Shown; ///< captions, as views were shown or brought forward

private:
  std::size_t PositionOf(const INTACustomEditorView& view) const {
    return static_cast<std::size_t>(
        std::find_if(Views.begin(), Views.end(),
                     [&](const TOpenView& open) { return open.View.get() == &view; }) -
        Views.begin());
  }
};

class TMemoryExtensions : public IOTAExtensions {
public:
  int AddOTAExtension(std::shared_ptr<IOTADeploymentService> extension) override {
    Registered[++FLast] = std::move(extension);
    return FLast;
  }
  void RemoveOTAExtension(int index) override { Registered.erase(index); }

  std::map<int, std::shared_ptr<IOTADeploymentService>> Registered;

private:
  int FLast = 6;
};

/// A host with all of them. Views close before the rest goes.
struct TMemoryViewHost : TMemoryHost {
  TMemoryViewHost() {
    ProjectEvents = &Projects;
    EditorViewServices = &Views;
    Extensions = &Registry;
  }
  static std::shared_ptr<TMemoryProject> MakeProject(std::string fileName) {
    auto project = std::make_shared<TMemoryProject>();
    project->FileName = std::move(fileName);
    return project;
  }

  TMemoryProjectEvents Projects;
  TMemoryExtensions Registry;
  TMemoryEditorViews Views;
};

} // namespace deployment
