// The record that a target keeps: what is written reads back, and nothing that is read names what a
// deploy must not touch.
#include "fuzz/fuzz_input.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/deploy/record/target_record.h"
#include "workbench/remote/target/target_place.h"

namespace workbench::fuzz {
namespace {

void CheckPath(const std::string& path) {
  Require(!path.empty() && !path.starts_with('/') && !path.starts_with('~'),
          "a path is below the profile's path", path);
  Require(("/" + path + "/").find("/../") == std::string::npos, "a path does not climb", path);
  Require(path.find_first_of(std::string_view("\\\0", 2)) == std::string::npos,
          "a path is written with \"/\"", path);
  Require(!IsRecordPath(path), "the record is no file of the project", path);
}

void Check(std::string_view text) {
  const TRecordReading reading = ParseRecord(text);
  Require((reading.State == TRecordState::Damaged) == !reading.Problem.empty(),
          "a damaged record is told with its reason", text);
  if (reading.State != TRecordState::Read) {
    Require(reading.Record == TTargetRecord(), "what is not read is empty", text);
    return;
  }
  Require(reading.Record.Runs.size() <= MostRuns, "no more runs than are kept");
  for (const auto& [path, file] : reading.Record.Files) {
    CheckPath(path);
    Require(file.Hash.size() == 64 && file.Mode <= 07777 && file.Time >= 0, "a file is sound");
  }
  for (const auto& [path, steps] : reading.Record.Owed)
    CheckPath(path);
  const std::string written = RecordText(reading.Record);
  const TRecordReading again = ParseRecord(written);
  Require(again.State == TRecordState::Read, "what is written is a record", written);
  Require(again.Record == reading.Record, "a record reads back", written);
}

// Records with few bytes, which the fuzzer would hardly hit upon as text.
TTargetRecord Chosen(TFuzzInput& input) {
  TTargetRecord record{std::string(input.Text()), std::string(input.Text()),
                       std::string(input.Text())};
  for (std::size_t count = input.Below(4); count > 0; --count) {
    TRecordedRun run;
    run.Id = input.Text();
    run.Copied = input.Byte();
    run.Result = static_cast<TRunResult>(input.Below(3));
    record.Runs.push_back(run);
  }
  for (std::size_t count = input.Below(4); count > 0; --count) {
    TRecordedFile file;
    file.LocalName = input.Text();
    file.Hash = std::string(64, "0123456789abcdef"[input.Below(16)]);
    file.Mode = input.Byte();
    file.Size = input.Byte();
    file.Time = input.Byte();
    file.Platform = input.Text();
    record.Files.emplace(input.Text(), file);
  }
  if (input.Flag())
    record.Owed[std::string(input.Text())] = {std::string(input.Text())};
  return record;
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  TFuzzInput input(data, size);
  if (size > 0 && data[0] == 'R') {
    input.Byte();
    Check(workbench::RecordText(Chosen(input)));
  } else {
    Check(input.Rest());
  }
  return 0;
}
