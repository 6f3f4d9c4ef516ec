#include "workbench/remote/target/profile.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace workbench {
namespace {

constexpr std::array<TProfileKind, 2> Kinds{TProfileKind::Folder, TProfileKind::Ssh};
constexpr std::array<std::string_view, 2> KindNames{"folder", "ssh"}; // in the same order

} // namespace

std::string_view ProfileKindName(TProfileKind kind) {
  return KindNames[static_cast<std::size_t>(kind)];
}

TProfileKind ProfileKindFromName(std::string_view name) {
  const auto found = std::ranges::find(KindNames, name);
  if (found == KindNames.end())
    throw std::invalid_argument("there are no profiles of kind \"" + std::string(name) +
                                "\"; known are: " + std::string(KindNames[0]) + ", " +
                                std::string(KindNames[1]));
  return Kinds[static_cast<std::size_t>(found - KindNames.begin())];
}

std::span<const TProfileKind> ProfileKinds() {
  return Kinds;
}

} // namespace workbench
