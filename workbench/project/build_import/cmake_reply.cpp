#include "workbench/project/build_import/cmake_reply.h"

#include "workbench/files/file_reader.h"
#include "workbench/process/process_run.h"
#include "workbench/project/build_import/cmake_installers.h"
#include "workbench/project/build_import/reply_value.h"
#include "workbench/text/visible_text.h"

#include <fstream>
#include <optional>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t KnownModelVersion = 2; // of the code model
constexpr const char* Reply = "the reply of CMake";

fs::path ReplyDirectory(const fs::path& build) {
  return build / ".cmake" / "api" / "v1" / "reply";
}

// The newest index has the largest name; empty when there is none.
fs::path FindIndex(const fs::path& build) {
  fs::path newest;
  std::error_code error;
  for (fs::directory_iterator entries(ReplyDirectory(build), error), end; !error && entries != end;
       entries.increment(error)) {
    const std::string name = entries->path().filename().string();
    const bool isIndex = name.starts_with("index-") && name.ends_with(".json");
    if (isIndex && (newest.empty() || name > newest.filename().string()))
      newest = entries->path();
  }
  return newest;
}

// The code model that the index names; nothing when nobody asked for it.
std::optional<TReplyValue> FindCodeModel(const TReplyValue& index) {
  std::optional<TReplyValue> other;
  for (const TReplyValue& object : index.Array("objects")) {
    if (object.Text("kind") != "codemodel")
      continue;
    if (object.At("version").Number("major") == KnownModelVersion)
      return object;
    other = object;
  }
  if (other)
    other->At("version").Refuse("is " + std::to_string(other->At("version").Number("major")) +
                                "; known is " + std::to_string(KnownModelVersion));
  return std::nullopt;
}

// The prefix as it is kept in the cache; empty when it is not told.
fs::path InstallPrefix(const fs::path& build) {
  const TFileContent cache =
      ReadWholeFile(build / "CMakeCache.txt", MaximumFileSize, "CMake cache");
  constexpr std::string_view Key = "\nCMAKE_INSTALL_PREFIX:";
  const std::string_view text = cache.Text();
  const std::size_t line = text.find(Key);
  const std::size_t value = line == std::string_view::npos ? line : text.find('=', line);
  if (value == std::string_view::npos)
    return {};
  return std::string(text.substr(value + 1, text.find_first_of("\r\n", value) - value - 1));
}

// The rules are as old as the reply.
void WarnOfChangedFiles(TInstallPlan& plan, const fs::path& index, const fs::path& build) {
  std::error_code error;
  const auto replied = fs::last_write_time(index, error);
  std::string last;
  for (const TInstalledFile& file : plan.Files) {
    if (error || file.Rule.File == last)
      continue;
    last = file.Rule.File;
    std::error_code ignored;
    const auto changed = fs::last_write_time(last, ignored);
    if (!ignored && changed > replied) {
      plan.Warnings.push_back({"the file changed after CMake ran; run \"cmake " +
                                   Visible(build.string()) + "\" to have its rules",
                               last, 0});
      return;
    }
  }
}

} // namespace

bool IsCMakeBuild(const fs::path& directory) {
  std::error_code ignored;
  return fs::exists(directory / "CMakeCache.txt", ignored);
}

bool HasCMakeReply(const fs::path& directory) {
  const fs::path index = FindIndex(directory);
  return !index.empty() && FindCodeModel(TReplyValue::Read(index, Reply)).has_value();
}

void AskCMake(const fs::path& directory) {
  const fs::path question =
      directory / ".cmake" / "api" / "v1" / "query" / "client-deploymgr" / "codemodel-v2";
  const std::string command = "cmake " + directory.string();
  std::error_code error;
  fs::create_directories(question.parent_path(), error);
  std::ofstream(question).close();
  if (error || !fs::exists(question, error))
    throw deployment::TInputError("the question to CMake cannot be written",
                                  {question.string(), 0});
  std::string problem;
  try {
    const TProcessEnd end = RunProcess(
        {.Command = {"cmake", directory.string()}, .Environment = EnvironmentWith({})}, nullptr,
        [](std::string_view) {}, [] { return false; });
    if (end.Status != 0)
      problem = end.Problem() + ": " + SaidText(end.Errors);
  } catch (const std::system_error& failure) {
    problem = failure.what();
  }
  if (problem.empty() && !HasCMakeReply(directory))
    problem = "it left no reply; 3.14 is the first version that does";
  if (!problem.empty())
    throw deployment::TInputError("\"" + Visible(command) +
                                      "\", which tells the install rules: " + problem,
                                  {directory.string(), 0});
}

TInstallPlan ReadCMakeReply(const fs::path& directory, const std::vector<std::string>& components) {
  const fs::path indexFile = FindIndex(directory);
  if (indexFile.empty())
    throw deployment::TInputError("CMake has left no reply there", {directory.string(), 0});
  const TReplyValue index = TReplyValue::Read(indexFile, Reply);
  const auto object = FindCodeModel(index);
  if (!object)
    index.Refuse("names no code model; run \"cmake " + Visible(directory.string()) + "\"");
  const TCMakeReplyFiles files{ReplyDirectory(directory), directory};
  const TReplyValue model = files.Read(object->At("jsonFile"));
  TInstallCollector collector("CMake", InstallPrefix(directory), components);
  const std::vector<TReplyValue> configurations = model.Array("configurations");
  if (configurations.empty())
    model.At("configurations").Refuse("is empty");
  std::vector<std::string> names;
  for (const TReplyValue& configuration : configurations) {
    const std::string name = configuration.Text("name");
    names.push_back(name.empty() ? "Release" : name);
    CollectCMakeInstallers(files, model, configuration,
                           configurations.size() == 1 ? "Base" : names.back(), collector);
  }
  TInstallPlan plan = collector.Take(std::move(names));
  WarnOfChangedFiles(plan, indexFile, directory);
  return plan;
}

} // namespace workbench
