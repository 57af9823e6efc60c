#pragma once

#include <QString>

// Why a file operation failed, in Czech, from the system's error number. Reasons the
// editor does not know keep the system's own text, after a Czech sentence.
QString czechFileReason(int systemError, const QString& systemText);
