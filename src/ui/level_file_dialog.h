#pragma once

#include <QString>
#include <QStringList>

class QWidget;

// The file dialog that chooses a level file to open or to save under (native where the
// platform has one), starting in `folder`. Its sidebar and its history offer the folders of the
// `recent` files. The editor asks its own question before it writes over a file; a name saved
// without an extension gets ".VRK". Empty when cancelled.
QString chooseLevelFile(QWidget* parent, bool saving, const QString& folder,
                        const QStringList& recent);
