// The common base of the entries of a deployment: condition, required flag, per-platform records.
#pragma once

#include "package/common/ordered_dictionary.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/xml.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class TDeploymentFile;

/// The texts of a file that a deployment finds it by.
enum class TFileField { LocalName, DeploymentClass, Configuration, FilePlatform };

/// What an entry tells the deployment that holds it.
class IDeploymentItemOwner {
public:
  /// A value of the entry changed.
  virtual void ItemModified(IProjectDeploymentItem& item) = 0;
  /// The field is about to get the new value; the file still has the old one.
  virtual void FileFieldChanging(TDeploymentFile& file, TFileField field,
                                 std::string_view newValue) = 0;

protected:
  ~IDeploymentItemOwner() = default;
};

/// Base of files and classes. Starts without records, condition and owner.
class TDeploymentItem : public virtual IProjectDeploymentItem {
public:
  std::vector<std::string> GetPlatforms() const override;
  void RemovePlatform(std::string_view platform) override;
  const std::string& GetCondition() const override { return FCondition; }
  void SetCondition(std::string_view value) override;
  bool GetRequired() const override { return FRequired; }
  void SetRequired(bool value) override;
  const std::string& GetRemoteDir(std::string_view platform) const override;
  void SetRemoteDir(std::string_view platform, std::string_view value) override;
  TDeployOperation GetOperation(std::string_view platform) const override;
  void SetOperation(std::string_view platform, TDeployOperation value) override;
  TCommandList* GetLocalCommands(std::string_view platform) override;
  TCommandList* GetRemoteCommands(std::string_view platform) override;

  /// The platform's own record, else the "All" record, else null. With `create` the platform gets
  /// a record of its own first.
  TDeployData* GetData(std::string_view platform, bool create);
  const TDeployData* GetData(std::string_view platform) const;

  /// True when one of the entry's own records is for the platform, ignoring case.
  bool HasPlatform(std::string_view platform) const;

  /// Adds what the element says. Throws TInputError when a value cannot be understood.
  virtual void Read(IXMLNode& node);
  /// Writes the entry into a fresh element of its own.
  virtual void Write(IXMLNode& node) const;

  /// The deployment that hears of changes; null for none. Not owned, and cleared by the owner.
  IDeploymentItemOwner* GetOwner() const { return FOwner; }
  void SetOwner(IDeploymentItemOwner* owner) { FOwner = owner; }

protected:
  /// Makes the kind of record that GetData adds.
  virtual std::unique_ptr<TDeployData> CreateData() const;
  /// Reads one "Platform" element.
  virtual void ReadPlatformData(IXMLNode& node, std::string_view platform);
  /// Writes one record into `node`: a "Platform" element, or the entry's own for all platforms.
  virtual void WritePlatformData(IXMLNode& node, const TDeployData& data,
                                 std::string_view platform) const;

  /// Tells the owner that the entry changed.
  void Modified();
  /// Stores the value and tells the owner, unless it is there already.
  template <class TStored, class TValue>
  void Store(TStored& stored, const TValue& value) {
    if (stored == value)
      return;
    stored = value;
    Modified();
  }

private:
  TOrderedDictionary<std::unique_ptr<TDeployData>> FPlatforms;
  std::string FCondition;
  bool FRequired = false;
  IDeploymentItemOwner* FOwner = nullptr;
};

/// What getters of texts answer when there is no record.
const std::string& EmptyText();

} // namespace deployment
