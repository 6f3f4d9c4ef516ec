#include "workbench/history/entry_record.h"

#include <algorithm>
#include <cstddef>

namespace workbench {
namespace {

using deployment::IProjectDeploymentClass;
using deployment::IProjectDeploymentFile;
using deployment::IProjectDeploymentItem;
using deployment::TCommandList;

TFilePlatformRecord PlatformOf(IProjectDeploymentFile& file, const std::string& platform) {
  const deployment::TFileData& data = *file.GetFileData(platform, /*create=*/false);
  TFilePlatformRecord record;
  record.Platform = platform;
  record.RemoteDir = data.RemoteDir;
  record.Operation = data.Operation;
  record.LocalCommands = data.LocalCommands;
  record.RemoteCommands = data.RemoteCommands;
  record.RemoteName = data.RemoteName;
  record.Enabled = data.Enabled;
  record.Overwrite = data.Overwrite;
  return record;
}

TClassPlatformRecord PlatformOf(IProjectDeploymentClass& deploymentClass,
                                const std::string& platform) {
  TClassPlatformRecord record;
  record.Platform = platform;
  record.RemoteDir = deploymentClass.GetRemoteDir(platform);
  record.Operation = deploymentClass.GetOperation(platform);
  record.LocalCommands = *deploymentClass.GetLocalCommands(platform);
  record.RemoteCommands = *deploymentClass.GetRemoteCommands(platform);
  record.Extensions = deploymentClass.GetExtensions(platform);
  return record;
}

template <class TRecord, class TItem>
void TakeItem(TRecord& record, TItem& item) {
  record.Condition = item.GetCondition();
  record.Required = item.GetRequired();
  const std::vector<std::string> platforms = item.GetPlatforms();
  record.Platforms.reserve(platforms.size());
  for (const std::string& platform : platforms)
    record.Platforms.push_back(PlatformOf(item, platform));
}

void ApplyPlatform(const TFilePlatformRecord& record, IProjectDeploymentFile& file) {
  deployment::TFileData& data = *file.GetFileData(record.Platform, /*create=*/true);
  data.RemoteDir = record.RemoteDir;
  data.Operation = record.Operation;
  data.LocalCommands = record.LocalCommands;
  data.RemoteCommands = record.RemoteCommands;
  data.RemoteName = record.RemoteName;
  data.Enabled = record.Enabled;
  data.Overwrite = record.Overwrite;
}

void ApplyPlatform(const TClassPlatformRecord& record, IProjectDeploymentClass& deploymentClass) {
  deploymentClass.SetRemoteDir(record.Platform, record.RemoteDir);
  deploymentClass.SetOperation(record.Platform, record.Operation);
  *deploymentClass.GetLocalCommands(record.Platform) = record.LocalCommands;
  *deploymentClass.GetRemoteCommands(record.Platform) = record.RemoteCommands;
  deploymentClass.SetExtensions(record.Platform, record.Extensions);
}

// A new platform becomes the last one, so from the first difference on they are made anew.
template <class TRecord>
void DropDifferentPlatforms(const std::vector<TRecord>& wanted, IProjectDeploymentItem& item) {
  const std::vector<std::string> present = item.GetPlatforms();
  std::size_t same = 0;
  while (same < present.size() && same < wanted.size() && present[same] == wanted[same].Platform)
    ++same;
  for (std::size_t i = same; i < present.size(); ++i)
    item.RemovePlatform(present[i]);
}

template <class TRecord, class TItem>
void ApplyItem(const TRecord& record, TItem& item) {
  item.SetCondition(record.Condition);
  item.SetRequired(record.Required);
  DropDifferentPlatforms(record.Platforms, item);
  for (const auto& platform : record.Platforms)
    ApplyPlatform(platform, item);
}

// The fields of a record in the order in which they are packed; one list for both directions.
template <class TVisitor, class TRecord>
void VisitPlatform(TVisitor& visitor, TRecord& record) {
  visitor.Text(record.Platform);
  visitor.Text(record.RemoteDir);
  visitor.Small(record.Operation);
  visitor.Texts(record.LocalCommands);
  visitor.Texts(record.RemoteCommands);
  visitor.Text(record.RemoteName);
  visitor.Small(record.Enabled);
  visitor.Small(record.Overwrite);
}

template <class TVisitor, class TRecord>
void VisitEntry(TVisitor& visitor, TRecord& record) {
  visitor.Text(record.Names.Configuration);
  visitor.Text(record.Names.Platform);
  visitor.Text(record.Names.LocalName);
  visitor.Text(record.Class);
  visitor.Text(record.Condition);
  visitor.Small(record.Required);
  visitor.Count(record.Platforms);
  for (auto& platform : record.Platforms)
    VisitPlatform(visitor, platform);
}

class TPacker {
public:
  void Number(std::size_t value) {
    constexpr unsigned BitsPerByte = 7;
    for (; value >= 0x80U; value >>= BitsPerByte)
      Bytes.push_back(static_cast<char>((value & 0x7fU) | 0x80U));
    Bytes.push_back(static_cast<char>(value));
  }
  void Text(const std::string& text) {
    Number(text.size());
    Bytes += text;
  }
  template <class TValue>
  void Small(TValue value) {
    Bytes.push_back(static_cast<char>(value));
  }
  template <class TItem>
  void Count(const std::vector<TItem>& items) {
    Number(items.size());
  }
  void Texts(const TCommandList& texts) {
    Count(texts);
    for (const std::string& text : texts)
      Text(text);
  }

  std::string Bytes;
};

class TUnpacker {
public:
  explicit TUnpacker(std::string_view bytes) : FBytes(bytes) {}

  std::size_t Number() {
    std::size_t value = 0;
    for (unsigned shift = 0;; shift += 7U) {
      const auto byte = static_cast<unsigned char>(Take(1).front());
      value |= static_cast<std::size_t>(byte & 0x7fU) << shift;
      if (byte < 0x80U)
        return value;
    }
  }
  void Text(std::string& text) { text = Take(Number()); }
  template <class TValue>
  void Small(TValue& value) {
    value = static_cast<TValue>(Take(1).front());
  }
  template <class TItem>
  void Count(std::vector<TItem>& items) {
    items.resize(Number());
  }
  void Texts(TCommandList& texts) {
    Count(texts);
    for (std::string& text : texts)
      Text(text);
  }

private:
  std::string_view Take(std::size_t count) {
    const std::string_view taken = FBytes.substr(0, count);
    FBytes.remove_prefix(count);
    return taken;
  }

  std::string_view FBytes;
};

} // namespace

TEntryKey NamesOf(const IProjectDeploymentFile& file) {
  return {file.GetConfiguration(), file.GetFilePlatform(), file.GetLocalName()};
}

TEntryRecord RecordOf(IProjectDeploymentFile& file) {
  TEntryRecord record;
  record.Names = NamesOf(file);
  record.Class = file.GetDeploymentClass();
  TakeItem(record, file);
  return record;
}

TClassRecord RecordOf(IProjectDeploymentClass& deploymentClass) {
  TClassRecord record;
  record.Id = deploymentClass.GetClassId();
  record.Description = deploymentClass.GetDescription();
  TakeItem(record, deploymentClass);
  return record;
}

TClassRecords ClassRecordsOf(const deployment::IProjectDeployment& deployment) {
  const deployment::TDeploymentClasses classes = deployment.GetClasses();
  TClassRecords records;
  records.reserve(classes.size());
  for (const auto& deploymentClass : classes)
    records.push_back(RecordOf(*deploymentClass));
  return records;
}

void Apply(const TEntryRecord& record, IProjectDeploymentFile& file) {
  file.SetConfiguration(record.Names.Configuration);
  file.SetFilePlatform(record.Names.Platform);
  file.SetLocalName(record.Names.LocalName);
  file.SetDeploymentClass(record.Class);
  ApplyItem(record, file);
}

void Apply(const TClassRecord& record, IProjectDeploymentClass& deploymentClass) {
  deploymentClass.SetClassId(record.Id);
  deploymentClass.SetDescription(record.Description);
  ApplyItem(record, deploymentClass);
}

std::string Pack(const TEntryRecord& record) {
  TPacker packer;
  VisitEntry(packer, record);
  packer.Bytes.shrink_to_fit();
  return std::move(packer.Bytes);
}

TEntryRecord Unpack(std::string_view bytes) {
  TUnpacker unpacker(bytes);
  TEntryRecord record;
  VisitEntry(unpacker, record);
  return record;
}

TEntryRecord AsStored(TEntryRecord record) {
  record.Names.Platform.clear();
  for (TFilePlatformRecord& platform : record.Platforms) {
    for (auto* commands : {&platform.LocalCommands, &platform.RemoteCommands}) {
      if (commands->size() > 1)
        commands->erase(commands->begin(), commands->end() - 1);
    }
  }
  return record;
}

} // namespace workbench
