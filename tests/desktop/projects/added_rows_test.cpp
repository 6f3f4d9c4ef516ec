#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/projects/added_rows.h"

#include <QMimeData>
#include <QUrl>

namespace workbench {
namespace {

using namespace deployment::file_column;

class TAddedRows : public testing::TWindowTest {
protected:
  // As a file manager does it.
  void Drop(const std::filesystem::path& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path.string()))});
    const QPoint place = View().viewport()->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(View().viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(View().viewport(), &drop);
    Settle();
  }
  std::vector<std::string> SelectedNames() {
    std::vector<std::string> names;
    for (const QModelIndex& row : View().selectionModel()->selectedRows(LocalName))
      names.push_back(row.data().toString().toStdString());
    std::ranges::sort(names);
    return names;
  }
};

TEST_F(TAddedRows, AFolderComesWithItsStructureAsOneStep) {
  OpenExample();
  const std::string before = Saved();
  std::filesystem::create_directories(FRoot / "tide" / "maps" / "north");
  Write(FRoot / "tide" / "maps" / "index.txt", "1");
  Write(FRoot / "tide" / "maps" / "north" / "coast.bin", "2");
  Drop(FRoot / "tide" / "maps");
  EXPECT_EQ(SelectedNames(), (std::vector<std::string>{"coast.bin", "index.txt"}));
  EXPECT_TRUE(Row("coast.bin", RemotePath).data().toString().endsWith("maps\\north\\"))
      << Row("coast.bin", RemotePath).data().toString().toStdString();
  EXPECT_TRUE(Row("index.txt", RemotePath).data().toString().endsWith("maps\\"));
  EXPECT_TRUE(Menu("Undo")->text().remove('&').startsWith("Undo: Add maps"));
  Choose("Undo");
  EXPECT_EQ(Saved(), before);
}

TEST_F(TAddedRows, FilesThatWereAddedAreSelectedAndShown) {
  OpenExample();
  Click(Row("levels.dat", LocalName));
  Write(FRoot / "tide" / "extra.txt", "1");
  Drop(FRoot / "tide" / "extra.txt");
  EXPECT_EQ(SelectedNames(), (std::vector<std::string>{"extra.txt"}));
  EXPECT_TRUE(View().viewport()->rect().intersects(View().visualRect(Row("extra.txt"))));
}

} // namespace
} // namespace workbench
