#include "file_reasons.h"

#include <cerrno>

QString czechFileReason(int systemError, const QString& systemText) {
    switch (systemError) {
        case EACCES:
        case EPERM:
            return QStringLiteral("přístup odepřen.");
        case EROFS:
            return QStringLiteral("systém souborů je jen pro čtení.");
        case ENOSPC:
        case EDQUOT:
            return QStringLiteral("na disku není místo.");
        case EFBIG:
            return QStringLiteral("soubor by byl větší, než systém dovolí.");
        case EISDIR:
            return QStringLiteral("je to složka, ne soubor.");
        case ENOENT:
        case ENOTDIR:
            return QStringLiteral("soubor nebo složka neexistuje.");
        default:
            return QStringLiteral("neznámá chyba systému (%1).").arg(systemText);
    }
}
