// The editors of cells as Qt widgets. The form makes them, the tree shows and keeps them.
#pragma once

#include "package/host/api/envoptions.h"
#include "package/host/api/vteditors.h"

#include <QIcon>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace workbench {

/// An editor of one cell.
class TCellEditor : public deployment::ICellEditor {
public:
  std::string GetText() const final;
  void SetText(std::string_view text) final;

  /// Makes the widget, owned by `parent`, with the text in it.
  QWidget* Show(QWidget* parent);
  /// False when the form refuses the text.
  virtual bool Accepts(std::string_view /*text*/) const { return true; }
  /// The text was taken over by the form.
  virtual void Taken(std::string_view /*text*/) {}

protected:
  virtual QWidget* MakeWidget(QWidget* parent) = 0;
  virtual QString WidgetText(const QWidget& widget) const = 0;
  virtual void SetWidgetText(QWidget& widget, const QString& text) = 0;

private:
  std::string FText; // as long as there is no widget
  QPointer<QWidget> FWidget;
};

/// An edit box with a button in it. Its text comes from what the button opens.
class TButtonCellEditor final : public TCellEditor {
public:
  TButtonCellEditor(QIcon icon, deployment::TEditorButtonHandler pressed,
                    deployment::TEditorValidator validate)
      : FIcon(std::move(icon)), FPressed(std::move(pressed)), FValidate(std::move(validate)) {}

  bool Accepts(std::string_view text) const override { return !FValidate || FValidate(text); }
  /// What the form answered; also true while the form still works on it.
  bool Press() { return FPressed && FPressed(*this); }
  /// Hears of presses of the button.
  void SetOnPress(std::function<void()> handler) { FOnPress = std::move(handler); }

protected:
  QWidget* MakeWidget(QWidget* parent) override;
  QString WidgetText(const QWidget& widget) const override;
  void SetWidgetText(QWidget& widget, const QString& text) override;

private:
  QIcon FIcon;
  deployment::TEditorButtonHandler FPressed;
  deployment::TEditorValidator FValidate;
  std::function<void()> FOnPress;
};

/// A combo box whose text may be any; with or without a history.
class TComboCellEditor final : public TCellEditor {
public:
  using TTaken = std::function<void(std::string_view)>;

  /// `taken` hears of each text that the form took over.
  TComboCellEditor(std::vector<std::string> items, deployment::TEditorValidator validate,
                   TTaken taken)
      : FItems(std::move(items)), FValidate(std::move(validate)), FTaken(std::move(taken)) {}

  bool Accepts(std::string_view text) const override { return !FValidate || FValidate(text); }
  void Taken(std::string_view text) override;

protected:
  QWidget* MakeWidget(QWidget* parent) override;
  QString WidgetText(const QWidget& widget) const override;
  void SetWidgetText(QWidget& widget, const QString& text) override;

private:
  QString Shown(const std::string& item) const;

  std::vector<std::string> FItems;
  deployment::TEditorValidator FValidate;
  TTaken FTaken;
};

/// Makes the editors of one form.
class TCellEditors final : public deployment::ICellEditors {
public:
  /// Histories are kept in the settings, which must outlive the object.
  explicit TCellEditors(deployment::ISettingsStore& settings) : FSettings(settings) {}

  /// The images of the form that buttons show.
  void SetIcons(std::vector<QIcon> icons) { FIcons = std::move(icons); }

  std::unique_ptr<deployment::ICellEditor>
  CreateButtonEditor(int imageIndex, deployment::TEditorButtonHandler pressed,
                     deployment::TEditorValidator validate) override;
  std::unique_ptr<deployment::ICellEditor>
  CreateHistoryComboEditor(std::string_view historyName) override;
  std::unique_ptr<deployment::ICellEditor>
  CreateComboEditor(std::vector<std::string> items, deployment::TEditorValidator validate) override;

private:
  deployment::ISettingsStore& FSettings;
  std::vector<QIcon> FIcons;
};

} // namespace workbench
