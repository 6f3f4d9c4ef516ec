// The file entries of one deployment: in order, and found by key, class and local name.
#pragma once

#include "package/model/deployment_file.h"
#include "package/model/file_key.h"
#include "package/model/slot_chains.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// What a file must have to be found; texts are compared ignoring case, an empty one is met by
/// every file.
struct TFileQuery {
  std::string_view LocalName = {};
  std::string_view Configuration = {};
  std::string_view Platform = {}; ///< one of the platforms that the file has a record for
  std::string_view ClassName = {};
};

/// An entry with the key that it is held under.
struct TKeyedFile {
  std::string Key;
  std::shared_ptr<TDeploymentFile> File;
};

/// Holds each file once, in order of adding, under the key that it was added with: a later change
/// of the file does not move it. Adding, removing and the look-ups by key, class and local name go
/// through indexes. The list makes its owner the owner of each file that it holds, and takes that
/// back when the file leaves. Lists that are returned are snapshots, which stay good while entries
/// come and go.
class TDeploymentFileList {
public:
  /// `owner` must outlive the list and pass on what FileFieldChanging says.
  explicit TDeploymentFileList(IDeploymentItemOwner& owner) : FOwner(owner) {}
  TDeploymentFileList(const TDeploymentFileList&) = delete;
  TDeploymentFileList& operator=(const TDeploymentFileList&) = delete;
  ~TDeploymentFileList();

  /// Puts the file under the key, in the place of the entry that has the key now; that entry is
  /// returned, null when there is none. A file that the list holds already leaves its old key.
  std::shared_ptr<TDeploymentFile> Add(const TFileKey& key, std::shared_ptr<TDeploymentFile> file);
  /// Null when absent.
  std::shared_ptr<TDeploymentFile> Get(const TFileKey& key) const;
  /// Takes the entry out and returns it; null when absent.
  std::shared_ptr<TDeploymentFile> Remove(const TFileKey& key);
  std::shared_ptr<TDeploymentFile> Remove(const TDeploymentFile& file);
  /// True when the list holds this very entry.
  bool Holds(const TDeploymentFile& file) const;
  void Clear();

  bool IsEmpty() const { return FLive == 0; }
  std::size_t Count() const { return FLive; }

  /// All files in order.
  TDeploymentFiles Files() const;
  std::vector<TKeyedFile> KeyedFiles() const;
  /// The files that meet the query, in order.
  TDeploymentFiles Find(const TFileQuery& query) const;
  /// The files of the class, ignoring case, in order. An empty name is that of files without one.
  TDeploymentFiles FilesOfClass(std::string_view className) const;

  /// To be called before a held file gets a new text.
  void FileFieldChanging(TDeploymentFile& file, TFileField field, std::string_view newValue);

private:
  struct TEntry {
    std::shared_ptr<TDeploymentFile> File; ///< null: the place is free
    /// Null while the key is what the file's own texts join to, which is the rule.
    std::unique_ptr<std::string> FrozenKey;
  };

  static TFileKey OwnKey(const TDeploymentFile& file);
  static TFileKey KeyOf(const TEntry& entry);
  static void Release(TDeploymentFile& file);
  TSlot FindSlot(const TFileKey& key, std::size_t hash) const;
  void Put(TSlot slot, const TFileKey& key, std::size_t hash,
           std::shared_ptr<TDeploymentFile> file);
  std::shared_ptr<TDeploymentFile> TakeOut(TSlot slot);
  std::shared_ptr<TDeploymentFile> RemoveSlot(TSlot slot);
  void Compact();
  template <class TPredicate>
  TDeploymentFiles Collect(const TSlotChains& chains, std::size_t hash, TPredicate accepts) const;

  IDeploymentItemOwner& FOwner;
  // In order; places of removed entries stay free until Compact.
  std::vector<TEntry> FEntries;
  std::size_t FLive = 0;
  TSlotChains FByKey;
  TSlotChains FByClass;
  TSlotChains FByLocalName;
};

} // namespace deployment
