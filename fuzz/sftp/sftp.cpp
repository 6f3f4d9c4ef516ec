// What a deploy asks of an SFTP server, against a server that lies. Whatever it answers: nothing
// outside the root is touched, a final name holds nothing, the old file or the whole new one, the
// old one is never lost, and what is called done was done.
#include "fuzz/fuzz_input.h"
#include "fuzz/scratch_directory.h"
#include "fuzz/sftp/model_server.h"
#include "fuzz/sftp/spoken_process.h"
#include "workbench/remote/sftp/sftp_connection.h"

#include <array>
#include <map>

namespace workbench::fuzz {
namespace {

const std::string Root = "/srv/app";

std::string FinalPathOf(const std::string& directory, const std::string& name) {
  return Root + "/" + (directory.empty() ? "" : directory + "/") + name;
}

struct TSource {
  const char* Directory;
  const char* Name;
  std::string Content;
  std::string Old; ///< what stands on the target; none when it is empty
  std::string Final = FinalPathOf(Directory, Name);
};

// Those that replace another one go in one write: of several, one that the server pretends to have
// taken leaves the size as it should be, and the size is all that is looked at.
const std::vector<TSource>& Sources() {
  static const std::vector<TSource> sources{{"", "empty.txt", "", "was there"},
                                            {"", "small.txt", "ten bytes.", ""},
                                            {"data", "changed.dat", std::string(900, 'n'), "old"},
                                            {"data/deep", "large.dat", std::string(4500, 'l'), ""}};
  return sources;
}

TModelFiles MakeStartFiles() {
  TModelFiles files;
  for (const char* directory : {"/", "/srv", "/srv/app", "/srv/app/data", "/home", "/home/user"})
    files[directory] = {TModelFile::TKind::Directory, {}, 0755, 1'700'000'000};
  files["/etc.conf"] = {TModelFile::TKind::Plain, "not ours", 0644, 1'700'000'000};
  for (const TSource& source : Sources()) {
    if (!source.Old.empty())
      files[source.Final] = {TModelFile::TKind::Plain, source.Old, 0644, 1'700'000'000};
  }
  return files;
}

const TModelFiles& StartFiles() {
  static const TModelFiles files = MakeStartFiles();
  return files;
}

void CheckFinalNames(const TModelServer& server) {
  if (server.HasPretended()) // to have taken bytes, perhaps
    return;
  for (const TSource& source : Sources()) {
    const TModelFile* file = server.Find(source.Final);
    Require(!file || file->Content == source.Content ||
                (!source.Old.empty() && file->Content == source.Old),
            "a final name holds nothing, the old file or the whole new one", source.Name);
  }
}

// The old file, or the new one in its place; the old one may have another name. A server that says
// that the new one is there, and tells the size that it would have, cannot be seen through.
void CheckNothingLost(const TModelServer& server) {
  if (server.HasInvented())
    return;
  for (const TSource& source : Sources()) {
    if (source.Old.empty())
      continue;
    const TModelFile* file = server.Find(source.Final);
    bool isKept = file && (file->Content == source.Content || file->Content == source.Old);
    for (const auto& [path, each] : server.Files())
      isKept = isKept || each.Content == source.Old;
    Require(isKept, "an old file stays until the new one stands", source.Name);
  }
}

class TJob final : public ISendJob {
public:
  TJob(std::vector<TSendRequest> requests, std::size_t patience)
      : FRequests(std::move(requests)), FPatience(patience) {}

  bool IsCancelled() const override { return FPatience > 0 && ++FAsked > FPatience; }
  const TSendRequest* Next() override {
    return FNext == FRequests.size() ? nullptr : &FRequests[FNext++];
  }
  void BytesSent(std::uint64_t /*count*/) override {}
  void FileDone(const TSendRequest& request, const TSendOutcome& outcome) override {
    Require(Outcomes.emplace(request.Index, outcome).second, "a file is done once");
  }
  bool IsOver() const { return Outcomes.size() == FNext; }

  std::map<std::size_t, TSendOutcome> Outcomes;

private:
  std::vector<TSendRequest> FRequests;
  std::size_t FPatience;
  std::size_t FNext = 0;
  mutable std::size_t FAsked = 0;
};

// The sources as files of this machine, written once.
std::vector<TSendRequest> Requests(const std::vector<TRemoteDirectory>& directories) {
  static const TScratchDirectory scratch;
  static const bool isWritten = [] {
    for (const TSource& source : Sources())
      scratch.Write(source.Name, source.Content);
    return true;
  }();
  static_cast<void>(isWritten);
  std::vector<TSendRequest> requests;
  for (std::size_t i = 0; i < Sources().size(); ++i) {
    const TRemoteDirectory& directory = directories[i];
    if (directory.Problem.empty() && directory.IsInside)
      requests.push_back(
          {scratch.Path() / Sources()[i].Name, {directory.Path, Sources()[i].Name}, i == 1, i});
  }
  return requests;
}

void CheckSent(const TJob& job, const TModelServer& server) {
  Require(job.IsOver(), "every file that was begun is done");
  for (const auto& [index, outcome] : job.Outcomes) {
    const TSource& source = Sources()[index];
    const TModelFile* file = server.Find(source.Final);
    if (outcome.Problem.empty() && !server.HasPretended())
      Require(file && file->Content == source.Content, "what is called done was done", source.Name);
    if (server.IsHonest() && file && !outcome.Problem.empty())
      Require(file->Content == source.Old, "an honest server keeps the old file", source.Name);
  }
}

void CheckExamined(TSftpConnection& connection, const std::vector<TSendRequest>& requests,
                   const TModelServer& server) {
  std::vector<TRemoteName> names;
  for (const TSendRequest& request : requests)
    names.push_back(request.Target);
  const auto found = connection.Examine(names);
  Require(found.size() == names.size(), "every question is answered");
  for (std::size_t i = 0; i < names.size() && server.IsHonest(); ++i) {
    const TModelFile* file = server.Find(names[i].Directory + "/" + names[i].Name);
    Require((found[i].Kind == TRemoteKind::File) == (file != nullptr), "what is there is seen");
    Require(!file || found[i].Size == file->Content.size(), "its size is seen");
  }
  for (std::size_t i = 0; i < names.size(); ++i)
    Require(found[i].Kind != TRemoteKind::None || !found[i].Problem.empty() ||
                !server.Find(names[i].Directory + "/" + names[i].Name) || server.HasPretended(),
            "what is there is not called missing");
}

void Talk(TModelServer& server, std::size_t patience) {
  TSftpConnection connection({.Sftp = {.Command = {"server"}, .Environment = {}},
                              .Exec = {},
                              .Root = Root,
                              .Greeting = std::chrono::milliseconds(100),
                              .Silence = std::chrono::milliseconds(100)},
                             std::make_shared<TMachineFacts>());
  std::vector<std::string> wanted;
  for (const TSource& source : Sources())
    wanted.emplace_back(source.Directory);
  const auto directories = connection.Resolve(wanted);
  Require(directories.size() == wanted.size(), "every directory is answered");
  const std::vector<TSendRequest> requests = Requests(directories);
  CheckExamined(connection, requests, server);
  static_cast<void>(connection.MakeDirectories(DirectoriesOf(requests)));
  connection.RemoveUnfinished(requests);
  TJob job(requests, patience);
  connection.Send(job);
  CheckSent(job, server);
  CheckExamined(connection, requests, server);
  if (requests.empty())
    return;
  const auto content = connection.ReadFile(requests.back().Target, 1'000'000);
  Require(!server.IsHonest() || patience > 0 || content.Text == Sources().back().Content,
          "what was sent reads back");
  std::vector<TRemoteName> names{requests.front().Target, requests.back().Target};
  Require(connection.Hashes(names).size() == names.size(), "every hash is answered");
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  TFuzzInput input(data, size);
  const std::size_t patience = input.Below(8) == 7 ? 1 + input.Byte() : 0;
  TModelServer server(StartFiles(), input);
  server.OnChange = [](const std::string& path) {
    // The root itself may have to be made, with what it stands in.
    const bool isOnTheWay = (Root + "/").starts_with(path + "/");
    Require((path.starts_with(Root + "/") || isOnTheWay) &&
                (path + "/").find("/../") == std::string::npos,
            "nothing outside the root is touched", path);
  };
  server.AfterRequest = [&server] { CheckFinalNames(server); };
  SpeakWith(server);
  try {
    Talk(server, patience);
  } catch (const workbench::TConnectionError& error) {
    Require(!std::string_view(error.what()).empty(), "a lost connection has a reason");
  }
  CheckNothingLost(server);
  return 0;
}
