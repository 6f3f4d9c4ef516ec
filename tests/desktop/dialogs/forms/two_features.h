// A form of featured files for tests of its dialog.
#pragma once

#include "package/host/api/forms.h"

#include <string>
#include <vector>

namespace workbench::testing {

inline deployment::TFeatureNode Node(const char* title, const char* localName, const char* platform,
                                     const char* remoteDir = "") {
  deployment::TFeatureNode node;
  node.Title = title;
  node.LocalName = localName;
  node.Platform = platform;
  node.RemoteDir = remoteDir;
  return node;
}

// Two features; the first one has two platforms with two files and one.
class TTwoFeatures final : public deployment::IFeatureFileForm {
public:
  enum TNode : deployment::TNodeId {
    Top,
    Database,
    Win32,
    OSX32,
    First,
    Second,
    Third,
    Sound,
    Win64,
    Fourth
  };

  std::string GetCaption() const override { return "Featured Files"; }
  int GetHelpContext() const override { return 13602; }
  const std::vector<deployment::TNodeId>& GetChildren(deployment::TNodeId node) const override {
    return FChildren[node];
  }
  const deployment::TFeatureNode& GetNode(deployment::TNodeId node) const override {
    return FData[node];
  }
  std::string GetText(deployment::TNodeId node) const override {
    const auto& data = FData[node];
    return !data.Title.empty() ? data.Title
                               : (data.LocalName.empty() ? data.Platform : data.LocalName);
  }
  deployment::TCheckState GetCheckState(deployment::TNodeId node) const override {
    const auto& children = FChildren[node];
    if (children.empty())
      return FChecked[node] ? deployment::TCheckState::Checked : deployment::TCheckState::Unchecked;
    const deployment::TCheckState first = GetCheckState(children.front());
    for (const deployment::TNodeId child : children) {
      if (GetCheckState(child) != first)
        return deployment::TCheckState::Mixed;
    }
    return first;
  }
  void SetChecked(deployment::TNodeId node, bool checked) override {
    FChecked[node] = checked;
    for (const deployment::TNodeId child : FChildren[node])
      SetChecked(child, checked);
  }
  bool GetShowAuto() const override { return FShowAuto; }
  void SetShowAuto(bool show) override { FShowAuto = show; }

private:
  std::vector<std::vector<deployment::TNodeId>> FChildren{{Database, Sound},
                                                          {Win32, OSX32},
                                                          {First, Second},
                                                          {Third},
                                                          {},
                                                          {},
                                                          {},
                                                          {Win64},
                                                          {Fourth},
                                                          {}};
  std::vector<deployment::TFeatureNode> FData{{},
                                              Node("Database client", "", ""),
                                              Node("", "", "Win32"),
                                              Node("", "", "OSX32"),
                                              Node("", "client.dll", "Win32", "bin\\"),
                                              Node("", "client.msg", "Win32"),
                                              Node("", "libclient.dylib", "OSX32"),
                                              Node("Sound", "", ""),
                                              Node("", "", "Win64"),
                                              Node("", "sound.dll", "Win64")};
  std::vector<bool> FChecked = std::vector<bool>(10);
  bool FShowAuto = true;
};

} // namespace workbench::testing
