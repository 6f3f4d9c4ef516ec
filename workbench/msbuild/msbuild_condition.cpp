#include "workbench/msbuild/msbuild_condition.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/values/condition_tokens.h"
#include "workbench/msbuild/values/condition_values.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <compare>
#include <optional>

namespace workbench {
namespace {

constexpr unsigned DeepestNesting = 256;

// Reads and evaluates in one pass. What a decided And or Or leaves open is read with `live` false:
// it must be well-formed, but nothing is asked of the context and no value is judged.
class TConditionReader {
public:
  TConditionReader(std::string_view condition, const IConditionContext& context,
                   const deployment::TErrorPlace& place)
      : FCondition(condition), FContext(context), FPlace(place), FScanner(condition, place) {}

  TConditionResult Read() {
    if (FScanner.Token() == TConditionToken::End)
      return {true};
    const TTruth truth = ReadOr(true);
    if (FScanner.Token() != TConditionToken::End)
      FScanner.Fail("the condition is complete before this");
    return {truth == TTruth::True, truth == TTruth::Unknown ? FUnknown : nullptr};
  }

private:
  enum class TTruth { False, Unknown, True };

  static TTruth Truth(bool holds) { return holds ? TTruth::True : TTruth::False; }

  TTruth ReadOr(bool live) {
    TTruth holds = ReadAnd(live);
    while (FScanner.Token() == TConditionToken::Or) {
      FScanner.Advance();
      const TTruth right = ReadAnd(live && holds != TTruth::True);
      holds = std::max(holds, right);
    }
    return holds;
  }

  TTruth ReadAnd(bool live) {
    TTruth holds = ReadTerm(live);
    while (FScanner.Token() == TConditionToken::And) {
      FScanner.Advance();
      const TTruth right = ReadTerm(live && holds != TTruth::False);
      holds = std::min(holds, right);
    }
    return holds;
  }

  TTruth ReadTerm(bool live) {
    if (FScanner.Token() == TConditionToken::Not) {
      Enter();
      FScanner.Advance();
      const TTruth inner = ReadTerm(live);
      --FDepth;
      return inner == TTruth::Unknown ? inner : Truth(inner == TTruth::False);
    }
    if (FScanner.Token() == TConditionToken::Open) {
      Enter();
      FScanner.Advance();
      const TTruth holds = ReadOr(live);
      Expect(TConditionToken::Close, "a \")\" is missing");
      --FDepth;
      return holds;
    }
    return ReadComparison(live);
  }

  TTruth ReadComparison(bool live) {
    const bool quoted = FScanner.IsQuoted();
    const std::string_view left = ReadOperand();
    if (!quoted && FScanner.Token() == TConditionToken::Open)
      return ReadFunction(left, live);
    const TConditionToken comparison = FScanner.Token();
    if (comparison < TConditionToken::Equal || comparison > TConditionToken::GreaterOrEqual) {
      const auto value = live ? Expand(left) : std::nullopt;
      return value ? Truth(AsBoolean(*value)) : Undecided(live);
    }
    FScanner.Advance();
    const std::string_view right = ReadOperand();
    const auto leftValue = live ? Expand(left) : std::nullopt;
    const auto rightValue = live ? Expand(right) : std::nullopt;
    if (!leftValue || !rightValue)
      return Undecided(live);
    if (comparison == TConditionToken::Equal)
      return Truth(AreEqual(*leftValue, *rightValue));
    if (comparison == TConditionToken::NotEqual)
      return Truth(!AreEqual(*leftValue, *rightValue));
    return Truth(IsOrdered(*leftValue, comparison, *rightValue));
  }

  TTruth ReadFunction(std::string_view name, bool live) {
    const bool exists = deployment::SameText(name, "Exists");
    if (!exists && !deployment::SameText(name, "HasTrailingSlash"))
      FScanner.Fail("there is no function \"" + ShortText(name) + "\"");
    FScanner.Advance();
    const std::string_view argument = ReadOperand();
    Expect(TConditionToken::Close, "a \")\" is missing");
    const auto path = live ? Expand(argument) : std::nullopt;
    if (!path)
      return Undecided(live);
    if (exists)
      return Truth(!path->empty() && FContext.Exists(*path));
    return Truth(!path->empty() && deployment::IsPathDelimiter(path->back()));
  }

  // Nothing for a text that is not known; the first reason is kept.
  std::optional<std::string> Expand(std::string_view text) {
    TExpanded expanded = FContext.Expand(text);
    if (!expanded.Unknown)
      return std::move(expanded.Text);
    if (!FUnknown)
      FUnknown = std::move(expanded.Unknown);
    return std::nullopt;
  }

  // What is not looked at counts for nothing.
  static TTruth Undecided(bool live) { return live ? TTruth::Unknown : TTruth::False; }

  std::string_view ReadOperand() {
    if (FScanner.Token() != TConditionToken::Text)
      FScanner.Fail("a value is missing");
    const std::string_view operand = FScanner.Value();
    FScanner.Advance();
    return operand;
  }

  void Expect(TConditionToken token, std::string_view reason) {
    if (FScanner.Token() != token)
      FScanner.Fail(reason);
    FScanner.Advance();
  }

  void Enter() {
    if (++FDepth > DeepestNesting)
      Reject("is nested deeper than " + std::to_string(DeepestNesting) + " levels");
  }

  [[noreturn]] void Reject(const std::string& reason) const {
    throw deployment::TInputError("the condition \"" + ShortText(FCondition) + "\" " + reason,
                                  FPlace);
  }

  bool AsBoolean(const std::string& value) const {
    if (IsBlankOperand(value))
      return false;
    const auto boolean = ConditionBoolean(value);
    if (!boolean)
      Reject("asks for a Boolean where the value is \"" + ShortText(value) + "\"");
    return *boolean;
  }

  static bool AreEqual(const std::string& left, const std::string& right) {
    const auto leftNumber = ConditionNumber(left);
    const auto rightNumber = ConditionNumber(right);
    if (leftNumber && rightNumber)
      return *leftNumber == *rightNumber;
    const auto leftBoolean = ConditionBoolean(left);
    const auto rightBoolean = ConditionBoolean(right);
    if (leftBoolean && rightBoolean)
      return *leftBoolean == *rightBoolean;
    return deployment::SameText(left, right);
  }

  bool IsOrdered(const std::string& left, TConditionToken comparison,
                 const std::string& right) const {
    if (IsBlankOperand(left) || IsBlankOperand(right))
      return false;
    const std::partial_ordering order = Compare(left, right);
    switch (comparison) {
    case TConditionToken::Less:
      return std::is_lt(order);
    case TConditionToken::Greater:
      return std::is_gt(order);
    case TConditionToken::LessOrEqual:
      return std::is_lteq(order);
    default:
      return std::is_gteq(order);
    }
  }

  // As numbers when both are; else as versions, a plain number being the major version.
  std::partial_ordering Compare(const std::string& left, const std::string& right) const {
    const auto leftNumber = ConditionNumber(left);
    const auto rightNumber = ConditionNumber(right);
    if (leftNumber && rightNumber)
      return *leftNumber <=> *rightNumber;
    return AsVersion(left) <=> AsVersion(right);
  }

  TConditionVersion AsVersion(const std::string& value) const {
    auto version = ConditionVersion(value);
    if (!version && value.find('.') == std::string::npos)
      version = ConditionVersion(value + ".0");
    if (!version)
      Reject("asks for a number where the value is \"" + ShortText(value) + "\"");
    return *version;
  }

  std::string_view FCondition;
  const IConditionContext& FContext;
  const deployment::TErrorPlace& FPlace;
  TConditionScanner FScanner;
  unsigned FDepth = 0;
  TUnknown FUnknown;
};

} // namespace

TConditionResult EvaluateCondition(std::string_view condition, const IConditionContext& context,
                                   const deployment::TErrorPlace& place) {
  return TConditionReader(condition, context, place).Read();
}

} // namespace workbench
