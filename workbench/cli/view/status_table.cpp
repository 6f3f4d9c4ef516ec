#include "workbench/cli/view/status_table.h"

#include "workbench/text/utf8.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view NoAnswer = "?";
constexpr std::string_view NotTaken = "-"; // by a deploy

void AppendFilled(std::string& line, const std::string& text, std::size_t width) {
  line.append(text).append(width - std::min(width, CodePointCount(text)), ' ');
}

} // namespace

TStatusTable::TStatusTable(const std::vector<TViewRow>& rows, std::vector<std::string> targets) {
  FRows.reserve(rows.size());
  for (const TViewRow& row : rows)
    FRows.push_back(Visible(row.StoredName()));
  FColumns.reserve(targets.size());
  for (std::string& target : targets)
    FColumns.push_back({.Name = std::move(target)});
}

void TStatusTable::Set(std::size_t target, const std::vector<TViewRow>& rows,
                       const TTargetStatus& status) {
  TColumn& column = FColumns[target];
  column.IsKnown = true;
  column.States.reserve(rows.size());
  for (const TViewRow& row : rows)
    column.States.push_back(status.StateOf(row));
  for (const TLeftOver& leftOver : status.Report().LeftOvers)
    column.LeftOvers.emplace(
        Visible(leftOver.LocalName.empty() ? leftOver.RecordPath : leftOver.LocalName),
        leftOver.State);
  column.Summary = status.Summary();
}

void TStatusTable::SetFailure(std::size_t target, const std::string& reason) {
  FColumns[target].Summary = {reason};
}

bool TStatusTable::IsDifferent(std::size_t row) const {
  return std::ranges::any_of(FColumns, [row](const TColumn& column) {
    return column.IsKnown && column.States[row] && column.States[row] != TFileState::Same;
  });
}

std::vector<TStatusTable::TLine> TStatusTable::Lines(bool differences) const {
  std::vector<TLine> lines;
  for (std::size_t i = 0; i < FRows.size(); ++i) {
    if (differences && !IsDifferent(i))
      continue;
    TLine& line = lines.emplace_back(TLine{.Name = FRows[i], .Cells = {}});
    for (const TColumn& column : FColumns)
      line.Cells.emplace_back(!column.IsKnown    ? NoAnswer
                              : column.States[i] ? FileStateName(*column.States[i])
                                                 : NotTaken);
  }
  std::set<std::string> leftOvers;
  for (const TColumn& column : FColumns) {
    for (const auto& [name, state] : column.LeftOvers)
      leftOvers.insert(name);
  }
  for (const std::string& name : leftOvers) {
    TLine& line = lines.emplace_back(TLine{.Name = name, .Cells = {}});
    for (const TColumn& column : FColumns) {
      const auto found = column.LeftOvers.find(name);
      line.Cells.emplace_back(!column.IsKnown                   ? NoAnswer
                              : found != column.LeftOvers.end() ? FileStateName(found->second)
                                                                : NotTaken);
    }
  }
  return lines;
}

void TStatusTable::Print(TOutput& output, bool differences) const {
  const std::vector<TLine> lines = Lines(differences);
  constexpr std::string_view Title = "file";
  std::size_t first = Title.size();
  std::vector<std::size_t> widths;
  widths.reserve(FColumns.size());
  for (const TColumn& column : FColumns)
    widths.push_back(CodePointCount(column.Name));
  for (const TLine& line : lines) {
    first = std::max(first, CodePointCount(line.Name));
    for (std::size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], CodePointCount(line.Cells[i]));
  }
  std::string head;
  AppendFilled(head, std::string(Title), first);
  for (std::size_t i = 0; i < FColumns.size(); ++i)
    AppendFilled(head.append("  "), FColumns[i].Name, widths[i]);
  head.resize(head.find_last_not_of(' ') + 1);
  output.Line(output.Bold(head));
  for (const TLine& line : lines) {
    std::string text;
    AppendFilled(text, line.Name, first);
    for (std::size_t i = 0; i < widths.size(); ++i)
      AppendFilled(text.append("  "), line.Cells[i], widths[i]);
    text.resize(text.find_last_not_of(' ') + 1);
    output.Line(text);
  }
  for (const TColumn& column : FColumns) {
    for (const std::string& text : column.Summary)
      output.Line(std::string(column.Name).append(": ").append(text));
  }
}

} // namespace workbench
