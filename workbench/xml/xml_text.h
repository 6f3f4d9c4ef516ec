// Text as XML markup.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// Appends the text as it stands between tags. Line ends are written as character references, so
/// that no tool that changes line ends changes the value. Throws TInputError for characters that
/// XML cannot hold and for bytes that are not UTF-8.
void AppendXmlText(std::string& markup, std::string_view text);

/// Appends the text as it stands between double quotes. Throws the same.
void AppendXmlAttributeValue(std::string& markup, std::string_view text);

} // namespace workbench
