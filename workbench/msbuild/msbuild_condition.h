// Conditions of project files: '$(Config)'=='Debug' And Exists('extra.props').
#pragma once

#include "package/common/errors.h"
#include "workbench/msbuild/values/unknown_value.h"

#include <string>
#include <string_view>

namespace workbench {

/// What a condition asks of the world around it.
class IConditionContext {
public:
  virtual ~IConditionContext() = default;
  /// The text with its references replaced and its escapes resolved.
  virtual TExpanded Expand(std::string_view text) const = 0;
  /// Is there a file or a directory of that name?
  virtual bool Exists(std::string_view path) const = 0;
};

/// Whether a condition holds, as far as it can be known.
struct TConditionResult {
  bool Holds = false; ///< false where it is not known
  TUnknown Unknown{}; ///< set where it is not known
};

/// Evaluates a condition; a blank one holds. Two texts that are both numbers or both Booleans are
/// compared as such, others ignoring case. Where a number or a Boolean is called for, an empty
/// operand makes its comparison false: what would have set it is not on this machine. A comparison
/// with an unknown operand is unknown, and so is the condition unless its other parts decide it.
/// Throws TInputError with `place` for a condition that is not valid, is longer than 64 KiB, is
/// nested deeper than 256, or compares by size what is no number.
TConditionResult EvaluateCondition(std::string_view condition, const IConditionContext& context,
                                   const deployment::TErrorPlace& place);

} // namespace workbench
