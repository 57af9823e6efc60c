#pragma once

#include <QString>

// Why a file operation failed, in Czech, from the system's error number. Reasons the
// editor does not know keep the system's own text, after a Czech sentence.
QString czechFileReason(int systemError, const QString& systemText);
// The same, with the C library's text for the error number.
QString czechFileReason(int systemError);

// What stands at `path`, following links, when it is something a save must not replace: a
// named pipe, a socket or a device, as a Czech reason ("není to obyčejný soubor,
// ale pojmenovaná roura (FIFO); ...").
// Empty when nothing is there, or a plain file or a folder (which no save can replace).
QString notAPlainFile(const QString& path);
