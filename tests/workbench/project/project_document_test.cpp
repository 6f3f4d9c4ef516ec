#include "tests/support/temporary_directory.h"
#include "tests/workbench/project/document_fixture.h"
#include "workbench/project/project_document.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace workbench {
namespace {

using testing::Compose;
using testing::DocumentError;
using testing::TSectionModel;

constexpr std::string_view Import = "$(MSBuildProjectName).deployproj";
constexpr std::string_view Condition = "Exists('$(MSBuildProjectName).deployproj')";

TEST(ProjectDocument, RefusesAnotherRoot) {
  EXPECT_EQ(DocumentError("\n<Solution/>"),
            "2: the root element is \"Solution\", so this is not an MSBuild project");
  EXPECT_EQ(DocumentError("<project/>"),
            "1: the root element is \"project\", so this is not an MSBuild project");
}

TEST(ProjectDocument, RefusesASecondSection) {
  EXPECT_EQ(DocumentError("<Project><ProjectExtensions>\n<Deployment/>\n<deployment/>"
                          "</ProjectExtensions></Project>"),
            "3: the project holds a second section \"deployment\"; the first one stands in line 2");
  EXPECT_EQ(DocumentError("<Project><ProjectExtensions><Deployment/></ProjectExtensions>\n"
                          "<ProjectExtensions><Deployment/></ProjectExtensions></Project>"),
            "2: the project holds a second section \"Deployment\"; the first one stands in line 1");
}

TEST(ProjectDocument, FindsSectionsInAnyContainerIgnoringCase) {
  TProjectDocument document(
      "<Project><Deployment/><ProjectExtensions><One/></ProjectExtensions>\n"
      "<ProjectExtensions><DePloyment/>\n<two/></ProjectExtensions></Project>",
      "demo.vproj", "Deployment");
  EXPECT_EQ(document.FindSection("Deployment")->NodeName(), "DePloyment");
  EXPECT_EQ(document.FindSection("TWO")->Place().Line, 3U);
  EXPECT_EQ(document.FindSection("Three"), nullptr);
  EXPECT_EQ(document.Name(), "demo.vproj");
  EXPECT_EQ(document.LargeSectionName(), "Deployment");
}

TEST(ProjectDocument, AddsASectionInMemoryOnce) {
  TProjectDocument document("<Project/>", "demo.vproj", "Deployment");
  TXmlElement& added = document.AddSection("Deployment");
  added.SetAttribute("Version", "2");
  EXPECT_EQ(&document.AddSection("deployment"), &added);
  EXPECT_EQ(document.FindSection("DEPLOYMENT"), &added);
  EXPECT_EQ(document.Bytes(), "<Project/>");
}

TEST(ProjectDocument, KnowsItsImports) {
  TProjectDocument document("<Project><Import Project=\"A.targets\" Condition=\"false\"/>"
                            "<ImportGroup><Import Project=\"B.targets\"/></ImportGroup>"
                            "<Other><Import Project=\"C.targets\"/></Other><Import/></Project>",
                            "demo.vproj", "Deployment");
  EXPECT_TRUE(document.HasImport("a.TARGETS"));
  EXPECT_TRUE(document.HasImport("b.targets"));
  EXPECT_FALSE(document.HasImport("C.targets"));
  EXPECT_FALSE(document.HasImport("D.targets"));
  document.AddImport("D.targets", "");
  EXPECT_TRUE(document.HasImport("d.targets"));
}

TEST(ProjectDocument, AddsAnImportOnceAsLastChild) {
  const std::string text = "<Project>\r\n\t<A/>\r\n\t<ProjectExtensions>\r\n\t\t<Deployment "
                           "Version=\"2\"/>\r\n\t</ProjectExtensions>\r\n</Project>\r\n";
  TProjectDocument document(text, "demo.vproj", "Deployment");
  document.AddImport(Import, Condition);
  document.AddImport(Import, Condition);
  const auto composed = Compose(document, {});
  EXPECT_EQ(composed,
            testing::Replaced(text, "\r\n</Project>",
                              "\r\n\t<Import Project=\"$(MSBuildProjectName).deployproj\" "
                              "Condition=\"Exists('$(MSBuildProjectName).deployproj')\"/>"
                              "\r\n</Project>"));
  TProjectDocument again(*composed, "demo.vproj", "Deployment");
  again.AddImport(Import, Condition);
  EXPECT_EQ(Compose(again, {}), std::nullopt);
}

TEST(ProjectDocument, AddsNoImportThatStandsInAGroupOrInAnotherCase) {
  for (const std::string line :
       {"<Import Project=\"$(msbuildprojectname).DeployProj\"/>",
        "<ImportGroup><Import Project=\"$(MSBuildProjectName).deployproj\"/></ImportGroup>"}) {
    TProjectDocument document("<Project><ProjectExtensions><Deployment Version=\"2\"/>"
                              "</ProjectExtensions>" +
                                  line + "</Project>",
                              "demo.vproj", "Deployment");
    document.AddImport(Import, Condition);
    EXPECT_EQ(Compose(document, {}), std::nullopt) << line;
  }
}

TEST(ProjectDocument, AddsContainerAndImportToARootWithoutEndTag) {
  TProjectDocument document("<Project/>\n", "demo.vproj", "Deployment");
  document.AddImport("x.deployproj", "");
  EXPECT_EQ(Compose(document, {}),
            "<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\"/>\n"
            "  </ProjectExtensions>\n  <Import Project=\"x.deployproj\" Condition=\"\"/>\n"
            "</Project>\n");
}

TEST(ProjectDocument, ReadsItsFile) {
  const testing::TTemporaryDirectory directory;
  const std::filesystem::path file = directory.Path() / "demo.vproj";
  EXPECT_THROW(TProjectDocument(file, "Deployment"), deployment::TInputError);
  testing::WriteText(file, "<Project/>");
  TProjectDocument document(file, "Deployment");
  EXPECT_EQ(document.Bytes(), "<Project/>");
  EXPECT_EQ(document.Name(), file.string());
}

TEST(ProjectDocument, ForgetsTheLargeSectionAndReadsItAgain) {
  const std::string text = "<Project><ProjectExtensions><Deployment Version=\"2\"><E N=\"a\"/>"
                           "</Deployment></ProjectExtensions></Project>";
  TProjectDocument document(text, "demo.vproj", "Deployment");
  document.ForgetLargeSection();
  EXPECT_EQ(Compose(document, testing::ModelOf(text)), std::nullopt);
  EXPECT_EQ(TSectionModel::ReadFrom(*document.FindSection("Deployment")), testing::ModelOf(text));
  document.ForgetLargeSection();
}

TEST(ProjectDocument, FindsNoTextInASectionOfCommentsAlone) {
  const std::string text =
      "<Project><ProjectExtensions><Deployment Version=\"2\">\n  <!-- head -->\n"
      "  <?keep?>\n</Deployment></ProjectExtensions></Project>";
  TProjectDocument document(text, "demo.vproj", "Deployment");
  EXPECT_EQ(document.FindSection("Deployment")->Text(), "");
  document.ForgetLargeSection();
  EXPECT_EQ(TSectionModel::ReadFrom(*document.FindSection("Deployment")), testing::ModelOf(text));
  EXPECT_EQ(document.FindSection("Deployment")->Text(), "");
}

TEST(ProjectDocument, BorrowsUnchangedBytesInsteadOfCopyingThem) {
  std::string text = "<Project><ProjectExtensions><Deployment Version=\"2\">";
  for (int i = 0; i < 1000; ++i)
    text += "<E N=\"" + std::to_string(i) + "\"/>\n";
  text += "</Deployment></ProjectExtensions></Project>";
  TProjectDocument document(text, "demo.vproj", "Deployment");
  TSectionModel model = testing::ModelOf(text);
  model.Entries[500].Text = "changed";
  const auto pieces =
      document.Compose([&model](deployment::IXMLNode& node) { model.WriteTo(node); });
  // The section stands apart from what surrounds it: its hash is asked for.
  ASSERT_EQ(pieces->Pieces().size(), 5U);
  EXPECT_EQ(pieces->Marked().size(), 3U);
  EXPECT_EQ(pieces->Pieces()[0].data(), document.Bytes().data());
}

} // namespace
} // namespace workbench
