// An XML node in memory: the form in which a host hands the package its section of a project.
#pragma once

#include <memory>
#include <package/host/api/xml.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class TMemoryNode final : public deployment::IXMLNode {
public:
  explicit TMemoryNode(std::string_view name) : FName(name) {}

  std::string_view NodeName() const override { return FName; }
  std::optional<std::string_view> GetAttribute(std::string_view name) const override {
    for (const auto& [own, value] : FAttributes) {
      if (own == name)
        return value;
    }
    return std::nullopt;
  }
  std::size_t AttributeCount() const override { return FAttributes.size(); }
  std::string_view AttributeName(std::size_t index) const override {
    return FAttributes[index].first;
  }
  void SetAttribute(std::string_view name, std::string_view value) override {
    FAttributes.emplace_back(name, value);
  }
  std::string_view Text() const override { return FText; }
  void SetText(std::string_view text) override { FText = text; }
  bool HasChildren() const override { return !FChildren.empty(); }
  IXMLNode* FirstChild() override { return FChildren.empty() ? nullptr : FChildren.front().get(); }
  IXMLNode* NextSibling() override { return FNext; }
  TMemoryNode& AddChild(std::string_view name) override {
    auto child = std::make_unique<TMemoryNode>(name);
    if (!FChildren.empty())
      FChildren.back()->FNext = child.get();
    return *FChildren.emplace_back(std::move(child));
  }
  void RemoveChildren() override { FChildren.clear(); }
  void RemoveAttributes() override { FAttributes.clear(); }
  deployment::TErrorPlace Place() const override { return {"memory", 0}; }

private:
  std::string FName, FText;
  std::vector<std::pair<std::string, std::string>> FAttributes;
  std::vector<std::unique_ptr<TMemoryNode>> FChildren;
  TMemoryNode* FNext = nullptr;
};
