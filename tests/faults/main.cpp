// Hits the programs with faults, one for each run, and checks after each what may be left:
// prints the table of families, and ends with 1 when a promise was broken or a fault did not fire.
#include "tests/faults/fault_campaign.h"
#include "tests/faults/fault_table.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

constexpr const char* Usage = "usage: fault_runner --programs DIR --root DIR [--sample COUNT] "
                              "[--family TEXT] [--jobs COUNT]\n"
                              "                    [--without TEXT]...\n";

faults::TCampaignOptions OptionsFrom(int count, char** arguments) {
  faults::TCampaignOptions options;
  for (int i = 1; i < count; i += 2) {
    const std::string_view name = arguments[i];
    if (i + 1 == count)
      throw std::runtime_error("no value for " + std::string(name));
    const std::string value = arguments[i + 1];
    if (name == "--programs")
      options.Programs = std::filesystem::absolute(value);
    else if (name == "--root")
      options.Root = value;
    else if (name == "--sample")
      options.Sample = std::stoul(value);
    else if (name == "--family")
      options.Family = value;
    else if (name == "--without")
      options.Without.push_back(value);
    else if (name == "--jobs")
      options.Jobs = static_cast<unsigned>(std::stoul(value));
    else
      throw std::runtime_error("unknown option " + std::string(name));
  }
  if (options.Programs.empty() || options.Root.empty())
    throw std::runtime_error("--programs and --root are needed");
  return options;
}

} // namespace

int main(int count, char** arguments) {
  if (count == 2 && std::string_view(arguments[1]) == "--help") {
    std::fputs(Usage, stdout);
    return EXIT_SUCCESS;
  }
  try {
    const faults::TFaultTable table = faults::RunCampaign(OptionsFrom(count, arguments));
    std::fputs(table.Text().c_str(), stdout);
    return table.IsClean() ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "fault_runner: %s\n%s", error.what(), Usage);
    return 2;
  }
}
