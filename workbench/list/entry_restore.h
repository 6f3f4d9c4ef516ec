// Brings entries and classes of a deployment to recorded states, quietly and whatever the keys are.
#pragma once

#include "workbench/list/entry_record.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace workbench {

/// Listeners of the deployment hear nothing while the object lives.
class TBlockedNotification {
public:
  explicit TBlockedNotification(deployment::IProjectDeployment& deployment)
      : FDeployment(deployment) {
    FDeployment.SetBlockNotification(true);
  }
  TBlockedNotification(const TBlockedNotification&) = delete;
  TBlockedNotification& operator=(const TBlockedNotification&) = delete;
  ~TBlockedNotification() { FDeployment.SetBlockNotification(false); }

private:
  deployment::IProjectDeployment& FDeployment;
};

/// True when the deployment holds this very entry under the key.
bool IsUnderKey(deployment::IProjectDeployment& deployment,
                const deployment::IProjectDeploymentFile& file, const TEntryKey& key);

/// Adds an entry that is not held at the end of the list. It gets the key; where another entry has
/// it, a key of its own, so that no entry is lost.
void AddUnderKey(deployment::IProjectDeployment& deployment,
                 const std::shared_ptr<deployment::IProjectDeploymentFile>& file,
                 const TEntryKey& key);

/// The key to give to an entry that is put back.
using TKeyOf = std::function<TEntryKey(const deployment::IProjectDeploymentFile&)>;

/// Brings the entries, which must be all that are held, into the order: from the first one that
/// stands elsewhere on they are taken out and added again.
void PutInOrder(deployment::IProjectDeployment& deployment,
                std::span<const std::shared_ptr<deployment::IProjectDeploymentFile>> order,
                const TKeyOf& keyOf);

/// Makes the classes equal to the records, in order.
void RestoreClasses(deployment::IProjectDeployment& deployment, const TClassRecords& classes);

/// Tells listeners that the deployment changed. The contract has no word for that, so they hear of
/// one entry as modified: `changed` when it is held, else the first entry or class there is; of an
/// empty deployment they hear that an entry went.
void NotifyListeners(deployment::IProjectDeployment& deployment,
                     deployment::IProjectDeploymentFile* changed);

} // namespace workbench
