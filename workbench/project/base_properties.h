// Changes of a project's unconditional properties, in the tree at once and in the bytes at a save.
#pragma once

#include "workbench/xml/source_text.h"
#include "workbench/xml/xml_tree.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// A piece of markup and the bytes whose place it takes.
struct TReplacement {
  TByteRange Place;
  std::string Markup;
};

/// Remembers what was changed. Tree and source must outlive it.
class TBasePropertyChanges {
public:
  TBasePropertyChanges(TXmlElement& root, const TSourceText& source)
      : FRoot(root), FSource(source) {}

  /// Sets the last property of that name (ignoring case) that stands without condition in a group
  /// without condition; made in the first such group when absent, and the group with it.
  void Set(std::string_view name, std::string_view value);

  /// Sets the last child of that name (ignoring case) of an element; made when absent. An empty
  /// value makes no child.
  void SetChild(TXmlElement& parent, std::string_view name, std::string_view value);
  /// Adds a group behind the last child of the root.
  TXmlElement& AddGroup(std::string_view name);

  /// True when nothing was changed.
  bool IsEmpty() const { return FChanged.empty() && FExtended.empty() && FNewGroups.empty(); }
  /// What a save puts into the bytes. Throws TInputError for text that XML cannot hold.
  std::vector<TReplacement> Replacements() const;
  /// Markup for new last children of the root; empty for none.
  std::string NewRootChildren() const;

private:
  struct TNewProperty {
    TXmlElement* Element;
    TChildLayout Layout;
  };
  struct TGroup {
    TXmlElement* Element;
    TChildInsertion Insertion;
    std::vector<TNewProperty> Properties;
  };

  struct TNewGroup {
    TXmlElement* Element;
    TChildLayout Layout;
  };

  TXmlElement* FindProperty(std::string_view name);
  void SetText(TXmlElement& element, std::string_view value);
  TXmlElement& AddProperty(TXmlElement& group, std::string_view name);

  TXmlElement& FRoot;
  const TSourceText& FSource;
  std::vector<TXmlElement*> FChanged; // elements that stand in the bytes
  std::vector<TGroup> FExtended;      // groups of the bytes with new properties
  std::vector<TNewGroup> FNewGroups;
};

} // namespace workbench
