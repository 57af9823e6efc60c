#include "file_reasons.h"

#include "file_names.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

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

QString czechFileReason(int systemError) {
    return czechFileReason(systemError, QString::fromLocal8Bit(std::strerror(systemError)));
}

QString notAPlainFile(const QString& path) {
    struct stat info {};
    // A folder is left out: no rename can replace it, and writing there fails on its own.
    if (!statusOf(path, info) || S_ISREG(info.st_mode) || S_ISDIR(info.st_mode)) return {};
    const auto kind = [&] {
        if (S_ISFIFO(info.st_mode)) return QStringLiteral("pojmenovaná roura (FIFO)");
        if (S_ISSOCK(info.st_mode)) return QStringLiteral("socket");
        if (S_ISCHR(info.st_mode)) return QStringLiteral("znakové zařízení");
        if (S_ISBLK(info.st_mode)) return QStringLiteral("blokové zařízení");
        return QStringLiteral("zvláštní soubor");
    }();
    return QStringLiteral("není to obyčejný soubor, ale %1; nic se v něm nezměnilo.").arg(kind);
}
