#include "workbench/cli/view/list_json.h"

#include "package/host/api/file_columns.h"
#include "package/host/api/platforms.h"

#include <utility>

namespace workbench {

TJson ListJson(const TListQuestion& question, const std::vector<TViewRow>& rows,
               const TTargetStatus* status) {
  TJson list = TJson::Array();
  for (const TViewRow& row : rows) {
    TJson entry = TJson::Object();
    for (std::size_t i = 0; i < deployment::FileColumns.size(); ++i)
      entry.Add(std::string(deployment::FileColumns[i].Key), row.Texts[i]);
    entry.Add("checked", row.Checked);
    entry.Add("dimmed", row.Dimmed);
    if (status)
      status->AddState(row, entry);
    if (status && question.HasAge)
      status->AddAge(entry);
    list.Append(std::move(entry));
  }
  TJson document = {{"project", question.Project},
                    {"platform", question.Target.AllPlatforms
                                     ? std::string(deployment::sAllPlatforms)
                                     : question.Target.Platform},
                    {"configuration", question.Target.Configuration},
                    {"connected", question.IsConnected},
                    {"rows", std::move(list)}};
  if (status)
    status->AddTarget(document);
  return document;
}

} // namespace workbench
