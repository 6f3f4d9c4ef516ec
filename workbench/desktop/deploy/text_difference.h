// What differs between two texts, line by line.
#pragma once

#include <string_view>
#include <vector>

namespace workbench {

struct TDifferenceLine {
  enum class TKind { Same, Theirs, Ours };
  TKind Kind = TKind::Same;
  std::string_view Text; ///< without its end; of one of the texts that were compared

  bool operator==(const TDifferenceLine&) const = default;
};

/// True for what a person can read: no byte of it is 0.
bool IsText(std::string_view content);

/// The lines of both texts in one order, those of theirs before ours where they differ. The texts
/// must outlive the answer. Texts that differ nearly everywhere are told as wholly different
/// between their equal beginning and end, so that the time is bounded.
std::vector<TDifferenceLine> DifferenceOf(std::string_view theirs, std::string_view ours);

} // namespace workbench
