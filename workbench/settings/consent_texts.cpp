#include "workbench/settings/consent_texts.h"

#include "package/common/errors.h"
#include "workbench/json/json.h"

#include <optional>

namespace workbench {

std::vector<std::string> ConsentTextsOf(const std::string& value) {
  return ParseJson(value).AsTexts();
}

std::string TextOfConsent(const std::vector<std::string>& texts) {
  return JsonText(texts, -1);
}

std::vector<std::string> ConsentTexts(const TSettings& settings, const std::string& key) {
  const std::optional<std::string> value = settings.Get(key);
  if (!value)
    return {};
  try {
    return ConsentTextsOf(*value);
  } catch (const deployment::TInputError& error) {
    throw deployment::TInputError("the setting \"" + key + "\" is damaged: " + error.what() +
                                      "; \"settings unset\" removes it",
                                  {settings.File().string(), 0});
  }
}

} // namespace workbench
