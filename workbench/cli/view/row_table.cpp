#include "workbench/cli/view/row_table.h"

#include "package/host/api/file_columns.h"
#include "workbench/text/utf8.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace workbench {
namespace {

using TWidths = std::array<std::size_t, deployment::FileColumns.size()>;

void Widen(TWidths& widths, const std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < widths.size(); ++i)
    widths[i] = std::max(widths[i], CodePointCount(cells[i]));
}

std::string Padded(const std::vector<std::string>& cells, const TWidths& widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    line.append(cells[i]);
    if (i + 1 < cells.size())
      line.append(widths[i] - CodePointCount(cells[i]) + 2, ' ');
  }
  return line;
}

std::string ProjectCell(const std::string& project, std::size_t width) {
  if (width == 0)
    return {};
  return project + std::string(width - CodePointCount(project) + 2, ' ');
}

} // namespace

void TRowTable::Add(const std::string& project, const std::vector<TViewRow>& rows) {
  FLines.reserve(FLines.size() + rows.size());
  for (const TViewRow& row : rows) {
    TLine& line = FLines.emplace_back();
    line.Project = project;
    line.IsChecked = row.Checked;
    line.IsDimmed = row.Dimmed;
    std::ranges::transform(row.Texts, std::back_inserter(line.Cells),
                           [](const std::string& text) { return Visible(text); });
  }
}

void TRowTable::AddSummary(const std::string& project, const std::string& text) {
  FSummary.push_back(project.empty() ? text : project + ": " + text);
}

void TRowTable::Print(TOutput& output) const {
  std::vector<std::string> titles;
  titles.reserve(deployment::FileColumns.size());
  for (const deployment::TFileColumn& column : deployment::FileColumns)
    titles.emplace_back(column.Title);
  TWidths widths{};
  if (output.IsTerminal())
    Widen(widths, titles);
  std::size_t width = 0;
  for (const TLine& line : FLines) {
    Widen(widths, line.Cells);
    width = std::max(width, CodePointCount(line.Project));
  }
  if (output.IsTerminal())
    output.Line(output.Bold(ProjectCell({}, width) + "    " + Padded(titles, widths)));
  for (const TLine& line : FLines) {
    const std::string text = ProjectCell(line.Project, width) + (line.IsChecked ? "[x] " : "[ ] ") +
                             Padded(line.Cells, widths);
    output.Line(line.IsDimmed ? output.Dim(text) : text);
  }
  if (output.IsTerminal()) {
    for (const std::string& text : FSummary)
      output.Line(text);
  }
}

} // namespace workbench
