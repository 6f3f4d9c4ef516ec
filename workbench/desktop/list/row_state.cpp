#include "workbench/desktop/list/row_state.h"

#include "workbench/desktop/controls/svg_icon.h"

#include <QCoreApplication>
#include <string>

namespace workbench {
namespace {

// Shape and colour both tell the states apart. The colours have 3:1 on windows and lists, light and
// dark.
struct TSign {
  const char* Color;
  const char* Path;
};

constexpr std::array<TSign, RowStateCount> Signs{{
    {"#2d9854", "M3 8.5l3.5 3.5 6.5-8"},                         // a tick
    {"#3e88d3", "M8 13.5v-10M4 7l4-4 4 4"},                      // an arrow up
    {"#c96e13", "M8 2.5v10M4 9l4 4 4-4"},                        // an arrow down
    {"#978522", "M4 8.5h8M4 5h8v8h-8z"},                         // a box with a bar
    {"#d7605b", "M4 4l8 8M12 4l-8 8"},                           // a cross
    {"#7e8691", "M3.5 8h9"},                                     // a dash
    {"#7e8691", "M5.5 5.5a2.5 2.5 0 1 1 3.5 2.5l-1 1v1M8 12v1"}, // a question mark
}};

const TSign& SignOf(TRowState state) {
  return Signs[static_cast<std::size_t>(state)];
}

} // namespace

TRowState StateOf(const TRowLook& look) {
  if (!look.IsChecked)
    return TRowState::Off;
  if (!look.IsHere)
    return TRowState::MissingHere;
  if (look.RemoteStatus == "Same")
    return TRowState::Same;
  if (look.RemoteStatus == "Not Found")
    return TRowState::ToCopy;
  const bool isNewer = look.RemoteStatus == "Newer";
  if (!isNewer && look.RemoteStatus != "Older")
    return TRowState::Unknown;
  if (!look.IsOverwritten)
    return TRowState::Kept;
  return isNewer ? TRowState::ChangedThere : TRowState::ToCopy;
}

QString StateWord(TRowState state) {
  switch (state) {
  case TRowState::Same:
    return QCoreApplication::translate("RowState", "same");
  case TRowState::ToCopy:
    return QCoreApplication::translate("RowState", "to copy");
  case TRowState::ChangedThere:
    return QCoreApplication::translate("RowState", "changed there");
  case TRowState::Kept:
    return QCoreApplication::translate("RowState", "kept");
  case TRowState::MissingHere:
    return QCoreApplication::translate("RowState", "missing here");
  case TRowState::Off:
    return QCoreApplication::translate("RowState", "switched off");
  case TRowState::Unknown:
    break;
  }
  return QCoreApplication::translate("RowState", "not known");
}

QString CountWords(TRowState state, int count) {
  return QStringLiteral("%L1 %2").arg(count).arg(StateWord(state));
}

QString StateHint(TRowState state) {
  switch (state) {
  case TRowState::Same:
    return QCoreApplication::translate("RowState", "The target has this very file.");
  case TRowState::ToCopy:
    return QCoreApplication::translate(
        "RowState", "The target has no such file or an older one: a deploy copies it.");
  case TRowState::ChangedThere:
    return QCoreApplication::translate("RowState",
                                       "The file on the target is newer than the one here.");
  case TRowState::Kept:
    return QCoreApplication::translate(
        "RowState", "The target has another file, and Overwrite is off: a deploy leaves it.");
  case TRowState::MissingHere:
    return QCoreApplication::translate("RowState",
                                       "There is no such file on this machine, so it cannot be "
                                       "deployed.");
  case TRowState::Off:
    return QCoreApplication::translate("RowState",
                                       "The box is not ticked: a deploy leaves the file out.");
  case TRowState::Unknown:
    break;
  }
  return QCoreApplication::translate("RowState",
                                     "The target was not asked, or could not tell. Connect to "
                                     "learn the state.");
}

QIcon StateIcon(TRowState state) {
  const TSign& sign = SignOf(state);
  std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16" fill="none" )";
  svg.append("stroke-width=\"2.2\" stroke-linecap=\"round\" stroke-linejoin=\"round\" stroke=\"");
  svg.append(sign.Color).append("\"><path d=\"").append(sign.Path).append("\"/></svg>");
  return SvgIcon(svg);
}

QColor StateColor(TRowState state) {
  return QColor(QLatin1String(SignOf(state).Color));
}

} // namespace workbench
