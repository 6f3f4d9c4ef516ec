#include "workbench/cli/commands/commands.h"
#include "workbench/cli/reference/man_page.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

class TPackCommand final : public ICommand {
public:
  std::string Name() const override { return "pack"; }
  std::string Summary() const override { return "Put files into a box"; }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FText);
    options.Texts("FILE", FTexts, "Files").ValueName("FILE");
    options.Choice("--kind", FText, {"small", "big"}, "Which box");
    options.Number("-n,--count", FCount, 1, 9, "How many").ShowDefault();
    options.Flag("--shut", FFlag, "Shut it: .\\x 'so'");
    options.Flag("--secret", FFlag, "Not told").Hidden();
    options.Footer("A box is shut once.");
  }
  int Run(TCommandContext& /*context*/) override { return 0; }

private:
  std::string FText;
  std::vector<std::string> FTexts;
  unsigned FCount = 3;
  bool FFlag = false;
};

TEST(ManPage, SaysWhatTheCommandDeclares) {
  TPackCommand command;
  const TManual manual{"1.2", {ReferenceOf(command)}, {}};
  const std::string page = CommandManPage(manual, manual.Commands.front());
  const std::string start = R"(.TH "DEPLOYMGR\-PACK" "1" "" "deploymgr 1.2" "Deployment Manager"
.SH NAME
deploymgr\-pack \- put files into a box
.SH SYNOPSIS
\fBdeploymgr pack\fR \fIPROJECT\fR [\fIFILE\fR...] [\fIOPTION\fR...]
.SH DESCRIPTION
Put files into a box.
.PP
A box is shut once.
.SH ARGUMENTS
.TP
\fIPROJECT\fR
Project file.
.TP
\fIFILE\fR
Files.
.SH OPTIONS
.TP
\fB\-\-kind\fR \fITEXT\fR
Which box; one of small, big.
.TP
\fB\-n\fR, \fB\-\-count\fR \fINUMBER\fR
How many, 1 to 9 (3 when it is not given).
.TP
\fB\-\-shut\fR
Shut it: .\ex \(aqso\(aq.
.SH EXIT STATUS
.TP
\fB0\fR
)";
  EXPECT_EQ(page.substr(0, start.size()), start);
  EXPECT_EQ(page.find("Not told"), std::string::npos);
}

TEST(ManPage, KeepsTextFromBeingTakenForRequests) {
  EXPECT_EQ(ManText(".x"), "\\&.x");
  EXPECT_EQ(ManText("a\n'x"), "a\n\\&\\(aqx");
  EXPECT_EQ(ManText("\\fB-~^\""), "\\efB\\-\\(ti\\(ha\\(dq");
}

TEST(ManPage, OfTheProgramNamesEveryCommand) {
  TManual manual{"1.2", {}, CommonOptionReferences()};
  for (const auto& command : AllCommands())
    manual.Commands.push_back(ReferenceOf(*command));
  const std::string page = ProgramManPage(manual);
  EXPECT_GE(manual.Commands.size(), 25U);
  for (const TCommandReference& command : manual.Commands)
    EXPECT_NE(page.find("\\fBdeploymgr\\-" + ManText(command.Name) + "\\fR(1)\n"),
              std::string::npos)
        << command.Name;
  EXPECT_NE(page.find("\\fB\\-p\\fR, \\fB\\-\\-platform\\fR \\fINAME\\fR\n"), std::string::npos);
  EXPECT_NE(page.find("\\fB\\-h\\fR, \\fB\\-\\-help\\fR\n"), std::string::npos);
}

} // namespace
} // namespace workbench
