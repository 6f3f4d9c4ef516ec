// Conditions of project files: '$(Config)'=='Debug' And Exists('extra.props').
#pragma once

#include "package/common/errors.h"

#include <string>
#include <string_view>

namespace workbench {

/// What a condition asks of the world around it.
class IConditionContext {
public:
  virtual ~IConditionContext() = default;
  /// The text with its property references replaced and its escapes resolved. A property function
  /// comes back as it is written.
  virtual std::string Expand(std::string_view text) const = 0;
  /// Is there a file or a directory of that name?
  virtual bool Exists(std::string_view path) const = 0;
};

/// Evaluates a condition; a blank one holds. Two texts that are both numbers or both Booleans are
/// compared as such, others ignoring case. Where a number or a Boolean is called for, an operand
/// that is empty or a property function makes its comparison false: what would have set it is not
/// on this machine. Throws TInputError with `place` for a condition that is not valid, is longer
/// than 64 KiB, is nested deeper than 256, or compares by size what is no number.
bool EvaluateCondition(std::string_view condition, const IConditionContext& context,
                       const deployment::TErrorPlace& place);

} // namespace workbench
