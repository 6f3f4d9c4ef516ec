#include "fuzz/sftp/model_server.h"

#include <algorithm>
#include <array>
#include <utility>

namespace workbench::fuzz {
namespace {

constexpr std::size_t LengthSize = 4;
constexpr std::uint32_t FileKind = 0100000;
constexpr std::uint32_t DirectoryKind = 0040000;
constexpr std::uint32_t LinkKind = 0120000;
constexpr std::uint64_t LargestPacket = 262'144;
constexpr std::uint64_t LargestWrite = 1000; // small, so that small files go in several writes
constexpr std::uint64_t MostHandles = 100;

TSftpAttributes AttributesOf(const TModelFile& file) {
  const std::uint32_t kind = file.Kind == TModelFile::TKind::Plain       ? FileKind
                             : file.Kind == TModelFile::TKind::Directory ? DirectoryKind
                                                                         : LinkKind;
  return {.Size = file.Content.size(),
          .Mode = kind | file.Mode,
          .Accessed = file.Time,
          .Modified = file.Time};
}

// Replies in whole packets.
class TReply {
public:
  TReply(TByteBuffer& bytes, TSftpPacket kind, std::uint32_t id) : FWriter(bytes) {
    FWriter.Begin(kind);
    FWriter.Number(id);
  }
  ~TReply() { FWriter.End(); }
  TReply(const TReply&) = delete;
  TReply& operator=(const TReply&) = delete;
  TSftpWriter* operator->() { return &FWriter; }

private:
  TSftpWriter FWriter;
};

void ReplyStatus(TByteBuffer& bytes, std::uint32_t id, std::uint32_t status) {
  TReply reply(bytes, TSftpPacket::Status, id);
  reply->Number(status);
  reply->Text("said");
  reply->Text("");
}

} // namespace

TModelServer::TModelServer(TModelFiles files, TFuzzInput lies)
    : FFiles(std::move(files)), FLies(lies) {
  FHasPosixRename = FLies.Flag();
}

const TModelFile* TModelServer::Find(std::string_view path) const {
  const auto found = FFiles.find(path);
  return found == FFiles.end() ? nullptr : &found->second;
}

std::string TModelServer::Hear(std::string_view bytes) {
  std::string out;
  FBytes += bytes;
  std::string_view rest = FBytes;
  while (!FHasEnded && rest.size() >= LengthSize) {
    const std::size_t length = TSftpParser(rest).Number();
    if (rest.size() - LengthSize < length)
      break;
    Answer(rest.substr(LengthSize, length), out);
    rest.remove_prefix(LengthSize + length);
    if (AfterRequest && std::exchange(FHasChanged, false))
      AfterRequest();
  }
  FBytes = std::string(rest);
  return out;
}

void TModelServer::Greet(std::string& out) {
  TByteBuffer bytes;
  TSftpWriter writer(bytes);
  writer.Begin(TSftpPacket::Version);
  writer.Number(3);
  if (FHasPosixRename) {
    writer.Text("posix-rename@openssh.com");
    writer.Text("1");
    writer.Text("fsync@openssh.com");
    writer.Text("1");
    writer.Text("limits@openssh.com");
    writer.Text("1");
  }
  writer.End();
  out += bytes.View();
}

TModelServer::TLie TModelServer::NextLie() {
  constexpr std::array<TLie, 8> Lies{TLie::Refuse, TLie::Conceal, TLie::WrongKind, TLie::WrongId,
                                     TLie::CutOff, TLie::Noise,   TLie::HangUp,    TLie::Pretend};
  const std::uint8_t byte = FLies.Byte();
  const TLie lie = byte == 0 ? TLie::None : byte <= Lies.size() ? Lies[byte - 1U] : TLie::None;
  FIsHonest = FIsHonest && lie == TLie::None;
  return lie;
}

void TModelServer::Answer(std::string_view packet, std::string& out) {
  TSftpParser request(packet);
  const auto kind = static_cast<TSftpPacket>(request.Byte());
  if (kind == TSftpPacket::Init)
    return Greet(out);
  const std::uint32_t id = request.Number();
  const TLie lie = NextLie();
  TByteBuffer reply;
  const auto refuse = [&](std::uint32_t status) {
    TByteBuffer bytes;
    ReplyStatus(bytes, id, status);
    out += bytes.View();
  };
  switch (lie) {
  case TLie::Refuse:
    return refuse(FLies.Flag() ? 3 : 4);
  case TLie::Pretend:
    FHasPretended = true;
    return refuse(0);
  case TLie::WrongKind: {
    constexpr std::array<std::uint8_t, 7> Kinds{2, 102, 103, 104, 105, 201, 250};
    TByteBuffer bytes;
    TSftpWriter writer(bytes);
    const std::uint8_t made = Kinds[FLies.Below(Kinds.size())];
    FHasInvented = FHasInvented || made == static_cast<std::uint8_t>(TSftpPacket::Attributes);
    writer.Begin(static_cast<TSftpPacket>(made));
    writer.Number(id);
    for (std::size_t count = FLies.Below(8); count > 0; --count)
      writer.Number(FLies.Byte());
    writer.End();
    out += bytes.View();
    FHasPretended = FHasPretended || !FLies.Flag(); // attributes may tell a wrong size
    return;
  }
  case TLie::HangUp:
    FHasEnded = true;
    return;
  case TLie::Noise:
    out += FLies.Text();
    FHasEnded = true;
    return;
  default:
    break;
  }
  const TSftpStatus status = Carry(kind, request, reply, id);
  if (lie == TLie::Conceal)
    return refuse(4);
  if (reply.IsEmpty())
    ReplyStatus(reply, lie == TLie::WrongId ? id + FLies.Byte() : id,
                static_cast<std::uint32_t>(status));
  out += reply.View();
  if (lie == TLie::CutOff) {
    out.resize(out.size() - std::min<std::size_t>(out.size(), 1U + FLies.Byte()));
    FHasEnded = true;
  }
}

std::string TModelServer::Changing(std::string_view path) {
  FHasChanged = true;
  if (OnChange)
    OnChange(std::string(path));
  return std::string(path);
}

bool TModelServer::HasParent(const std::string& path) const {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos)
    return false;
  const TModelFile* parent = Find(slash == 0 ? "/" : path.substr(0, slash));
  return parent && parent->Kind == TModelFile::TKind::Directory;
}

TSftpStatus TModelServer::Carry(TSftpPacket kind, TSftpParser& request, TByteBuffer& reply,
                                std::uint32_t id) {
  if (kind == TSftpPacket::Extended)
    return Extended(request, reply, id);
  if (kind == TSftpPacket::Write)
    return Write(request);
  if (kind == TSftpPacket::Read)
    return Read(request, reply, id);
  if (kind == TSftpPacket::Open) {
    std::string handle;
    const TSftpStatus status = Open(request, handle);
    if (status == TSftpStatus::Ok)
      TReply(reply, TSftpPacket::Handle, id)->Text(handle);
    return status;
  }
  const std::string text(request.Text());
  const auto handle = FHandles.find(text);
  switch (kind) {
  case TSftpPacket::Close:
    return FHandles.erase(text) == 1 ? TSftpStatus::Ok : TSftpStatus::Failure;
  case TSftpPacket::FSetStat:
    return handle == FHandles.end() ? TSftpStatus::Failure : Stamp(handle->second.Path, request);
  case TSftpPacket::SetStat:
    return Stamp(Changing(text), request);
  case TSftpPacket::ReadDirectory:
    return List(text, reply, id);
  case TSftpPacket::OpenDirectory: {
    const TModelFile* file = Find(text);
    if (!file || file->Kind != TModelFile::TKind::Directory)
      return TSftpStatus::NoSuchFile;
    const std::string name = "d" + std::to_string(FHandleCount++);
    FHandles[name] = {text, false};
    TReply(reply, TSftpPacket::Handle, id)->Text(name);
    return TSftpStatus::Ok;
  }
  case TSftpPacket::LStat:
  case TSftpPacket::Stat: {
    const TModelFile* file = Find(text);
    if (!file)
      return TSftpStatus::NoSuchFile;
    TReply(reply, TSftpPacket::Attributes, id)->Attributes(AttributesOf(*file));
    return TSftpStatus::Ok;
  }
  case TSftpPacket::FStat: {
    const TModelFile* file = handle == FHandles.end() ? nullptr : Find(handle->second.Path);
    if (!file)
      return TSftpStatus::Failure;
    TReply(reply, TSftpPacket::Attributes, id)->Attributes(AttributesOf(*file));
    return TSftpStatus::Ok;
  }
  case TSftpPacket::RealPath: {
    TReply name(reply, TSftpPacket::Name, id);
    name->Number(1);
    name->Text(text == "." ? "/home/user" : text);
    name->Text("");
    name->Attributes({});
    return TSftpStatus::Ok;
  }
  case TSftpPacket::Remove:
    return Remove(Changing(text));
  case TSftpPacket::MakeDirectory:
    return MakeDirectory(Changing(text));
  case TSftpPacket::Rename:
    return Move(Changing(text), Changing(request.Text()), false);
  case TSftpPacket::ReadLink:
    return TSftpStatus::Failure;
  default:
    return TSftpStatus::Unsupported;
  }
}

TSftpStatus TModelServer::Open(TSftpParser& request, std::string& handle) {
  const std::string path(request.Text());
  const std::uint32_t flags = request.Number();
  const bool isThere = Find(path) != nullptr;
  if (flags & sftp_open::Write)
    Changing(path);
  if (isThere && (flags & sftp_open::Exclusive))
    return TSftpStatus::Failure;
  if (!isThere && !(flags & sftp_open::Create))
    return TSftpStatus::NoSuchFile;
  if (!isThere && !HasParent(path))
    return TSftpStatus::NoSuchFile;
  if (isThere && Find(path)->Kind != TModelFile::TKind::Plain)
    return TSftpStatus::Failure;
  if (!isThere)
    FFiles[path] = {};
  handle = "h" + std::to_string(FHandleCount++);
  FHandles[handle] = {path, false};
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::Write(TSftpParser& request) {
  const auto handle = FHandles.find(request.Text());
  const std::uint64_t offset = request.LongNumber();
  const std::string_view bytes = request.Text();
  const auto file = handle == FHandles.end() ? FFiles.end() : FFiles.find(handle->second.Path);
  if (file == FFiles.end())
    return TSftpStatus::Failure;
  FHasChanged = true;
  std::string& content = file->second.Content;
  content.resize(std::max<std::size_t>(content.size(), offset + bytes.size()));
  content.replace(offset, bytes.size(), bytes);
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::Stamp(const std::string& path, TSftpParser& request) {
  const auto file = FFiles.find(path);
  if (file == FFiles.end())
    return TSftpStatus::NoSuchFile;
  const TSftpAttributes attributes = request.Attributes();
  file->second.Time = attributes.Modified.value_or(file->second.Time);
  file->second.Mode = attributes.Mode.value_or(file->second.Mode) & 0777U;
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::Move(const std::string& from, const std::string& to, bool mayReplace) {
  if (!Find(from) || !HasParent(to))
    return TSftpStatus::NoSuchFile;
  const TModelFile* there = Find(to);
  if (there && (!mayReplace || there->Kind == TModelFile::TKind::Directory))
    return TSftpStatus::Failure;
  auto node = FFiles.extract(from);
  FFiles.insert_or_assign(to, std::move(node.mapped()));
  for (auto& [name, handle] : FHandles) {
    if (handle.Path == from)
      handle.Path = to;
  }
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::Extended(TSftpParser& request, TByteBuffer& reply, std::uint32_t id) {
  const std::string_view name = request.Text();
  if (FHasPosixRename && name == "limits@openssh.com") {
    TReply limits(reply, TSftpPacket::ExtendedReply, id);
    for (const std::uint64_t limit : {LargestPacket, LargestPacket, LargestWrite, MostHandles})
      limits->LongNumber(limit);
    return TSftpStatus::Ok;
  }
  if (FHasPosixRename && name == "posix-rename@openssh.com") {
    const std::string from = Changing(request.Text());
    return Move(from, Changing(request.Text()), true);
  }
  if (FHasPosixRename && name == "fsync@openssh.com")
    return FHandles.contains(request.Text()) ? TSftpStatus::Ok : TSftpStatus::Failure;
  return TSftpStatus::Unsupported;
}

TSftpStatus TModelServer::Read(TSftpParser& request, TByteBuffer& reply, std::uint32_t id) {
  const auto handle = FHandles.find(request.Text());
  const std::uint64_t offset = request.LongNumber();
  const TModelFile* file = handle == FHandles.end() ? nullptr : Find(handle->second.Path);
  if (!file)
    return TSftpStatus::Failure;
  if (offset >= file->Content.size())
    return TSftpStatus::EndOfFile;
  TReply(reply, TSftpPacket::Data, id)
      ->Text(std::string_view(file->Content).substr(offset, request.Number()));
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::List(const std::string& handle, TByteBuffer& reply, std::uint32_t id) {
  const auto found = FHandles.find(handle);
  if (found == FHandles.end())
    return TSftpStatus::Failure;
  if (found->second.IsListed)
    return TSftpStatus::EndOfFile;
  found->second.IsListed = true;
  const std::string start = found->second.Path + "/";
  std::vector<std::pair<std::string, const TModelFile*>> entries;
  for (const auto& [path, file] : FFiles) {
    if (path.starts_with(start) && path.find('/', start.size()) == std::string::npos)
      entries.emplace_back(path.substr(start.size()), &file);
  }
  TReply names(reply, TSftpPacket::Name, id);
  names->Number(static_cast<std::uint32_t>(entries.size()));
  for (const auto& [name, file] : entries) {
    names->Text(name);
    names->Text(name);
    names->Attributes(AttributesOf(*file));
  }
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::Remove(const std::string& path) {
  const TModelFile* file = Find(path);
  if (!file)
    return TSftpStatus::NoSuchFile;
  if (file->Kind == TModelFile::TKind::Directory)
    return TSftpStatus::Failure;
  FFiles.erase(FFiles.find(path));
  return TSftpStatus::Ok;
}

TSftpStatus TModelServer::MakeDirectory(const std::string& path) {
  if (Find(path))
    return TSftpStatus::Failure;
  if (!HasParent(path))
    return TSftpStatus::NoSuchFile;
  FFiles[path] = {TModelFile::TKind::Directory, {}, 0755, 1'700'000'000};
  return TSftpStatus::Ok;
}

} // namespace workbench::fuzz
