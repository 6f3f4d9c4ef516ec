#include "workbench/deploy/fleet/fleet_play.h"

#include "package/common/errors.h"
#include "workbench/deploy/fleet/fleet_files.h"
#include "workbench/deploy/fleet/fleet_folder.h"
#include "workbench/files/file_reader.h"
#include "workbench/process/process_run.h"

#include <cstdlib>
#include <unordered_map>

namespace workbench {
namespace {

constexpr std::string_view EventMark = "@deployment ";
constexpr const char* CallbackFolder = "callback";
constexpr const char* AnswerFolder = "answers";
constexpr int CommandNotFound = 127;

class TFleetEvents {
public:
  TFleetEvents(std::filesystem::path answers,
               const std::function<void(const TFleetMachine&)>& ended, TFleetOutcome& outcome)
      : FAnswers(std::move(answers)), FEnded(ended), FOutcome(outcome) {}

  // What else the engine prints is for nobody here.
  void Hear(std::string_view line) {
    if (!line.starts_with(EventMark))
      return;
    try {
      Take(ParseJson(line.substr(EventMark.size())));
    } catch (const deployment::TInputError&) {
      return; // a line that another plug-in broke into
    }
  }

private:
  void Take(const TJson& event) {
    using TEnd = TFleetMachine::TEnd;
    const std::string& kind = event.Text("event");
    if (kind == "nobody") {
      FOutcome.HasNoMachine = true;
      return;
    }
    const std::string& name = event.Text("machine");
    if (kind == "machine") {
      if (FIndex.emplace(name, FOutcome.Machines.size()).second)
        FOutcome.Machines.push_back({.Name = name});
      return;
    }
    const auto found = FIndex.find(name);
    if (found == FIndex.end())
      return; // none of the play
    TFleetMachine& machine = FOutcome.Machines[found->second];
    machine.End = kind == "ok" ? TEnd::Ok : kind == "failed" ? TEnd::Failed : TEnd::Unreachable;
    machine.Answer =
        ParseJson(ReadWholeFile(FAnswers / event.Text("file"), MaximumFileSize, "answer").Text());
    FEnded(machine);
  }

  const std::filesystem::path FAnswers;
  const std::function<void(const TFleetMachine&)>& FEnded;
  TFleetOutcome& FOutcome;
  std::unordered_map<std::string, std::size_t> FIndex;
};

std::vector<std::string> CommandOf(const TFleetRequest& request) {
  std::vector<std::string> command{"ansible-playbook", "--inventory", request.Inventory.string(),
                                   "--extra-vars", "deployment_report=full"};
  if (!request.Limit.empty())
    command.push_back("--limit=" + request.Limit);
  if (request.Forks > 0)
    command.push_back("--forks=" + std::to_string(request.Forks));
  if (request.Check)
    command.emplace_back("--check");
  command.push_back((request.Folder / "deploy.yml").string());
  return command;
}

// The user's own configuration holds but for what is told to this program.
std::vector<std::string> EnvironmentOf(const TFleetRequest& request) {
  std::string callbacks = (request.Scratch / CallbackFolder).string();
  if (const char* own = std::getenv("ANSIBLE_CALLBACK_PLUGINS"); own && *own)
    callbacks.append(":").append(own);
  std::vector<std::string> changes(
      {"ANSIBLE_STDOUT_CALLBACK=deployment_lines", "ANSIBLE_CALLBACK_PLUGINS=" + callbacks,
       "ANSIBLE_NOCOLOR=1", "ANSIBLE_RETRY_FILES_ENABLED=0", "ANSIBLE_INVENTORY_UNPARSED_FAILED=1",
       "ANSIBLE_DEPRECATION_WARNINGS=0", "ANSIBLE_LOCALHOST_WARNING=0", "LC_ALL=C.UTF-8",
       "DEPLOYMENT_FLEET_ANSWERS=" + (request.Scratch / AnswerFolder).string()});
  // Saves most of the round trips; whoever cannot have it says so.
  if (!std::getenv("ANSIBLE_PIPELINING"))
    changes.emplace_back("ANSIBLE_PIPELINING=1");
  return EnvironmentWith(changes);
}

} // namespace

TFleetOutcome PlayFleet(const TFleetRequest& request,
                        const std::function<void(const TFleetMachine&)>& ended) {
  TFleetOutcome outcome;
  const std::filesystem::path answers = request.Scratch / AnswerFolder;
  std::filesystem::create_directory(answers);
  WriteFleetFile(request.Scratch / CallbackFolder / "deployment_lines.py", FleetCallback());
  TFleetEvents events(answers, ended, outcome);
  const THearLine hear = [&events](std::string_view line) { events.Hear(line); };
  TLineSplitter lines(hear);
  try {
    const TProcessEnd end = RunProcess(
        {.Command = CommandOf(request), .Environment = EnvironmentOf(request)}, nullptr,
        [&lines](std::string_view bytes) { lines.Add(bytes); },
        [&request] { return request.Cancelled != 0; });
    lines.Finish();
    outcome.Status = end.Status;
    outcome.Errors = end.Errors;
    outcome.IsInstalled = end.Status != CommandNotFound;
  } catch (const std::system_error& error) {
    if (error.code() != std::errc::no_such_file_or_directory)
      throw;
    outcome.IsInstalled = false;
  }
  return outcome;
}

} // namespace workbench
