#include "workbench/desktop/list/row_index.h"

#include "package/common/case_fold.h"
#include "package/host/api/file_columns.h"
#include "workbench/desktop/text/class_words.h"
#include "workbench/desktop/text/qt_text.h"

#include <QStringList>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>

namespace workbench {

using deployment::TNodeId;

namespace {

namespace file_column = deployment::file_column;

constexpr std::string_view NotConnected = "Not Connected";
constexpr std::string_view Never = "Never";
constexpr std::size_t UsualTextSize = 96; // of a row

bool IsAscii(std::string_view text) {
  constexpr std::uint64_t HighBits = 0x8080808080808080U;
  std::uint64_t block = 0;
  for (; text.size() >= sizeof(block); text.remove_prefix(sizeof(block))) {
    std::memcpy(&block, text.data(), sizeof(block));
    if ((block & HighBits) != 0)
      return false;
  }
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// As UpperCase does it; most names are ASCII, which need no tables.
void AppendFolded(std::string& to, std::string_view text) {
  if (!IsAscii(text)) {
    to += deployment::UpperCase(text);
    return;
  }
  const std::size_t start = to.size();
  to.append(text);
  // Without a branch, which names of letters and digits would often take the wrong way.
  for (char& c : std::span(to).subspan(start))
    c = static_cast<char>(c ^ (static_cast<unsigned char>(c - 'a') < 26 ? 0x20 : 0));
}

} // namespace

void TRowIndex::TNames::Reset(std::size_t nodes) {
  Names.clear();
  Numbers.clear();
  OfNode.assign(nodes, 0);
}

void TRowIndex::TNames::Set(TNodeId node, std::string name) {
  const auto next = static_cast<std::uint32_t>(Names.size());
  const auto [place, isNew] = Numbers.try_emplace(std::move(name), next);
  if (isNew)
    Names.push_back(place->first);
  OfNode[node] = place->second;
}

void TRowIndex::CheckRevision() {
  if (FRevision == FModel.Revision())
    return;
  FRevision = FModel.Revision();
  FHasStates = FHasNames = FHasTexts = false;
}

void TRowIndex::ReadStates() {
  CheckRevision();
  if (std::exchange(FHasStates, true))
    return;
  const TMemoryTree& nodes = FModel.Nodes();
  const std::vector<TNodeId> rows = nodes.GetChildren(0);
  FStates.assign(nodes.EndOfNodes(), TRowState::Unknown);
  FCounts.fill(0);
  FRowCount = rows.size();
  FIsConnected =
      !rows.empty() && nodes.Text(rows.front(), file_column::RemoteStatus) != NotConnected;
  for (const TNodeId node : rows) {
    FStates[node] = ReadState(node, nodes.GetCheckState(node) == deployment::TCheckState::Checked,
                              FIsConnected);
    ++FCounts[static_cast<std::size_t>(FStates[node])];
  }
}

TRowState TRowIndex::ReadState(TNodeId node, bool isChecked, bool isConnected) const {
  const TMemoryTree& nodes = FModel.Nodes();
  TRowLook look;
  look.IsChecked = isChecked;
  look.IsHere =
      isChecked && nodes.TextColor(node, file_column::LocalName) == deployment::TTextColor::Default;
  std::string status;
  if (look.IsHere && isConnected) {
    status = nodes.Text(node, file_column::RemoteStatus);
    look.RemoteStatus = status;
    look.IsOverwritten = nodes.Text(node, file_column::Overwrite) != Never;
  }
  return workbench::StateOf(look);
}

TRowState TRowIndex::ComparisonOf(TNodeId node) const {
  if (FModel.Nodes().Text(node, file_column::RemoteStatus) == NotConnected)
    return TRowState::Unknown;
  return ReadState(node, /*isChecked=*/true, /*isConnected=*/true);
}

TRowState TRowIndex::StateOf(TNodeId node) {
  ReadStates();
  return node < FStates.size() ? FStates[node] : TRowState::Unknown;
}

const TRowIndex::TCounts& TRowIndex::Counts() {
  ReadStates();
  return FCounts;
}

std::size_t TRowIndex::RowCount() {
  ReadStates();
  return FRowCount;
}

bool TRowIndex::IsConnected() {
  ReadStates();
  return FIsConnected;
}

void TRowIndex::ReadNames() {
  CheckRevision();
  if (std::exchange(FHasNames, true))
    return;
  const TMemoryTree& nodes = FModel.Nodes();
  FClasses.Reset(nodes.EndOfNodes());
  FFolders.Reset(nodes.EndOfNodes());
  for (const TNodeId node : nodes.GetChildren(0)) {
    FClasses.Set(node, nodes.Text(node, file_column::Type));
    FFolders.Set(node, nodes.Text(node, file_column::LocalPath));
  }
}

const std::vector<std::string>& TRowIndex::Classes() {
  ReadNames();
  return FClasses.Names;
}

std::size_t TRowIndex::ClassOf(TNodeId node) {
  ReadNames();
  return FClasses.OfNode[node];
}

const std::vector<std::string>& TRowIndex::Folders() {
  ReadNames();
  return FFolders.Names;
}

std::size_t TRowIndex::FolderOf(TNodeId node) {
  ReadNames();
  return FFolders.OfNode[node];
}

// A line break stands in no word that is looked for, so that none is found across two cells.
void TRowIndex::AppendText(TNodeId node) {
  const TMemoryTree& nodes = FModel.Nodes();
  FText += FFoldedFolders[FFolders.OfNode[node]];
  AppendFolded(FText, nodes.Text(node, file_column::LocalName));
  for (const int column : {file_column::RemotePath, file_column::RemoteName}) {
    FText += '\n';
    AppendFolded(FText, nodes.Text(node, column));
  }
}

void TRowIndex::ReadTexts() {
  ReadNames();
  ReadStates();
  if (std::exchange(FHasTexts, true))
    return;
  FStateWords.clear();
  for (const TRowState state : RowStates)
    FStateWords.push_back(deployment::UpperCase(ToStdString(StateWord(state))));
  std::vector<std::string> classes;
  classes.reserve(FClasses.Names.size());
  for (const std::string& name : FClasses.Names)
    classes.push_back(deployment::UpperCase("\n" + name + "\n" + ToStdString(ClassWords(name))));
  FFoldedFolders.clear();
  FFoldedFolders.reserve(FFolders.Names.size());
  for (const std::string& name : FFolders.Names)
    FFoldedFolders.push_back(deployment::UpperCase(name));
  std::vector<TNodeId> byNode = FModel.Nodes().GetChildren(0);
  std::ranges::sort(byNode);
  FEnds.assign(FModel.Nodes().EndOfNodes(), 0);
  FText.clear();
  FText.reserve(byNode.size() * UsualTextSize);
  TNodeId next = 0;
  for (const TNodeId node : byNode) {
    for (; next < node; ++next)
      FEnds[next] = FText.size();
    AppendText(node);
    FText += classes[FClasses.OfNode[node]];
    FEnds[next++] = FText.size();
  }
}

bool TRowIndex::HasWords(TNodeId node, const std::vector<std::string>& words) {
  ReadTexts();
  const std::size_t begin = node == 0 ? 0 : FEnds[node - 1];
  const std::string_view text = std::string_view(FText).substr(begin, FEnds[node] - begin);
  return std::ranges::all_of(words, [&](const std::string& word) {
    return text.find(word) != std::string_view::npos ||
           FStateWords[static_cast<std::size_t>(FStates[node])].find(word) != std::string::npos;
  });
}

std::vector<std::string> FoldedWords(const QString& text) {
  const QStringList parts = text.simplified().split(u' ', Qt::SkipEmptyParts);
  std::vector<std::string> words;
  words.reserve(static_cast<std::size_t>(parts.size()));
  for (const QString& part : parts)
    words.push_back(deployment::UpperCase(ToStdString(part)));
  return words;
}

} // namespace workbench
