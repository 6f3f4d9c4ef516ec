// deploymgr platforms: the platform table.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/project_settings.h"

namespace workbench {
namespace {

TJson FactsAsJson(const TPlatformFacts& facts) {
  TJson outputs = TJson::Object();
  for (const auto& output : facts.Outputs)
    outputs.Add(output.Key,
                {{"prefix", output.Value.Prefix}, {"extension", output.Value.Extension}});
  TJson symbols = TJson::Object();
  for (const auto& personality : facts.Personalities)
    symbols.Add(personality.Key, personality.Value.SymbolExtension);
  return {{"name", facts.Name},
          {"mobile", facts.Mobile},
          {"defaultRemoteDir", facts.DefaultRemoteDir},
          {"requiresProfile", facts.RequiresProfile},
          {"outputs", outputs},
          {"symbols", symbols}};
}

std::string FactsLine(const TPlatformFacts& facts, const TOutput& output) {
  std::string line = output.Bold(Visible(facts.Name));
  line += facts.Mobile ? "  mobile" : "  desktop";
  line += "  files to " + Visible(facts.DefaultRemoteDir);
  for (const auto& kind : facts.Outputs)
    line += "  " + Visible(kind.Key + "=" + kind.Value.Prefix + "*" + kind.Value.Extension);
  return line;
}

class TPlatformsCommand final : public ICommand {
public:
  std::string Name() const override { return "platforms"; }
  std::string Summary() const override {
    return "Show the platform table, or the platforms of a project";
  }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject, /*required=*/false);
  }

  int Run(TCommandContext& context) override {
    WarnOfConfiguration(context, "platforms have no configuration");
    const TOpenProject* project =
        FProject.empty() ? nullptr : &OpenProject(context, FProject, TOpenPurpose::Look);
    CheckTargetOptions(context, project);
    TJson list = TJson::Array();
    for (const TFacts& facts : Chosen(context, project)) {
      list.Append(FactsAsJson(*facts));
      context.Output.Line(FactsLine(*facts, context.Output));
    }
    if (context.Output.IsJson())
      context.Output.Document({{"platforms", list}});
    return exit_status::Done;
  }

private:
  using TFacts = std::shared_ptr<const TPlatformFacts>;

  // Those of the project in its order, those of the table without one.
  static std::vector<TFacts> Chosen(TCommandContext& context, const TOpenProject* project) {
    const TPlatformTable& table = context.Session.Platforms();
    std::vector<std::string> names = table.Names();
    if (project) {
      names.clear();
      for (const TProjectPlatform& platform : project->Settings().Platforms())
        names.push_back(platform.Name);
    }
    std::vector<TFacts> chosen;
    const std::string& wanted = context.Options.Platform;
    for (const std::string& name : names) {
      if (!wanted.empty() && wanted != AllPlatformsArgument && wanted != name)
        continue;
      const TPlatform* known = table.FindPlatform(name);
      // The table keeps its own facts.
      chosen.push_back(known ? TFacts(TFacts(), &known->Facts()) : UnknownPlatform(name));
    }
    return chosen;
  }

  // A platform of another tool chain: files go to the root of the target.
  static TFacts UnknownPlatform(const std::string& name) {
    auto facts = std::make_shared<TPlatformFacts>();
    facts->Name = name;
    facts->DefaultRemoteDir = ".\\";
    return facts;
  }

  std::string FProject;
};

} // namespace

std::unique_ptr<ICommand> MakePlatformsCommand() {
  return std::make_unique<TPlatformsCommand>();
}

} // namespace workbench
