// Writes the pages of the manual: deploymgr-pages DIRECTORY VERSION
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/reference/man_page.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

using namespace workbench;

void WritePage(const std::filesystem::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text << std::flush))
    throw std::runtime_error(file.string() + " cannot be written");
}

void WritePages(const std::filesystem::path& directory, const std::string& version) {
  TManual manual{version, {}, CommonOptionReferences()};
  for (const auto& command : AllCommands())
    manual.Commands.push_back(ReferenceOf(*command));
  std::filesystem::create_directories(directory);
  WritePage(directory / "deploymgr.1", ProgramManPage(manual));
  for (const TCommandReference& command : manual.Commands)
    WritePage(directory / ("deploymgr-" + command.Name + ".1"), CommandManPage(manual, command));
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: deploymgr-pages DIRECTORY VERSION\n", stderr);
    return 2;
  }
  try {
    WritePages(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "deploymgr-pages: %s\n", error.what());
    return 1;
  }
}
