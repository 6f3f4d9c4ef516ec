// Saves one file, so that tests can watch, disturb and kill a run:
//   save_probe TARGET EXPECTED NEW [--force]
// EXPECTED and NEW name files with the expected and the new content; "-" for EXPECTED: none.
#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"

#include <array>
#include <cstdio>
#include <string>

namespace {

int Run(const std::string& target, const std::string& expected, const std::string& content,
        bool force) {
  workbench::TFileContent old;
  if (expected != "-")
    old = workbench::ReadWholeFile(expected);
  const workbench::TFileContent text = workbench::ReadWholeFile(content);
  // In two pieces, as a save that replaces one part of a file has several.
  const std::array pieces = {text.Text().substr(0, text.Text().size() / 2),
                             text.Text().substr(text.Text().size() / 2)};
  workbench::TSaveRequest request{.Target = target, .Content = pieces, .Force = force};
  if (expected != "-")
    request.Expected = old.Text();
  const workbench::TSaveOutcome outcome = workbench::SaveFile(request);
  for (const std::string& warning : outcome.Warnings)
    std::fprintf(stdout, "warning: %s\n", warning.c_str());
  std::fputs(outcome.Written ? "written\n" : "unchanged\n", stdout);
  return 0;
}

} // namespace

int main(int count, char** arguments) {
  if (count < 4)
    return 2;
  try {
    return Run(arguments[1], arguments[2], arguments[3], count > 4);
  } catch (const workbench::TSaveError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  } catch (const deployment::TInputError& error) {
    std::fprintf(stderr, "%s: %s\n", error.Place().File.c_str(), error.what());
    return 3;
  }
}
