// XML documents in memory for tests: built from text, read and changed through IXMLNode, printed.
#pragma once

#include "package/host/api/xml.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace deployment {

/// An element that owns its children.
class TMemoryXMLNode final : public IXMLNode {
public:
  explicit TMemoryXMLNode(std::string_view name, TErrorPlace place = {});

  std::string_view NodeName() const override { return FName; }
  std::optional<std::string_view> GetAttribute(std::string_view name) const override;
  std::size_t AttributeCount() const override { return FAttributes.size(); }
  std::string_view AttributeName(std::size_t index) const override {
    return FAttributes.at(index).first;
  }
  void SetAttribute(std::string_view name, std::string_view value) override;
  std::string_view Text() const override { return FText; }
  void SetText(std::string_view text) override { FText = text; }
  bool HasChildren() const override;
  TMemoryXMLNode* FirstChild() override;
  TMemoryXMLNode* NextSibling() override { return FNext; }
  TMemoryXMLNode& AddChild(std::string_view name) override;
  void RemoveChildren() override;
  void RemoveAttributes() override { FAttributes.clear(); }
  TErrorPlace Place() const override { return FPlace; }

  /// The same with a place in a file.
  TMemoryXMLNode& AddChildAt(std::string_view name, TErrorPlace place);
  /// The element on one line: attributes in order, its text, then its children.
  std::string ToText() const;

private:
  std::string FName;
  TErrorPlace FPlace;
  std::string FText;
  std::vector<std::pair<std::string, std::string>> FAttributes;
  std::vector<std::unique_ptr<TMemoryXMLNode>> FChildren;
  TMemoryXMLNode* FNext = nullptr;
};

/// A document around one root element.
class TMemoryXMLDocument : public IXMLDocument {
public:
  explicit TMemoryXMLDocument(std::unique_ptr<TMemoryXMLNode> root) : FRoot(std::move(root)) {}
  TMemoryXMLNode& DocumentElement() override { return *FRoot; }

private:
  std::unique_ptr<TMemoryXMLNode> FRoot;
};

/// Parses elements, attributes, text and the five named entities; declarations and comments are
/// passed over. White space between elements is dropped. `name` is the file in places and errors.
/// Throws TInputError for anything else.
std::unique_ptr<TMemoryXMLNode> ParseMemoryXML(std::string_view text, std::string_view name = "");

/// The text with the characters replaced that XML gives a meaning to.
std::string EscapeMemoryXML(std::string_view text);

/// Makes documents with ParseMemoryXML and keeps the names that it was asked for.
class TMemoryXMLDocuments : public IXMLDocuments {
public:
  using TFiles = std::map<std::string, std::string, std::less<>>;

  /// `files` must outlive the object.
  explicit TMemoryXMLDocuments(const TFiles& files) : FFiles(files) {}
  std::shared_ptr<IXMLDocument> LoadXMLData(std::string_view text, std::string_view name) override;
  std::shared_ptr<IXMLDocument> LoadXMLFile(std::string_view fileName) override;

  std::vector<std::string> Loaded;

private:
  const TFiles& FFiles;
};

} // namespace deployment
