#pragma once

#include <QByteArray>
#include <QString>

class QFile;
struct stat;

// File names are bytes, and Qt's strings take them as UTF-8, losing any byte that is not, so
// such a file could not be opened again. Here a byte that is not UTF-8 is kept as one of the
// code points U+DC80..U+DCFF, which no UTF-8 text holds (as Python keeps them), and given
// back to the system as the same byte. Every file the editor and varnok-level name goes
// through these; Qt's own file classes take only names without such bytes.
QString fileNameFromBytes(const QByteArray& bytes);
QByteArray fileNameToBytes(const QString& name);
// Whether the name holds such a byte.
bool hasForeignBytes(const QString& name);
// A name as it is shown to the user: such a byte as \xNN, so it never reads as another name.
QString shownFileName(const QString& name);

// The absolute form of a path without "." and ".." parts, as the editor names a level file.
QString cleanAbsolutePath(const QString& path);

// stat() of the exact name, following links; false with errno set when it fails.
bool statusOf(const QString& path, struct stat& info);
// Opens the file of the exact name for reading (without waiting on a pipe); errno on failure.
bool openForReading(QFile& file, const QString& path);
