#include "workbench/desktop/deploy/difference_dialog.h"

#include "package/common/errors.h"
#include "workbench/desktop/deploy/text_difference.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/files/file_reader.h"
#include "workbench/text/visible_text.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {
namespace {

using TKind = TDifferenceLine::TKind;

constexpr std::size_t LinesAround = 3;
constexpr std::size_t MostLinesShown = 5000;
constexpr std::size_t TabWidth = 4;
constexpr QSize UsualSize(900, 560);

QColor BackgroundOf(TKind kind) {
  const bool isDark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
  if (kind == TKind::Theirs)
    return isDark ? QColor(0x5a, 0x23, 0x26) : QColor(0xff, 0xe0, 0xde);
  return isDark ? QColor(0x1d, 0x4a, 0x2c) : QColor(0xd9, 0xf5, 0xe0);
}

QString LineText(std::string_view line) {
  std::string spaced;
  for (const char each : line)
    each == '\t' ? spaced.append(TabWidth, ' ') : spaced.append(1, each);
  return ToQString(Visible(spaced));
}

class TDifferenceDialog final : public QDialog {
  Q_DECLARE_TR_FUNCTIONS(TDifferenceDialog)

public:
  TDifferenceDialog(const TDeployRow& row, const TFileSides& sides, QWidget* parent)
      : QDialog(parent) {
    setWindowTitle(tr("Theirs and Ours"));
    resize(UsualSize);
    auto* layout = new QVBoxLayout(this);
    auto* names = new QLabel(
        tr("− theirs: %1\n+ ours: %2")
            .arg(ToQString(Visible(row.RemoteFile)), ToQString(Visible(row.LocalFile.string()))),
        this);
    names->setTextFormat(Qt::PlainText);
    names->setWordWrap(true);
    names->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(names);
    layout->addWidget(MakeText(sides));
    auto* buttons = new QDialogButtonBox(this);
    auto* close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
  }

private:
  QWidget* MakeText(const TFileSides& sides) {
    FText = new QPlainTextEdit(this);
    FText->setObjectName(QStringLiteral("difference"));
    FText->setAccessibleName(tr("Lines that differ"));
    FText->setReadOnly(true);
    FText->setTabChangesFocus(true);
    FText->setLineWrapMode(QPlainTextEdit::NoWrap);
    FText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    if (!sides.Problem.empty())
      FText->setPlainText(EngineText(sides.Problem));
    else if (!IsText(sides.Theirs) || !IsText(sides.Ours))
      FText->setPlainText(tr("The files are no text. Theirs has %1 bytes, ours %2.")
                              .arg(sides.Theirs.size())
                              .arg(sides.Ours.size()));
    else
      AddLines(DifferenceOf(sides.Theirs, sides.Ours));
    FText->moveCursor(QTextCursor::Start);
    return FText;
  }

  // What is the same far from every change is left out.
  void AddLines(const std::vector<TDifferenceLine>& lines) {
    std::vector<bool> isShown(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (lines[i].Kind == TKind::Same)
        continue;
      const std::size_t end = std::min(lines.size(), i + LinesAround + 1);
      for (std::size_t near = i - std::min(i, LinesAround); near < end; ++near)
        isShown[near] = true;
    }
    bool isGap = false;
    std::size_t shown = 0;
    QString text;
    std::vector<TKind> kinds;
    for (std::size_t i = 0; i < lines.size() && shown < MostLinesShown; ++i) {
      if (!isShown[i]) {
        isGap = true;
        continue;
      }
      if (std::exchange(isGap, false)) {
        text += QStringLiteral("…\n");
        kinds.push_back(TKind::Same);
      }
      const char* sign = lines[i].Kind == TKind::Same     ? "  "
                         : lines[i].Kind == TKind::Theirs ? "− "
                                                          : "+ ";
      text += QString::fromUtf8(sign) + LineText(lines[i].Text) + QLatin1Char('\n');
      kinds.push_back(lines[i].Kind);
      ++shown;
    }
    if (shown == 0)
      text = tr("The lines are the same.");
    else if (shown == MostLinesShown)
      text += tr("There are more.");
    FText->setPlainText(text);
    Colour(kinds);
  }

  void Colour(const std::vector<TKind>& kinds) {
    QTextCursor cursor(FText->document());
    for (const TKind kind : kinds) {
      if (kind != TKind::Same) {
        QTextBlockFormat format;
        format.setBackground(BackgroundOf(kind));
        cursor.mergeBlockFormat(format);
      }
      cursor.movePosition(QTextCursor::NextBlock);
    }
  }

  QPlainTextEdit* FText = nullptr;
};

TRemoteName NameOf(const std::string& path) {
  const std::size_t delimiter = path.find_last_of('/');
  return {path.substr(0, delimiter), path.substr(delimiter + 1)};
}

} // namespace

TFileSides ReadSides(IRemoteConnection& connection, const TDeployRow& row) {
  TFileSides sides;
  if (std::max(row.SizeHere, row.SizeThere) > LargestCompared) {
    sides.Problem = "the files are too large to be compared";
    return sides;
  }
  TRemoteContent theirs = connection.ReadFile(NameOf(row.RemoteFile), LargestCompared);
  if (!theirs.IsThere || !theirs.Problem.empty()) {
    sides.Problem = theirs.Problem.empty() ? row.RemoteFile + " is gone" : theirs.Problem;
    return sides;
  }
  sides.Theirs = std::move(theirs.Text);
  try {
    sides.Ours = std::string(ReadWholeFile(row.LocalFile, LargestCompared, "local file").Text());
  } catch (const deployment::TInputError& error) {
    sides.Problem = error.what();
  }
  return sides;
}

void ShowDifference(const TDeployRow& row, const TFileSides& sides, QWidget* parent) {
  TDifferenceDialog(row, sides, parent).exec();
}

} // namespace workbench
