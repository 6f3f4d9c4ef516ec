// The fields of a profile that depend on how its machine is reached: a page for each kind.
#pragma once

#include "workbench/remote/target/profile.h"

#include <QString>
#include <QWidget>
#include <optional>

class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

namespace workbench {

/// A field that has to be filled, and what the user does about it.
struct TMissingField {
  QWidget* Field;
  QString Advice;
};

/// The fields of one kind.
class TProfilePage : public QWidget {
  Q_OBJECT

public:
  explicit TProfilePage(QWidget* parent) : QWidget(parent) {}
  virtual void Show(const TProfile& profile) = 0;
  /// Puts what the fields say into the profile; leaves those of other kinds alone.
  virtual void Fill(TProfile& profile) const = 0;
  /// The first field that is empty and must not be.
  virtual std::optional<TMissingField> Missing() const = 0;
};

/// A directory of this machine or a mounted share.
class TFolderPage final : public TProfilePage {
  Q_OBJECT

public:
  explicit TFolderPage(QWidget* parent);
  void Show(const TProfile& profile) override;
  void Fill(TProfile& profile) const override;
  std::optional<TMissingField> Missing() const override;

private:
  void Browse();

  QLineEdit* FPath;
};

/// Another machine, through the user's own SSH client.
class TSshPage final : public TProfilePage {
  Q_OBJECT

public:
  explicit TSshPage(QWidget* parent);
  void Show(const TProfile& profile) override;
  void Fill(TProfile& profile) const override;
  std::optional<TMissingField> Missing() const override;

private:
  void AddFields();
  void Browse();

  QLineEdit* FHost;
  QSpinBox* FPort;
  QLineEdit* FUser;
  QLineEdit* FIdentity;
  QLineEdit* FPath;
  QPlainTextEdit* FOptions;
  QSpinBox* FConnectTimeout;
  QSpinBox* FKeepAlive;
};

/// The page of a kind; owned by its parent.
TProfilePage* MakeProfilePage(TProfileKind kind, QWidget* parent);

} // namespace workbench
