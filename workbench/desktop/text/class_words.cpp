#include "workbench/desktop/text/class_words.h"

#include "workbench/desktop/text/qt_text.h"

namespace workbench {
namespace {

// "iOS" and "iPhone" are one word each.
bool IsBrandPrefix(const QString& name, TQtSize start, TQtSize end) {
  return end == start + 1 && name[start] == u'i';
}

bool IsWordStart(const QString& name, TQtSize start, TQtSize at) {
  const QChar before = name[at - 1];
  const QChar here = name[at];
  // "57x57" and "X86" are one word each.
  const bool isSize = (before.isDigit() && here == u'x') || (here.isDigit() && before == u'x');
  const bool isModel = here.isDigit() && before.isUpper() && at == start + 1;
  if (here.isDigit() != before.isDigit())
    return !isSize && !isModel;
  if (here.isUpper() && before.isLower())
    return !IsBrandPrefix(name, start, at);
  // The last capital of several begins the next word: "OSXFile" is "OSX File".
  return here.isUpper() && before.isUpper() && at + 1 < name.size() && name[at + 1].isLower();
}

} // namespace

QString ClassWords(std::string_view className) {
  const QString name = ToQString(className);
  QString words;
  TQtSize start = 0;
  for (TQtSize at = 0; at < name.size(); ++at) {
    const bool isGap = name[at] == u'_' || name[at] == u' ';
    if (isGap || (at > start && IsWordStart(name, start, at))) {
      if (!words.isEmpty() && !words.endsWith(u' '))
        words += u' ';
      start = isGap ? at + 1 : at;
    }
    if (!isGap)
      words += name[at];
  }
  return words.trimmed();
}

} // namespace workbench
