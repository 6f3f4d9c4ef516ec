#include "workbench/cli/reference/command_reference.h"

#include "package/common/delimited_list.h"
#include "workbench/cli/context/common_options.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace workbench {
namespace {

std::vector<std::string> NamesOf(std::string_view declared) {
  std::vector<std::string> names;
  for (const std::string_view name : deployment::SplitDelimited(declared, ','))
    names.emplace_back(name);
  return names;
}

class TRecordedOption final : public IOption {
public:
  TRecordedOption(TOptionReference reference, std::function<std::string()> value)
      : FReference(std::move(reference)), FValue(std::move(value)) {}

  IOption& Required() override {
    FReference.IsRequired = true;
    return *this;
  }
  IOption& ValueName(const std::string& name) override {
    FReference.ValueName = name;
    return *this;
  }
  IOption& ShowDefault() override {
    FReference.Default = FValue();
    return *this;
  }
  IOption& Hidden() override {
    FReference.IsHidden = true;
    return *this;
  }
  std::string Name() const override { return FReference.LongName(); }
  bool IsGiven() const override { return false; }

  const TOptionReference& Reference() const { return FReference; }

private:
  TOptionReference FReference;
  std::function<std::string()> FValue;
};

// Keeps what is declared instead of reading a command line by it.
class TOptionRecorder final : public IOptions {
public:
  IOption& Flag(const std::string& name, bool& /*value*/, const std::string& help) override {
    return Add({.Names = NamesOf(name), .Help = help});
  }
  IOption& Text(const std::string& name, std::string& value, const std::string& help) override {
    return Add({.Names = NamesOf(name), .ValueName = "TEXT", .Help = help},
               [&value] { return value; });
  }
  IOption& Texts(const std::string& name, std::vector<std::string>& values,
                 const std::string& help) override {
    return Add({.Names = NamesOf(name), .ValueName = "TEXT", .Help = help, .IsRepeatable = true},
               [&values] { return deployment::JoinDelimited(values, ", "); });
  }
  IOption& Sequence(const std::string& name, std::vector<TGivenText>& /*values*/,
                    const std::string& help) override {
    return Add({.Names = NamesOf(name), .ValueName = "TEXT", .Help = help, .IsRepeatable = true});
  }
  IOption& Choice(const std::string& name, std::string& value,
                  const std::vector<std::string>& choices, const std::string& help) override {
    return Add({.Names = NamesOf(name), .ValueName = "TEXT", .Choices = choices, .Help = help},
               [&value] { return value; });
  }
  IOption& Number(const std::string& name, unsigned& value, int least, int most,
                  const std::string& help) override {
    return Add({.Names = NamesOf(name),
                .ValueName = "NUMBER",
                .Help = help + ", " + std::to_string(least) + " to " + std::to_string(most)},
               [&value] { return std::to_string(value); });
  }
  void Footer(const std::string& text) override { FFooter = text; }

  std::vector<TOptionReference> References() const {
    std::vector<TOptionReference> references;
    references.reserve(FOptions.size());
    for (const auto& option : FOptions)
      references.push_back(option->Reference());
    return references;
  }
  const std::string& Remarks() const { return FFooter; }

private:
  IOption& Add(TOptionReference reference, std::function<std::string()> value = {}) {
    FOptions.push_back(std::make_unique<TRecordedOption>(std::move(reference), std::move(value)));
    return *FOptions.back();
  }

  std::vector<std::unique_ptr<TRecordedOption>> FOptions;
  std::string FFooter;
};

} // namespace

bool TOptionReference::HasName(std::string_view name) const {
  return std::find(Names.begin(), Names.end(), name) != Names.end();
}

TCommandReference ReferenceOf(ICommand& command) {
  TOptionRecorder recorder;
  command.AddOptions(recorder);
  return {command.Name(), command.Summary(), recorder.References(), recorder.Remarks()};
}

std::vector<TOptionReference> CommonOptionReferences() {
  TCommonOptions nowhere;
  TOptionRecorder recorder;
  AddCommonOptions(recorder, nowhere);
  std::vector<TOptionReference> references = recorder.References();
  for (const TTextOption& option : {HelpOption, VersionOption})
    references.push_back({.Names = NamesOf(option.Names), .Help = std::string(option.Help)});
  return references;
}

} // namespace workbench
