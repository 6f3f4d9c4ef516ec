// Host unit Forms: the dialogs of the package. State and rules live in the package's forms; a host
// shows them and passes on what the user does.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// How a dialog was left. None: it was not shown, or nobody answered; nothing is kept then.
enum class TModalResult { None, OK, Cancel };

/// State of a check box; Mixed is that of a parent whose children differ.
enum class TCheckState { Unchecked, Checked, Mixed };

/// A node of a tree of check boxes; 0 is none.
using TNodeId = std::size_t;

/// What a node of the featured files stands for. Features fill title and classes, platforms the
/// platform, files all but the title.
struct TFeatureNode {
  std::string Title;
  std::string FeatureClasses; ///< ";"-delimited
  std::string LocalName;
  std::string ClassDesc; ///< the deployment class that the catalog names
  std::string Platform;
  std::string Configuration;
  std::string RemoteDir;
};

/// The dialog in which the user chooses optional files: features, in them platforms, in them files,
/// each with a check box. Implemented by the package.
class IFeatureFileForm {
public:
  virtual ~IFeatureFileForm() = default;
  virtual std::string GetCaption() const = 0;
  /// Number of the help topic.
  virtual int GetHelpContext() const = 0;

  /// Children in order; the top level for 0.
  virtual const std::vector<TNodeId>& GetChildren(TNodeId node) const = 0;
  virtual const TFeatureNode& GetNode(TNodeId node) const = 0;
  /// What the tree shows for the node.
  virtual std::string GetText(TNodeId node) const = 0;
  virtual TCheckState GetCheckState(TNodeId node) const = 0;
  /// The user clicked the box of a node: the nodes below follow, those above are derived.
  virtual void SetChecked(TNodeId node, bool checked) = 0;

  /// The box "Show automatically when required".
  virtual bool GetShowAuto() const = 0;
  virtual void SetShowAuto(bool show) = 0;
};

/// A button that closes a dialog.
struct TFormButton {
  std::string_view Caption;
  TModalResult Result = TModalResult::None;
  bool Default = false; ///< pressed by Enter
  bool Cancel = false;  ///< pressed by Escape
};

/// Place of a dialog when it opens.
enum class TFormPosition { MainFormCenter, ScreenCenter };

/// A dialog of fixed size. A size of 0 is what its content needs.
struct TFormLayout {
  std::string_view Caption;
  int ClientWidth = 0; ///< pixels at 100 % scaling
  int ClientHeight = 0;
  TFormPosition Position = TFormPosition::MainFormCenter;
  std::vector<TFormButton> Buttons;
};

/// The dialog in which the user chooses the platforms of one file: a check list. Implemented by the
/// package.
class ISelectForm {
public:
  virtual ~ISelectForm() = default;
  virtual const TFormLayout& GetLayout() const = 0;
  /// Names in the order of the rows.
  virtual const std::vector<std::string>& GetPlatforms() const = 0;
  virtual bool IsChecked(std::size_t row) const = 0;
  /// The user clicked the box of a row; the form may undo the click.
  virtual void SetChecked(std::size_t row, bool checked) = 0;
};

/// How far a revert to the defaults goes.
enum class TRevertScope { ActivePlatform, AllPlatforms };

/// A choice of a revert with its words.
struct TRevertOption {
  TRevertScope Scope;
  std::string_view Caption;
};

/// The dialog in which the user chooses how far a revert goes. Implemented by the package.
class IRevertToDefaultForm {
public:
  virtual ~IRevertToDefaultForm() = default;
  virtual const TFormLayout& GetLayout() const = 0;
  virtual std::string_view GetWarning() const = 0;
  /// Caption of the frame around the radio buttons.
  virtual std::string_view GetGroupCaption() const = 0;
  /// The radio buttons from top to bottom.
  virtual const std::vector<TRevertOption>& GetOptions() const = 0;
  virtual TRevertScope GetScope() const = 0;
  virtual void SetScope(TRevertScope scope) = 0;
  /// The check box below them.
  virtual std::string_view GetKeepAddedFilesCaption() const = 0;
  virtual bool GetKeepAddedFiles() const = 0;
  virtual void SetKeepAddedFiles(bool keep) = 0;
};

/// Shows dialogs and returns when they are left. Implemented by the host. A host that does not know
/// a dialog leaves it unshown.
class IModalForms {
public:
  virtual ~IModalForms() = default;
  virtual TModalResult ShowFeatureFiles(IFeatureFileForm& form) = 0;
  virtual TModalResult ShowSelectPlatforms(ISelectForm& /*form*/) { return TModalResult::None; }
  virtual TModalResult ShowRevertToDefault(IRevertToDefaultForm& /*form*/) {
    return TModalResult::None;
  }
};

} // namespace deployment
