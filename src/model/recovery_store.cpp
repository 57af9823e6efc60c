#include "recovery_store.h"

#include "file_names.h"
#include "file_reasons.h"
#include "level.h"
#include "level_file.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cerrno>

namespace RecoveryStore {

namespace {

QString levelName(const QString& folder, const QString& base) {
    return QDir(folder).filePath(base + QStringLiteral(".VRK"));
}
QString infoName(const QString& folder, const QString& base) {
    return QDir(folder).filePath(base + QStringLiteral(".json"));
}

// The reason of the last failed call, in Czech; Qt's own words when the system gave none.
QString reasonOf(int error, const QFileDevice& file) {
    if (error == 0) return czechFileReason(0, file.errorString());
    return czechFileReason(error);
}

// Replaces `path` whole by `bytes`; the Czech reason on failure.
QString saveWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly)) return reasonOf(errno, file);
    errno = 0;
    if (file.write(bytes) != bytes.size()) return reasonOf(errno, file);
    errno = 0;
    if (!file.commit()) return reasonOf(errno, file);
    return {};
}

QJsonObject toJson(const Info& info) {
    return {{QStringLiteral("path"), info.levelPath},
            {QStringLiteral("time"), info.written.toUTC().toString(Qt::ISODateWithMs)},
            {QStringLiteral("width"), info.width},
            {QStringLiteral("height"), info.height},
            {QStringLiteral("hero"), info.heroPlaced},
            {QStringLiteral("pid"), info.processId},
            {QStringLiteral("bytes"), info.bytes}};
}

}  // namespace

QString folderFor(const QString& stateHome, const QString& home) {
    // A relative XDG_STATE_HOME is to be ignored, as the base directory rules say.
    QString state = QDir::isAbsolutePath(stateHome) ? stateHome : QString();
    if (state.isEmpty() && !home.isEmpty()) state = QDir(home).filePath(".local/state");
    if (state.isEmpty()) return {};
    return QDir::cleanPath(state + QStringLiteral("/varnok/recovery"));
}

QString keyFor(const QString& absoluteLevelPath) {
    const QByteArray hash =
        QCryptographicHash::hash(fileNameToBytes(absoluteLevelPath), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(24));
}

QString write(const QString& folder, const QString& base, const Level& level, Info info) {
    errno = 0;
    if (!QDir().mkpath(folder)) return czechFileReason(errno);
    const QByteArray bytes = encodeLevelFile(level);
    info.bytes = bytes.size();
    // The level first: a JSON always describes a whole copy beside it.
    if (QString failure = saveWhole(levelName(folder, base), bytes); !failure.isEmpty())
        return failure;
    return saveWhole(infoName(folder, base), QJsonDocument(toJson(info)).toJson());
}

void remove(const QString& folder, const QString& base) {
    QFile::remove(infoName(folder, base));
    QFile::remove(levelName(folder, base));
}

std::optional<Info> readInfo(const QString& folder, const QString& base) {
    QFile file(infoName(folder, base));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(file.read(64 * 1024));
    if (!document.isObject()) return std::nullopt;
    const QJsonObject json = document.object();
    Info info;
    info.levelPath = json.value(QStringLiteral("path")).toString();
    info.written =
        QDateTime::fromString(json.value(QStringLiteral("time")).toString(), Qt::ISODateWithMs);
    info.width = json.value(QStringLiteral("width")).toInt();
    info.height = json.value(QStringLiteral("height")).toInt();
    info.heroPlaced = json.value(QStringLiteral("hero")).toBool();
    info.processId = json.value(QStringLiteral("pid")).toInteger();
    info.bytes = json.value(QStringLiteral("bytes")).toInteger(-1);
    return info;
}

bool readLevel(const QString& folder, const QString& base, const Info& info, Level& level,
               QString& reason) {
    QFile file(levelName(folder, base));
    if (!file.open(QIODevice::ReadOnly)) {
        reason = czechFileReason(ENOENT, {});
        return false;
    }
    // A copy cut off anywhere differs from the length written beside it.
    const QByteArray bytes = file.read(info.bytes + 1);
    if (bytes.size() != info.bytes) {
        reason = QStringLiteral("kopie je neúplná.");
        return false;
    }
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    Level read;
    const LevelReadResult result =
        readLevelFrom(read, buffer, shownFileName(QFileInfo(file.fileName()).fileName()));
    reason = result.ok() ? result.warning : result.refusal;
    if (!reason.isEmpty() || read.width() != info.width || read.height() != info.height) {
        if (reason.isEmpty()) reason = QStringLiteral("kopie je neúplná.");
        return false;
    }
    level = std::move(read);
    return true;
}

QString moveAside(const QString& folder, const QString& base, const QString& subfolder) {
    const QDir aside(QDir(folder).filePath(subfolder));
    if (!aside.mkpath(QStringLiteral("."))) return {};
    const QString stamp =
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString name = base + '-' + stamp;
    for (int n = 2; aside.exists(name + QStringLiteral(".VRK")); ++n)
        name = base + '-' + stamp + '-' + QString::number(n);
    const QString movedLevel = aside.filePath(name + QStringLiteral(".VRK"));
    if (!QFile::rename(levelName(folder, base), movedLevel)) return {};
    QFile::rename(infoName(folder, base), aside.filePath(name + QStringLiteral(".json")));
    // Kept from the day it was set aside, not from the day it was written.
    const QDateTime now = QDateTime::currentDateTime();
    for (const QString& path : {movedLevel, aside.filePath(name + QStringLiteral(".json"))}) {
        QFile moved(path);
        if (moved.open(QIODevice::ReadWrite))
            moved.setFileTime(now, QFileDevice::FileModificationTime);
    }
    return movedLevel;
}

void purgeOlderThan(const QString& folder, const QString& subfolder, int days) {
    const QDir aside(QDir(folder).filePath(subfolder));
    const QDateTime limit = QDateTime::currentDateTime().addDays(-days);
    for (const QFileInfo& file : aside.entryInfoList(QDir::Files))
        if (file.lastModified() < limit) QFile::remove(file.filePath());
}

}  // namespace RecoveryStore
