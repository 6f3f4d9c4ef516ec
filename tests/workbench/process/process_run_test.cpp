#include "workbench/process/process_run.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TProcessStart Shell(const std::string& script) {
  return {.Command = {"/bin/sh", "-c", script}, .Environment = EnvironmentWith({"EXTRA=given"})};
}

struct TResult {
  TProcessEnd End;
  std::string Output;
};

TResult RunAll(
    const TProcessStart& start, const TFeed& feed = nullptr,
    const TIsCancelled& isCancelled = [] { return false; }) {
  TResult result;
  result.End = RunProcess(
      start, feed, [&](std::string_view bytes) { result.Output += bytes; }, isCancelled);
  return result;
}

TEST(ProcessRun, TellsOutputErrorsAndStatus) {
  const TResult result = RunAll(Shell("echo $EXTRA; echo wrong >&2; exit 3"));
  EXPECT_EQ(result.Output, "given\n");
  EXPECT_EQ(result.End.Errors, "wrong\n");
  EXPECT_EQ(result.End.Problem(), "ended with status 3");
  EXPECT_EQ(RunAll(Shell("kill -9 $$")).End.Problem(), "was ended by signal 9");
  EXPECT_EQ(RunAll(Shell("true")).End.Problem(), "");
}

TEST(ProcessRun, FeedsMoreThanAnyPipeHolds) {
  int blocks = 0;
  const TResult result = RunAll(Shell("wc -c"), [&blocks](TByteBuffer& bytes) {
    bytes.Append(std::string(100000, 'x'));
    return ++blocks < 50;
  });
  EXPECT_EQ(std::stoi(result.Output), 5'000'000);
}

TEST(ProcessRun, SurvivesAProgramThatReadsNothing) {
  const TResult result = RunAll(Shell("exec 0<&-; sleep 0.1; echo done"), [](TByteBuffer& bytes) {
    bytes.Append(std::string(1000000, 'x'));
    return false;
  });
  EXPECT_EQ(result.Output, "done\n");
}

TEST(ProcessRun, WaitsForAProgramThatClosedItsOutput) {
  EXPECT_EQ(RunAll(Shell("exec >&- 2>&-; sleep 0.2; exit 5")).End.Status, 5);
}

TEST(ProcessRun, DoesNotWaitForWhatWasStartedInTheBackground) {
  EXPECT_EQ(RunAll(Shell("sleep 60 & echo here")).Output, "here\n");
}

TEST(ProcessRun, EndsACancelledProgramWithItsChildren) {
  int asked = 0;
  const TResult result =
      RunAll(Shell("sleep 60; echo never"), nullptr, [&asked] { return ++asked > 2; });
  EXPECT_TRUE(result.End.Interrupted);
  EXPECT_EQ(result.Output, "");
  EXPECT_EQ(result.End.Problem(), "was interrupted");
}

TEST(ProcessRun, SaysThatAProgramIsNotThere) {
  EXPECT_THROW(RunAll({.Command = {"/no/such/program"}, .Environment = {}}), std::system_error);
}

TEST(LineSplitter, MakesLinesOfPieces) {
  std::vector<std::string> lines;
  const THearLine hear = [&lines](std::string_view line) { lines.emplace_back(line); };
  TLineSplitter splitter(hear);
  splitter.Add("on");
  splitter.Add("e\ntwo\n\nth");
  splitter.Add("ree");
  splitter.Finish();
  splitter.Finish();
  EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "", "three"}));
}

} // namespace
} // namespace workbench
