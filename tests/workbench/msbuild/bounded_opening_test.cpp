// Projects that would keep an evaluation busy, or lead it astray.
#include "tests/workbench/project/project_fixture.h"
#include "workbench/project/import_loader.h"

#include <chrono>
#include <sys/stat.h>

namespace workbench {
namespace {

class BoundedOpening : public TProjectTest {
protected:
  std::string ErrorOf(std::string_view content) {
    try {
      Parse(content);
      TImportLoader loader;
      TEvaluationSource source;
      source.Root = Root.get();
      source.ProjectFile = Directory / "Demo.vproj";
      source.Imports = &loader;
      TMSBuildEvaluation evaluation(source, {});
      evaluation.Items();
      Notes = evaluation.Notes();
    } catch (const deployment::TInputError& error) {
      return std::to_string(error.Place().Line) + ": " + error.what();
    }
    return "no error";
  }

  TEvaluationNotes Notes;
};

TEST_F(BoundedOpening, WalksATreeOnceForManyPatterns) {
  for (int i = 0; i < 2000; ++i)
    MakeFile("d" + std::to_string(i % 20) + "/f" + std::to_string(i) + ".x");
  std::string items;
  for (int i = 0; i < 400; ++i)
    items += "<X Include=\"**\\f" + std::to_string(i) + ".*\"/>";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Evaluate("<ItemGroup>" + items + "</ItemGroup>").Items().size(), 400U);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(BoundedOpening, TakesStarsThatFollowEachOtherForOne) {
  MakeFile("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa.x");
  const std::string stars(2000, '*');
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"a" + stars + "b.x;a" + stars + ".x\"/></ItemGroup>"),
            "X:aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa.x");
}

TEST_F(BoundedOpening, LooksForNothingAboveTheProject) {
  EXPECT_EQ(ErrorOf("<ItemGroup><X Include=\"..\\..\\**;..\\**\\*.x\"/></ItemGroup>"
                    "<Import Project=\"..\\..\\**\"/><Import Project=\"" +
                    std::string(5000, '*') + "x\"/>"),
            "no error");
  ASSERT_EQ(Notes.size(), 4U);
  EXPECT_EQ(Notes[0].Text,
            "the import \"..\\..\\**\" was skipped: it walks through everything above "
            "the project's directory");
  EXPECT_TRUE(Notes[1].Text.ends_with("was skipped: it is longer than any path"));
  EXPECT_TRUE(Notes[2].Text.ends_with("it walks through everything above the project's directory"));
}

TEST_F(BoundedOpening, SaysThatAnImportIsNoFile) {
  std::filesystem::create_directory(Directory / "sheets");
  ASSERT_EQ(::mkfifo(PathOf("pipe.props").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf("\n<Import Project=\"sheets\"/>"),
            "2: the import \"" + PathOf("sheets") + "\" is no file");
  EXPECT_EQ(ErrorOf("\n\n<Import Project=\"pipe.props\"/>"),
            "3: the import \"" + PathOf("pipe.props") + "\" is no file");
}

TEST_F(BoundedOpening, RefusesAnImportThatIsTooLongBeforeItIsRead) {
  std::ofstream(PathOf("big.props")) << "<Project/>";
  std::filesystem::resize_file(PathOf("big.props"), std::uintmax_t{256} * 1024 * 1024);
  EXPECT_EQ(ErrorOf("\n<Import Project=\"big.props\"/>"),
            "2: the import \"" + PathOf("big.props") +
                "\" has 268435456 bytes; at most 16777216 are read");
}

TEST_F(BoundedOpening, ImportsNothingInCircles) {
  std::ofstream(PathOf("a.props")) << "<Project><Import Project=\"b.props\"/></Project>";
  std::ofstream(PathOf("b.props")) << "<Project><Import Project=\"A.PROPS\"/>"
                                      "<Import Project=\"Demo.vproj\"/></Project>";
  MakeFile("Demo.vproj");
  EXPECT_EQ(ErrorOf("<Import Project=\"a.props\"/>"), "no error");
  ASSERT_EQ(Notes.size(), 2U);
  EXPECT_TRUE(Notes[0].Text.ends_with("was skipped: it is part of the project already"));
}

TEST_F(BoundedOpening, RefusesAConditionOfTenThousandParentheses) {
  const std::string open(10'000, '(');
  const std::string close(10'000, ')');
  EXPECT_TRUE(ErrorOf("\n<PropertyGroup Condition=\"" + open + "true" + close + "\"/>")
                  .ends_with("is nested deeper than 256 levels"));
}

} // namespace
} // namespace workbench
