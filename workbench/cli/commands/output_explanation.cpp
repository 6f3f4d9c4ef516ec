#include "workbench/cli/commands/output_explanation.h"

#include "workbench/project/project_settings.h"

namespace workbench {
namespace {

std::string StepLine(const TOutputStep& step) {
  std::string line = step.Name;
  if (!step.Unknown.empty())
    line += " is not known: " + step.Unknown;
  else
    line += " is \"" + step.Value + "\"";
  if (!step.Written.empty() && step.Written != step.Value)
    line += ", written \"" + step.Written + "\"";
  return line + " (" + step.Source + ")";
}

TJson StepAsJson(const TOutputStep& step) {
  return {{"name", step.Name},      {"value", step.Value},     {"text", step.Written},
          {"source", step.Source},  {"file", step.Place.File}, {"line", step.Place.Line},
          {"unknown", step.Unknown}};
}

} // namespace

void PrintOutputSteps(TOutput& output, const TOpenProject& project, const TTarget& target) {
  for (const TOutputStep& step :
       project.Settings().TraceOutput(target.Configuration, target.Platform))
    output.Line("    " + Visible(StepLine(step)));
}

TJson OutputStepsAsJson(const TOpenProject& project, const TTarget& target) {
  TJson steps = TJson::Array();
  for (const TOutputStep& step :
       project.Settings().TraceOutput(target.Configuration, target.Platform))
    steps.Append(StepAsJson(step));
  return steps;
}

void ExplainOutput(TCommandContext& context, const TOpenProject& project, const TTarget& target) {
  const TProjectSettings& settings = project.Settings();
  const std::size_t told = project.Warnings().size();
  const std::string path = settings.OutputFileName(target.Configuration, target.Platform);
  const std::string nothing = settings.NothingToDeploy(target.Configuration, target.Platform);
  WarnSince(context, project, told);
  if (context.Output.IsJson()) {
    context.Output.Document({{"project", project.GivenFileName().string()},
                             {"platform", target.Platform},
                             {"configuration", target.Configuration},
                             {"output", path},
                             {"nothing", nothing},
                             {"steps", OutputStepsAsJson(project, target)}});
    return;
  }
  const std::string name = target.Configuration + ", " + target.Platform;
  context.Output.Line(context.Output.Bold(
      Visible(path.empty() ? nothing : "a build of " + name + " makes " + path)));
  PrintOutputSteps(context.Output, project, target);
}

} // namespace workbench
