// Recovery journals: every step reads back, a journal that was cut has the steps before the cut,
// and a damaged byte never becomes another edit.
#include "fuzz/fuzz_input.h"
#include "package/common/errors.h"
#include "workbench/history/recovery_format.h"

#include <memory>
#include <optional>

namespace workbench::fuzz {
namespace {

std::optional<TJournalContent> Parsed(std::string_view text) {
  try {
    return ParseJournal(text, "input.journal");
  } catch (const deployment::TInputError& error) {
    Require(error.Place().File == "input.journal", "a refusal names the journal", error.what());
    return std::nullopt;
  }
}

TEntryRecord ChosenRecord(TFuzzInput& input) {
  TEntryRecord record;
  record.Names = {std::string(input.Text()), std::string(input.Text()), std::string(input.Text())};
  record.Class = input.Text();
  record.Required = input.Flag();
  for (std::size_t count = input.Below(3); count > 0; --count) {
    TFilePlatformRecord platform;
    platform.Platform = input.Text();
    platform.RemoteDir = input.Text();
    platform.Enabled = input.Flag();
    platform.Operation = static_cast<deployment::TDeployOperation>(input.Below(7));
    for (std::size_t commands = input.Below(3); commands > 0; --commands)
      platform.RemoteCommands.emplace_back(input.Text());
    record.Platforms.push_back(std::move(platform));
  }
  return record;
}

TListChange ChosenStep(TFuzzInput& input) {
  TListChange change;
  change.Name = input.Text();
  change.IsComputed = input.Flag();
  for (std::size_t count = input.Below(3); count > 0; --count) {
    TEntryDifference difference;
    const bool wasThere = input.Flag();
    if (wasThere)
      difference.Before = ChosenRecord(input);
    if (!wasThere || input.Flag())
      difference.After = ChosenRecord(input);
    if (difference.After && input.Flag())
      difference.Position = input.Byte();
    change.Entries.push_back(std::move(difference));
  }
  if (input.Flag())
    change.Classes = std::make_shared<const TClassRecords>(
        TClassRecords{{std::string(input.Text()), std::string(input.Text()), {}, false, {}}});
  return change;
}

// Where the lines of the steps end.
struct TWritten {
  std::string Text;
  std::vector<std::string> Lines;
};

TWritten Write(TFuzzInput& input) {
  TWritten written;
  written.Text = HeadLine(std::filesystem::path(input.Text()), {input.Byte(), "ab"});
  for (std::size_t count = 1 + input.Below(4); count > 0; --count) {
    written.Lines.push_back(StepLine(ChosenStep(input)));
    written.Text += written.Lines.back();
  }
  return written;
}

void CheckSteps(const TJournalContent& content, const TWritten& written) {
  Require(content.Steps.size() <= written.Lines.size(), "no step comes out of nothing");
  for (std::size_t i = 0; i < content.Steps.size(); ++i)
    RequireEqual(StepLine(content.Steps[i]), written.Lines[i], "a step reads back");
}

void CheckWritten(TFuzzInput input) {
  const std::size_t cut = input.Byte() * 256U + input.Byte();
  const std::uint8_t flip = input.Byte();
  const TWritten written = Write(input);
  const auto whole = Parsed(written.Text);
  Require(whole && !whole->IsDamaged, "a journal can be read", written.Text);
  Require(whole->Steps.size() == written.Lines.size(), "every step is there", written.Text);
  CheckSteps(*whole, written);
  const std::size_t at = cut % written.Text.size();
  if (const auto cutOff = Parsed(std::string_view(written.Text).substr(0, at))) {
    Require(!cutOff->IsDamaged, "a cut is no damage", written.Text);
    CheckSteps(*cutOff, written);
  }
  std::string damaged = written.Text;
  damaged[at] = static_cast<char>(damaged[at] ^ static_cast<char>(flip | 1U));
  if (const auto rest = Parsed(damaged))
    CheckSteps(*rest, written);
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  TFuzzInput input(data, size);
  if (input.Flag())
    CheckWritten(input);
  else if (const auto content = Parsed(input.Rest()))
    for (const workbench::TListChange& step : content->Steps)
      Require(!workbench::StepLine(step).empty(), "a step can be written");
  return 0;
}
