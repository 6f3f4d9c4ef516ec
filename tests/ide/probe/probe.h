// Tells a test where the controls of an IDE are on the screen, so that it can click them.
#pragma once

#include <QDir>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QtGui/QGenericPlugin>

namespace workbench::testing {

/// Looks for the file "question" in a directory, and writes "answer" beside it: a place on the
/// screen as "X Y" with more behind, or "none".
class TProbe final : public QObject {
  Q_OBJECT

public:
  explicit TProbe(const QString& directory);

private:
  void Look();

  const QDir FDirectory;
  QTimer FTimer;
};

/// Qt loads it into whatever program runs with QT_QPA_GENERIC_PLUGINS=ideprobe. It works in the one
/// that IDE_PROBED names; the directory stands in IDE_PROBE.
class TProbePlugin final : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
  QObject* create(const QString& name, const QString& options) override;
};

} // namespace workbench::testing
