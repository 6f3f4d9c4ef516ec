#include "tests/workbench/project/document_fixture.h"

#include <random>

namespace workbench {
namespace {

using testing::TSectionModel;

// Makes projects and changes by chance, the same ones in every run of one seed.
class TChance {
public:
  explicit TChance(unsigned seed) : FEngine(seed) {}

  std::size_t Below(std::size_t end) { return FEngine() % end; }
  std::string OneOf(const std::vector<std::string>& texts) { return texts[Below(texts.size())]; }
  std::string Text() {
    static const std::vector<std::string> Pieces = {
        "a",  "b",  "<",    ">",  "&",        "\"",           "'",
        " ",  "\t", "\r\n", "\n", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
        "]]>"};
    std::string text;
    for (std::size_t length = Below(5); length > 0; --length)
      text += OneOf(Pieces);
    return text;
  }
  TSectionModel::TEntry Entry() {
    return {std::to_string(Below(6)) + Text(), Below(2) == 0 ? "" : "t" + Text()};
  }

  /// A project with a section of some entries in a layout of its own.
  std::string Project() {
    const std::string end = OneOf({"\n", "\r\n", "\r", ""});
    const std::string indent = end.empty() ? "" : OneOf({"  ", "\t", "    ", ""});
    std::string text = OneOf({"", "<?xml version=\"1.0\"?>" + end, "<!-- head -->"});
    text += "<Project>" + end;
    if (Below(6) > 0) {
      text += indent + "<ProjectExtensions>" + end;
      if (Below(6) > 0)
        text += Section(end, indent);
      text += indent + "</ProjectExtensions>" + end;
    }
    return text + "</Project>" + OneOf({"", end, "<!-- tail -->"});
  }

  void Change(TSectionModel& model) {
    auto& entries = model.Entries;
    const auto place = [&] {
      return entries.begin() + static_cast<std::ptrdiff_t>(Below(entries.size() + 1));
    };
    const std::size_t kind = Below(8);
    if (kind < 3 || entries.empty()) {
      entries.insert(place(), Entry());
    } else if (kind == 3) {
      entries[Below(entries.size())] = Entry();
    } else if (kind == 4) {
      entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(Below(entries.size())));
    } else if (kind == 5) {
      std::swap(entries[Below(entries.size())], entries[Below(entries.size())]);
    } else if (kind == 6) {
      entries.insert(place(), TSectionModel::TEntry(entries[Below(entries.size())]));
    } else {
      model.Version = OneOf({"1", "2", "3"});
      if (Below(10) == 0)
        entries.clear();
    }
  }

private:
  std::string Section(const std::string& end, const std::string& indent) {
    std::string text = indent + indent + "<Deployment Version='2'";
    if (Below(6) == 0)
      return text + OneOf({"/>", " />", "></Deployment>"}) + end;
    text += ">" + end;
    for (std::size_t count = Below(8); count > 0; --count) {
      text += indent + indent + indent;
      text += OneOf({"", "", "", "<!-- c -->", "<?pi?>" + end});
      text += "<E N='" + std::to_string(Below(4)) + "'" + OneOf({"/>", "  ></E>", "><T>x</T></E>"});
      text += OneOf({end, end, end + end, ""});
    }
    return text + OneOf({"", "<!-- last -->"}) + indent + "</Deployment >" + end;
  }

  std::mt19937 FEngine;
};

std::size_t CountOf(std::string_view text, std::string_view piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos;
       at = text.find(piece, at + 1))
    ++count;
  return count;
}

// Outside of the section nothing may differ; returns what stands around it.
std::string Around(const std::string& text) {
  const std::size_t start = text.find("<Deployment");
  if (start == std::string::npos)
    return text;
  const std::size_t tag = text.find("</Deployment", start);
  const std::size_t end = text.find('>', tag == std::string::npos ? start : tag) + 1;
  return text.substr(0, start) + text.substr(end);
}

class RandomEdits : public ::testing::TestWithParam<TXmlEncoding> {};

TEST_P(RandomEdits, AreReadBackAsTheyWereWritten) {
  const bool wide = GetParam() != TXmlEncoding::Utf8;
  const auto encode = [&](const std::string& text) {
    return wide ? "\xFF\xFE" + EncodeMarkup(text, GetParam()) : text;
  };
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    TChance chance(seed);
    std::string bytes = encode(chance.Project());
    for (int step = 0; step < 4; ++step) {
      const TSectionModel before = testing::ModelOf(bytes);
      TSectionModel model = before.Version == "none" ? TSectionModel() : before;
      for (std::size_t changes = chance.Below(4); changes > 0; --changes)
        chance.Change(model);
      TProjectDocument document(bytes, "demo.vproj", "Deployment");
      if (chance.Below(3) == 0)
        document.ForgetLargeSection();
      const auto composed = testing::Compose(document, model);
      ASSERT_EQ(composed.has_value(), !(model == before)) << bytes;
      const std::string next = composed.value_or(bytes);
      ASSERT_EQ(testing::ModelOf(next), model) << bytes << "\n--- became ---\n" << next;
      if (!wide && before.Version != "none") {
        ASSERT_EQ(Around(next), Around(bytes));
      }
      if (!wide && before.Version != "none") {
        ASSERT_EQ(CountOf(next, "<!--"), CountOf(bytes, "<!--")) << bytes << "\n-->\n" << next;
        ASSERT_EQ(CountOf(next, "<?pi?>"), CountOf(bytes, "<?pi?>")) << bytes << "\n-->\n" << next;
      }
      bytes = next;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Encodings, RandomEdits,
                         ::testing::Values(TXmlEncoding::Utf8, TXmlEncoding::Utf16LittleEndian),
                         [](const auto& test) {
                           return test.param == TXmlEncoding::Utf8 ? "Utf8" : "Utf16";
                         });

} // namespace
} // namespace workbench
