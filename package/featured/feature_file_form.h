// The dialog "Featured Files": its tree of check boxes and what OK does to the deployment.
#pragma once

#include "package/featured/features.h"
#include "package/host/api/codemgr.h"
#include "package/host/api/forms.h"

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Lives for one showing. Nothing changes before Close is told OK.
class TFeatureFileForm final : public IFeatureFileForm {
public:
  /// Builds the tree: a file is checked when an entry of some configuration is enabled for the
  /// platform. A project without a deployment gets an empty tree. Catalog and project must outlive
  /// the form.
  TFeatureFileForm(const TFeatures& features, ICustomProject& project);

  std::string GetCaption() const override { return "Featured Files"; }
  int GetHelpContext() const override { return 13602; }
  const std::vector<TNodeId>& GetChildren(TNodeId node) const override;
  const TFeatureNode& GetNode(TNodeId node) const override { return FNodes[node].Data; }
  std::string GetText(TNodeId node) const override;
  TCheckState GetCheckState(TNodeId node) const override { return FNodes[node].State; }
  void SetChecked(TNodeId node, bool checked) override;
  bool GetShowAuto() const override { return FShowAuto; }
  void SetShowAuto(bool show) override { FShowAuto = show; }

  /// With OK: takes the unchecked files out of the deployment, then puts the checked ones in, for
  /// every configuration but the root. Any other result changes nothing.
  void FormClose(TModalResult result);
  /// After OK: the feature classes of the file that was added last, ";"-delimited, without the
  /// known ones that do not claim the extension; all of them for an empty extension.
  std::string GetAddedFiles(std::string_view extension) const;

private:
  struct TNode {
    TFeatureNode Data = {};
    TNodeId Parent = 0;
    std::vector<TNodeId> Children = {};
    TCheckState State = TCheckState::Unchecked;
  };

  void BuildTree();
  void AddFeature(const TFeature& feature);
  void AddFile(TNodeId platformNode, const TFeature& feature, const TDeployFile& file,
               const std::string& platform);
  TNodeId AddNode(TNodeId parent, TFeatureNode data);
  void CheckAllParents(TNodeId node);
  void Derive(TNodeId node);
  void CheckBelow(TNodeId node, TCheckState state);
  std::vector<std::string> ConfigurationNames() const;
  std::vector<TNodeId> FileNodes() const;
  void DeleteFile(const TFeatureNode& data);
  void AddToDeployment(const TFeatureNode& data);

  const TFeatures& FFeatures;
  ICustomProject& FProject;
  const std::vector<std::string> FConfigurations; ///< all but the root
  std::vector<TNode> FNodes;                      ///< the first one holds the top level
  bool FShowAuto = true;
  std::string FAddedFiles;
};

} // namespace deployment
