#include "package/common/ordered_dictionary.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

std::string Keys(const TOrderedDictionary<int>& dictionary) {
  std::string keys;
  for (const auto& pair : dictionary)
    keys += pair.Key + "=" + std::to_string(pair.Value) + " ";
  return keys;
}

TEST(OrderedDictionary, KeepsTheOrderOfInsertion) {
  TOrderedDictionary<int> dictionary;
  EXPECT_TRUE(dictionary.IsEmpty());
  dictionary.Set("b", 1);
  dictionary.Set("a", 2);
  dictionary.Set("B", 3);
  dictionary.Set("b", 4);
  EXPECT_EQ(Keys(dictionary), "b=4 a=2 B=3 ");
  EXPECT_EQ(dictionary.Find("c"), nullptr);
  EXPECT_EQ(*dictionary.Find("B"), 3);
}

TEST(OrderedDictionary, RemovesWithoutChangingTheOrderOfTheOthers) {
  TOrderedDictionary<int> dictionary;
  for (int i = 0; i < 20; ++i)
    dictionary.Set(std::to_string(i), i);
  EXPECT_TRUE(dictionary.Remove("3"));
  EXPECT_FALSE(dictionary.Remove("3"));
  EXPECT_EQ(dictionary.Count(), 19U);
  EXPECT_EQ(*dictionary.Find("19"), 19);
  EXPECT_EQ(dictionary.begin()[3].Key, "4");
  for (int i = 5; i < 20; ++i)
    EXPECT_TRUE(dictionary.Remove(std::to_string(i)));
  EXPECT_EQ(Keys(dictionary), "0=0 1=1 2=2 4=4 ");
  dictionary.Clear();
  EXPECT_EQ(dictionary.Find("0"), nullptr);
}

TEST(OrderedDictionary, FindsEachOfManyKeys) {
  TOrderedDictionary<int> dictionary;
  constexpr int Count = 100'000;
  for (int i = 0; i < Count; ++i)
    dictionary.Set(std::to_string(i), i);
  int found = 0;
  for (int i = 0; i < Count; ++i)
    found += *dictionary.Find(std::to_string(i)) == i;
  EXPECT_EQ(found, Count);
}

} // namespace
} // namespace deployment
