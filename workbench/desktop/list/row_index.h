// What filters and counts need to know of the rows of a list, read once for each state of them.
#pragma once

#include "workbench/desktop/controls/tree_model.h"
#include "workbench/desktop/list/row_state.h"

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// Everything is read when it is asked for first after the rows changed. Used on the main thread.
class TRowIndex {
public:
  using TNodeId = deployment::TNodeId;
  using TCounts = std::array<std::size_t, RowStateCount>;

  /// The model must outlive the object, which asks for the nodes of its top level.
  explicit TRowIndex(const TTreeModel& model) : FModel(model) {}

  TRowState StateOf(TNodeId node);
  /// How the file here and the one on the target stand to each other, whether a deploy takes it or
  /// not; reads this row alone. Unknown without a connection.
  TRowState ComparisonOf(TNodeId node) const;
  /// How many rows are in each state, in the order of TRowState.
  const TCounts& Counts();
  std::size_t RowCount();
  /// True when the target answered: the rows do not say that nobody is connected.
  bool IsConnected();

  /// The classes of the rows, each once, in the order in which they come up.
  const std::vector<std::string>& Classes();
  /// Of a row; an index of Classes.
  std::size_t ClassOf(TNodeId node);
  /// The stored directories of the local files, likewise.
  const std::vector<std::string>& Folders();
  std::size_t FolderOf(TNodeId node);

  /// True when every one of the words, as FoldedWords makes them, is somewhere in the row.
  bool HasWords(TNodeId node, const std::vector<std::string>& words);
  /// Reads the texts, so that the first word that is typed need not wait for it.
  void ReadTexts();

private:
  // Names by number.
  struct TNames {
    std::vector<std::string> Names;
    std::unordered_map<std::string, std::uint32_t> Numbers;
    std::vector<std::uint32_t> OfNode;

    void Reset(std::size_t nodes);
    void Set(TNodeId node, std::string name);
  };

  void CheckRevision();
  void ReadStates();
  void ReadNames();
  TRowState ReadState(TNodeId node, bool isChecked, bool isConnected) const;
  void AppendText(TNodeId node);

  const TTreeModel& FModel;
  std::uint64_t FRevision = 0;
  bool FHasStates = false;
  bool FHasNames = false;
  bool FHasTexts = false;
  bool FIsConnected = false;
  TCounts FCounts{};
  std::size_t FRowCount = 0;
  std::vector<TRowState> FStates; // by node
  TNames FClasses;
  TNames FFolders;
  std::string FText;              // of all rows, in capitals
  std::vector<std::size_t> FEnds; // by node, where its text ends in that of all
  std::vector<std::string> FStateWords;
  std::vector<std::string> FFoldedFolders; // by their numbers
};

/// The words of a text that is looked for, so that the case of letters does not matter.
std::vector<std::string> FoldedWords(const QString& text);

} // namespace workbench
