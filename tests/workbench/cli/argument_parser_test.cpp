#include "workbench/cli/argument_parser.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

// What the command of these tests was given.
struct TGiven {
  std::string Project, Kind, Note = "none", Secret;
  std::vector<std::string> Files, Tags;
  std::vector<TGivenText> Targets;
  unsigned Jobs = 0;
  bool Force = false;
  const IOption* NoteOption = nullptr;
};

class TSendCommand final : public ICommand {
public:
  explicit TSendCommand(TGiven& given) : FGiven(given) {}
  std::string Name() const override { return "send"; }
  std::string Summary() const override { return "Send files"; }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FGiven.Project);
    options.Texts("FILE", FGiven.Files, "Files to send").Required();
    options.Choice("--kind", FGiven.Kind, {"fast", "safe"}, "How");
    options.Texts("--tag", FGiven.Tags, "A tag").ValueName("WORD");
    options.Sequence("--target", FGiven.Targets, "One").ValueName("NAME");
    options.Sequence("--bunch", FGiven.Targets, "Several").ValueName("NAME");
    options.Number("--jobs", FGiven.Jobs, 1, 64, "How many at a time");
    options.Flag("--force", FGiven.Force, "Send all");
    options.Text("--secret", FGiven.Secret, "Not shown").Hidden();
    FGiven.NoteOption = &options.Text("--note", FGiven.Note, "A note").ShowDefault();
    options.Footer("Files are sent once.");
  }
  int Run(TCommandContext& /*context*/) override { return 0; }

private:
  TGiven& FGiven;
};

struct TReader {
  TReader() {
    std::vector<std::unique_ptr<ICommand>> commands;
    commands.push_back(std::make_unique<TSendCommand>(Given));
    Parser = std::make_unique<TArgumentParser>(Common, std::move(commands));
  }

  TParsedArguments Read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "deploymgr");
    return Parser->Parse(static_cast<int>(arguments.size()), arguments.data());
  }

  TGiven Given;
  TCommonOptions Common;
  std::unique_ptr<TArgumentParser> Parser;
};

using TTexts = std::vector<std::string>;

TEST(ArgumentParser, FillsInWhatIsGiven) {
  TReader reader;
  const TParsedArguments parsed =
      reader.Read({"send", "p", "a", "--kind", "safe", "--tag", "x", "b", "--tag=y", "--jobs", "4",
                   "--force", "--json", "-p", "Win32", "--secret", "s"});
  ASSERT_TRUE(parsed.Command);
  EXPECT_EQ(parsed.Command->Name(), "send");
  const TGiven& given = reader.Given;
  EXPECT_EQ(given.Project, "p");
  EXPECT_EQ(given.Files, (TTexts{"a", "b"}));
  EXPECT_EQ(given.Tags, (TTexts{"x", "y"}));
  EXPECT_EQ(given.Kind, "safe");
  EXPECT_EQ(given.Secret, "s");
  EXPECT_EQ(given.Jobs, 4U);
  EXPECT_TRUE(given.Force);
  EXPECT_TRUE(reader.Common.Json);
  EXPECT_EQ(reader.Common.Platform, "Win32");
}

TEST(ArgumentParser, KeepsDefaultsOfWhatIsNotGiven) {
  TReader reader;
  reader.Read({"send", "p", "a"});
  EXPECT_EQ(reader.Given.Note, "none");
  EXPECT_FALSE(reader.Given.NoteOption->IsGiven());
  EXPECT_EQ(reader.Given.NoteOption->Name(), "--note");
}

TEST(ArgumentParser, TellsAnEmptyValueFromNone) {
  for (const std::vector<const char*>& line :
       {std::vector<const char*>{"send", "p", "a", "--note", ""}, {"send", "p", "a", "--note="}}) {
    TReader reader;
    reader.Read(line);
    EXPECT_TRUE(reader.Given.NoteOption->IsGiven());
    EXPECT_EQ(reader.Given.Note, "");
  }
}

TEST(ArgumentParser, TakesAnEmptyConfigurationForBase) {
  TReader reader;
  reader.Read({"send", "p", "a", "--config", ""});
  EXPECT_EQ(reader.Common.Configuration, "Base");
}

TEST(ArgumentParser, TakesTextsInBracketsAsTheyAre) {
  TReader reader;
  reader.Read({"send", "[p]", "[draft]", "[a,b]", "\x01[c]", "[d", "--tag", "[t]", "--note", "[n]",
               "--kind", "fast"});
  EXPECT_EQ(reader.Given.Project, "[p]");
  EXPECT_EQ(reader.Given.Files, (TTexts{"[draft]", "[a,b]", "\x01[c]", "[d"}));
  EXPECT_EQ(reader.Given.Tags, TTexts{"[t]"});
  EXPECT_EQ(reader.Given.Note, "[n]");
}

TEST(ArgumentParser, TakesWhatFollowsTwoDashesForArguments) {
  TReader reader;
  reader.Read({"send", "p", "--", "-odd", "--note="});
  EXPECT_EQ(reader.Given.Files, (TTexts{"-odd", "--note="}));
}

TEST(ArgumentParser, SaysWhatIsWrong) {
  struct TCase {
    std::vector<const char*> Line;
    const char* Message;
  };
  const TCase cases[] = {
      {{}, "no command is given; try \"deploymgr --help\""},
      {{"--json"}, "no command is given; try \"deploymgr --help\""},
      {{"sned"}, "there is no command \"sned\"; did you mean \"send\"?"},
      {{"send", "p"}, "FILE is required"},
      {{"send", "", "a"}, "the name of the project file is empty"},
      {{"send", "p", "a", "--nope"}, "there is no option \"--nope\"; did you mean \"--note\"?"},
      {{"send", "p", "a", "--xyzzy"},
       "there is no option \"--xyzzy\"; see \"deploymgr send --help\""},
      {{"send", "p", "a", "--fo"}, "there is no option \"--fo\"; see \"deploymgr send --help\""},
      {{"send", "p", "a", "--sec"}, "there is no option \"--sec\"; see \"deploymgr send --help\""},
      {{"send", "p", "a", "--no-col=x"},
       "there is no option \"--no-col\"; did you mean \"--no-color\"?"},
      {{"help", "sned"}, "there is no command \"sned\"; did you mean \"send\"?"},
      {{"send", "p", "a", "--kind", "slow"}, "--kind: \"slow\" is none of fast, safe"},
      {{"send", "p", "a", "--kind", "[slow]"}, "--kind: \"[slow]\" is none of fast, safe"},
      {{"send", "p", "a", "--jobs", "65"}, "--jobs: Value 65 not in range 1 to 64"},
      {{"send", "p", "a", "--jobs", "some"}, "--jobs: Value some not in range 1 to 64"},
      {{"send", "p", "a", "--jobs", "4294967297"}, "--jobs: Value 4294967297 not in range 1 to 64"},
      {{"send", "p", "a", "--note"}, "--note needs a value"},
      {{"send", "p", "a", "-p", ""}, "the name of the platform is empty"},
      {{"send", "p", "a", "--root="}, "the name of the root directory is empty"},
      {{"-p", "Win32", "send", "p", "a", "-p", "Win64"}, "--platform is given twice"},
      {{"send", "p", "\xFF"}, "argument 3 is not UTF-8 text"},
  };
  for (const TCase& each : cases) {
    TReader reader;
    try {
      reader.Read(each.Line);
      ADD_FAILURE() << each.Message;
    } catch (const TUsageError& error) {
      EXPECT_STREQ(error.what(), each.Message);
    }
  }
}

TEST(ArgumentParser, AnswersHelpAndVersionWithATextAlone) {
  TReader version;
  const TParsedArguments asked = version.Read({"--version"});
  EXPECT_FALSE(asked.Command);
  EXPECT_TRUE(asked.IsVersion);
  EXPECT_TRUE(TReader().Read({"version"}).IsVersion);
  EXPECT_TRUE(TReader().Read({"send", "-V"}).IsVersion);
  EXPECT_EQ(TReader().Read({"help"}).Text, TReader().Read({"--help"}).Text);
  EXPECT_EQ(TReader().Read({"help", "send"}).Text, TReader().Read({"send", "--help"}).Text);
  TReader reader;
  const TParsedArguments parsed = reader.Read({"send", "--help"});
  EXPECT_FALSE(parsed.Command);
  EXPECT_EQ(parsed.Text, "Send files\n"
                         "Usage: deploymgr send [OPTIONS] PROJECT FILE...\n"
                         "\n"
                         "Positionals:\n"
                         "  PROJECT TEXT REQUIRED       Project file\n"
                         "  FILE TEXT ... REQUIRED      Files to send\n"
                         "\n"
                         "Options:\n"
                         "  -h,--help                   Print this help and end\n"
                         "  -V,--version                Print the version and end\n"
                         "  --kind TEXT:{fast,safe}     How\n"
                         "  --tag WORD ...              A tag\n"
                         "  --target NAME ...           One\n"
                         "  --bunch NAME ...            Several\n"
                         "  --jobs UINT:INT in [1 - 64] How many at a time\n"
                         "  --force                     Send all\n"
                         "  --note TEXT=none            A note\n"
                         "  -c,--config NAME            Build configuration; \"\" is \"Base\"\n"
                         "  -p,--platform NAME          Target platform, or \"all\"\n"
                         "  --json                      Print one JSON document\n"
                         "  -q,--quiet                  Print the document of --json and errors "
                         "only; ask nothing\n"
                         "  --no-color                  Print without colours\n"
                         "  --property NAME=VALUE ...   Evaluate the project as a build that is "
                         "given this property; repeatable\n"
                         "  --root DIR                  Directory that holds ObjRepos\n"
                         "\n\n"
                         "Files are sent once.\n"
                         "Exit status: 0 done, or nothing to do; 1 the work failed; 2 wrong usage; "
                         "3 an input cannot be read; 4 the project cannot be reconciled here; 5 no "
                         "connection; 6 the project's commands have no consent; 7 --check: "
                         "something would change; 8 the target is not what was expected; 130, 143 "
                         "interrupted.\n");
}

TEST(ArgumentParser, KeepsTheOrderOfOptionsThatShareAList) {
  TReader reader;
  reader.Read(
      {"send", "p", "f", "--target", "a", "--bunch=b", "--target", "[c,d]", "--target", ""});
  std::string given;
  for (const TGivenText& text : reader.Given.Targets)
    given += text.Option + " " + text.Text + ";";
  EXPECT_EQ(given, "--target a;--bunch b;--target [c,d];--target ;");
}

} // namespace
} // namespace workbench
