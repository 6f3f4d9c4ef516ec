#include "workbench/desktop/deploy/text_difference.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace workbench {
namespace {

using TKind = TDifferenceLine::TKind;
using TLines = std::span<const std::string_view>;

// Edits that are looked for; time and memory grow with their square.
constexpr int MostEdits = 1000;

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r'))
      line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// How far the search came on each diagonal, after each edit.
class TEditSearch {
public:
  TEditSearch(TLines theirs, TLines ours) : FTheirs(theirs), FOurs(ours) {}

  // False when there are too many edits.
  bool Run() {
    const int most = std::min(MostEdits, Size(FTheirs) + Size(FOurs));
    std::vector<int> reached(2 * static_cast<std::size_t>(most) + 3, 0);
    for (int edits = 0; edits <= most; ++edits) {
      for (int diagonal = -edits; diagonal <= edits; diagonal += 2) {
        const int place = diagonal + most + 1;
        const auto at = static_cast<std::size_t>(place);
        int x = IsDown(reached, at, diagonal, edits) ? reached[at + 1] : reached[at - 1] + 1;
        while (x < Size(FTheirs) && x - diagonal < Size(FOurs) && x - diagonal >= 0 &&
               Line(FTheirs, x) == Line(FOurs, x - diagonal))
          ++x;
        reached[at] = x;
        if (x >= Size(FTheirs) && x - diagonal >= Size(FOurs)) {
          Keep(reached, most, edits);
          return true;
        }
      }
      Keep(reached, most, edits);
    }
    return false;
  }

  // The lines, found on the way back.
  std::vector<TDifferenceLine> Lines() const {
    std::vector<TDifferenceLine> lines;
    lines.reserve(FTheirs.size() + FOurs.size());
    int x = Size(FTheirs);
    int y = Size(FOurs);
    for (int edits = static_cast<int>(FTrace.size()) - 1; edits > 0; --edits) {
      const std::vector<int>& before = FTrace[static_cast<std::size_t>(edits) - 1];
      const auto reached = [&](int diagonal) {
        const int at = diagonal + edits - 1;
        return at >= 0 && at < static_cast<int>(before.size())
                   ? before[static_cast<std::size_t>(at)]
                   : -1;
      };
      const int diagonal = x - y;
      const bool isDown = diagonal == -edits ||
                          (diagonal != edits && reached(diagonal - 1) < reached(diagonal + 1));
      const int fromX = isDown ? reached(diagonal + 1) : reached(diagonal - 1);
      const int fromY = fromX - (isDown ? diagonal + 1 : diagonal - 1);
      for (; x > fromX && y > fromY; --y)
        lines.push_back({TKind::Same, Line(FTheirs, --x)});
      if (isDown)
        lines.push_back({TKind::Ours, Line(FOurs, --y)});
      else
        lines.push_back({TKind::Theirs, Line(FTheirs, --x)});
    }
    while (x > 0)
      lines.push_back({TKind::Same, Line(FTheirs, --x)});
    std::reverse(lines.begin(), lines.end());
    return lines;
  }

private:
  static int Size(TLines lines) { return static_cast<int>(lines.size()); }
  static std::string_view Line(TLines lines, int index) {
    return lines[static_cast<std::size_t>(index)];
  }
  static bool IsDown(const std::vector<int>& reached, std::size_t at, int diagonal, int edits) {
    return diagonal == -edits || (diagonal != edits && reached[at - 1] < reached[at + 1]);
  }
  void Keep(const std::vector<int>& reached, int most, int edits) {
    const auto first = reached.begin() + (most + 1 - edits);
    FTrace.emplace_back(first, first + (2 * edits + 1));
  }

  TLines FTheirs;
  TLines FOurs;
  std::vector<std::vector<int>> FTrace; // by number of edits, the diagonals around the main one
};

void AddAll(TLines lines, TKind kind, std::vector<TDifferenceLine>& all) {
  for (const std::string_view line : lines)
    all.push_back({kind, line});
}

} // namespace

bool IsText(std::string_view content) {
  return content.find('\0') == std::string_view::npos;
}

std::vector<TDifferenceLine> DifferenceOf(std::string_view theirs, std::string_view ours) {
  const std::vector<std::string_view> allTheirs = LinesOf(theirs);
  const std::vector<std::string_view> allOurs = LinesOf(ours);
  const std::size_t shorter = std::min(allTheirs.size(), allOurs.size());
  std::size_t start = 0;
  while (start < shorter && allTheirs[start] == allOurs[start])
    ++start;
  std::size_t end = 0;
  while (end < shorter - start &&
         allTheirs[allTheirs.size() - 1 - end] == allOurs[allOurs.size() - 1 - end])
    ++end;
  const TLines middleTheirs = TLines(allTheirs).subspan(start, allTheirs.size() - start - end);
  const TLines middleOurs = TLines(allOurs).subspan(start, allOurs.size() - start - end);
  std::vector<TDifferenceLine> lines;
  lines.reserve(allTheirs.size() + allOurs.size());
  AddAll(TLines(allTheirs).first(start), TKind::Same, lines);
  if (TEditSearch search(middleTheirs, middleOurs); search.Run()) {
    const std::vector<TDifferenceLine> middle = search.Lines();
    lines.insert(lines.end(), middle.begin(), middle.end());
  } else {
    AddAll(middleTheirs, TKind::Theirs, lines);
    AddAll(middleOurs, TKind::Ours, lines);
  }
  AddAll(TLines(allTheirs).last(end), TKind::Same, lines);
  return lines;
}

} // namespace workbench
