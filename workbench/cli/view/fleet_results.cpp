#include "workbench/cli/view/fleet_results.h"

#include "package/common/errors.h"
#include "workbench/cli/context/command.h"
#include "workbench/text/utf8.h"

#include <array>

namespace workbench {
namespace {

using TEnd = TFleetMachine::TEnd;

constexpr int SignalStart = 128;
constexpr std::array FleetCounts{"copied",  "unchanged", "mode",    "kept",
                                 "skipped", "removed",   "refused", "failed"};

std::string TextIn(const TJson& answer, std::string_view name) {
  const TJson* value = answer.Find(name);
  return value && value->IsText() ? value->AsText() : std::string();
}

TJson ErrorDocument(int code, const std::string& message) {
  return {{"schema", JsonSchema},
          {"error", TJson{{"code", code}, {"message", message}, {"file", ""}, {"line", 0}}},
          {"warnings", TJson::Array()}};
}

TMachineResult Failed(const TFleetMachine& machine, int code, const std::string& message) {
  return {machine.Name, code, ErrorDocument(code, message), {}, {message}};
}

// What the engine says of a machine that could not answer; the shell's own words name what lacks.
std::string MessageOf(const TJson& answer) {
  std::string message = TextIn(answer, "msg");
  for (const char* name : {"module_stderr", "module_stdout"}) {
    std::string more = TextIn(answer, name);
    while (more.ends_with('\n') || more.ends_with('\r'))
      more.pop_back();
    if (!more.empty())
      message.append(message.empty() ? "" : ": ").append(more);
  }
  return message.empty() ? "it gave no answer that can be read" : message;
}

std::string SummaryOf(const TJson& document, bool isDry) {
  std::string text = isDry ? "would be: " : "";
  bool isFirst = true;
  for (const char* name : FleetCounts) {
    const auto count = document.NumberOr<std::uint64_t>(name, 0);
    if (count == 0 && std::string_view(name) != "copied")
      continue;
    text.append(isFirst ? "" : ", ").append(std::to_string(count)).append(" ").append(name);
    isFirst = false;
  }
  return text;
}

TJson WarningsOf(const TJson& answer) {
  TJson warnings = TJson::Array();
  const TJson* texts = answer.Find("warnings");
  if (!texts || !texts->IsArray())
    return warnings;
  for (const TJson& text : texts->AsArray()) {
    if (text.IsText())
      warnings.Append({{"text", text.AsText()}, {"file", ""}, {"line", 0}});
  }
  return warnings;
}

// Of every file that failed or was refused.
std::vector<std::string> ProblemsOf(const TJson& document) {
  std::vector<std::string> problems;
  for (const TJson& file : document.Array("files")) {
    const std::string error = TextIn(file, "error");
    const std::string why = error.empty() ? TextIn(file, "reason") : error;
    if (const std::string action = TextIn(file, "action");
        action == "failed" || action == "refused")
      problems.push_back(std::string(TextIn(file, "remoteFile")).append(": ").append(why));
  }
  if (const TJson* after = document.Find("afterDeploy"); after && after->IsObject()) {
    if (std::string error = TextIn(*after, "error"); !error.empty())
      problems.push_back(std::move(error));
  }
  return problems;
}

// Throws TInputError for an answer that is none of a deploy.
TMachineResult Answered(const TFleetMachine& machine, const TFleetTelling& how) {
  const TJson& answer = machine.Answer;
  const TJson& given = answer.At("document");
  int status = static_cast<int>(answer.Number<unsigned>("status", 0, 255));
  if (how.IsCheck && status == exit_status::Done && answer.BooleanOr("changed", false))
    status = exit_status::WouldChange;
  std::vector<std::string> problems = ProblemsOf(given);
  TJson document{{"schema", JsonSchema}};
  for (const TJsonMember& member : given.AsObject()) {
    if (member.Name != "schema" && member.Name != "warnings")
      document.Add(member.Name, member.Value);
  }
  document.Add("warnings", WarningsOf(answer));
  std::string summary = SummaryOf(document, how.IsDry);
  return {machine.Name, status, std::move(document), std::move(summary), std::move(problems)};
}

} // namespace

TMachineResult ResultOf(const TFleetMachine& machine, const TFleetTelling& how) {
  if (machine.End == TEnd::NotBegun)
    return how.Signal != 0 ? Failed(machine, SignalStart + how.Signal,
                                    "the run was interrupted before it had ended there")
                           : Failed(machine, exit_status::WorkFailed, "nothing was done there");
  const std::string message = MessageOf(machine.Answer);
  if (machine.End == TEnd::Unreachable)
    return Failed(machine, exit_status::NoConnection, message);
  try {
    if (machine.Answer.Find("document"))
      return Answered(machine, how);
    const auto status =
        machine.Answer.NumberOr<unsigned>("status", exit_status::WorkFailed, 0, 255);
    return Failed(machine, std::max<int>(static_cast<int>(status), exit_status::WorkFailed),
                  message);
  } catch (const deployment::TInputError& error) {
    return Failed(machine, exit_status::WorkFailed,
                  std::string("its answer cannot be read: ") + error.what());
  }
}

void TellMachine(TOutput& output, const TMachineResult& result, std::size_t width) {
  TOutput part(output, Visible(result.Name), width);
  for (const std::string& problem : result.Problems)
    part.Complain(problem);
  if (!result.Summary.empty())
    part.Line(Visible(result.Summary));
}

TJson TargetsJson(const std::vector<TMachineResult>& results) {
  TJson targets = TJson::Array();
  for (const TMachineResult& result : results)
    targets.Append(
        {{"profile", result.Name}, {"exit", result.Exit}, {"document", result.Document}});
  return {{"targets", std::move(targets)}};
}

} // namespace workbench
