// deploymgr settings: the user's settings.
#include "package/common/delimited_list.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/context/options.h"
#include "workbench/cli/context/target.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/settings/known_settings.h"
#include "workbench/settings/settings_store.h"

namespace workbench {
namespace {

class TSettingsCommand final : public ICommand {
public:
  std::string Name() const override { return "settings"; }
  std::string Summary() const override { return "List, read and change the user's settings"; }

  void AddOptions(IOptions& options) override {
    options.Choice("ACTION", FAction, {"list", "get", "set", "unset"}, "list, get, set or unset")
        .Required();
    options.Text("KEY", FKey, "Such as library-path.Win32");
    FValueOption = &options.Text("VALUE", FValue, "The new value");
    options.Flag("--dry-run", FDryRun, "Say what would change; change nothing");
    options.Flag("--yes", FYes, "Answer every question with yes (settings ask none)");
    options.Footer("The settings are " + deployment::JoinDelimited(KnownSettings(), ", ") + ".");
  }

  int Run(TCommandContext& context) override {
    CheckArguments();
    WarnOfTarget(context, nullptr, "settings are of no target");
    TSettings& settings = context.Session.Settings();
    if (FAction != "list")
      CheckKey(context, settings);
    if (FAction == "list")
      List(context, settings);
    else if (FAction == "get")
      Get(context, settings);
    else
      Change(context, settings);
    return exit_status::Done;
  }

private:
  void CheckArguments() const {
    const bool needsKey = FAction != "list";
    if (needsKey == FKey.empty())
      throw TUsageError(needsKey ? "settings " + FAction + " needs a key"
                                 : std::string("settings list takes no key"));
    if ((FAction == "set") != FValueOption->IsGiven())
      throw TUsageError(FAction == "set" ? std::string("settings set needs a value")
                                         : "settings " + FAction + " takes no value");
  }

  // A key that nobody reads is a slip, unless an earlier version wrote it.
  void CheckKey(TCommandContext& context, const TSettings& settings) const {
    const std::vector<std::string> platforms = context.Session.Platforms().Names();
    const bool mayBeOld = FAction != "set" && settings.Get(FKey);
    if (const auto problem = ProblemOfKey(FKey, platforms); problem && !mayBeOld) {
      const std::string hint = HintAt(FKey, SettingNames(platforms));
      throw TUsageError(*problem + (hint.empty() ? "; known are: " + deployment::JoinDelimited(
                                                                         KnownSettings(), ", ")
                                                 : hint));
    }
    if (FAction != "set")
      return;
    if (const auto problem = ProblemOfValue(FKey, FValue, platforms))
      throw TUsageError(*problem);
  }

  static void List(TCommandContext& context, const TSettings& settings) {
    TJson document = TJson::Object();
    for (const auto& [key, value] : settings.List()) {
      document.Add(key, value);
      context.Output.Line(Visible(key) + "=" + Visible(value));
    }
    if (context.Output.IsJson())
      context.Output.Document({{"settings", document}});
  }

  void Get(TCommandContext& context, const TSettings& settings) const {
    const auto value = settings.Get(FKey);
    if (!value)
      throw TWorkError("\"" + FKey + "\" is not set");
    context.Output.Line(Visible(*value));
    if (context.Output.IsJson())
      context.Output.Document({{"settings", {{FKey, *value}}}});
  }

  void Change(TCommandContext& context, TSettings& settings) const {
    const auto before = settings.Get(FKey);
    const bool changed = FAction == "set" ? before != FValue : before.has_value();
    if (changed && !FDryRun && FAction == "set")
      settings.Set(FKey, FValue);
    if (changed && !FDryRun && FAction == "unset")
      settings.Unset(FKey);
    if (context.Output.IsJson())
      context.Output.Document({{"changed", changed}, {"dryRun", FDryRun}});
    if (changed)
      context.Output.Line((FDryRun ? "would " : "") + FAction + " " + Visible(FKey));
    else
      context.Output.Line("nothing to do");
  }

  std::string FAction, FKey, FValue;
  IOption* FValueOption = nullptr;
  bool FDryRun = false;
  bool FYes = false;
};

} // namespace

std::unique_ptr<ICommand> MakeSettingsCommand() {
  return std::make_unique<TSettingsCommand>();
}

} // namespace workbench
