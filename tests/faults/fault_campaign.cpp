#include "tests/faults/fault_campaign.h"

#include "tests/faults/family.h"
#include "tests/faults/lying_server_family.h"
#include "tests/faults/power_cut.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace faults {
namespace {

// Evenly chosen numbers from 1 to `count`.
std::vector<std::uint64_t> Chosen(std::uint64_t count, std::size_t most) {
  const std::uint64_t taken = most == 0 ? count : std::min<std::uint64_t>(count, most);
  std::vector<std::uint64_t> numbers;
  numbers.reserve(taken);
  for (std::uint64_t i = 0; i < taken; ++i)
    numbers.push_back(1 + i * count / taken);
  return numbers;
}

// The faults of one family, from what a run without a fault counted.
std::vector<TFault> FaultsOf(const IFamily& family, const TRunEnd& counted,
                             std::uint64_t allocations) {
  std::vector<TFault> faults;
  for (const std::uint64_t call : Chosen(counted.Calls, family.MostCalls())) {
    for (const int error : family.Errors())
      faults.push_back({TFaultKind::Error, call, error});
    faults.push_back({TFaultKind::Kill, call, 0});
  }
  for (const std::uint64_t transfer : Chosen(counted.Transfers, family.MostCalls()))
    faults.push_back({TFaultKind::Short, transfer, 0});
  faults.push_back({TFaultKind::AllShort, 0, 0});
  if (counted.Transfers > 2)
    faults.push_back({TFaultKind::Interrupted, 0, 0});
  if (family.MostAllocations() > 0) {
    for (const std::uint64_t allocation : Chosen(allocations, family.MostAllocations()))
      faults.push_back({TFaultKind::Allocation, allocation, 0});
  }
  return faults;
}

std::vector<TFault> EvenlyChosen(const std::vector<TFault>& faults, std::size_t most) {
  std::vector<TFault> chosen;
  for (const std::uint64_t number : Chosen(faults.size(), most))
    chosen.push_back(faults[number - 1]);
  return chosen;
}

TFaultResult RunFault(const IFamily& family, const TFaultPlace& place, const TFault& fault) {
  place.Reset();
  const TRunEnd end = RunTraced(family.Run(place), fault);
  TFaultResult result;
  result.IsFired = end.IsFired;
  result.Fault = FaultText(fault) + ": " + end.Where;
  if (end.IsFired)
    result.Broken = family.Check(place, end).value_or("");
  return result;
}

// One line for each result, through a pipe between processes.
std::string Line(const TFaultResult& result) {
  std::string text =
      std::string(result.IsFired ? "1" : "0") + "\t" + result.Fault + "\t" + result.Broken;
  std::ranges::replace(text, '\n', ' ');
  return text + "\n";
}

TFaultResult ResultOf(const std::string& line) {
  const std::size_t first = line.find('\t');
  const std::size_t second = line.find('\t', first + 1);
  return {0, line[0] == '1', line.substr(first + 1, second - first - 1), line.substr(second + 1)};
}

// Takes every `jobs`-th fault of the family, in a place of its own, and writes what came of each.
void Work(IFamily& family, const TPrograms& programs, std::size_t sample, unsigned job,
          unsigned jobs, std::FILE* results) {
  TFaultPlace place(programs);
  family.SetUp(place);
  const TRunEnd counted = RunTraced(family.Run(place), {});
  if (counted.Status != 0)
    throw std::runtime_error(family.Name() + " fails without a fault: " + counted.Errors);
  family.Learn(place, counted);
  std::uint64_t allocations = 0;
  if (family.MostAllocations() > 0) {
    place.Reset();
    allocations = RunTraced(family.Run(place), {TFaultKind::Allocation, 0, 0}).Allocations;
  }
  const std::vector<TFault> faults = EvenlyChosen(FaultsOf(family, counted, allocations), sample);
  for (std::size_t i = job; i < faults.size(); i += jobs) {
    std::fputs(Line(RunFault(family, place, faults[i])).c_str(), results);
    std::fflush(results);
  }
}

struct TWorker {
  pid_t Process;
  std::FILE* Results;
};

TWorker StartWorker(const std::function<void(std::FILE*)>& work) {
  int ends[2] = {};
  std::fflush(nullptr);
  if (::pipe(ends) != 0)
    throw std::runtime_error("no pipe");
  const pid_t process = ::fork();
  if (process < 0)
    throw std::runtime_error("no process");
  if (process > 0) {
    ::close(ends[1]);
    return {process, ::fdopen(ends[0], "r")};
  }
  ::close(ends[0]);
  int status = 0;
  try {
    std::FILE* results = ::fdopen(ends[1], "w");
    work(results);
    std::fclose(results);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "fault_runner: %s\n", error.what());
    status = 1;
  }
  ::_exit(status);
}

void Gather(const TWorker& worker, std::size_t family, TFaultTable& table) {
  char* line = nullptr;
  std::size_t room = 0;
  ssize_t length = 0;
  while ((length = ::getline(&line, &room, worker.Results)) > 0) {
    TFaultResult result = ResultOf(std::string(line, static_cast<std::size_t>(length - 1)));
    result.Family = family;
    table.Add(result);
  }
  std::free(line);
  std::fclose(worker.Results);
  int status = 0;
  ::waitpid(worker.Process, &status, 0);
  if (status != 0)
    throw std::runtime_error("a family cannot be worked on");
}

TFamilies AllFamilies() {
  TFamilies all;
  for (TFamilies (*some)() : {SavingFamilies, JournalFamilies, DeployFamilies}) {
    for (auto& family : some())
      all.push_back(std::move(family));
  }
  return all;
}

} // namespace

TFaultTable RunCampaign(const TCampaignOptions& options) {
  const TPrograms programs{options.Programs / "deploymgr", options.Programs / "fault_probe",
                           options.Programs / "fault_server", options.Root};
  TFaultTable table;
  std::size_t row = 0;
  TFamilies families = AllFamilies();
  const std::size_t sample =
      options.Sample == 0 ? 0 : std::max<std::size_t>(1, options.Sample / (families.size() + 1));
  const auto isWanted = [&](const std::string& name) {
    const auto isIn = [&name](const std::string& text) {
      return name.find(text) != std::string::npos;
    };
    return isIn(options.Family) && std::ranges::none_of(options.Without, isIn);
  };
  const auto run = [&](const std::string& name, const auto& work) {
    table.AddFamily(name);
    std::vector<TWorker> workers;
    for (unsigned job = 0; job < options.Jobs; ++job)
      workers.push_back(StartWorker([&work, job](std::FILE* results) { work(job, results); }));
    for (const TWorker& worker : workers)
      Gather(worker, row, table);
    std::fputs(table.LastRow().c_str(), stderr); // a whole run takes minutes
    ++row;
  };
  for (const auto& family : families) {
    if (isWanted(family->Name()))
      run(family->Name(), [&](unsigned job, std::FILE* results) {
        Work(*family, programs, sample, job, options.Jobs, results);
      });
  }
  if (isWanted(LyingServerName))
    run(LyingServerName, [&](unsigned job, std::FILE* results) {
      for (const TFaultResult& result : RunLyingServer(programs, sample, job, options.Jobs))
        std::fputs(Line(result).c_str(), results);
    });
  if (isWanted(CutLineName))
    run(CutLineName, [&](unsigned job, std::FILE* results) {
      for (const TFaultResult& result : RunCutLines(programs, sample, job, options.Jobs))
        std::fputs(Line(result).c_str(), results);
    });
  if (isWanted(PowerCutName)) {
    const std::string why = WhyNoPowerCut();
    if (!why.empty()) {
      table.AddFamily(PowerCutName, "left out: " + why);
      return table;
    }
    run(PowerCutName, [&](unsigned job, std::FILE* results) {
      if (job == 0)
        for (const TFaultResult& result : RunPowerCuts(programs, sample != 0))
          std::fputs(Line(result).c_str(), results);
    });
  }
  return table;
}

} // namespace faults
