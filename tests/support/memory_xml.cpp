#include "tests/support/memory_xml.h"

#include <algorithm>
#include <array>

namespace deployment {
namespace {

constexpr std::string_view Blanks = " \t\r\n";

struct TEntity {
  char Character;
  std::string_view Text;
};
constexpr std::array<TEntity, 5> Entities{
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"}}};

class TMemoryXMLParser {
public:
  TMemoryXMLParser(std::string_view text, std::string_view name) : FText(text), FName(name) {}

  std::unique_ptr<TMemoryXMLNode> Parse() {
    SkipMisc();
    Expect("<");
    const TErrorPlace place = Place();
    auto root = std::make_unique<TMemoryXMLNode>(TakeName(), place);
    ParseElement(*root);
    SkipMisc();
    if (!Rest().empty())
      Fail();
    return root;
  }

private:
  std::string_view Rest() const { return FText.substr(FPosition); }
  bool At(std::string_view what) const { return Rest().starts_with(what); }

  TErrorPlace Place() const { return {std::string(FName), FLine}; }

  [[noreturn]] void Fail() const { throw TInputError("the text is not well-formed XML", Place()); }

  std::string_view Take(std::size_t length) {
    const std::string_view taken = Rest().substr(0, length);
    for (const char c : taken)
      FLine += c == '\n';
    FPosition += taken.size();
    return taken;
  }

  std::string_view TakeUntil(std::string_view end) {
    const std::size_t length = Rest().find(end);
    if (length == std::string_view::npos)
      Fail();
    return Take(length);
  }

  void Expect(std::string_view what) {
    if (!At(what))
      Fail();
    Take(what.size());
  }

  void SkipBlanks() { Take(std::min(Rest().find_first_not_of(Blanks), Rest().size())); }

  void SkipMisc() {
    for (SkipBlanks(); At("<?") || At("<!--"); SkipBlanks()) {
      const std::string_view end = At("<?") ? "?>" : "-->";
      TakeUntil(end);
      Expect(end);
    }
  }

  std::string_view TakeName() {
    const std::size_t length = Rest().find_first_of(" \t\r\n=/><");
    if (length == 0 || length == std::string_view::npos)
      Fail();
    return Take(length);
  }

  std::string Unescaped(std::string_view raw) const {
    std::string text;
    while (!raw.empty()) {
      std::size_t length = 1;
      char character = raw.front();
      if (character == '&') {
        length = 0;
        for (const TEntity& entity : Entities) {
          if (raw.starts_with(entity.Text)) {
            character = entity.Character;
            length = entity.Text.size();
          }
        }
        if (length == 0)
          Fail();
      }
      text.push_back(character);
      raw.remove_prefix(length);
    }
    return text;
  }

  void ParseAttributes(TMemoryXMLNode& node) {
    for (SkipBlanks(); !At(">") && !At("/>"); SkipBlanks()) {
      const std::string_view name = TakeName();
      Expect("=");
      const std::string_view quote = At("'") ? "'" : "\"";
      Expect(quote);
      if (node.GetAttribute(name))
        Fail();
      node.SetAttribute(name, Unescaped(TakeUntil(quote)));
      Expect(quote);
    }
  }

  void ParseElement(TMemoryXMLNode& node) {
    ParseAttributes(node);
    if (At("/>")) {
      Expect("/>");
      return;
    }
    Expect(">");
    std::string text;
    for (text += Unescaped(TakeUntil("<")); !At("</"); text += Unescaped(TakeUntil("<"))) {
      if (At("<!--")) {
        TakeUntil("-->");
        Expect("-->");
        continue;
      }
      const TErrorPlace place = Place();
      Expect("<");
      ParseElement(node.AddChildAt(TakeName(), place));
    }
    Expect("</");
    Expect(node.NodeName());
    Expect(">");
    if (!node.FirstChild() || text.find_first_not_of(Blanks) != std::string::npos)
      node.SetText(text);
  }

  std::string_view FText;
  std::string_view FName;
  std::size_t FPosition = 0;
  unsigned FLine = 1;
};

} // namespace

TMemoryXMLNode::TMemoryXMLNode(std::string_view name, TErrorPlace place)
    : FName(name), FPlace(std::move(place)) {}

std::optional<std::string_view> TMemoryXMLNode::GetAttribute(std::string_view name) const {
  for (const auto& [key, value] : FAttributes) {
    if (key == name)
      return value;
  }
  return std::nullopt;
}

void TMemoryXMLNode::SetAttribute(std::string_view name, std::string_view value) {
  for (auto& [key, present] : FAttributes) {
    if (key == name) {
      present = value;
      return;
    }
  }
  FAttributes.emplace_back(name, value);
}

bool TMemoryXMLNode::HasChildren() const {
  return !FChildren.empty();
}

TMemoryXMLNode* TMemoryXMLNode::FirstChild() {
  return FChildren.empty() ? nullptr : FChildren.front().get();
}

TMemoryXMLNode& TMemoryXMLNode::AddChild(std::string_view name) {
  return AddChildAt(name, {});
}

TMemoryXMLNode& TMemoryXMLNode::AddChildAt(std::string_view name, TErrorPlace place) {
  auto child = std::make_unique<TMemoryXMLNode>(name, std::move(place));
  if (!FChildren.empty())
    FChildren.back()->FNext = child.get();
  FChildren.push_back(std::move(child));
  return *FChildren.back();
}

void TMemoryXMLNode::RemoveChildren() {
  FChildren.clear();
  FText.clear();
}

std::string TMemoryXMLNode::ToText() const {
  std::string text = "<" + FName;
  for (const auto& [key, value] : FAttributes)
    text += " " + key + "=\"" + EscapeMemoryXML(value) + "\"";
  if (FText.empty() && FChildren.empty())
    return text + "/>";
  text += ">" + EscapeMemoryXML(FText);
  for (const auto& child : FChildren)
    text += child->ToText();
  return text + "</" + FName + ">";
}

std::unique_ptr<TMemoryXMLNode> ParseMemoryXML(std::string_view text, std::string_view name) {
  return TMemoryXMLParser(text, name).Parse();
}

std::string EscapeMemoryXML(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    std::string_view replacement(&c, 1);
    for (const TEntity& entity : Entities) {
      if (entity.Character == c && c != '\'')
        replacement = entity.Text;
    }
    escaped += replacement;
  }
  return escaped;
}

std::shared_ptr<IXMLDocument> TMemoryXMLDocuments::LoadXMLData(std::string_view text,
                                                               std::string_view name) {
  Loaded.emplace_back(name);
  return std::make_shared<TMemoryXMLDocument>(ParseMemoryXML(text, name));
}

std::shared_ptr<IXMLDocument> TMemoryXMLDocuments::LoadXMLFile(std::string_view fileName) {
  const auto found = FFiles.find(fileName);
  if (found == FFiles.end())
    throw TInputError("the file cannot be read", {std::string(fileName), 0});
  return LoadXMLData(found->second, fileName);
}

} // namespace deployment
