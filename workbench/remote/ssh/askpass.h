// Answers for the SSH client: it runs a small program to ask for passwords, and that program asks
// this one through a socket. So a secret stands in no argument, environment or file.
#pragma once

#include "workbench/files/file_descriptor.h"
#include "workbench/files/runtime_directory.h"
#include "workbench/remote/ssh/prompts.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace workbench {

/// The program that the client runs; empty when it is not installed.
std::filesystem::path AskpassProgram();

/// Names of the variables that lead the program to this one.
inline constexpr const char* AskpassSocketVariable = "DEPLOYMENT_ASKPASS_SOCKET";
inline constexpr const char* AskpassTokenVariable = "DEPLOYMENT_ASKPASS_TOKEN";

/// Answers as long as it lives, on a thread of its own.
class TAskpassListener {
public:
  /// Throws std::system_error.
  explicit TAskpassListener(TSecretQuestion ask);
  ~TAskpassListener();
  TAskpassListener(const TAskpassListener&) = delete;
  TAskpassListener& operator=(const TAskpassListener&) = delete;

  /// Variables for the client's environment, "NAME=VALUE".
  std::vector<std::string> Environment() const;

private:
  void Listen();
  void Serve(const TFileDescriptor& client) const;

  const TSecretQuestion FAsk;
  const std::string FToken;
  TScratchDirectory FDirectory;
  TFileDescriptor FSocket;
  TFileDescriptor FStop;
  std::atomic<bool> FIsOver = false;
  std::thread FThread;
};

/// Variables that keep a client from asking anybody, also where it has a terminal.
std::vector<std::string> AskingNobody();

/// The program's side: asks through the socket that the environment names. Nothing when there is no
/// answer.
std::optional<std::string> AskThroughSocket(const std::string& prompt);

} // namespace workbench
