#include "workbench/desktop/target/targets_model.h"

#include "workbench/desktop/list/row_state.h"
#include "workbench/desktop/text/deploy_words.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

// The sign of the row state that asks the same of a person.
TRowState SignOf(TFileState state) {
  switch (state) {
  case TFileState::Same:
    return TRowState::Same;
  case TFileState::ChangedThere:
  case TFileState::Conflict:
  case TFileState::LeftOverChanged:
    return TRowState::ChangedThere;
  case TFileState::MissingHere:
    return TRowState::MissingHere;
  case TFileState::LeftOver:
    return TRowState::Kept;
  default:
    return TRowState::ToCopy;
  }
}

} // namespace

TTargetAnswer AnswerOfPlan(const QString& profile, const TDeployReport& report) {
  TTargetAnswer answer{.Profile = profile};
  if (report.End == TDeployEnd::NoConnection)
    answer.Problem = EngineText(report.Message);
  else if (report.End == TDeployEnd::Refused && !report.Problems.empty())
    answer.Problem = EngineText(report.Problems.front());
  else if (report.End == TDeployEnd::Interrupted)
    answer.Problem = TTargetsModel::tr("was stopped");
  for (const TDeployRow& row : report.Rows) {
    if (row.State)
      answer.States[row.LocalName] = *row.State;
  }
  return answer;
}

void TTargetsModel::Set(std::vector<std::string> files, std::vector<TTargetAnswer> targets) {
  beginResetModel();
  FFiles = std::move(files);
  FTargets = std::move(targets);
  ShowRows();
  endResetModel();
}

void TTargetsModel::SetDifferencesOnly(bool only) {
  beginResetModel();
  FDifferencesOnly = only;
  ShowRows();
  endResetModel();
}

void TTargetsModel::ShowRows() {
  FShown.clear();
  for (std::size_t i = 0; i < FFiles.size(); ++i) {
    if (!FDifferencesOnly || IsDifferent(FFiles[i]))
      FShown.push_back(i);
  }
}

const TFileState* TTargetsModel::StateOf(const std::string& file, int target) const {
  const auto& states = FTargets[static_cast<std::size_t>(target)].States;
  const auto found = states.find(file);
  return found == states.end() ? nullptr : &found->second;
}

bool TTargetsModel::IsDifferent(const std::string& file) const {
  return std::ranges::any_of(FTargets, [&](const TTargetAnswer& target) {
    const auto found = target.States.find(file);
    return found != target.States.end() && found->second != TFileState::Same;
  });
}

int TTargetsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FShown.size());
}

int TTargetsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FTargets.size()) + 1;
}

QVariant TTargetsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const std::string& file = FFiles[FShown[static_cast<std::size_t>(index.row())]];
  if (index.column() == 0)
    return role == Qt::DisplayRole || role == Qt::ToolTipRole ? QVariant(ToQString(file))
                                                              : QVariant();
  const TFileState* state = StateOf(file, index.column() - 1);
  if (role == Qt::DisplayRole)
    return state ? StateWord(*state) : QStringLiteral("–");
  if (role == Qt::DecorationRole && state)
    return StateIcon(SignOf(*state));
  return {};
}

QVariant TTargetsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
    return {};
  if (section == 0)
    return role == Qt::DisplayRole ? tr("File") : QVariant();
  const TTargetAnswer& target = FTargets[static_cast<std::size_t>(section - 1)];
  if (role == Qt::DisplayRole)
    return target.Profile;
  return role == Qt::ToolTipRole && !target.Problem.isEmpty() ? target.Problem.toHtmlEscaped()
                                                              : QVariant();
}

QStringList TTargetsModel::Summary() const {
  QStringList lines;
  for (const TTargetAnswer& target : FTargets) {
    std::map<TFileState, int> counts;
    for (const auto& [file, state] : target.States)
      ++counts[state];
    QStringList parts;
    for (const auto& [state, count] : counts)
      parts += QStringLiteral("%L1 %2").arg(count).arg(StateWord(state));
    lines += QStringLiteral("%1: %2").arg(target.Profile, target.Problem.isEmpty()
                                                              ? parts.join(QStringLiteral(", "))
                                                              : target.Problem);
  }
  return lines;
}

} // namespace workbench
