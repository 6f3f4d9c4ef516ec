// Runs a program as a user would and keeps what it left behind.
#pragma once

#include <nlohmann/json.hpp>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace integration {

/// What a run left behind.
struct TRun {
  int Status = -1; ///< exit status; 128 and the signal for a killed one
  std::string Output;
  std::string Errors;
  bool IsTerminalSilent = false; ///< it left a terminal that does not show what is typed

  /// The whole document that was printed.
  nlohmann::ordered_json Document() const { return nlohmann::ordered_json::parse(Output); }
  /// The document without what every one has, the schema and the warnings.
  nlohmann::ordered_json Json() const {
    auto document = Document();
    document.erase("schema");
    document.erase("warnings");
    return document;
  }
};

/// A question that a program asks at the terminal.
struct TQuestion {
  std::string Text; ///< everything that was written to standard error so far
  pid_t Process = 0;
  bool IsHidden = false; ///< what is typed is not shown
};

struct TStart {
  std::vector<std::string> Command; ///< the program is looked up
  std::vector<std::string> Environment;
  std::filesystem::path Directory;
  bool AsNobody = false;         ///< as a user without rights; the caller must be root
  bool WithoutHardLinks = false; ///< none can be made, as on a file system that has none
  /// What a person at the terminal types at a question, without the line end; without one standard
  /// input is empty.
  std::function<std::string(const TQuestion&)> Answer;
  /// Is called while the program runs, on a thread of its own. The run is over when both ended.
  std::function<void(pid_t)> Meanwhile;
  /// The program is killed when it takes longer.
  std::chrono::microseconds Patience = std::chrono::seconds(60);
};

/// The user and the group that own nothing.
constexpr uid_t Nobody = 65534;

/// Throws std::runtime_error when no process can be made.
TRun RunProgram(TStart start);

} // namespace integration
