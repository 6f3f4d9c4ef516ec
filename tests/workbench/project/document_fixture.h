// Project documents made of text, rewritten and composed for tests.
#pragma once

#include "package/common/errors.h"
#include "workbench/project/project_document.h"
#include "workbench/xml/xml_encoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench::testing {

/// A "Deployment" section as a test thinks of it: the names and texts of its entries.
struct TSectionModel {
  struct TEntry {
    std::string Name;
    std::string Text;
    bool operator==(const TEntry&) const = default;
  };

  std::string Version = "2";
  std::vector<TEntry> Entries;

  bool operator==(const TSectionModel&) const = default;

  void WriteTo(deployment::IXMLNode& section) const {
    section.SetAttribute("Version", Version);
    for (const TEntry& entry : Entries) {
      deployment::IXMLNode& child = section.AddChild("E");
      child.SetAttribute("N", entry.Name);
      if (!entry.Text.empty())
        child.AddChild("T").SetText(entry.Text);
    }
  }

  static TSectionModel ReadFrom(TXmlElement& section) {
    TSectionModel model{std::string(section.GetAttribute("Version").value_or("")), {}};
    for (TXmlElement* child = section.FirstChild(); child; child = child->NextSibling()) {
      TXmlElement* text = child->FirstChild();
      model.Entries.push_back({std::string(child->GetAttribute("N").value_or("")),
                               text ? std::string(text->Text()) : std::string()});
    }
    return model;
  }
};

inline std::string Joined(const TTextPieces& pieces) {
  std::string text;
  for (const std::string_view piece : pieces.Pieces())
    text += piece;
  return text;
}

/// The new bytes of the document; nothing when it is unchanged.
inline std::optional<std::string> Compose(TProjectDocument& document, const TSectionModel& model) {
  const auto pieces =
      document.Compose([&model](deployment::IXMLNode& node) { model.WriteTo(node); });
  return pieces ? std::optional(Joined(*pieces)) : std::nullopt;
}

inline TSectionModel ModelOf(std::string_view bytes) {
  TProjectDocument document(bytes, "demo.vproj", "Deployment");
  TXmlElement* section = document.FindSection("Deployment");
  return section ? TSectionModel::ReadFrom(*section) : TSectionModel{"none", {}};
}

/// The bytes after the section was changed; the same bytes when nothing changed. What it says is
/// read back and compared with what was written.
inline std::string Edited(std::string_view bytes,
                          const std::function<void(TSectionModel&)>& change) {
  TSectionModel model = ModelOf(bytes);
  change(model);
  TProjectDocument document(bytes, "demo.vproj", "Deployment");
  const std::string result = Compose(document, model).value_or(std::string(bytes));
  EXPECT_EQ(ModelOf(result), model) << result;
  return result;
}

/// The text with the one occurrence of a piece replaced.
inline std::string Replaced(std::string text, std::string_view piece, std::string_view by) {
  const std::size_t at = text.find(piece);
  EXPECT_NE(at, std::string::npos) << piece;
  return text.replace(at, piece.size(), by);
}

inline std::string DocumentError(std::string_view bytes) {
  try {
    const TProjectDocument document(bytes, "demo.vproj", "Deployment");
  } catch (const deployment::TInputError& error) {
    return std::to_string(error.Place().Line) + ": " + error.what();
  }
  return "no error";
}

} // namespace workbench::testing
