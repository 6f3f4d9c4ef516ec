// deploymgr: the command line of the Deployment Manager.
#include "workbench/cli/command_line.h"
#include "workbench/files/open_file_limit.h"

#include <csignal>
#include <deployment_commit.h>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace {

// A save holds these signals back until its file is whole, and the system frees locks.
extern "C" void EndInterrupted(int signal) {
  ::_exit(128 + signal);
}

// A file that is opened takes the lowest free number. Without this, a project that is opened while
// standard output is closed would have the result written into it. The numbers are taken in a way
// in which nothing can be written, so that a lost result is noticed.
void OccupyClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) == -1)
      static_cast<void>(::open("/dev/null", O_RDONLY));
  }
}

} // namespace

int main(int argc, char** argv) {
  OccupyClosedStreams();
  workbench::AllowManyOpenFiles();
  std::signal(SIGINT, EndInterrupted);
  std::signal(SIGTERM, EndInterrupted);
  std::signal(SIGPIPE, SIG_IGN);
  return workbench::RunCommandLine(argc, argv, {DEPLOYMENT_VERSION, DEPLOYMENT_COMMIT});
}
