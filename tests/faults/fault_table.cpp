#include "tests/faults/fault_table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <utility>

namespace faults {
namespace {

constexpr std::size_t MostExamples = 40;

std::string Row(const TFamilyCount& count) {
  std::array<char, 160> row{};
  std::snprintf(row.data(), row.size(), "%-48s %7zu %7zu %7zu", count.Name.c_str(), count.Tried,
                count.Fired, count.Broken);
  return row.data() + (count.Note.empty() ? "" : "  " + count.Note) + "\n";
}

} // namespace

void TFaultTable::AddFamily(std::string name, std::string note) {
  FFamilies.push_back({std::move(name), 0, 0, 0, std::move(note)});
}

void TFaultTable::Add(const TFaultResult& result) {
  TFamilyCount& family = FFamilies.at(result.Family);
  ++family.Tried;
  family.Fired += result.IsFired ? 1 : 0;
  if (!result.IsFired)
    FNotFired.push_back(result);
  if (result.Broken.empty())
    return;
  ++family.Broken;
  FBroken.push_back(result);
}

std::string TFaultTable::LastRow() const {
  return Row(FFamilies.back());
}

bool TFaultTable::IsClean() const {
  return FBroken.empty();
}

std::string TFaultTable::Text() const {
  std::string text;
  std::map<std::string, std::size_t> examples;
  std::size_t shown = 0;
  for (const TFaultResult& result : FBroken) {
    const std::string& name = FFamilies[result.Family].Name;
    if (++examples[name + result.Broken] > 3 || ++shown > MostExamples)
      continue;
    text.append("broken: ").append(name).append(": ").append(result.Fault);
    text.append("\n  ").append(result.Broken).append("\n");
  }
  for (std::size_t i = 0; i < std::min(FNotFired.size(), MostExamples); ++i)
    text.append("not fired: ")
        .append(FFamilies[FNotFired[i].Family].Name)
        .append(": ")
        .append(FNotFired[i].Fault)
        .append("\n");
  std::array<char, 160> head{};
  std::snprintf(head.data(), head.size(), "%-48s %7s %7s %7s\n", "Family", "Tried", "Fired",
                "Broken");
  text += head.data();
  TFamilyCount sum{"Sum", 0, 0, 0, {}};
  for (const TFamilyCount& family : FFamilies) {
    text += Row(family);
    sum.Tried += family.Tried;
    sum.Fired += family.Fired;
    sum.Broken += family.Broken;
  }
  return text + Row(sum);
}

} // namespace faults
