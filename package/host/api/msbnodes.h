// Host unit Msbnodes: MSBuild project documents that the package writes.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace deployment {

/// An item of an item group. Owned by its document.
class IMSBuildItem {
public:
  /// The condition as written; empty when there is none.
  virtual std::string_view GetCondition() const = 0;
  virtual void SetCondition(std::string_view condition) = 0;
  /// Appends a metadata element. The value is plain text; the document escapes it for XML.
  virtual void AddMetadata(std::string_view name, std::string_view value) = 0;

protected:
  ~IMSBuildItem() = default;
};

/// A group of items. Owned by its document.
class IMSBuildItemGroup {
public:
  virtual IMSBuildItem& AddItem(std::string_view name, std::string_view include) = 0;

protected:
  ~IMSBuildItemGroup() = default;
};

/// An MSBuild project in memory. Implemented by the host, owned by whoever loaded it.
class IMSBuildProjectDocument {
public:
  virtual ~IMSBuildProjectDocument() = default;
  /// Appends an item group under the condition.
  virtual IMSBuildItemGroup& AddItemGroup(std::string_view condition) = 0;
  /// Writes the document whole or not at all; a file that already has this very content is left
  /// untouched. Throws the host's error of a failed save.
  virtual void SaveToFile(std::string_view fileName) = 0;
};

} // namespace deployment
