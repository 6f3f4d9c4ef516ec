// The sections of project files: who owns which, and when they are asked.
#pragma once

#include "package/host/api/node.h"
#include "workbench/xml/text_pieces.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class TProjectModule;

/// Keeps the owners of sections, and calls them when a project is made, read, written and closed.
/// Only one section is kept: that of the owner who registered first.
class TProjectFileStorage final : public deployment::IOTAProjectFileStorage {
public:
  int AddNotifier(std::shared_ptr<deployment::IOTAProjectFileStorageNotifier> notifier) override;
  void RemoveNotifier(int index) override;
  deployment::IXMLNode* GetProjectStorageNode(deployment::IOTAModule& projectOrGroup,
                                              std::string_view name) override;
  deployment::IXMLNode& AddNewSection(deployment::IOTAModule& projectOrGroup,
                                      std::string_view name) override;

  /// Name of the section that is kept; empty when nobody registered.
  std::string SectionName() const;
  /// Layout of the project's section as it was read; that of an empty one when there is none.
  /// Throws TInputError when the section says something that cannot be understood.
  deployment::TSectionLayout SectionLayout(TProjectModule& module) const;
  std::size_t NotifierCount() const;

  void ProjectLoaded(TProjectModule& module);
  void ProjectClosing(TProjectModule& module);
  /// Lets the owner fill the section of a project that is being made.
  void CreatingProject(TProjectModule& module);
  /// The project's file as a save writes it; null when it is the one that was read.
  std::unique_ptr<TTextPieces> ComposeProject(TProjectModule& module);

private:
  deployment::IOTAProjectFileStorageNotifier* Owner() const;

  std::vector<std::shared_ptr<deployment::IOTAProjectFileStorageNotifier>> FNotifiers;
};

} // namespace workbench
