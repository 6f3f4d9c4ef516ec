#include "package/common/errors.h"
#include "workbench/json/json.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using deployment::TInputError;

struct TRejection {
  std::string Text;
  unsigned Line = 0;
};

template <class TAction>
TRejection RejectionOf(TAction action) {
  try {
    action();
  } catch (const TInputError& error) {
    return {error.what(), error.Place().Line};
  }
  return {"no error", 0};
}

TJson Sample() {
  TJson list = TJson::Array();
  list.Append(1);
  list.Append(-2);
  list.Append(0.5);
  list.Append(true);
  list.Append(TJson());
  list.Append(TJson::Array());
  list.Append(TJson::Object());
  return {{"z", "text"}, {"a", list}, {"inner", {{"b", std::vector<std::string>{"x", "y"}}}}};
}

TEST(Json, IsWrittenOnOneLineOrIndentedInTheOrderOfItsMembers) {
  EXPECT_EQ(JsonText(Sample(), -1),
            R"({"z":"text","a":[1,-2,0.5,true,null,[],{}],"inner":{"b":["x","y"]}})");
  EXPECT_EQ(JsonText({{"a", 1}, {"b", {{"c", std::vector<std::string>{"d"}}}}}), R"({
  "a": 1,
  "b": {
    "c": [
      "d"
    ]
  }
})");
}

TEST(Json, EscapesWhatCannotStandInAText) {
  EXPECT_EQ(JsonText("a\"b\\c\n\x01 \x7f \xc3\xa4", -1), "\"a\\\"b\\\\c\\n\\u0001 \x7f \xc3\xa4\"");
  EXPECT_EQ(JsonText("caf\xe9", -1), "\"caf\xef\xbf\xbd\"");
}

TEST(Json, ComesBackFromItsText) {
  EXPECT_EQ(ParseJson(JsonText(Sample())), Sample());
  EXPECT_EQ(ParseJson("18446744073709551615").AsNumber(0, UINT64_MAX), UINT64_MAX);
  EXPECT_EQ(JsonText(ParseJson("-9223372036854775808")), "-9223372036854775808");
  EXPECT_EQ(JsonText(ParseJson("1.5")), "1.5");
}

TEST(Json, SaysWhereATextIsDamaged) {
  const TRejection damaged = RejectionOf([] { ParseJson("{\n  \"a\": 1,\n  \"b\" 2\n}"); });
  EXPECT_EQ(damaged.Text, "it is no JSON at byte 19");
  EXPECT_EQ(damaged.Line, 3U);
  EXPECT_EQ(RejectionOf([] { ParseJson(""); }).Text, "it is no JSON at byte 1");
  EXPECT_EQ(RejectionOf([] { ParseJson("[\xff]"); }).Text, "it is no JSON at byte 2");
}

TEST(Json, RefusesNumbersBeyondAllRangesDoubledMembersAndDeepNesting) {
  const TRejection huge = RejectionOf([] { ParseJson("{\"a\": 1,\n\"b\": 1e999}"); });
  EXPECT_EQ(huge.Text, "a number is beyond all ranges at byte 19");
  EXPECT_EQ(huge.Line, 2U);
  EXPECT_EQ(RejectionOf([] { ParseJson(R"({"a":1,"b":2,"a":3})"); }).Text,
            "it has the member \"a\" twice");
  EXPECT_EQ(RejectionOf([] { ParseJson(std::string(200, '[') + std::string(200, ']')); }).Text,
            "no error");
  EXPECT_EQ(RejectionOf([] { ParseJson(std::string(100000, '[')); }).Text,
            "it is nested deeper than 200 levels");
}

TEST(Json, NamesTheMemberThatIsWrong) {
  const TJson value = ParseJson(
      R"({"port":4294967318,"negative":-1,"half":0.5,"text":"t","flag":true,"list":["a",1]})");
  EXPECT_EQ(RejectionOf([&] { value.NumberOr("port", 22U, 0U, 65535U); }).Text,
            "\"port\" should be a whole number from 0 to 65535, but is 4294967318");
  EXPECT_EQ(RejectionOf([&] { value.Number<unsigned>("port"); }).Text,
            "\"port\" should be a whole number from 0 to 4294967295, but is 4294967318");
  EXPECT_EQ(RejectionOf([&] { value.NumberOr("negative", 1U); }).Text,
            "\"negative\" should be a whole number from 0 to 4294967295, but is -1");
  EXPECT_EQ(RejectionOf([&] { value.NumberOr("half", 1U, 0U, 9U); }).Text,
            "\"half\" should be a whole number from 0 to 9, but is 0.5");
  EXPECT_EQ(RejectionOf([&] { value.BooleanOr("text", true); }).Text,
            "\"text\" should be true or false, but is \"t\"");
  EXPECT_EQ(RejectionOf([&] { value.TextOr("flag", "x"); }).Text,
            "\"flag\" should be a text, but is true");
  EXPECT_EQ(RejectionOf([&] { value.TextsOr("list", {}); }).Text,
            "\"list\" should be a list of texts, but is [\"a\",1]");
  EXPECT_EQ(RejectionOf([&] { value.Array("text"); }).Text,
            "\"text\" should be a list, but is \"t\"");
  EXPECT_EQ(RejectionOf([&] { value.Text("none"); }).Text, "there is no member \"none\"");
  EXPECT_EQ(RejectionOf([] { ParseJson("[]").Text("a"); }).Text,
            "it should be an object with the member \"a\", but is []");
  EXPECT_EQ(RejectionOf([] { ParseJson("3").AsObject(); }).Text,
            "it should be an object, but is 3");
}

TEST(Json, GivesWhatIsAbsentItsDefault) {
  const TJson value = TJson::Object();
  EXPECT_EQ(value.NumberOr("a", 7U), 7U);
  EXPECT_EQ(value.TextOr("a", "b"), "b");
  EXPECT_EQ(value.TextsOr("a", {"b"}), std::vector<std::string>{"b"});
  EXPECT_TRUE(value.BooleanOr("a", true));
}

// Gives three members.
TNextJsonItem ThreeItems(std::size_t& given) {
  return [&given](TJsonMember& item) {
    if (given == 3)
      return false;
    item = {"name " + std::to_string(given), TJson{{"number", given}}};
    ++given;
    return true;
  };
}

TEST(Json, WritesTheItemsOfALargeMemberAsIfTheyWereOneValue) {
  const TJson head{{"format", 1}};
  for (const int indent : {-1, 0, 2}) {
    TJson object = head;
    TJson array = head;
    TJson members = TJson::Object();
    TJson items = TJson::Array();
    for (std::size_t i = 0; i < 3; ++i) {
      members.Add("name " + std::to_string(i), TJson{{"number", i}});
      items.Append(TJson{{"number", i}});
    }
    object.Add("large", members);
    array.Add("large", items);
    std::size_t given = 0;
    const auto written = [&](TJsonItems kind) {
      std::string text;
      WriteJsonWithItems(head, "large", kind, ThreeItems(given), indent,
                         [&text](std::string_view piece) { text += piece; });
      return text;
    };
    EXPECT_EQ(written(TJsonItems::Members), JsonText(object, indent));
    given = 0;
    EXPECT_EQ(written(TJsonItems::Values), JsonText(array, indent));
    given = 3;
    EXPECT_EQ(ParseJson(written(TJsonItems::Members)),
              (TJson{{"format", 1}, {"large", TJson::Object()}}));
  }
}

TEST(Json, WritesALargeMemberInPieces) {
  std::size_t left = 10'000;
  const TNextJsonItem next = [&left](TJsonMember& item) {
    item.Value = TJson("forty characters of a text that is plain");
    return left-- > 0;
  };
  std::size_t largest = 0;
  std::string text;
  WriteJsonWithItems(TJson{{"format", 1}}, "large", TJsonItems::Values, next, -1,
                     [&](std::string_view piece) {
                       largest = std::max(largest, piece.size());
                       text += piece;
                     });
  EXPECT_LT(largest, 70'000U);
  EXPECT_EQ(ParseJson(text).Array("large").size(), 10'000U);
}

TEST(Json, HandsOverTheMembersOfALargeObjectOneByOne) {
  std::string taken;
  const TTakeJsonMember take = [&taken](const std::string& name, const TJson& value) {
    taken += name + "=" + JsonText(value, -1) + ";";
  };
  const std::string text =
      R"({"a":{"large":{"x":1}},"large":{"b":{"c":[1,{"d":2}]},"e":3},"f":["large"]})";
  EXPECT_EQ(ParseJson(text, "large", take),
            ParseJson(R"({"a":{"large":{"x":1}},"large":{},"f":["large"]})"));
  EXPECT_EQ(taken, R"(b={"c":[1,{"d":2}]};e=3;)");
}

TEST(Json, IsStorableWhenAllTextsAreUTF8) {
  EXPECT_TRUE(IsStorableJson(Sample()));
  EXPECT_FALSE(IsStorableJson({{"a", {{"b", "\xff"}}}}));
  EXPECT_FALSE(IsStorableJson({{"\xff", 1}}));
}

} // namespace
} // namespace workbench
