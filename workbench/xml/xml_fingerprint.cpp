#include "workbench/xml/xml_fingerprint.h"

#include <functional>

namespace workbench {
namespace {

constexpr std::uint64_t Multiplier = 0x9E3779B97F4A7C15U;

std::uint64_t Mixed(std::uint64_t seed, std::uint64_t value) {
  const std::uint64_t mixed = (seed ^ value) * Multiplier;
  return mixed ^ (mixed >> 29);
}

std::uint64_t Hashed(std::string_view text) {
  return text.empty() ? 0 : std::hash<std::string_view>()(text);
}

} // namespace

TXmlFingerprint::TXmlFingerprint(const TXmlName& name) : FChildren(name.Hash) {}

void TXmlFingerprint::AddAttribute(const TXmlName& name, std::string_view value) {
  FAttributes += Mixed(name.Hash, Hashed(value) + 1);
}

void TXmlFingerprint::AddChild(std::uint64_t fingerprint) {
  FChildren = Mixed(FChildren + Multiplier, fingerprint);
}

std::uint64_t TXmlFingerprint::Finish(std::string_view text) const {
  return Mixed(Mixed(FChildren, FAttributes), Hashed(text));
}

std::uint64_t FingerprintOf(TXmlElement& element) {
  TXmlFingerprint fingerprint(element.Name());
  for (std::size_t i = 0; i < element.AttributeCount(); ++i)
    fingerprint.AddAttribute(element.AttributeNameAt(i), element.AttributeValue(i));
  for (TXmlElement* child = element.FirstChild(); child; child = child->NextSibling())
    fingerprint.AddChild(FingerprintOf(*child));
  return fingerprint.Finish(element.Text());
}

} // namespace workbench
