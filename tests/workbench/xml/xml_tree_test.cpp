#include "tests/workbench/xml/xml_fixture.h"
#include "workbench/xml/xml_tree.h"

#include <utility>
#include <vector>

namespace workbench {
namespace {

using testing::Describe;

TEST(XmlTree, IsBuiltInMemory) {
  TXmlTree tree("demo.vproj");
  EXPECT_EQ(tree.Root(), nullptr);
  TXmlElement& root = tree.MakeRoot("a");
  TXmlElement& child = root.AddChild("b");
  child.SetAttribute("x", "1");
  child.SetText("t");
  root.AddChild("c");
  EXPECT_EQ(Describe(root), "a(b[x=1]\"t\" c)");
  EXPECT_EQ(child.Place().Line, 0U);
  EXPECT_EQ(child.Place().File, "demo.vproj");
  EXPECT_FALSE(child.StandsInSource());
}

TEST(XmlTree, KeepsItsOwnCopiesOfTexts) {
  TXmlTree tree("demo.vproj");
  TXmlElement& root = tree.MakeRoot("a");
  {
    std::string text = "value that is longer than any small text";
    root.SetAttribute(text.substr(0, 5), text);
    root.SetText(text);
    text.assign(text.size(), '#');
  }
  EXPECT_EQ(root.GetAttribute("value"), "value that is longer than any small text");
  EXPECT_EQ(root.Text(), "value that is longer than any small text");
}

TEST(XmlTree, ReplacesAnAttributeInItsPlaceAndAddsOthersBehind) {
  const auto reader = testing::Read("<a x=\"1\" y=\"2\" z=\"3\"/>");
  TXmlElement& root = reader->Root();
  root.SetAttribute("y", "new");
  for (int i = 0; i < 20; ++i)
    root.SetAttribute("n" + std::to_string(i), std::to_string(i));
  ASSERT_EQ(root.AttributeCount(), 23U);
  EXPECT_EQ(root.AttributeName(1), "y");
  EXPECT_EQ(root.AttributeValue(1), "new");
  EXPECT_EQ(root.AttributeName(2), "z");
  for (std::size_t i = 0; i < 20; ++i)
    EXPECT_EQ(root.AttributeValue(3 + i), std::to_string(i));
}

TEST(XmlTree, RemovesChildrenWithTheTextAndAttributesAlone) {
  const auto reader = testing::Read("<a x=\"1\">t<b/></a>");
  TXmlElement& root = reader->Root();
  root.RemoveChildren();
  EXPECT_EQ(Describe(root), "a[x=1]");
  EXPECT_FALSE(root.HasChildren());
  root.AddChild("c");
  root.RemoveAttributes();
  EXPECT_EQ(Describe(root), "a(c)");
  root.SetAttribute("y", "2");
  EXPECT_EQ(Describe(root), "a[y=2](c)");
}

TEST(XmlTree, AddsBehindTheChildrenThatWereRead) {
  const auto reader = testing::Read("<a><b/><c/></a>");
  reader->Root().AddChild("d");
  EXPECT_EQ(Describe(reader->Root()), "a(b c d)");
}

class TDescribingSink final : public IXmlChildSink {
public:
  void ChildDone(TXmlElement& child) override { Taken.push_back(Describe(child)); }
  std::vector<std::string> Taken;
};

TEST(XmlTree, HandsTheRootsChildrenToItsSinkOneByOne) {
  TXmlTree tree("demo.vproj");
  TDescribingSink sink;
  TXmlElement& root = tree.MakeRoot("list");
  tree.HandChildrenTo(sink);
  root.SetAttribute("Version", "2");
  for (int i = 0; i < 1000; ++i) {
    TXmlElement& child = root.AddChild("entry");
    EXPECT_EQ(sink.Taken.size(), static_cast<std::size_t>(i));
    child.SetAttribute("name", "file " + std::to_string(i));
    child.AddChild("inner").AddChild("innermost").SetText(std::to_string(i));
  }
  tree.HandLastChild();
  tree.HandLastChild(); // there is none any more
  ASSERT_EQ(sink.Taken.size(), 1000U);
  EXPECT_EQ(sink.Taken[0], "entry[name=file 0](inner(innermost\"0\"))");
  EXPECT_EQ(sink.Taken[999], "entry[name=file 999](inner(innermost\"999\"))");
  EXPECT_EQ(Describe(root), "list[Version=2]");
}

TEST(XmlTree, KeepsWhatIsSetAtTheRootWhileChildrenAreHandedOver) {
  TXmlTree tree("demo.vproj");
  TDescribingSink sink;
  TXmlElement& root = tree.MakeRoot("list");
  tree.HandChildrenTo(sink);
  root.AddChild("a").SetText(std::string(1000, 'x'));
  root.SetAttribute("late", "one");
  root.AddChild("b").SetText(std::string(1000, 'y'));
  root.SetAttribute("later", "two");
  tree.HandLastChild();
  EXPECT_EQ(root.GetAttribute("late"), "one");
  EXPECT_EQ(root.GetAttribute("later"), "two");
  EXPECT_EQ(sink.Taken.size(), 2U);
}

TEST(XmlTree, KeepsLargeTextsOfItsChildren) {
  TXmlTree tree("demo.vproj");
  TXmlElement& root = tree.MakeRoot("a");
  const std::string large(1'000'000, 'x');
  root.AddChild("b").SetText(large);
  root.AddChild("c").SetText("small");
  root.AddChild("d").SetText(large);
  EXPECT_EQ(Describe(root), "a(b\"" + large + "\" c\"small\" d\"" + large + "\")");
}

} // namespace
} // namespace workbench
