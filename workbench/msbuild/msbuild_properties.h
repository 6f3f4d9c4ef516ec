// The properties of a project while it is evaluated.
#pragma once

#include "package/common/case_fold.h"
#include "package/host/api/xml.h"
#include "workbench/msbuild/property_functions.h"
#include "workbench/msbuild/values/unknown_value.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>

namespace workbench {

/// Properties by name, ignoring case. A value is kept with its escapes and loses them when it is
/// used, so that "%3B" in a property never splits a list.
class TPropertyTable {
public:
  enum class TAssignment { Done, IsGlobal, IsReserved };

  /// Names that the project cannot assign; the value is plain text.
  void SetReserved(std::string_view name, std::string_view text);
  /// A value given from outside that wins over every assignment of the project; plain text.
  void SetGlobal(std::string_view name, std::string_view text);
  /// A value that the project may replace; plain text.
  void SetInitial(std::string_view name, std::string_view text);
  /// A property that the build system sets to something that this machine cannot know. The project
  /// may assign it.
  void SetOfBuildSystem(std::string_view name);
  /// Where the project is and what its environment says; the texts must outlive the table.
  void SetPlace(const std::filesystem::path& projectDirectory, const TNamedTexts& environment);
  /// Sets MSBuildThisFile and its kin.
  void SetThisFile(const std::filesystem::path& file);

  /// Stores a value that `node` of the project assigns, escapes and all. With a `doubt`, whether
  /// the assignment takes place is not known: a value that would change is not known any more.
  TAssignment Assign(std::string_view name, TExpanded value, const deployment::IXMLNode& node,
                     const TUnknown& doubt = nullptr);

  /// The text with references replaced by values, escapes kept; what is unknown counts as empty.
  /// Throws TInputError at `node` when the text grows beyond all measure.
  TExpanded Expand(std::string_view text, const deployment::IXMLNode& node) const {
    return Expand(text, node, 0);
  }
  /// Expand without escapes.
  TExpanded ExpandPlain(std::string_view text, const deployment::IXMLNode& node) const;

  /// The plain text of a property; empty when it is unset.
  TExpanded PlainValue(std::string_view name) const;
  /// The element that assigned the present value; null when none did.
  const deployment::IXMLNode* AssignedBy(std::string_view name) const;

private:
  enum class TSource { Project, Initial, Global, Reserved };

  struct TProperty {
    std::string Value;
    TSource Source = TSource::Project;
    const deployment::IXMLNode* Node = nullptr;
    TUnknown Unknown = nullptr;
  };

  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return deployment::HashText(name); }
  };
  struct TSame {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const {
      return deployment::SameText(left, right);
    }
  };
  using TProperties = std::unordered_map<std::string, TProperty, THash, TSame>;

  friend class TReferenceReader;

  void Store(std::string_view name, TProperty property);
  TExpanded Expand(std::string_view text, const deployment::IXMLNode& node, unsigned depth) const;
  void AppendReference(TExpanded& expanded, std::string_view body, const deployment::IXMLNode& node,
                       unsigned depth) const;
  void AppendValue(TExpanded& expanded, std::string_view name) const;
  void Spend(std::size_t bytes, std::string_view text, const deployment::IXMLNode& node) const;

  TProperties FProperties;
  TFunctionContext FContext;
  mutable std::size_t FExpandedBytes = 0;
};

} // namespace workbench
