// deploymgr: the command line of the Deployment Manager.
#include "workbench/cli/command_line.h"

#include <csignal>
#include <unistd.h>

namespace {

// A save holds these signals back until its file is whole, and the system frees locks.
extern "C" void EndInterrupted(int signal) {
  ::_exit(128 + signal);
}

} // namespace

int main(int argc, char** argv) {
  std::signal(SIGINT, EndInterrupted);
  std::signal(SIGTERM, EndInterrupted);
  std::signal(SIGPIPE, SIG_IGN);
  return workbench::RunCommandLine(argc, argv);
}
