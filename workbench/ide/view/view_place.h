// The place of a view in one of the windows, or areas, of an IDE.
#pragma once

#include <QPointer>
#include <QWidget>

namespace workbench {

/// IDEs make a tool view for each window and each area, and there is one view of the lists: it
/// stands in the place that was shown last. The view outlives its places.
class TViewPlace final : public QWidget {
  Q_OBJECT

public:
  TViewPlace(QWidget& view, QWidget* parent);
  ~TViewPlace() override;

  /// Takes the view from where it is.
  void Take();

protected:
  void showEvent(QShowEvent* event) override;

private:
  const QPointer<QWidget> FView;
};

} // namespace workbench
