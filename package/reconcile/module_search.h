// Where the modules of runtime packages are found.
#pragma once

#include "package/host/api/reconcilejournal.h"
#include "package/reconcile/reconcile_target.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Hears of a file of the right name that does not fit the platform.
using TWrongImageHandler = std::function<void(const std::string& path, const std::string& what)>;

/// Looks for modules of one platform. The places are worked out once.
class TModuleSearch {
public:
  /// The target must outlive the object. `wrongImage` may be empty.
  TModuleSearch(const TReconcileTarget& target, std::string_view platform,
                TWrongImageHandler wrongImage = {});

  /// Path of the module, macros left unexpanded; the name itself when nothing fits. Errors during
  /// the search, or while its places were worked out, count as nothing found.
  std::string FindModule(std::string_view moduleName) const;

private:
  struct TPlace {
    std::string Directory; ///< as it goes into the entry
    std::string Expanded;
  };

  std::string ExpandForTarget(std::string_view text) const;
  void AddPlaces(std::string_view list);
  void AddPersonalityPlaces();
  bool Fits(const std::string& path) const;
  std::string Search(std::string_view moduleName) const;

  const TReconcileTarget& FTarget;
  const std::string FPlatform;
  TWrongImageHandler FWrongImage;
  std::vector<TPlace> FPlaces;
};

} // namespace deployment
