// Host unit Node: the storage nodes of a project file - named sections that others own.
#pragma once

#include "package/host/api/xml.h"

#include <memory>
#include <string>
#include <string_view>

namespace deployment {

class IOTAModule;

/// How a section is laid out.
struct TSectionLayout {
  int Version = 0;         ///< 0, the oldest, when the section does not say
  bool IsOutdated = false; ///< its content is brought up to date when it is loaded
};

/// The owner of one section of project files. Implemented by the package; the storage service
/// shares ownership while it is registered. Every call is about one module that the host opens.
class IOTAProjectFileStorageNotifier {
public:
  virtual ~IOTAProjectFileStorageNotifier() = default;
  /// The section's element name.
  virtual std::string GetName() const = 0;
  /// Layout of a section of a project file. Throws TInputError when it says something that cannot
  /// be understood.
  virtual TSectionLayout GetLayout(IXMLNode& node) const = 0;
  /// A new project is made; its section is to get its first content.
  virtual void CreatingProject(IOTAModule& projectOrGroup) = 0;
  /// The project was opened. `node` is the section, null when the file has none.
  virtual void ProjectLoaded(IOTAModule& projectOrGroup, IXMLNode* node) = 0;
  /// The project is about to be written. `node` is an empty element of the section's name whose
  /// content replaces the section.
  virtual void ProjectSaving(IOTAModule& projectOrGroup, IXMLNode& node) = 0;
  virtual void ProjectClosing(IOTAModule& projectOrGroup) = 0;
};

/// The sections of project files. Implemented by the host.
class IOTAProjectFileStorage {
public:
  virtual ~IOTAProjectFileStorage() = default;
  /// Registers the owner of a section; returns the index under which it is removed again.
  virtual int AddNotifier(std::shared_ptr<IOTAProjectFileStorageNotifier> notifier) = 0;
  /// An index that is not registered is ignored.
  virtual void RemoveNotifier(int index) = 0;
  /// The project's section of that name (ignoring case); null when it has none. The project's
  /// document owns the node.
  virtual IXMLNode* GetProjectStorageNode(IOTAModule& projectOrGroup, std::string_view name) = 0;
  /// Adds an empty section to the project in memory, and returns it; returns the present one when
  /// there is one.
  virtual IXMLNode& AddNewSection(IOTAModule& projectOrGroup, std::string_view name) = 0;
};

} // namespace deployment
