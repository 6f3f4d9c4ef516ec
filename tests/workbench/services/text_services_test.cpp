#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/machine_path.h"
#include "workbench/services/macro_utils.h"
#include "workbench/services/text_filter.h"
#include "workbench/services/variable_references.h"

namespace workbench {
namespace {

TEST(MachinePath, TurnsDelimitersAndLeavesDrivesAlone) {
  EXPECT_EQ(ToMachinePath("\\opt\\a/b"), "/opt/a/b");
  EXPECT_EQ(ToMachinePath("a\\b"), "a/b");
  EXPECT_EQ(ToMachinePath("C:\\a\\b").native(), "C:\\a\\b");
  EXPECT_EQ(ToStoredPath("/opt/a b/c"), "\\opt\\a b\\c");
}

TEST(VariableReferences, LeaveWhatIsNoReference) {
  const auto lookup = [](std::string_view name) -> std::optional<std::string> {
    return name == "A" ? std::optional<std::string>("$(A)") : std::nullopt;
  };
  EXPECT_EQ(ReplaceVariables("x$(A)y", lookup), "x$(A)y");
  EXPECT_EQ(ReplaceVariables("$(B) $( $(A $A $($(A))", lookup), "$(B) $( $(A $A $($(A))");
  EXPECT_EQ(ReplaceVariables("", lookup), "");
  std::string open;
  for (int i = 0; i < 500000; ++i)
    open += "$(";
  EXPECT_EQ(ReplaceVariables(open, lookup), open);
}

TEST(MacroUtils, ExpandsParametersIgnoringCaseAndThenTheRoot) {
  const TMacroUtils macros("/opt/root");
  EXPECT_EQ(macros.ExpandMacros("$(config)\\$(PLATFORM)\\$(Other)\\$(ZELK)",
                                "Config=Debug;Platform=Win32"),
            "Debug\\Win32\\$(Other)\\$(ZELK)");
  EXPECT_EQ(macros.ExpandRootMacro("$(zelk)\\bin", ""), "\\opt\\root\\bin");
  EXPECT_EQ(macros.ExpandRootMacro("$(NDKBasePath)\\x", "NDKBasePath=$(ZELK)\\ndk"),
            "\\opt\\root\\ndk\\x");
  EXPECT_EQ(macros.ExpandMacros("$(A)$(B)", "A=;junk;B=x=y"), "x=y");
}

class TextFilter : public testing::TSaveTest {};

TEST_F(TextFilter, FillsSetVariablesWithEscapedValues) {
  Write(FFile, "<a b=\"$(Name)\">$(name)$(Other)</a>");
  TTextFilter filter;
  filter.SetVariable("Name", "old");
  filter.SetVariable("Name", "<\"Ä & 'b'\">");
  EXPECT_EQ(filter.Filter(ToStoredPath(FFile)),
            "<a b=\"&lt;&quot;Ä &amp; &apos;b&apos;&quot;&gt;\">$(name)$(Other)</a>");
}

TEST_F(TextFilter, NamesAFileThatCannotBeRead) {
  try {
    TTextFilter().Filter(ToStoredPath(FFile));
    FAIL();
  } catch (const deployment::TInputError& error) {
    EXPECT_STREQ(error.what(), "the template cannot be read: No such file or directory");
    EXPECT_EQ(error.Place().File, FFile.string());
  }
}

} // namespace
} // namespace workbench
