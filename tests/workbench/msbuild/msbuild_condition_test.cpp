#include "workbench/msbuild/msbuild_condition.h"

#include <gtest/gtest.h>

#include <map>

namespace workbench {
namespace {

// Knows a few properties and files, and counts the questions.
class TKnownWorld final : public IConditionContext {
public:
  TExpanded Expand(std::string_view text) const override {
    ++Asked;
    if (text == "$(Unknown)")
      return {{}, std::make_shared<TUnknownValue>(TUnknownValue{"Unknown", "nobody said"})};
    const auto found = Values.find(std::string(text));
    return {found == Values.end() ? std::string(text) : found->second, nullptr};
  }
  bool Exists(std::string_view path) const override {
    ++Asked;
    return path == "here.txt";
  }

  std::map<std::string, std::string> Values = {
      {"$(Config)", "Debug"}, {"$(Empty)", ""}, {"$(Dir)", "out\\"}, {"$(Flag)", "true"}};
  mutable int Asked = 0;
};

bool Holds(std::string_view condition) {
  return EvaluateCondition(condition, TKnownWorld(), {"p.proj", 7}).Holds;
}

std::string ErrorOf(std::string_view condition) {
  try {
    Holds(condition);
  } catch (const deployment::TInputError& error) {
    EXPECT_EQ(error.Place().File, "p.proj");
    EXPECT_EQ(error.Place().Line, 7U);
    return error.what();
  }
  return "no error";
}

TEST(MSBuildCondition, HoldsWhenItIsBlank) {
  EXPECT_TRUE(Holds(""));
  EXPECT_TRUE(Holds(" \t\n"));
}

TEST(MSBuildCondition, ComparesTextIgnoringCase) {
  EXPECT_TRUE(Holds("'$(Config)'=='$(Config)'"));
  EXPECT_TRUE(Holds("'ÄB' == 'äb'"));
  EXPECT_FALSE(Holds("'a'=='b'"));
  EXPECT_TRUE(Holds("'a'!='b'"));
  EXPECT_TRUE(Holds("$(Config) == Debug"));
  EXPECT_TRUE(Holds("$(Empty) == ''"));
}

TEST(MSBuildCondition, ComparesNumbersAsNumbers) {
  EXPECT_TRUE(Holds("'1.0'=='1'"));
  EXPECT_TRUE(Holds("0x10 == 16"));
  EXPECT_TRUE(Holds("'9' < '10'"));
  EXPECT_TRUE(Holds("-1 < +1"));
  EXPECT_TRUE(Holds("2 >= 2 and 2 <= 2"));
  EXPECT_FALSE(Holds("2 > 2"));
  EXPECT_FALSE(Holds("'nan' == '0'"));
}

TEST(MSBuildCondition, ComparesVersionsPartByPart) {
  EXPECT_TRUE(Holds("'10.0.9.0' < '10.0.17763.0'"));
  EXPECT_TRUE(Holds("'10.0.17763.0' >= '10'"));
}

TEST(MSBuildCondition, ComparesBooleansByTheirMeaning) {
  EXPECT_TRUE(Holds("'on' == 'TRUE'"));
  EXPECT_TRUE(Holds("yes != off"));
  EXPECT_TRUE(Holds("$(Flag)"));
  EXPECT_FALSE(Holds("!$(Flag)"));
  EXPECT_FALSE(Holds("no"));
}

TEST(MSBuildCondition, BindsAndTighterThanOr) {
  EXPECT_TRUE(Holds("true Or false And false"));
  EXPECT_FALSE(Holds("(true Or false) And false"));
  EXPECT_TRUE(Holds("!false AND !(false or false)"));
  EXPECT_FALSE(Holds("!true or false"));
}

TEST(MSBuildCondition, AsksNothingThatIsDecidedAlready) {
  TKnownWorld world;
  EXPECT_FALSE(EvaluateCondition("false And Exists('x') And 'a' < 'b'", world, {}).Holds);
  EXPECT_EQ(world.Asked, 1);
}

TEST(MSBuildCondition, KnowsExistsAndHasTrailingSlash) {
  EXPECT_TRUE(Holds("exists('here.txt')"));
  EXPECT_FALSE(Holds("!Exists('here.txt')"));
  EXPECT_FALSE(Holds("Exists('gone.txt')"));
  EXPECT_FALSE(Holds("Exists('$(Empty)')"));
  EXPECT_TRUE(Holds("HasTrailingSlash($(Dir)) and HasTrailingSlash('a/')"));
  EXPECT_FALSE(Holds("HasTrailingSlash('$(Empty)')"));
}

TEST(MSBuildCondition, IsUnknownWhereAnOperandIsAndNothingElseDecides) {
  const auto isUnknown = [](std::string_view condition) {
    return EvaluateCondition(condition, TKnownWorld(), {"p.proj", 7}).Unknown != nullptr;
  };
  for (const std::string_view condition :
       {"'$(Unknown)'=='a'", "$(Unknown)", "!$(Unknown)", "Exists('$(Unknown)')",
        "'$(Unknown)' > 3", "true And '$(Unknown)'==''", "false Or '$(Unknown)'!='x'"}) {
    EXPECT_TRUE(isUnknown(condition)) << condition;
    EXPECT_FALSE(Holds(condition)) << condition;
  }
  EXPECT_FALSE(isUnknown("'$(Unknown)'=='a' And false"));
  EXPECT_FALSE(Holds("'$(Unknown)'=='a' And false"));
  EXPECT_TRUE(Holds("'$(Unknown)'=='a' Or true"));
  EXPECT_FALSE(isUnknown("true Or '$(Unknown)'=='a'"));
}

TEST(MSBuildCondition, IsFalseWhereAnUnsetPropertyIsToBeJudged) {
  EXPECT_FALSE(Holds("'$(Empty)' >= '16.0'"));
  EXPECT_FALSE(Holds("$(Empty)"));
}

TEST(MSBuildCondition, SaysWhatIsWrongWithIt) {
  EXPECT_EQ(ErrorOf("'a' = 'b'"), "the condition \"'a' = 'b'\" is not valid: at character 5, \"=\" "
                                  "alone does not compare, \"==\" does");
  EXPECT_EQ(ErrorOf("'a"),
            "the condition \"'a\" is not valid: at character 1, a quote is not closed");
  EXPECT_EQ(ErrorOf("'$(a'=='b'"),
            "the condition \"'$(a'=='b'\" is not valid: at character 1, a \"$(\" is not closed");
  EXPECT_EQ(ErrorOf("('a'=='b'"),
            "the condition \"('a'=='b'\" is not valid: at character 10, a \")\" is missing");
  EXPECT_EQ(ErrorOf("'a'=="),
            "the condition \"'a'==\" is not valid: at character 6, a value is missing");
  EXPECT_EQ(ErrorOf("true false"), "the condition \"true false\" is not valid: at character 6, the "
                                   "condition is complete before this");
  EXPECT_EQ(ErrorOf("Gone('x')"),
            "the condition \"Gone('x')\" is not valid: at character 5, there is no function "
            "\"Gone\"");
  EXPECT_EQ(ErrorOf("'a' # 'b'"), "the condition \"'a' # 'b'\" is not valid: at character 5, this "
                                  "character has no meaning here");
  EXPECT_EQ(ErrorOf("$X == 1"),
            "the condition \"$X == 1\" is not valid: at character 1, a \"(\" is "
            "missing behind \"$\"");
}

TEST(MSBuildCondition, RefusesValuesOfTheWrongKind) {
  EXPECT_EQ(ErrorOf("'a' < '1'"),
            "the condition \"'a' < '1'\" asks for a number where the value is \"a\"");
  EXPECT_EQ(ErrorOf("perhaps"),
            "the condition \"perhaps\" asks for a Boolean where the value is \"perhaps\"");
}

TEST(MSBuildCondition, IsReadDownTo256Levels) {
  EXPECT_TRUE(Holds(std::string(256, '(') + "true" + std::string(256, ')')));
  EXPECT_TRUE(Holds(std::string(256, '!') + "true"));
  const std::string reason = std::string(80, '(') + "...\" is nested deeper than 256 levels";
  EXPECT_EQ(ErrorOf(std::string(257, '(') + "true" + std::string(257, ')')),
            "the condition \"" + reason);
  EXPECT_EQ(ErrorOf(std::string(10'000, '(')), "the condition \"" + reason);
}

TEST(MSBuildCondition, IsReadUpTo64Kilobytes) {
  EXPECT_EQ(ErrorOf(std::string(1'000'000, 'a')),
            "the condition \"" + std::string(80, 'a') + "...\" is longer than 65536 bytes");
  std::string longest = "true";
  while (longest.size() + 8 <= 65536)
    longest += " or true";
  EXPECT_TRUE(Holds(longest));
}

} // namespace
} // namespace workbench
